// Sampling and drawing of one response picture, as the plot windows do it on every change.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "analysis/response.h"
#include "design/cycle.h"
#include "plot/frame_painter.h"
#include "plot/response_picture.h"

namespace {

using namespace kelvro;

Design DesignedState() {
    Design state;
    ResponseServices services;
    Calculate(state, true, services);
    return state;
}

void BM_SampleResponse(benchmark::State& run) {
    const Design state = DesignedState();
    const Trace& gain = TraceOf("gt");
    const View view = DefaultView(gain, state);
    for (auto _ : run) benchmark::DoNotOptimize(Sampled(state, view, gain));
}
BENCHMARK(BM_SampleResponse)->Unit(benchmark::kMicrosecond);

/// Argument: pixels per logical pixel.
void BM_DrawPicture(benchmark::State& run) {
    const Design state = DesignedState();
    const Trace& gain = TraceOf("gt");
    const ResponsePlot plot{{&gain}, DefaultView(gain, state)};
    const QSize size(640, 420);
    const auto ratio = static_cast<double>(run.range(0));
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    const FramePainter frame;
    for (auto _ : run) {
        QPainter painter(&image);
        frame.draw(painter, size, ResponsePicture(state, plot));
    }
}
BENCHMARK(BM_DrawPicture)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
