#include "plot/view_edit.h"

#include <QTest>
#include <cmath>
#include <limits>

#include "tests/plot/axes.h"

using namespace kelvro;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kFo = 1e6;

}  // namespace

class ViewEditTest : public QObject {
    Q_OBJECT

  private slots:
    void onlyADragToTheLowerRightZooms() {
        View view;
        view.x = MakeAxis(AxisMode::Logarithmic, 10, 1e5, 10);
        view.y = MakeAxis(AxisMode::Linear, -40, 10);
        QVERIFY(!DragZoomed(view, {5000, 0}, {1000, -20}));
        QVERIFY(!DragZoomed(view, {1000, -20}, {5000, 0}));
        QVERIFY(!DragZoomed(view, {1000, 0}, {1000, -20}));
        QVERIFY(!DragZoomed(view, {1000, 0}, {5000, 0}));
        const auto zoomed = DragZoomed(view, {1000, 0}, {5000, -20});
        QVERIFY(zoomed);
        // 4900/50 = 98 steps by 100, 20/50 = 0.4 by 0.5; (100 + 5000) rounds up to 6000.
        CompareAxis(zoomed->x, 100, 5000, 3000, 100);
        CompareAxis(zoomed->y, -20, 0, 0, 0.5);
        view.x.mode = AxisMode::Linear;
        CompareAxis(DragZoomed(view, {1000, 0}, {5000, -20})->x, 1000, 5000, 3000, 100);
    }

    void theValueDialogAsksForEachEndWithItsLimits() {
        View view = GainView(20);
        const ValueEdit start = EndEdit(view, Zone::XStart, 1e6);
        QCOMPARE(start.caption, std::string("xmin="));
        QCOMPARE(start.low, 1.0);
        QCOMPARE(start.high, 1e9);
        view.x.mode = AxisMode::Linear;
        QCOMPARE(EndEdit(view, Zone::XStart, 1e6).low, 0.0);
        const ValueEdit top = EndEdit(view, Zone::YEnd, 1e6);
        QCOMPARE(top.start, 20.0);
        QCOMPARE(top.low, -1000.0);
    }

    void anEditedEndTakesTheOtherAlongWhenItPassesIt() {
        View log = GainView(10);
        log = WithEnd(log, Zone::XStart, 1e8, kFo);
        QCOMPARE(log.x.max, 1e9);  // three decades as before would pass 1000 fo
        QCOMPARE(log.x.min, 1e8);
        View linear = GainView(10);
        linear.x = MakeAxis(AxisMode::Linear, 10, 50);
        CompareAxis(WithEnd(linear, Zone::XEnd, 30, kFo).x, 10, 30, 20, 0.5);
        CompareAxis(WithEnd(linear, Zone::XEnd, 5, kFo).x, 0, 5, 0, 0.1);
        QCOMPARE(WithEnd(linear, Zone::XEnd, 0, kFo).x.max, 50.0);
        CompareAxis(WithEnd(linear, Zone::YEnd, -50, kFo).y, -100, -50, -100, 1);
        QCOMPARE(WithEnd(linear, Zone::YEnd, kNaN, kFo), linear);
    }

    void zoomingKeepsTheFixedValueAndStaysWithinItsLimits() {
        const Axis log = MakeAxis(AxisMode::Logarithmic, 1e3, 1e7, 1e3);
        const Axis in = Zoomed(log, 0.5, 1e5, {1, 1e9});
        QVERIFY(std::fabs(in.min / 1e4 - 1) < 1e-12 && std::fabs(in.max / 1e6 - 1) < 1e-12);
        Axis axis = MakeAxis(AxisMode::Linear, -40, 10);
        for (int click = 0; click < 100; ++click) axis = Zoomed(axis, 1 / kZoomStep, -10, {});
        QCOMPARE(axis.min, -1000.0);
        QCOMPARE(axis.max, 1000.0);
        for (int click = 0; click < 1000; ++click) axis = Zoomed(axis, kZoomStep, -10, {});
        QVERIFY(axis.max > axis.min);
        QCOMPARE(axis.toPixel(-10, 0, 100), axis.toPixel(Middle(axis), 0, 100));
    }

    void endsTypedByHandStayWithinTheReachOfTheirAxis() {
        struct Row {
            const char* name;
            Zone zone;
            double value, min, max;
            AxisMode mode = AxisMode::Logarithmic;
        };
        // 50 kHz to 50 MHz, -40 to 10 dB; x reaches from 1 Hz or 0 to 1 GHz, y to +-1000.
        for (const auto& [name, zone, value, min, max, mode] :
             {Row{"xmin inside", Zone::XStart, 1e5, 1e5, 5e7},
              Row{"xmin beyond xmax", Zone::XStart, 1e8, 1e8, 1e9},
              Row{"xmin at the very end", Zone::XStart, 1e9, 1e6, 1e9},
              Row{"xmax below xmin", Zone::XEnd, 1e3, 1, 1e3},
              Row{"xmax at the very start", Zone::XEnd, 1, 1, 1e3},
              Row{"linear xmin at the end", Zone::XStart, 1e9, 950050000, 1e9, AxisMode::Linear},
              Row{"ymin at the top", Zone::YStart, 1000, 950, 1000},
              Row{"ymin near the top", Zone::YStart, 980, 980, 1000},
              Row{"ymax at the bottom", Zone::YEnd, -1000, -1000, -950}}) {
            View view = GainView(10);
            view.x.mode = mode;
            view = WithEnd(view, zone, value, kFo);
            const Axis& axis = zone == Zone::XStart || zone == Zone::XEnd ? view.x : view.y;
            QVERIFY2(Near(axis.min, min) && Near(axis.max, max), name);
        }
    }

