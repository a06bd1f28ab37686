#include <cmath>
#include <limits>
#include <memory>

#include "tests/ui/plot_fixture.h"
#include "ui/plot/form_phi.h"
#include "ui/plot/form_vu.h"
#include "ui/plot/plot_image.h"

using namespace kelvro;

namespace {

void TypeValue(QWidget& dialog, const QString& text) {
    auto* field = dialog.findChild<QLineEdit*>("xmaxEingabe");
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::mouseClick(dialog.findChild<QPushButton*>("OKBtn"), Qt::LeftButton);
}

}  // namespace

class PlotWindowsTest : public QObject, protected GainWindow {
    Q_OBJECT

  private:
    QString status() { return vu_->findChild<QLabel*>("StatusLabel")->text(); }
    void press(const char* name, QWidget* window = nullptr) {
        auto* button = (window != nullptr ? window : vu_.get())->findChild<QAbstractButton*>(name);
        QVERIFY2(button != nullptr, name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    void choose(const char* name) { action(name).trigger(); }

  private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void theWindowOpensWithTheDesignsRangeAndPublishesIt() {
        const PlotSettings& published = host_->plotSettings();
        QCOMPARE(published.sampleCount, std::uint16_t{254});
        QCOMPARE(published.xmin, 5e4);
        QCOMPARE(published.xmax, 5e7);
        QCOMPARE(published.ymax, 20.0);
        QCOMPARE(published.xo, 5e4);
        QVERIFY(vu_->findChild<QAction*>("xlog1")->isChecked());
        QCOMPARE(image().picture().title, std::string("Voltage Gain V(f)"));
        QCOMPARE(image().picture().legend.front().text, std::string("V(f) :"));
    }

    void theQuantityFollowsTheRadioButtonsAndOnlyLowersTheTop() {
        press("RadioButtonGT");
        QCOMPARE(image().picture().title, std::string("Power Gain GT(f)"));
        QCOMPARE(image().picture().yName, std::string("GT in dB"));
        QCOMPARE(vu_->view().y.max, 20.0);
        press("RadioButtonVu");
        QCOMPARE(vu_->view().y.max, 10.0);
        QCOMPARE(host_->plotSettings().ymax, 10.0);
        InDialog dialog([](QWidget& d) { TypeValue(d, "5"); });
        const auto& plot = image().frame().plot;
        QTest::mouseClick(&image(), Qt::LeftButton, {}, QPoint(plot.left - 10, plot.top + 10));
        QVERIFY(dialog.seen());
        press("RadioButtonGT");
        press("RadioButtonVu");
        QCOMPARE(vu_->view().y.max, 5.0);
        press("RadioButtonVu");  // which is chosen already
        QCOMPARE(image().picture().curves.size(), std::size_t{1});
        QCOMPARE(image().picture().title, std::string("Voltage Gain V(f)"));
    }

    void theReadOutFollowsTheMouse() {
        QTest::mouseMove(&image(), pixel(1e6, 0));
        QVERIFY2(status().startsWith("Position : f="), qPrintable(status()));
        QVERIFY2(status().contains("Hz, Vu="), qPrintable(status()));
        const WorldPoint at = image().frame().toWorld(pixel(1e6, 0).x(), pixel(1e6, 0).y());
        QCOMPARE(status(), QString::fromStdString(
                               ReadOut(host_->state(), host_->result().v, {&TraceOf("v")}, at)));
    }

    /// v = 2 is 6.0206 dB, of an ideal ratio of 2; 10^(-6/20) = 0.5012.
    void readOutTextsAreThoseOfTheWindows() {
        const auto text = [](const char* trace, double y) {
            return ReadOut({}, 2, {&TraceOf(trace)}, {1.5e6, y});
        };
        QCOMPARE(text("v", -6), "Position : f=1.50MHz, Vu=-6.000dB (0.50), Vu-Vuo=-12.021dB");
        QCOMPARE(text("gt", -6), "Position : f=1.50MHz, GT=-6.000dB (0.50), GT-GTo=-6.000dB");
        QCOMPARE(text("phi", -90.5), "Position : f=1.50MHz, phi=-90.500°");
    }

    void draggingABoxToTheLowerRightZoomsIntoIt() {
        const QPoint from = pixel(5e5, 10);
        const QPoint to = pixel(2e6, -20);
        const WorldPoint corner = image().frame().toWorld(from.x(), from.y());
        const WorldPoint end = image().frame().toWorld(to.x(), to.y());
        QTest::mousePress(&image(), Qt::RightButton, {}, from);
        QTest::mouseMove(&image(), to);
        QCOMPARE(image().rubberBand(), std::optional(QRect(from, to)));
        QTest::mouseRelease(&image(), Qt::RightButton, {}, to);
        QVERIFY(!image().rubberBand());
        QCOMPARE(vu_->view().x.min, corner.x / 10);
        QCOMPARE(vu_->view().x.max, end.x);
        QCOMPARE(vu_->view().y.max, corner.y);
        QCOMPARE(host_->plotSettings().ymin, end.y);
    }

    void everyOtherDragLeavesTheView() {
        const View before = vu_->view();
        drag(Qt::RightButton, pixel(2e6, -20), pixel(5e5, 10));
        drag(Qt::RightButton, pixel(5e5, -20), pixel(2e6, 10));
        drag(Qt::RightButton, pixel(5e5, 10), pixel(5e5, 10));
        drag(Qt::RightButton, pixel(5e5, 10), QPoint(image().width() - 2, image().height() - 2));
        drag(Qt::RightButton, QPoint(2, 2), pixel(2e6, -20));
        QTest::mousePress(&image(), Qt::RightButton, {}, pixel(5e5, 10));
        QTest::mouseMove(&image(), pixel(2e6, -20));
        QTest::keyClick(&image(), Qt::Key_Escape);
        QVERIFY(!image().rubberBand());
        QTest::mouseRelease(&image(), Qt::RightButton, {}, pixel(2e6, -20));
        QCOMPARE(vu_->view(), before);
    }

    void theEndsOfTheAxesAreEditedByAClickBesideThem() {
        struct Row {
            QString caption, text;
            double value;
        };
        for (const auto& [caption, text, value] :
             {Row{"xmax=", "2M", 2e6}, Row{"xmin=", "100k", 1e5}, Row{"ymin=", "-60", -60},
              Row{"ymax=", "5k", 1000},  // above its limit
              Row{"xmin=", "x", 1}}) {
            const bool onX = caption.startsWith('x');
            const bool atEnd = caption.contains("max");
            const auto& plot = image().frame().plot;
            const QPoint at = onX ? QPoint(atEnd ? plot.right - 5 : plot.left + 5, plot.bottom + 10)
                                  : QPoint(plot.left - 5, atEnd ? plot.top + 5 : plot.bottom - 5);
            QString shown;
            InDialog dialog([&, text = text](QWidget& d) {
                shown = d.findChild<QLabel*>("LabelXmax")->text();
                TypeValue(d, text);
            });
            QTest::mouseMove(&image(), at);
            QCOMPARE(image().cursor().shape(), onX ? Qt::SizeHorCursor : Qt::SizeVerCursor);
            QTest::mouseClick(&image(), Qt::LeftButton, {}, at);
            QVERIFY(dialog.seen());
            QCOMPARE(shown, caption);
            const Axis& axis = onX ? vu_->view().x : vu_->view().y;
            QCOMPARE(atEnd ? axis.max : axis.min, value);
            QVERIFY(axis.origin >= axis.min && axis.origin <= axis.max);
        }
    }

    void spinButtonsMoveTheValueAndCancelKeepsTheView() {
        const auto& plot = image().frame().plot;
        const QPoint xEnd(plot.right - 5, plot.bottom + 10);
        host_->preferences().SweepFactor = 2;
        InDialog spin([](QWidget& d) {
            QTest::mouseClick(d.findChild<QToolButton*>("SpinButtonXmaxUp"), Qt::LeftButton);
            QTest::mouseClick(d.findChild<QPushButton*>("OKBtn"), Qt::LeftButton);
        });
        QTest::mouseClick(&image(), Qt::LeftButton, {}, xEnd);
        QVERIFY(spin.seen());
        QCOMPARE(vu_->view().x.max, 1e8);
        const View before = vu_->view();
        InDialog cancel([](QWidget& d) {
            QTest::keyClicks(d.findChild<QLineEdit*>("xmaxEingabe"), "7");
            QTest::mouseClick(d.findChild<QPushButton*>("CancelBtn"), Qt::LeftButton);
        });
        QTest::mouseClick(&image(), Qt::LeftButton, {}, xEnd);
        QVERIFY(cancel.seen());
        QCOMPARE(vu_->view(), before);
    }

    void theOriginIsAskedForInXAndThenInY() {
        QStringList captions;
        std::unique_ptr<InDialog> second;
        InDialog first([&](QWidget& x) {
            captions.append(x.findChild<QLabel*>("LabelXmax")->text());
            TypeValue(x, "1M");
            second = std::make_unique<InDialog>([&](QWidget& y) {
                captions.append(y.findChild<QLabel*>("LabelXmax")->text());
                TypeValue(y, "-15");
            });
        });
        choose("Ursprungfestlegen1");
        QCOMPARE(captions, (QStringList{"xo=", "yo="}));
        QCOMPARE(vu_->view().x.origin, 1e6);
        QCOMPARE(host_->plotSettings().yo, -15.0);
    }

    void theLogButtonAndItsMenuEntryToggleTogether() {
        press("xlogButton");
        QVERIFY(!vu_->findChild<QAction*>("xlog1")->isChecked());
        QVERIFY(!vu_->findChild<QToolButton*>("xlogButton")->isChecked());
        QCOMPARE(host_->plotSettings().xLog, std::uint16_t{0});
        QCOMPARE(vu_->view().x.min, 0.0);
        choose("xlog1");
        QVERIFY(vu_->findChild<QToolButton*>("xlogButton")->isChecked());
        QCOMPARE(host_->plotSettings().xLog, std::uint16_t{1});
        QVERIFY(vu_->view().x.min > 0);
    }

    void autoscaleFitsTheCurve() {
        choose("yAutoskalierung1");
        const auto& curve = image().picture().curves.front();
        const auto range = RangeOf(curve.y);
        QVERIFY(vu_->view().y.min <= range->min && range->max <= vu_->view().y.max);
        press("xlogButton");
        press("AutoskButton");
        QVERIFY(vu_->view().y.min > -200);
    }

    void theCurveStyleStepsThroughThreeStates() {
        const auto curve = [this] { return image().picture().curves.front(); };
        const Rgb green{0, 0x80, 0};
        QVERIFY(curve().colour == green && curve().dotSize == 0);
        press("DotButton");
        QVERIFY(curve().colour == green && curve().dotSize == 4);
        QVERIFY((curve().dotColour == Rgb{0, 0, 255}));
        press("DotButton");
        QVERIFY((curve().colour == Rgb{255, 0, 0} && curve().style == LineStyle::Alternative));
        press("DotButton");
        QVERIFY(curve().colour == green && curve().style == LineStyle::Solid);
    }

    void zoomButtonsAndWheelKeepWhatTheyAreAbout() {
        const QPoint at = pixel(3e6, -10);
        const WorldPoint before = image().frame().toWorld(at.x(), at.y());
        turnWheel(at, 2);
        QVERIFY(std::fabs(vu_->view().y.max - vu_->view().y.min - 30) < 1e-9);
        const WorldPoint after = image().frame().toWorld(at.x(), at.y());
        QVERIFY(std::fabs(after.x / before.x - 1) < 1e-2);
        QVERIFY(std::fabs(after.y - before.y) < 0.2);
        const Axis y = vu_->view().y;
        turnWheel(at, -1, Qt::ControlModifier);
        QCOMPARE(vu_->view().y, y);
        press("ZoomInButton");
        QVERIFY(vu_->view().y.max - vu_->view().y.min < 22);
        QVERIFY(vu_->view().x.min < 1e6 && 1e6 < vu_->view().x.max);
        for (int click = 0; click < 60; ++click) press("ZoomOutButton");
        QCOMPARE(vu_->view().x.max, 1e9);
        QCOMPARE(vu_->view().y.max, 1000.0);
    }

    void keysReadTheCurve() {
        QTest::keyClick(&image(), Qt::Key_Up);
        QVERIFY(image().hasCross());
        const Samples samples = Sampled(host_->state(), vu_->view(), TraceOf("v"));
        const auto text = [&](std::size_t stop) {
            const std::size_t i = samples.stops[stop];
            return QString::fromStdString(ReadOut(host_->state(), host_->result().v,
                                                  {&TraceOf("v")}, {samples.x[i], samples.y[i]}));
        };
        const std::size_t peak = PeakStop(samples);
        QCOMPARE(status(), text(peak));
        QTest::keyClick(&image(), Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(status(), text(peak + 10));
        QTest::keyClick(&image(), Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClick(&image(), Qt::Key_Left);
        QCOMPARE(status(), text(0));
        QTest::keyClick(&image(), Qt::Key_End);
        QCOMPARE(status(), text(samples.stops.size() - 1));
        QTest::keyClick(&image(), Qt::Key_Escape);
        QVERIFY(!image().hasCross());
    }

    void curvesFollowTheDesignWhileTheWindowIsOpen() {
        const auto before = image().picture().curves.front().y;
        const View view = vu_->view();
        host_->state().Q = 12;
        host_->recalculate();
        QVERIFY(image().picture().curves.front().y != before);
        QCOMPARE(vu_->view(), view);
        for (int page = 1; page <= 19; ++page) {
            host_->goToPage(page);
            QVERIFY(!image().grab().isNull());
        }
        QCOMPARE(vu_->windowTitle(), QString("Gain - R-Divider"));
    }

    void monteCarloRunsPileUpUntilTheNextRedraw() {
        const Design nominal = host_->state();
        auto* yield = vu_->findChild<QLabel*>("YieldLabel");
        QCOMPARE(yield->text(), QString());
        press("SpeedButtonMC");
        press("SpeedButtonMC10");
        QCOMPARE(image().picture().curves.size(), std::size_t{12});
        QVERIFY(host_->state() == nominal);
        const Picture& picture = image().picture();
        QVERIFY((picture.curves.back().colour == Rgb{0x80, 0x80, 0x80}));
        QVERIFY(picture.curves[1].y != picture.curves[2].y);
        QVERIFY2(yield->text().contains(" of 11)"), qPrintable(yield->text()));
        press("SpeedButtonMC100");
        QVERIFY2(yield->text().contains(" of 111)"), qPrintable(yield->text()));
        QCOMPARE(picture.curves.back().y, picture.curves.front().y);
        press("ZoomInButton");
        QCOMPARE(image().picture().curves.size(), std::size_t{1});
        QCOMPARE(yield->text(), QString());
    }

    /// A detuned design has its peak elsewhere in the view: its builds are judged by what it has at
    /// fo.
    void theYieldIsJudgedAtTheDesignFrequency() {
        host_->state().components[Slot::C1] *= 1.5;
        emit host_->designChanged();
        host_->setTolerances({0.1, 0.1, 0.1, 0.1});
        press("SpeedButtonMC10");
        QCOMPARE(vu_->findChild<QLabel*>("YieldLabel")->text(),
                 QString("Yield: 100.0 % (10 of 10)"));
    }

    void aDesignWithoutPartsSaysSo() {
        host_->goToPage(10);
        press("SpeedButtonMC10");
        QCOMPARE(vu_->findChild<QLabel*>("YieldLabel")->text(), QString("No part to vary"));
    }

    void theHarmonicsAreMarkedAndTheLevelsLieBelowThePeak() {
        const Picture& picture = image().picture();
        QCOMPARE(picture.hairLines.front().x.size(), std::size_t{49});  // below 50 MHz
        QCOMPARE(picture.hairLines.front().x[1], 2e6);
        QVERIFY((picture.hairLines.front().colour == Rgb{0x80, 0xff, 0xff}));
        const auto range = RangeOf(picture.curves.front().y);
        QCOMPARE(picture.marks.size(), std::size_t{2});
        QCOMPARE(picture.marks[1].y, range->max - 3);
        QCOMPARE(picture.marks[1].label, std::string("-3dB"));
    }

    void theLabelsOfTheLevelsNeverOverlap() {
        Picture picture = image().picture();
        const double peak = picture.marks[0].y + 1;
        // Far apart; close together, in the middle and at the top.
        for (const auto& [min, max] : {std::pair(-40.0, 20.0), {-900.0, 900.0}, {-900.0, peak}}) {
            picture.view.y.min = min;
            picture.view.y.max = max;
            const auto marks = FramePainter().layout(image().size(), picture).marks;
            QCOMPARE(marks.size(), std::size_t{2});
            QVERIFY(marks[0].box.bottom() <= marks[1].box.top() + 1);
            QVERIFY(marks[0].box.top() >= image().frame().plot.top);
        }
    }

    /// Between the text and what it stands on, after the formula of WCAG 2.1.
    void theLabelsOfTheLevelsCanBeRead() {
        const auto luminance = [](const QColor& colour) {
            const auto linear = [](float part) { return std::pow(double{part}, 2.2); };
            return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
                   0.0722 * linear(colour.blueF());
        };
        for (const auto& [dark, paper] : {std::pair(false, false), {true, false}, {false, true}}) {
            Picture picture = image().picture();
            picture.dark = dark;
            picture.paper = paper;
            picture.curves.clear();
            QImage drawn(image().size() * 4, QImage::Format_RGB32);
            QPainter painter(&drawn);
            painter.scale(4, 4);
            FramePainter().draw(painter, image().size(), picture);
            painter.end();
            const auto layout = FramePainter().layout(image().size(), picture);
            const QRectF box = layout.marks[0].box;
            double least = 1;
            double most = 0;
            for (int x = int(box.left() * 4); x < int(box.right() * 4); ++x) {
                const double here = luminance(drawn.pixelColor(x, int(box.center().y() * 4)));
                least = std::min(least, here);
                most = std::max(most, here);
            }
            QVERIFY2((most + 0.05) / (least + 0.05) >= 4.5, dark ? "dark" : "light");
        }
    }

    void thePhaseWindowKeepsAViewOfItsOwn() {
        TFormPhi phi(*host_);
        phi.show();
        QVERIFY(QTest::qWaitForWindowExposed(&phi));
        QCOMPARE(image(phi).picture().title, std::string("Phase Response"));
        QCOMPARE(image(phi).picture().yName, std::string("phi in °"));
        QVERIFY(image(phi).picture().marks.empty());
        const View gain = vu_->view();
        press("xlogButton", &phi);
        QCOMPARE(host_->plotSettings().xLog, std::uint16_t{0});
        QCOMPARE(vu_->view(), gain);
        QMouseEvent move(QEvent::MouseMove, QPointF(300, 200), QPointF(300, 200), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&image(phi), &move);
        const QString text = phi.findChild<QLabel*>("StatusLabel")->text();
        QVERIFY2(text.contains("Hz, phi=") && text.endsWith("°"), qPrintable(text));
    }

    void theDrawnCurveLiesWhereTheFramePutsIt() {
        const QImage drawn = image().toImage();
        const auto& curve = image().picture().curves.front();
        const auto peak = std::max_element(curve.y.begin(), curve.y.end()) - curve.y.begin();
        const auto at = static_cast<std::size_t>(peak);
        const QPoint place = pixel(curve.x[at], curve.y[at]);
        bool green = false;
        for (int dy = -1; dy <= 1; ++dy) {
            const QColor colour = drawn.pixelColor(place + QPoint(0, dy));
            green = green || (colour.green() > colour.red() + 60 && colour.blue() < 110);
        }
        QVERIFY(green);
    }
};

QTEST_MAIN(PlotWindowsTest)
#include "plot_windows_test.moc"
