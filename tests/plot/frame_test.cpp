#include "plot/frame.h"

#include <QTest>
#include <cmath>
#include <limits>

#include "plot/clipping.h"
#include "plot/ticks.h"
#include "tests/plot/axes.h"

using namespace kelvro;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

class FrameTest : public QObject {
    Q_OBJECT

  private slots:
    void worldValuesGoToPixelsAndBeyondTheRangeToTheBorder() {
        struct Row {
            const char* name;
            AxisMode mode;
            double min, max, world;
            int pixel;
        };
        for (const auto& [name, mode, min, max, world, pixel] :
             {Row{"below", AxisMode::Linear, 0, 10, -3, 100},
              Row{"at the upper end", AxisMode::Linear, 0, 10, 10, 300},
              Row{"above", AxisMode::Linear, 0, 10, 1e300, 300},
              Row{"tie rounds to even", AxisMode::Linear, 0, 200, 2.5, 102},
              Row{"one decade of three", AxisMode::Logarithmic, 1e3, 1e6, 1e4, 167},
              Row{"no place on a log axis", AxisMode::Logarithmic, 1e3, 1e6, -1, 100},
              Row{"not a number", AxisMode::Linear, 0, 10, kNaN, 100},
              Row{"range without extent", AxisMode::Linear, 5, 5, 5, 300}})
            QVERIFY2(MakeAxis(mode, min, max).toPixel(world, 100, 300) == pixel, name);
    }

    void aPixelInsideThePlotConvertsToAValueThatComesBackToIt() {
        const PlotRect plot{37, 21, 611, 403};
        Frame frame{plot, GainView(10)};
        for (const AxisMode mode : {AxisMode::Linear, AxisMode::Logarithmic}) {
            frame.view.x.mode = mode;
            for (int px = plot.left + 1; px < plot.right; ++px) {
                QCOMPARE(frame.xPixel(frame.toWorld(px, 100).x), px);
            }
        }
        for (int py = plot.top + 1; py < plot.bottom; ++py) {
            QCOMPARE(frame.yPixel(frame.toWorld(100, py).y), py);
        }
    }

    void aPixelOnOrBeyondTheBorderConvertsAsTheFirstInside() {
        const Frame frame{{10, 10, 110, 110}, {.x = {.max = 100}, .y = {.max = 100}}};
        QCOMPARE(frame.toWorld(10, 110).x, 1.0);
        QCOMPARE(frame.toWorld(-500, 5000).y, 1.0);
        QCOMPARE(frame.toWorld(110, 10).x, 99.0);
        QCOMPARE(frame.toWorld(9999, 10).y, 99.0);
        QVERIFY(!frame.contains(10, 50));
        QVERIFY(!frame.contains(50, 110));
        QVERIFY(frame.contains(11, 109));
    }

    void aSymmetricModeOfOneAxisHoldsForBoth() {
        const View view = WithModes({}, AxisMode::Logarithmic, AxisMode::Symmetric);
        QCOMPARE(view.x.mode, AxisMode::Symmetric);
        const View other = WithModes({}, AxisMode::SymmetricAlternate, AxisMode::Linear);
        QCOMPARE(other.y.mode, AxisMode::SymmetricAlternate);
        const View mixed = WithModes({}, AxisMode::SymmetricAlternate, AxisMode::Symmetric);
        QCOMPARE(mixed.x.mode, AxisMode::Symmetric);
    }

    void autoscaleGivesReadableRanges_data() {
        QTest::addColumn<QString>("which");
        QTest::addColumn<int>("mode");
        QTest::addColumn<QList<double>>("values");
        QTest::addColumn<QList<double>>("expected");  // min, max, origin, step
        const auto row = [](const char* name, const char* which, int mode, QList<double> values,
                            QList<double> expected) {
            QTest::addRow("%s", name) << which << mode << values << expected;
        };
        // By hand: 93.2M rounds up to one digit as 100M; 1e8/30 = 3.3M steps by 5M.
        row("linear x starts at 0", "x", 0, {2e6, 93.2e6}, {0, 1e8, 0, 5e6});
        row("linear x of negative values", "x", 0, {-93, -12}, {-50, -20, -50, 1});
        row("log x keeps its ends", "x", 1, {5e4, 5e7}, {5e4, 5e7, 5e4, 2e6});
        row("log x from 0 spans three decades", "x", 1, {0, 5e7}, {5e4, 5e7, 5e4, 2e6});
        // 1.001·30 = 30.03 rounds up to 40; 80/30 = 2.67 steps by 5.
        row("symmetric x", "x", 2, {-30, 4}, {-40, 40, 0, 5});
        row("linear y across 0", "y", 0, {-75.3, 2.3}, {-80, 3, 0, 5});
        row("linear y above 0 starts there", "y", 0, {3, 19.5}, {0, 20, 0, 1});
        row("small negative y", "y", 0, {-0.5, -0.2}, {-0.5, -0.1, -0.5, 0.02});
        row("negative y ends at 0", "y", 0, {-75.3, -12}, {-80, 0, 0, 5});
        row("log y", "y", 1, {-1, 7}, {7e-3, 7, 7e-3, 0.5});
        row("symmetric y", "y", 3, {-0.2, 0.1}, {-0.3, 0.3, 0, 0.02});
        row("values that are not finite are passed over", "y", 0,
            {kNaN, -75.3, std::numeric_limits<double>::infinity(), 2.3}, {-80, 3, 0, 5});
        row("a flat curve still has a range", "y", 0, {0, 0}, {-1, 1, 0, 0.1});
    }
    void autoscaleGivesReadableRanges() {
        QFETCH(QString, which);
        QFETCH(int, mode);
        QFETCH(QList<double>, values);
        QFETCH(QList<double>, expected);
        const Axis axis = MakeAxis(static_cast<AxisMode>(mode), 1, 2);
        const Axis scaled = which == "x" ? AutoscaledX(axis, values) : AutoscaledY(axis, values);
        CompareAxis(scaled, expected[0], expected[1], expected[2], expected[3]);
        QCOMPARE(scaled.labelEvery, 5);
    }