    void panningMovesByWhatTheMouseMovedAndStopsAtTheLimits() {
        const Frame frame{{0, 0, 300, 100}, GainView(10)};
        // A third of three decades to the right shows one decade less; a tenth of 50 dB up.
        const View moved = Panned(frame, 100, -10, kFo);
        QVERIFY(Near(moved.x.min, 5e3) && Near(moved.x.max, 5e6));
        QVERIFY(Near(moved.y.min, -45) && Near(moved.y.max, 5));
        const View end = Panned(frame, -3000, 0, kFo);
        QVERIFY(Near(end.x.max, 1e9) && Near(end.x.min, 1e6));
        Frame two = frame;
        two.view.right = Axis{.min = 0, .max = 100};
        const View both = Panned(two, 0, 50, kFo);
        QVERIFY(Near(both.right->min, 50) && Near(both.right->max, 150));
    }

    void zoomingOutBringsBackWhatHasLeftTheView() {
        // fo has moved from 1 MHz to 1 kHz, and to 1 GHz.
        for (const double fo : {1e3, 1e9}) {
            View view = GainView(10);
            const WorldPoint home{fo, 15};
            for (int click = 0; click < 40; ++click) {
                const WorldPoint centre = OutwardCentre(view, {Middle(view.x), 0}, home);
                view = ZoomedView(view, 1 / kZoomStep, centre, ZoomOf::Both, fo);
            }
            QVERIFY(view.x.min < fo && fo < view.x.max);
            QVERIFY(view.y.max > 15);
        }
        // What is in view does not draw the zoom to itself.
        const WorldPoint centre = OutwardCentre(GainView(10), {2e6, -3}, {1e6, 0});
        QCOMPARE(centre.x, 2e6);
        QCOMPARE(centre.y, -3.0);
    }

    void theRightAxisZoomsWithTheLeftOne() {
        View view = GainView(10);
        view.right = Axis{.min = 0, .max = 200};
        // The upper half of the left axis is the upper half of the right one.
        const auto box = DragZoomed(view, {1e5, 10}, {1e6, -15});
        QVERIFY(Near(box->right->min, 100) && Near(box->right->max, 200));
        const View out = ZoomedView(view, 2, {1e6, -40}, ZoomOf::Y, kFo);
        QVERIFY(Near(out.right->max, 400) && out.right->min == 0);
        QCOMPARE(ZoomedView(view, 2, {1e6, -40}, ZoomOf::X, kFo).right, view.right);
    }

    void axesThatWereNotChangedFollowTheDesign() {
        const View before = GainView(10);
        View now = before;
        now.x = DefaultFrequencyAxis(1e9);
        QCOMPARE(Followed(before, before, now), now);
        View zoomed = before;
        zoomed.y.min = -3;
        QCOMPARE(Followed(zoomed, before, now).x, now.x);
        QCOMPARE(Followed(zoomed, before, now).y, zoomed.y);
        zoomed.x.max = 2e6;
        QCOMPARE(Followed(zoomed, before, now), zoomed);
    }

    void aRangeSetByHandIsOneThatTheAxisCanShow() {
        const Axis log = MakeAxis(AxisMode::Logarithmic, 1e3, 1e6, 1e3);
        CompareAxis(WithRange(log, 1e4, 2e6), 1e4, 2e6, 1.5e6, 5e4);
        for (const auto& [min, max] : {std::pair(0.0, 1.0), {5.0, 5.0}, {6.0, 5.0}, {1.0, kNaN}}) {
            QCOMPARE(WithRange(log, min, max), log);
        }
    }

    void theEndsOfTheAxesAreEditedOutsideThePlotOnly() {
        const PlotRect plot{50, 30, 550, 430};
        QCOMPARE(ZoneAt(plot, 540, 440), Zone::XEnd);
        QCOMPARE(ZoneAt(plot, 60, 440), Zone::XStart);
        QCOMPARE(ZoneAt(plot, 40, 40), Zone::YEnd);
        QCOMPARE(ZoneAt(plot, 40, 420), Zone::YStart);
        QCOMPARE(ZoneAt(plot, 300, 440), Zone::None);
        QCOMPARE(ZoneAt(plot, 51, 429), Zone::None);
        Frame frame{plot, GainView(10)};
        QCOMPARE(ZoneAt(frame, 560, 40), Zone::None);
        frame.view.right = Axis{};
        QCOMPARE(ZoneAt(frame, 560, 40), Zone::RightEnd);
        QCOMPARE(ZoneAt(frame, 560, 420), Zone::RightStart);
    }
};

QTEST_GUILESS_MAIN(ViewEditTest)
#include "view_edit_test.moc"
