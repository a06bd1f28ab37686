// A node dragged on the Smith chart with everything of the Network window open: six lossy parts
// before a measured antenna, two quantities in each plot, two snapshots, sliders. Aim: at most 16
// ms from the pointer's move until all is painted; "longest" is that of the worst frame.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <memory>

#include "design/cycle.h"
#include "ui/plot/design_host.h"
#include "ui/workbench/network_window.h"
#include "ui/workbench/smith_view.h"
#include "ui/workbench/sweep_view.h"

namespace kelvro {
namespace {

class NoDesign : public DesignHost {
  public:
    const Design& design() const override { return result_.design; }
    const CycleResult& result() const override { return result_; }
    void recalculate(bool) override {}
    void goToPage(int) override {}
    void showMessage(const QString&) override {}

  private:
    CycleResult result_;
};

/// An antenna of 201 points around 100 MHz.
std::shared_ptr<const PortData> Antenna() {
    PortData data;
    data.name = "antenna.s1p";
    for (int i = 0; i <= 200; ++i) {
        data.f.push_back(50e6 + 0.5e6 * i);
        data.s.push_back({std::polar(0.6, 3.0 - 0.02 * i)});
    }
    return std::make_shared<const PortData>(std::move(data));
}

Network SixParts(double scale) {
    Network network;
    network.source = 50.0;
    network.load = Impedance::Measured{Antenna(), 0, false};
    for (const double step : {0.7, 1.0, 1.6}) {
        Part coil = Part::L(60e-9 * scale * step);
        coil.loss = {PartLoss::Law::RootQ, 60, 1e8};
        Part capacitor = Part::C(20e-12 * scale / step);
        capacitor.loss = {.ESR = 0.2};
        network.ladder.push_back(SeriesArm(coil));
        network.ladder.push_back(ShuntArm(capacitor));
    }
    network.designFrequency = 100e6;
    network.bands = {{90e6, 110e6}};
    return network;
}

void FillWindow(NetworkWindow& window) {
    window.model().open(SixParts(1));
    for (const double scale : {0.8, 1.2}) {
        window.model().addSnapshot(QString::number(scale));
        window.model().take("Other", SixParts(scale));
    }
    const auto traces = [](const char* left, const char* right) {
        return TraceList{FindTrace(left), FindTrace(right)};
    };
    window.findChild<SweepView*>("Plot1")->setTraces(traces("gt", "phi"));
    window.findChild<SweepView*>("Plot2")->setTraces(traces("rl", "delay"));
}

void Send(QWidget& widget, QEvent::Type type, QPointF at) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}

void BM_DragNode(benchmark::State& run) {
    NoDesign host;
    NetworkWindow window(host);
    window.resize(1280, 800);
    window.show();
    FillWindow(window);
    QApplication::processEvents();
    SmithView& chart = window.chart();
    const QPointF from = chart.nodePosition(3);
    Send(chart, QEvent::MouseButtonPress, from);
    double longest = 0;
    int i = 0;
    for (auto _ : run) {
        const double angle = 0.1 * ++i;
        QElapsedTimer timer;
        timer.start();
        Send(chart, QEvent::MouseMove, from + QPointF(30 * std::sin(angle), 30 * std::cos(angle)));
        longest = std::max(longest, 1e-6 * static_cast<double>(timer.nsecsElapsed()));
    }
    Send(chart, QEvent::MouseButtonRelease, from);
    run.counters["longest_ms"] = longest;
    window.model().markSaved();
}
BENCHMARK(BM_DragNode)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvro

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen").toUtf8());
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