    void autoscaleWithoutUsableValuesChangesNothing() {
        const Axis log = MakeAxis(AxisMode::Logarithmic, 1, 2);
        QCOMPARE(AutoscaledX(log, std::vector{-3.0, 0.0}), log);
        QCOMPARE(AutoscaledY(log, std::vector{kNaN}), log);
        QCOMPARE(AutoscaledY(log, {}), log);
    }

    void anOriginOutsideTheRangeMovesToItsRoundedMiddleOrItsStart() {
        const auto recentred = [](double min, double max, double origin) {
            return Recentred(MakeAxis(AxisMode::Linear, min, max, origin)).origin;
        };
        QCOMPARE(recentred(1, 9, 9), 9.0);
        // (11 + 32) rounds up to 50, half of it is 25.
        QCOMPARE(recentred(11, 32, 0), 25.0);
        // (104 + 106) rounds up to 300, half of it is 150: outside.
        QCOMPARE(recentred(104, 106, 0), 104.0);
    }

    void viewsOpenWithTheRangeOfTheDesign() {
        const View view = GainView(20);
        CompareAxis(view.x, 5e4, 5e7, 5e4, 1e6);
        CompareAxis(view.y, -40, 20, 0, 1);
        const auto f = SampleFrequencies(view);
        QCOMPARE(f.size(), std::size_t{255});
        QVERIFY(std::fabs(f[1] / f[0] - std::pow(1000.0, 1 / 254.0)) < 1e-13);
        QVERIFY(std::fabs(f.back() / 5e7 - 1) < 1e-11);
        const PlotSettings published = Published(view);
        QCOMPARE(published, (PlotSettings{254, 1, 0, 5, 5, 5e7, 5e4, -40, 20, 5e4, 0, 1e6, 1}));
    }

    void windowSizesFollowTheScreen() {
        QCOMPARE(StandardSize(798), (PixelSize{533, 400}));
        QCOMPARE(StandardSize(799), (PixelSize{640, 480}));
        QCOMPARE(StandardSize(998), (PixelSize{640, 480}));
        QCOMPARE(StandardSize(999), (PixelSize{768, 576}));
        QCOMPARE(Enlarged({640, 480}), (PixelSize{853, 640}));
        QCOMPARE(Reduced({533, 400}), (PixelSize{400, 300}));
    }

    void harmonicsEndBelowTheRangeAndAfterFifty() {
        QCOMPARE(Harmonics(10, 40), (std::vector<double>{10, 20, 30}));
        QCOMPARE(Harmonics(1, 1e9).size(), std::size_t{50});
        QVERIFY(Harmonics(0, 1e9).empty());
    }

    void curvesAreCutWhereTheyCrossTheBorder() {
        const Frame frame{{0, 0, 100, 100}, {.x = {.max = 10}, .y = {.max = 10}}};
        // Up through the top between x = 4 and 6, down again behind a gap.
        const auto runs = ClippedRuns(frame, std::vector<double>{0, 4, 6, 7, 8, 9, 12},
                                      std::vector<double>{5, 5, 15, kNaN, 15, 5, 5});
        QCOMPARE(runs.size(), std::size_t{2});
        QCOMPARE(runs[0].size(), std::size_t{3});
        QCOMPARE(runs[0].back().x, 50.0);
        QCOMPARE(runs[0].back().y, 0.0);
        QCOMPARE(runs[1].front().x, 85.0);
        QCOMPARE(runs[1].back().x, 100.0);
        QVERIFY(ClippedRuns(frame, std::vector{1.0, 2.0}, std::vector{11.0, 20.0}).empty());
    }

    void aPhaseThatWrapsLeavesAtOneEndAndComesInAtTheOther() {
        const Frame frame{{0, 0, 100, 360}, {.x = {.max = 10}, .y = {.min = -180, .max = 180}}};
        const std::vector<double> x{0, 4, 8, 10};
        // From 160 to -160 the turn lies half way; the step by 150 is none.
        const auto runs = ClippedRuns(frame, x, std::vector<double>{100, 160, -160, -10}, 360);
        QCOMPARE(runs.size(), std::size_t{2});
        QCOMPARE(runs[0].back().x, 60.0);
        QCOMPARE(runs[0].back().y, 0.0);
        QCOMPARE(runs[1].front().x, 60.0);
        QCOMPARE(runs[1].front().y, 360.0);
        QCOMPARE(runs[1].size(), std::size_t{3});
        // From one end to the other there is no way at all.
        const auto ends = ClippedRuns(frame, x, std::vector<double>{-180, 180, 180, 180}, 360);
        QVERIFY(!std::isnan(ends.front().back().x));
    }

