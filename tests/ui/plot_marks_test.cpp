#include <memory>

#include "tests/ui/plot_fixture.h"
#include "ui/hint_handler.h"
#include "ui/plot/form_phi.h"
#include "ui/plot/form_vu.h"
#include "ui/plot/marker_panel.h"
#include "ui/plot/plot_image.h"

using namespace kelvro;

/// What is laid over a curve: markers, held curves, Monte Carlo runs that stay, notes.
class PlotMarksTest : public QObject, protected GainWindow {
    Q_OBJECT

  private:
    const Picture& picture() { return image().picture(); }
    QTableWidget& table() { return *vu_->findChild<QTableWidget*>("MarkerTable"); }
    QStringList legend() {
        QStringList names;
        for (const auto& entry : picture().legend) names << QString::fromStdString(entry.text);
        return names;
    }
    void answer(const char* entry, const QString& text) {
        InDialog dialog([&](QWidget& d) {
            auto* field = d.findChild<QLineEdit*>();
            field->selectAll();
            QTest::keyClicks(field, text);
            QTest::keyClick(field, Qt::Key_Return);
        });
        action(entry).trigger();
        QVERIFY(dialog.seen());
    }

  private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void markersAreSetMovedAndRemovedOnTheCurve() {
        auto* panel = vu_->findChild<MarkerPanel*>();
        QVERIFY(panel->isHidden());
        QTest::keyClick(&image(), Qt::Key_Up);
        action("Marker1").trigger();
        QVERIFY(!panel->isHidden());
        QTest::keyClick(&image(), Qt::Key_Escape);
        QTest::mouseDClick(&image(), Qt::LeftButton, {}, pixel(3e6, -20));
        QCOMPARE(picture().pointers.size(), std::size_t{2});
        QCOMPARE(table().rowCount(), 2);
        QVERIFY2(table().item(1, 1)->text().startsWith("3.0") ||
                     table().item(1, 1)->text().startsWith("2.9"),
                 qPrintable(table().item(1, 1)->text()));
        QVERIFY(table().item(0, 3)->text().isEmpty());
        QVERIFY(table().item(1, 3)->text().endsWith("MHz"));
        // Dragged from 3 MHz to 5 MHz; the plot stays where it is.
        const View view = vu_->view();
        const Pointer& second = picture().pointers[1];
        const QPoint from = pixel(second.x, second.y);
        QTest::mousePress(&image(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&image(), QPoint(pixel(5e6, 0).x(), from.y()));
        QTest::mouseRelease(&image(), Qt::LeftButton, {}, QPoint(pixel(5e6, 0).x(), from.y()));
        QVERIFY(std::fabs(picture().pointers[1].x / 5e6 - 1) < 0.02);
        QCOMPARE(vu_->view(), view);
        const Pointer& first = picture().pointers[0];
        QTest::mouseDClick(&image(), Qt::LeftButton, {}, pixel(first.x, first.y));
        QCOMPARE(table().rowCount(), 1);
        action("DeleteMarkers1").trigger();
        QVERIFY(panel->isHidden());
    }

    void theEdgesOfTheBandAreMarkedAndTold() {
        action("BandEdges1").trigger();
        QCOMPARE(picture().hairLines.size(), std::size_t{5});  // harmonics, two edges each
        const QString text = vu_->findChild<QLabel*>("BandEdges")->text();
        QVERIFY2(text.contains("-1dB: ") && text.contains("-3dB: ") && text.contains("loaded Q"),
                 qPrintable(text));
        action("BandEdges1").trigger();
        QCOMPARE(picture().hairLines.size(), std::size_t{1});
    }

    void heldCurvesStayWhileTheDesignChanges() {
        const auto before = picture().curves.front().y;
        answer("Hold1", "first");
        host_->state().Q = 12;
        host_->recalculate();
        answer("Hold1", "second");
        QCOMPARE(legend(), (QStringList{"V(f) :", "first :", "second :", "Harmonics of fo :"}));
        QCOMPARE(picture().curves[1].y, before);
        QVERIFY(!(picture().curves[1].colour == picture().curves[2].colour));
        action("Release1").trigger();
        QCOMPARE(picture().curves.size(), std::size_t{1});
    }

    void keptRunsAndTheirEnvelopeSurviveARedraw() {
        answer("Seed1", "7");
        action("MC10").trigger();
        QVERIFY2(legend().contains("Monte Carlo, 10 runs :"), qPrintable(legend().join('|')));
        action("KeepRuns1").trigger();
        const auto run = picture().curves[1].y;
        action("Envelope1").trigger();
        QCOMPARE(picture().curves.size(), std::size_t{16});
        vu_->resize(700, 500);
        QTRY_COMPARE(picture().curves.size(), std::size_t{16});
        QCOMPARE(picture().curves[1].y, run);
        QVERIFY(vu_->findChild<QLabel*>("YieldLabel")->text().endsWith(" of 10)"));
        // Without keeping, the grey curves go with the next change of view; the envelope stays.
        action("KeepRuns1").trigger();
        action("ZoomIn1").trigger();
        QCOMPARE(picture().curves.size(), std::size_t{6});
        action("ClearRuns1").trigger();
        QCOMPARE(picture().curves.size(), std::size_t{1});
        // The same seed begins anew: the same parts.
        action("Home1").trigger();
        action("MC1").trigger();
        QCOMPARE(picture().curves[1].y, run);
    }

    void thePhaseHasItsRunsToo() {
        TFormPhi phi(*host_);
        phi.show();
        QVERIFY(QTest::qWaitForWindowExposed(&phi));
        QTest::mouseClick(phi.findChild<QAbstractButton*>("SpeedButtonMC10"), Qt::LeftButton);
        const auto* shown = phi.findChild<PlotImage*>("Image");
        QCOMPARE(shown->picture().curves.size(), std::size_t{11});
        QCOMPARE(shown->picture().curves.back().turn, 360.0);
    }

    void aRefusedDesignIsGreyAndSaysSo() {
        host_->state().R1 = 200;  // page 1 steps up only
        host_->state().R2 = 50;
        host_->recalculate();
        QCOMPARE(picture().note, std::string("no valid design"));
        const Rgb colour = picture().curves.front().colour;
        QVERIFY(colour.red == colour.green && colour.green == colour.blue);
        host_->state().R2 = 1000;
        host_->recalculate();
        QVERIFY(picture().note.empty());
        QVERIFY((picture().curves.front().colour == Rgb{0, 0x80, 0}));
    }

    void linesBehindTheCurveAreSwitchedOff() {
        action("Harmonics1").trigger();
        action("Levels1").trigger();
        QVERIFY(picture().hairLines.empty() && picture().marks.empty());
        QCOMPARE(legend(), QStringList("V(f) :"));
        action("Dark1").trigger();
        QVERIFY(image().toImage().pixelColor(2, 2).lightness() < 60);
    }

    void anEmptyRadioButtonIsSeenOnADarkWindow() {
        HintStyle style;
        QRadioButton button;
        button.setStyle(&style);
        const QColor dark(40, 40, 44);
        QPalette palette(dark);
        palette.setColor(QPalette::WindowText, Qt::white);
        button.setPalette(palette);
        const QImage image = button.grab().toImage();
        int lightest = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < std::min(16, image.width()); ++x)
                lightest = std::max(lightest, image.pixelColor(x, y).lightness());
        QVERIFY2(lightest > dark.lightness() + 60, qPrintable(QString::number(lightest)));
    }

    void theChoiceOfTheGainHasKeys() {
        action("GT1").trigger();
        QCOMPARE(picture().title, std::string("Power Gain GT(f)"));
        QTest::keyClick(&image(), Qt::Key_V);
        QCOMPARE(picture().title, std::string("Voltage Gain V(f)"));
    }
};

QTEST_MAIN(PlotMarksTest)
#include "plot_marks_test.moc"
