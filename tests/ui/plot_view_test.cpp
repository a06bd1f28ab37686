#include <cmath>
#include <memory>

#include "tests/ui/plot_fixture.h"
#include "ui/plot/form_phi.h"
#include "ui/plot/form_vu.h"
#include "ui/plot/plot_image.h"

using namespace kelvro;

/// How a view is left and found again, and several traces in one plot.
class PlotViewTest : public QObject, protected GainWindow {
    Q_OBJECT

  private:
    void setFo(double fo) {
        host_->state().fo = fo;
        host_->recalculate();
    }

  private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void choicesAreKeptByTheHostAndTakenFromIt() {
        TFormVu other(*host_);
        other.show();
        vu_->findChild<QRadioButton*>("RadioButtonGT")->click();
        for (const char* name : {"Dark1", "Levels1", "Trace_phi", "Dot1", "Caption1"})
            action(name).trigger();
        const PlotChoices& kept = host_->plotChoices(PlotWindow::Gain);
        QCOMPARE(kept.traces, (std::vector<std::string>{"gt", "phi"}));
        QVERIFY(kept.dark && !kept.levels && kept.harmonics && kept.look == 1 && !kept.caption);
        QVERIFY(other.findChild<QRadioButton*>("RadioButtonGT")->isChecked());
        QVERIFY(other.traces() == vu_->traces());
        QVERIFY(!other.findChild<QAction*>("Caption1")->isChecked());
        QVERIFY(image(other).picture().dark);
        // What suits no gain window changes nothing but what it says.
        host_->setPlotChoices(PlotWindow::Gain, {.traces = {"phi", "nosuch"}, .look = 2});
        QVERIFY(other.traces().front()->key == "gt");
        QVERIFY(!image(other).picture().dark);
    }

    void theViewFollowsFoUntilItIsChangedAndComesHome() {
        setFo(100e6);
        QCOMPARE(vu_->view().x.max, 5e9);
        QCOMPARE(host_->plotSettings().xmax, 5e9);
        action("ZoomIn1").trigger();
        const View zoomed = vu_->view();
        setFo(1e6);
        QCOMPARE(vu_->view(), zoomed);
        QTest::keyClick(&image(), Qt::Key_Home);
        QCOMPARE(vu_->view().x.max, 5e7);
        QCOMPARE(vu_->view().y.min, -40.0);
        setFo(10e6);
        QCOMPARE(vu_->view().x.max, 5e8);
    }

    /// Labels twice as large take about twice the room left of the plot, on the screen and in
    /// pictures, which are drawn the same way.
    void theTextsFollowTheFontOfTheDesktop() {
        const QFont plain = QApplication::font();
        const double left = image().frame().plot.left;
        QFont large = plain;
        large.setPointSizeF(2 * plain.pointSizeF());
        QApplication::setFont(large);
        QCoreApplication::processEvents();
        const double wide = image().frame().plot.left;
        QApplication::setFont(plain);
        QCoreApplication::processEvents();
        QVERIFY2(wide > 1.6 * left && wide < 2.4 * left, qPrintable(QString::number(wide / left)));
        QCOMPARE(image().frame().plot.left, left);
    }

    void zoomingOutBringsFoBack() {
        drag(Qt::RightButton, pixel(2e5, 10), pixel(4e5, -20));
        setFo(1e9);
        QVERIFY(vu_->view().x.max < 1e9);
        for (int click = 0; click < 20; ++click) action("ZoomOut1").trigger();
        QVERIFY(vu_->view().x.min < 1e9 && vu_->view().x.max > 1e9);
    }

    void everyChangeOfTheViewIsTakenBack() {
        const View first = vu_->view();
        QVERIFY(!action("UndoView1").isEnabled());
        drag(Qt::RightButton, pixel(5e5, 10), pixel(2e6, -20));
        const View zoomed = vu_->view();
        turnWheel(pixel(1e6, -5), 1);
        turnWheel(pixel(1e6, -5), 1);
        QVERIFY(vu_->view() != zoomed);
        QCOMPARE(action("UndoView1").text(), QString("&Undo Zoom"));
        QTest::keyClick(&image(), Qt::Key_Z, Qt::ControlModifier);  // both notches
        QCOMPARE(vu_->view(), zoomed);
        action("UndoView1").trigger();
        QCOMPARE(vu_->view(), first);
        QCOMPARE(host_->plotSettings().xmax, first.x.max);
        action("RedoView1").trigger();
        QCOMPARE(vu_->view(), zoomed);
    }

