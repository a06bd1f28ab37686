#include "plot/markers.h"

#include <QTest>
#include <cmath>
#include <numbers>

#include "plot/response_picture.h"
#include "plot/scatter.h"

using namespace kelvro;

namespace {

bool Near(double a, double b, double relative) {
    return std::fabs(a - b) <= relative * std::fabs(b);
}

/// The tank of page 1 without its second capacitor: coil and capacitor in series between twice 50
/// ohm, H = 1/(1 + j·Q·(f/f0 - f0/f)) with Q = ωL/100.
Design SeriesResonance(double f0, double Q) {
    Design design;
    design.page = 1;
    design.R1 = design.R2 = 50;
    design.fo = f0;
    design.QB = design.QBC = 1e12;
    const double omega = 2 * std::numbers::pi * f0;
    design.components[Slot::L] = Q * 100 / omega;
    design.components[Slot::C1] = 1 / (omega * Q * 100);
    design.components[Slot::C2] = 0;
    return design;
}

}  // namespace

class MarkersTest : public QObject {
    Q_OBJECT

  private slots:
    void theEdgesOfAResonanceAreThoseOfItsLoadedQ() {
        for (const double Q : {2.0, 50.0, 2000.0}) {  // the last one between two samples
            const Design design = SeriesResonance(10e6, Q);
            const TraceSource source(design);
            const Trace& gt = TraceOf("gt");
            const Samples samples = Sampled(source, DefaultView(gt, design), gt);
            // |H|² = 1/2 where Q·(f/fo - fo/f) = ±1: the edges multiply to fo² and lie fo/Q apart.
            const PassEdges half = EdgesOf(source, gt, samples, 10 * std::log10(2.0));
            QVERIFY2(Near(half.width(), 10e6 / Q, 1e-6), qPrintable(QString::number(half.width())));
            QVERIFY(Near(half.low * half.high, 1e14, 1e-6));
            QVERIFY(Near(half.loadedQ(), Q, 1e-4));
            QVERIFY(Near(half.peak, 10e6, 1e-4 / Q));
            // 1 dB: 1 + x² = 10^0.1.
            const double x = std::sqrt(std::pow(10.0, 0.1) - 1);
            QVERIFY(Near(EdgesOf(source, gt, samples, 1).width(), x * 10e6 / Q, 1e-4));
        }
    }

    void anEdgeOutsideOfThePlotIsSaidToLieThere() {
        const Design design = SeriesResonance(10e6, 2);
        const TraceSource source(design);
        const Trace& gt = TraceOf("gt");
        View view = DefaultView(gt, design);
        view.x.min = 9e6;
        const PassEdges edges = EdgesOf(source, gt, Sampled(source, view, gt), 3);
        QVERIFY(std::isnan(edges.low) && !std::isnan(edges.high));
        const QString text = QString::fromStdString(EdgesText(edges));
        QVERIFY2(text.startsWith("-3dB: below the plot to 12.8") && !text.contains("width"),
                 qPrintable(text));
    }

    void markersReadTheCurvesAndTheirDifferences() {
        const Design design = SeriesResonance(10e6, 2);
        const TraceList traces{&TraceOf("gt"), &TraceOf("phi")};
        // At fo nothing is lost; at twice fo x = 2·1.5 = 3: -10 dB, -71.565 degrees.
        const MarkerTable table = MarkerTableOf(TraceSource(design), traces, {10e6, 20e6});
        QCOMPARE(table.header,
                 (std::vector<std::string>{"", "f", "GT", "phi", "Δf", "ΔGT", "Δphi"}));
        QCOMPARE(table.rows.size(), std::size_t{2});
        const std::vector<std::string> second{"2",         "20.000MHz", "-10.000dB", "-71.565°",
                                              "10.000MHz", "-10.000dB", "-71.565°"};
        QCOMPARE(table.rows[1], second);
        QVERIFY(table.rows[0][4].empty());
        const auto lines = MarkerLines(TraceSource(design), traces, {10e6, 20e6});
        QCOMPARE(lines[1], std::string("2: f=20.000MHz, GT=-10.000dB, phi=-71.565°, "
                                       "Δf=10.000MHz, ΔGT=-10.000dB, Δphi=-71.565°"));
    }

    void aPointerIsTouchedNearItsPlaceOnly() {
        const Frame frame{{0, 0, 100, 100}, {.x = {.max = 10}, .y = {.max = 10}}};
        const std::vector<Pointer> pointers{{2, 5, false, "1", {}}, {7, 5, false, "2", {}}};
        QCOMPARE(PointerAt(frame, pointers, 71, 45), std::optional<std::size_t>(1));
        QVERIFY(!PointerAt(frame, pointers, 50, 50));
        QVERIFY(!PointerAt(frame, pointers, 70, 90));
        QCOMPARE(NearestMarker({1e6, 1e8}, 2e7), std::optional<std::size_t>(1));
        QVERIFY(!NearestMarker({}, 1e6));
    }

    void runsOfASeedAreDrawnAgainAsTheyWere() {
        const Design design = SeriesResonance(10e6, 5);
        const Tolerances tolerances{5, 5, 5};
        Scatter oneByOne;
        for (int run = 0; run < 4; ++run) oneByOne.add(1, 7, tolerances);
        Scatter together;
        together.add(4, 7, tolerances);
        const auto designs = together.designs(design);
        QCOMPARE(designs.size(), std::size_t{4});
        QVERIFY(designs == oneByOne.designs(design));
        QVERIFY(!(designs[0] == designs[1]));
        QVERIFY(together.designs(design, 3).front() == designs[3]);
        Scatter others;
        others.add(1, 8, tolerances);
        others.add(1, 7, tolerances);
        QVERIFY(others.designs(design)[1] == designs[0]);
        QVERIFY(!(others.designs(design)[0] == designs[0]));
    }

    void anEnvelopeHoldsAllRunsAndItsPercentilesMostOfThem() {
        const Design design = SeriesResonance(10e6, 20);
        Scatter scatter;
        scatter.add(200, 3, {5, 5, 5});
        const auto runs = scatter.designs(design);
        for (const char* key : {"gt", "phi"}) {
            const Trace& trace = TraceOf(key);
            const View view = DefaultView(trace, design);
            const Envelope envelope = EnvelopeOf(design, runs, view, trace);
            QVERIFY(envelope.f.size() > 255);
            const TraceSource nominal(design);
            for (std::size_t i = 0; i < envelope.f.size(); ++i) {
                int inside = 0;
                for (const Design& run : runs) {
                    double y = trace.value(TraceSource(run), envelope.f[i]);
                    const double middle = trace.value(nominal, envelope.f[i]);
                    if (trace.turn > 0) y = middle + std::remainder(y - middle, trace.turn);
                    QVERIFY(envelope.min[i] <= y && y <= envelope.max[i]);
                    inside += envelope.percentile5[i] <= y && y <= envelope.percentile95[i];
                }
                QVERIFY(inside >= 178 && inside <= 182);  // nine tenths of 200
                QVERIFY(envelope.percentile5[i] <= envelope.median[i]);
            }
        }
        QVERIFY(
            EnvelopeOf(design, {}, DefaultView(TraceOf("gt"), design), TraceOf("gt")).f.empty());
    }
};

QTEST_GUILESS_MAIN(MarkersTest)
#include "markers_test.moc"
