#include "plot/curve_sampling.h"

#include <QTest>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "design/pages.h"
#include "plot/response_picture.h"
#include "tests/calculated.h"

using namespace kelvro;

namespace {

Design Designed(int page, double fo, double Q) {
    Design state;
    EnterPage(state, page);
    state.fo = fo;
    state.Q = Q;
    return CalculatedEitherWay(state);
}

/// A series coil between 50 ohm, both ends shunted by the slots' capacitors: without them a plain
/// low-pass, with L in resonance with them a peak as sharp as they make it.
Design SharpPi(double resonance, double Q) {
    Design state;
    EnterPage(state, 3);
    state.fo = 1e6;
    state.R1 = state.R2 = 50;
    state.QB = state.QBC = 1e12;
    const double omega = 2 * std::numbers::pi * resonance;
    // Each end sees R across C: Q = ωRC. The coil tunes both capacitors in series.
    state.components[Slot::C1] = state.components[Slot::C2] = Q / (omega * 50);
    state.components[Slot::L] = 2 * 50 / (omega * Q);
    return state;
}

/// Distance of the polyline from the trace, the worst of several places within each of its lines.
double WorstError(const TraceSource& source, const Samples& samples, const Trace& trace, bool log) {
    double worst = 0;
    for (std::size_t i = samples.first + 1; i < samples.x.size(); ++i) {
        const double a = samples.x[i - 1];
        const double b = samples.x[i];
        for (const double part : {0.1, 0.25, 0.4, 0.6, 0.75, 0.9}) {
            const double f = log ? a * std::pow(b / a, part) : a + part * (b - a);
            double rise = samples.y[i] - samples.y[i - 1];
            if (trace.turn > 0) rise = std::remainder(rise, trace.turn);
            double error = trace.value(source, f) - samples.y[i - 1] - part * rise;
            if (trace.turn > 0) error = std::remainder(error, trace.turn);
            worst = std::max(worst, std::fabs(error));
        }
    }
    return worst;
}

}  // namespace

class CurveSamplingTest : public QObject {
    Q_OBJECT

  private slots:
    void thePrescribedSamplesStayAsTheyAre() {
        const Design state = Designed(3, 10e6, 50);
        for (const bool log : {true, false}) {
            View view = DefaultView(TraceOf("gt"), state);
            if (!log) view.x = {.mode = AxisMode::Linear, .min = 0, .max = 1e8};
            const Samples samples = Sampled(state, view, TraceOf("gt"));
            const auto expected = SampleFrequencies(view);
            QCOMPARE(samples.prescribed.size(), expected.size());
            for (std::size_t i = 0; i < expected.size(); ++i) {
                QCOMPARE(samples.x[samples.prescribed[i]], expected[i]);
            }
            QVERIFY(std::is_sorted(samples.x.begin(), samples.x.end()));
            QCOMPARE(samples.first, std::size_t(log ? 0 : 1));
        }
    }