    void labelsOfAllRangesAreApartAndDistinct_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<double>("step");
        QTest::addRow("gain") << 0 << -40.0 << 10.0 << 1.0;
        QTest::addRow("step far too fine") << 0 << -1000.0 << 1000.0 << 1e-9;
        QTest::addRow("no step") << 0 << 0.0 << 1.0 << 0.0;
        QTest::addRow("narrow at high frequency") << 0 << 99.9985e6 << 100.001e6 << 50.0;
        QTest::addRow("three decades") << 1 << 5e4 << 5e7 << 1e6;
        QTest::addRow("thirty decades") << 1 << 1e-18 << 1e12 << 1e11;
        QTest::addRow("two decades from an odd value") << 1 << 123.4 << 9876.0 << 100.0;
        QTest::addRow("part of a decade") << 1 << 60e6 << 150e6 << 1e6;
        QTest::addRow("a sliver of a log axis") << 1 << 99.9e6 << 100.2e6 << 1e4;
    }
    void labelsOfAllRangesAreApartAndDistinct() {
        QFETCH(int, mode);
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(double, step);
        Axis axis = MakeAxis(static_cast<AxisMode>(mode), min, max);
        axis.step = step;
        const auto extent = [](const std::string& text) { return 8.0 * double(text.size()); };
        for (const double pixels : {90.0, 250.0, 600.0, 2000.0}) {
            const Ticks ticks = TicksOf(axis, pixels, LabelStyle::Engineering, extent);
            QVERIFY(!ticks.major.empty());
            if (pixels > 200) QVERIFY(ticks.major.size() >= 2);
            QVERIFY(double(ticks.minor.size()) < pixels);
            double reached = -1e9;
            std::string last;
            for (const Tick& tick : ticks.major) {
                const double centre = axis.fraction(tick.value) * pixels;
                QVERIFY(centre >= -1e-6 && centre <= pixels + 1e-6);
                QVERIFY(centre - extent(tick.label) / 2 >= reached - 1e-6);
                QVERIFY(tick.label != last);
                reached = centre + extent(tick.label) / 2;
                last = tick.label;
            }
        }
    }

    void degreesAreLabelledInPartsOfATurn() {
        struct Row {
            double min, max, step;
            int every;
            double labelStep;
        };
        for (const auto& [min, max, step, every, labelStep] :
             {Row{-180, 180, 15, 3, 45}, Row{-200, 200, 20, 5, 90}, Row{-200, 80, 10, 5, 45},
              Row{-1000, 1000, 50, 5, 180}, Row{-100, -50, 1, 5, 5}}) {
            Axis axis = MakeAxis(AxisMode::Linear, min, max);
            axis.step = step;
            axis.labelEvery = every;
            const auto line = [](const std::string&) { return 12.0; };
            const Ticks ticks = TicksOf(axis, 400, LabelStyle::Degrees, line);
            QVERIFY(ticks.major.size() >= 2);
            for (std::size_t i = 1; i < ticks.major.size(); ++i)
                QCOMPARE(ticks.major[i].value - ticks.major[i - 1].value, labelStep);
            QCOMPARE(std::remainder(ticks.major[0].value, labelStep), 0.0);
        }
    }

    void axesWithoutExtentHaveNoTicks() {
        const auto extent = [](const std::string&) { return 10.0; };
        for (const Axis& axis :
             {MakeAxis(AxisMode::Linear, 3, 3), MakeAxis(AxisMode::Linear, 5, 1),
              MakeAxis(AxisMode::Logarithmic, 0, 1), MakeAxis(AxisMode::Linear, kNaN, 1),
              MakeAxis(AxisMode::Linear, 1, 1 + 1e-15),
              MakeAxis(AxisMode::Linear, -1e308, 1e308)}) {
            QVERIFY(TicksOf(axis, 500, LabelStyle::Plain, extent).major.empty());
        }
    }

    void frequenciesAreLabelledWithPrefixes() {
        QCOMPARE(EngineeringLabel(500e3), std::string("500k"));
        QCOMPARE(EngineeringLabel(1e6), std::string("1M"));
        QCOMPARE(EngineeringLabel(2.5e9), std::string("2.5G"));
        QCOMPARE(EngineeringLabel(99.9985e6), std::string("99.9985M"));
        QCOMPARE(EngineeringLabel(0), std::string("0"));
        QCOMPARE(EngineeringLabel(-0.02), std::string("-20m"));
        QCOMPARE(EngineeringLabel(1e18), std::string("1e18"));
    }
};

QTEST_GUILESS_MAIN(FrameTest)
#include "frame_test.moc"
