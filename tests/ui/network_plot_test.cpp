// The plots of the Network window: what they show, read and remember.

#include <algorithm>
#include <cmath>

#include "tests/ui/network_fixture.h"
#include "ui/plot/plot_image.h"
#include "ui/workbench/smith_view.h"
#include "ui/workbench/sweep_view.h"

using namespace kelvro;

namespace {

/// 100 ohm straight to 200 - j100: GT = 4·100·200 / |300 - j100|² = 0.8, which is -0.969 dB, and
/// Zin is the load, at all frequencies.
class Window : public NetworkFixture {
  public:
    Window() {
        type("SourceEingabe", "100");
        type("LoadEingabe", "200-j100");
    }
    SweepView& plot() { return find<SweepView>("Plot1"); }
    PlotImage& image() { return find<PlotImage>("Plot1Image"); }
    QStringList keys() {
        QStringList keys;
        for (const Trace* trace : plot().traces())
            keys << QString::fromUtf8(trace->key.data(), qsizetype(trace->key.size()));
        return keys;
    }
    void leadBy(std::string_view key) {
        auto& box = find<QComboBox>("Plot1Trace");
        const auto row = static_cast<int>(FindTrace(key) - Traces().data());
        box.setCurrentIndex(row);
        emit box.activated(row);
    }
};

}  // namespace

class NetworkPlotTest : public QObject {
    Q_OBJECT

  private slots:
    void tracesOfAnotherKindStandOnTheRightAxis() {
        Window window;
        window.trigger("Plot1_x");
        window.trigger("Plot1_r");
        const Picture& picture = window.plot().picture();
        QCOMPARE(picture.curves.size(), std::size_t(3));
        QVERIFY(picture.view.right.has_value());
        QCOMPARE(QString::fromStdString(picture.rightName), QString("X, R in Ω"));
        for (const double wanted : {-0.9691, -100.0, 200.0}) {
            const auto drawn = std::ranges::find_if(picture.curves, [&](const Curve& curve) {
                return std::fabs(curve.y.front() - wanted) < 1e-4;
            });
            QVERIFY2(drawn != picture.curves.end(), qPrintable(QString::number(wanted)));
            QCOMPARE(drawn->onRight, wanted != -0.9691);
            const Axis& axis = drawn->onRight ? *picture.view.right : picture.view.y;
            QVERIFY(axis.min <= wanted && wanted <= axis.max);
        }
        QCOMPARE(picture.legend.size(), std::size_t(3));

        // There is room for two kinds: the third takes the place of those on the right.
        window.trigger("Plot1_phi");
        QCOMPARE(window.keys(), QStringList({"gt", "phi"}));
        window.trigger("Plot1_rl");
        window.leadBy("rl");  // what stood beside leads
        QCOMPARE(window.keys(), QStringList({"rl"}));
        QVERIFY(!window.plot().picture().view.right);
        window.trigger("NetworkSnapshot");
        window.trigger("Plot1_gt");
        QCOMPARE(window.plot().picture().curves.size(), std::size_t(4));
    }

    void markersAreSetByKeysAndReadAllCurvesInAllViews() {
        Window window;
        window.trigger("Plot1_x");
        auto& text = window.find<QLabel>("Plot1Markers");
        auto& image = window.image();
        image.setFocus();
        QTest::keyClick(&image, Qt::Key_Right);
        QVERIFY(image.hasCross());
        QTest::keyClick(&image, Qt::Key_M);
        QVERIFY2(text.text().contains("GT -0.969 dB, X -100.00 Ω"), qPrintable(text.text()));
        QCOMPARE(window.plot().picture().pointers.size(), std::size_t(2));
        QCOMPARE(window.find<SweepView>("Plot2").picture().hairLines.size(), std::size_t(1));
        QTest::keyClick(&image, Qt::Key_Delete);
        QVERIFY(window.model().markers().empty() && !text.isVisible());
        window.trigger("NetworkUndo");
        QCOMPARE(window.model().markers().size(), std::size_t(1));
        window.trigger("NetworkUndo");
        QVERIFY(window.model().markers().empty());
    }

    void aDoubleClickFitsAndLeavesNoMarker() {
        Window window;
        auto& image = window.image();
        const double left = window.plot().picture().view.x.min;
        image.setFocus();
        QTest::keyClick(&image, Qt::Key_Plus);
        QVERIFY(window.plot().picture().view.x.min > left);
        const PlotRect& plot = image.frame().plot;
        const QPoint at((plot.left + plot.right) / 2, (plot.top + plot.bottom) / 2);
        QTest::mouseClick(&image, Qt::LeftButton, {}, at);
        QCOMPARE(window.model().markers().size(), std::size_t(1));
        const std::string before = "Load";
        QTest::mouseDClick(&image, Qt::LeftButton, {}, at);
        QCOMPARE(window.plot().picture().view.x.min, left);
        QVERIFY(window.model().markers().empty());
        QCOMPARE(window.model().history().undoName(), before);
    }