    void theLeftButtonDragsThePlot() {
        const View before = vu_->view();
        const QPoint from = pixel(1e6, 0);
        const WorldPoint grabbed = image().frame().toWorld(from.x(), from.y());
        drag(Qt::LeftButton, from, from + QPoint(80, 40));
        const QPoint to = from + QPoint(80, 40);
        const WorldPoint dropped = image().frame().toWorld(to.x(), to.y());
        QVERIFY(std::fabs(dropped.x / grabbed.x - 1) < 1e-9);
        QVERIFY(std::fabs(dropped.y - grabbed.y) < 1e-9);
        QVERIFY(vu_->view() != before);
        action("UndoView1").trigger();
        QCOMPARE(vu_->view(), before);
        // A click is no drag, and Escape takes a drag back.
        QTest::mouseClick(&image(), Qt::LeftButton, {}, from);
        QCOMPARE(vu_->view(), before);
        QTest::mousePress(&image(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&image(), from + QPoint(60, 60));
        QVERIFY(vu_->view() != before);
        QTest::keyClick(&image(), Qt::Key_Escape);
        QCOMPARE(vu_->view(), before);
        QTest::mouseMove(&image(), from + QPoint(90, 90));
        QCOMPARE(vu_->view(), before);
    }

    void controlAndArrowsLookFurther() {
        const View before = vu_->view();
        QTest::keyClick(&image(), Qt::Key_Right, Qt::ControlModifier);
        QVERIFY(vu_->view().x.min > before.x.min && vu_->view().x.max > before.x.max);
        QTest::keyClick(&image(), Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(std::fabs(vu_->view().y.min + 46) < 1e-9);  // a tenth of 60 dB
    }

    void theLimitsOfTheAxesAreTypedInOneDialog() {
        action("Trace_delay").trigger();
        InDialog dialog([](QWidget& d) {
            const auto type = [&](const char* field, const QString& text) {
                auto* edit = d.findChild<QLineEdit*>(field);
                edit->selectAll();
                QTest::keyClicks(edit, text);
            };
            auto* ok = d.findChild<QPushButton*>("OKBtn");
            type("xminEingabe", "200M");
            QVERIFY(!ok->isEnabled());
            QVERIFY(!d.findChild<QLabel*>("LimitsProblem")->text().isEmpty());
            type("xmaxEingabe", "300M");
            type("yminEingabe", "-5000");
            type("rightMaxEingabe", "2u");
            QVERIFY(ok->isEnabled());
            QTest::mouseClick(ok, Qt::LeftButton);
        });
        const double ymax = vu_->view().y.max;
        action("AxisLimits1").trigger();
        QVERIFY(dialog.seen());
        QCOMPARE(vu_->view().x.min, 200e6);
        QCOMPARE(vu_->view().x.max, 300e6);
        QCOMPARE(vu_->view().y.min, -1000.0);
        QCOMPARE(vu_->view().y.max, ymax);
        QCOMPARE(vu_->view().right->max, 2e-6);
        QCOMPARE(host_->plotSettings().xmax, 300e6);
    }

    void tracesJoinTheLeadingOneOnTwoAxes() {
        const auto shown = [this] {
            QStringList names;
            for (const auto& entry : image().picture().legend) {
                names.append(QString::fromStdString(entry.text));
            }
            return names;
        };
        action("Trace_gt").trigger();
        QVERIFY(!vu_->view().right);
        action("Trace_delay").trigger();
        QVERIFY(vu_->view().right);
        QCOMPARE(shown(), (QStringList{"V(f) :", "GT(f) :", "tau(f) :", "Harmonics of fo :"}));
        QVERIFY(image().picture().curves[2].onRight && !image().picture().curves[1].onRight);
        // The phase needs the right axis for itself.
        action("Trace_phi").trigger();
        QCOMPARE(shown(), (QStringList{"V(f) :", "GT(f) :", "phi(f) :", "Harmonics of fo :"}));
        QVERIFY(!action("Trace_delay").isChecked());
        QCOMPARE(vu_->view().right->max, 180.0);
        QVERIFY(!action("Trace_v").isEnabled());
        QTest::mouseMove(&image(), pixel(1e6, 0));
        const QString text = vu_->findChild<QLabel*>("StatusLabel")->text();
        QVERIFY2(text.contains("; GT=") && text.contains("; phi="), qPrintable(text));
        action("Trace_phi").trigger();
        action("Trace_gt").trigger();
        QVERIFY(!vu_->view().right);
        QCOMPARE(image().picture().curves.size(), std::size_t{1});
    }
};

QTEST_MAIN(PlotViewTest)
#include "plot_view_test.moc"