    void noLineOfAnyPageIsOffByMoreThanATenthOfADecibel_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<double>("Q");
        for (const int page : {1, 2, 3, 4, 5, 6, 7, 13, 14, 16, 17, 18})
            for (const double Q : {1.0, 100.0, 500.0})
                QTest::addRow("page %d, Q %g", page, Q) << page << Q;
    }
    void noLineOfAnyPageIsOffByMoreThanATenthOfADecibel() {
        QFETCH(int, page);
        QFETCH(double, Q);
        const Design state = Designed(page, 2.45e9, Q);
        const TraceSource source(state);
        for (const auto& [key, most] : {std::pair("v", 0.1), {"gt", 0.1}, {"phi", 0.5}}) {
            const Trace& trace = TraceOf(key);
            View view = DefaultView(trace, state);
            for (const bool log : {true, false}) {
                view.x.mode = log ? AxisMode::Logarithmic : AxisMode::Linear;
                const Samples samples = Sampled(source, view, trace);
                // What lies between the places that were looked at may be a little worse.
                const double worst = WorstError(source, samples, trace, log);
                QVERIFY2(worst <= 1.2 * most, qPrintable(QString("%1 %2").arg(key).arg(worst)));
                QVERIFY(samples.x.size() < 3000);
            }
        }
    }

    void theCurveReachesThePeakOfTheResonance() {
        // Between the samples of three decades lie 2.7 %: a resonance of Q 100 fits in.
        const Design state = Designed(1, 2.45e9, 100);
        const TraceSource source(state);
        double peak = -1000;
        for (int i = -20000; i <= 20000; ++i) {
            peak = std::max(peak, source.response->relativeDb(2.45e9 * (1 + i * 1e-6)));
        }
        const Samples samples = Sampled(source, DefaultView(TraceOf("gt"), state), TraceOf("gt"));
        QVERIFY2(std::fabs(PeakOf(samples) - peak) < 1e-4,
                 qPrintable(QString::number(PeakOf(samples))));
        double sampled = -1000;
        for (const std::size_t at : samples.prescribed) sampled = std::max(sampled, samples.y[at]);
        QVERIFY(sampled < peak - 3);  // else this test would show nothing
        const std::size_t stop = samples.stops[PeakStop(samples)];
        QCOMPARE(samples.y[stop], PeakOf(samples));
        const std::size_t fo = samples.stops[NearestStop(samples, 2.45e9)];
        QVERIFY(std::fabs(samples.x[fo] / 2.45e9 - 1) < 1e-3);
    }

    void aResonanceOfAnySharpnessIsFound() {
        for (const double Q : {100.0, 1e4, 1e6}) {
            const Design state = SharpPi(3.3e6, Q);
            const Samples samples =
                Sampled(state, DefaultView(TraceOf("gt"), state), TraceOf("gt"));
            // A symmetrical lossless network is matched at its resonance.
            QVERIFY2(std::fabs(PeakOf(samples)) < 1e-3,
                     qPrintable(QString::number(PeakOf(samples))));
            const double f = samples.x[samples.stops[PeakStop(samples)]];
            QVERIFY(std::fabs(f / 3.3e6 - 1) < 2 / Q);
        }
    }

    void aFlatCurveGetsNoFurtherPoints() {
        Design state;
        EnterPage(state, 10);  // no response: sqrt(R2/R1) everywhere
        const Samples samples = Sampled(state, DefaultView(TraceOf("v"), state), TraceOf("v"));
        QCOMPARE(samples.x.size(), std::size_t{256});  // 255 samples, and fo
        QCOMPARE(samples.stops.size(), std::size_t{256});
    }

    void aCurveZoomedIntoIsSmoothAndAxesWithoutEndStaySmall() {
        const Design state = Designed(3, 10e6, 20);
        const TraceSource source(state);
        View view = DefaultView(TraceOf("gt"), state);
        const double peak = PeakOf(Sampled(source, view, TraceOf("gt")));
        view.y.min = peak - 1e-3;
        view.y.max = peak + 1e-3;
        const Samples zoomed = Sampled(source, view, TraceOf("gt"));
        QVERIFY(zoomed.x.size() < 3000);
        // Around the peak a line may be off by a 400th of the axis.
        for (std::size_t i = 1; i < zoomed.x.size(); ++i) {
            if (std::min(zoomed.y[i], zoomed.y[i - 1]) < view.y.min) continue;
            const double f = std::sqrt(zoomed.x[i] * zoomed.x[i - 1]);
            const double drawn = (zoomed.y[i] + zoomed.y[i - 1]) / 2;
            QVERIFY(std::fabs(source.response->relativeDb(f) - drawn) < 2e-3 / 400);
        }
        view.y.min = view.y.max;
        QVERIFY(Sampled(source, view, TraceOf("delay")).x.size() <= 21'000);
    }
};

QTEST_GUILESS_MAIN(CurveSamplingTest)
#include "curve_sampling_test.moc"