    /// As a bitmap, and sharp at any size with the circuit beside chart and plots.
    void theCopiedPictureIsADrawingToo() {
        Window window;
        window.model().edit("Ladder", [](Network& network) {
            network.ladder = {SeriesArm(Part::L(15.92e-9, "L17"))};
        });
        window.trigger("NetworkCopyPicture");
        const QMimeData& copied = *QApplication::clipboard()->mimeData();
        QVERIFY(!qvariant_cast<QImage>(copied.imageData()).isNull());
        QVERIFY(copied.data("application/pdf").startsWith("%PDF"));
        const QByteArray svg = copied.data("image/svg+xml");
        for (const char* text : {"L17", "15.92 nH", "Power Gain", "100.000 MHz"})
            QVERIFY2(svg.contains(text), text);
    }

    void aPerfectMatchIsInSight() {
        Window window;
        window.type("LoadEingabe", "100");
        for (const char* plot : {"Plot1", "Plot2"}) {
            const Picture& picture = window.find<SweepView>(plot).picture();
            const double y = picture.curves.front().y.front();
            QVERIFY(picture.view.y.min < y + 1e-9 && y <= picture.view.y.max);
        }
        // No passive network gains anything: nothing above 0 dB is shown.
        QCOMPARE(window.plot().picture().view.y.max, 0.0);
    }

    void theWheelZoomsFrequenciesOrBesideAnAxisItsValues() {
        Window window;
        window.trigger("Plot1_x");  // on the right axis
        auto& image = window.image();
        const auto view = [&] { return window.plot().picture().view; };
        const View before = view();
        const PlotRect& plot = image.frame().plot;
        const int middle = (plot.top + plot.bottom) / 2;
        const auto turn = [&](int x, Qt::KeyboardModifiers keys) {
            const QPoint at(x, middle);
            QWheelEvent wheel(at, image.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, keys,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&image, &wheel);
        };
        const auto span = [](const Axis& axis) { return axis.max - axis.min; };
        turn((plot.left + plot.right) / 2, {});
        QVERIFY(std::fabs(span(view().x) * 1.25 / span(before.x) - 1) < 1e-9);
        QVERIFY(view().y == before.y && view().right == before.right);
        turn(plot.left - 10, {});
        QVERIFY(std::fabs(span(view().y) * 1.25 / span(before.y) - 1) < 1e-9);
        QVERIFY(view().right == before.right);
        turn(plot.right + 10, {});
        QVERIFY(std::fabs(span(*view().right) * 1.25 / span(*before.right) - 1) < 1e-9);
        turn((plot.left + plot.right) / 2, Qt::ControlModifier);
        QVERIFY(std::fabs(span(view().y) * 1.5625 / span(before.y) - 1) < 1e-9);
        QVERIFY(std::fabs(span(*view().right) * 1.5625 / span(*before.right) - 1) < 1e-9);
        QVERIFY(std::fabs(span(view().x) * 1.25 / span(before.x) - 1) < 1e-9);
        QTest::keyClick(&image, Qt::Key_0);
        QVERIFY(view() == before);
    }

    void theNextWindowShowsTheSameTracesAndAxes() {
        Window window;
        window.trigger("Plot1_rl");
        auto& image = window.image();
        QTest::keyClick(&image, Qt::Key_L);
        QTest::keyClick(&image, Qt::Key_Plus, Qt::ControlModifier);
        const View shown = window.plot().picture().view;
        QVERIFY(shown.x.mode == AxisMode::Logarithmic);
        // Equal ratios: the middle of the samples is the geometric mean of the ends.
        const auto& f = window.plot().picture().curves.front().x;
        QVERIFY(std::fabs(f[f.size() / 2] / std::sqrt(f.front() * f.back()) - 1) < 1e-9);
        window.model().markSaved();
        QVERIFY(window->close());
        Host host;
        NetworkWindow next(host);
        next.show();
        const auto& plot = *next.findChild<SweepView*>("Plot1");
        QCOMPARE(plot.traces(), window.plot().traces());
        QVERIFY(plot.picture().view.x.mode == AxisMode::Logarithmic);
        QVERIFY(plot.picture().view.y == shown.y);
    }
};

QTEST_MAIN(NetworkPlotTest)
#include "network_plot_test.moc"
