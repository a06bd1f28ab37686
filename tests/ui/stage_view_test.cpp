// Waves, harmonics and the simulator beside the class-E page.

#include <QtWidgets>

#include "form_fixture.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

namespace {

/// The page with 10 W from 12 V at 10 MHz and a Q of 5.
void EnterStage(FormFixture& window) {
    window.form().session().goToPage(15);
    window.type("foEingabe", "10M");
    window.type("P15Eingabe", "10");
    window.type("Usat15Eingabe", "0");
}

double Largest(const Curve& curve) {
    return *std::ranges::max_element(curve.y);
}

}  // namespace

class StageViewTest : public QObject {
    Q_OBJECT

  private slots:
    void showsHarmonicsAndWavesOfTheDesign() {
        FormFixture window;
        EnterStage(window);
        const auto& table = window.find<QTableWidget>("Harmonics15Tabelle");
        QCOMPARE(table.rowCount(), 10);
        // Nearly all of the 10 W is at fo: √(2·10 W/7.5655 Ω) = 1.626 A.
        QCOMPARE(table.item(0, 2)->text(), QString("1.62 A"));
        QCOMPARE(table.item(1, 1)->text(), QString("20.00 MHz"));
        QCOMPARE(table.item(1, 3)->text(), QString("-19.7 dB"));
        const Picture& voltage = window.find<PlotImage>("ImageVoltage15").picture();
        QVERIFY(std::fabs(Largest(voltage.curves.at(0)) - 43.40) < 0.01);
        QVERIFY(voltage.view.y.max >= 43.4);
        QVERIFY(std::fabs(voltage.view.x.max - 100e-9) < 1e-12);
        const Picture& currents = window.find<PlotImage>("ImageCurrents15").picture();
        QCOMPARE(currents.curves.size(), 2U);
        QVERIFY(currents.view.y.min < -1.5);
    }

    void showsNothingOfARefusedDesign() {
        FormFixture window;
        EnterStage(window);
        window.type("Usat15Eingabe", "12");
        QVERIFY(!window.messages.isEmpty());
        QCOMPARE(window.find<QTableWidget>("Harmonics15Tabelle").rowCount(), 0);
        QVERIFY(window.find<PlotImage>("ImageVoltage15").picture().curves.empty());
        QVERIFY(!window.find<QPushButton>("ButtonNgspice").isEnabled());
    }

    void infiniteChokeTakesNoRatio() {
        FormFixture window;
        EnterStage(window);
        window.click("CheckBoxChoke15");
        QCOMPARE(window.text("Lc15Ausgabe").trimmed(), QString("infinite"));
        QCOMPARE(window.text("R15Ausgabe").trimmed(), QString("7.440"));
        QVERIFY(!window.find("Choke15Eingabe").isEnabled());
        window.click("CheckBoxChoke15");
        window.type("Choke15Eingabe", "1");
        QCOMPARE(window.state().chokeRatio, 5.0);
        QCOMPARE(window.text("Lc15Ausgabe").trimmed(), QString("838.56n"));
    }

    void simulatesBesideTheComputation() {
        FormFixture window;
        EnterStage(window);
        window.click("ButtonNgspice");
        QVERIFY(!window.find<QPushButton>("ButtonNgspice").isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(window.form().findChild<QDialog*>("TNgspiceDlg"), 60'000);
        QVERIFY(window.messages.isEmpty());
        const auto& table = window.find<QTableWidget>("NgspiceTabelle");
        QCOMPARE(table.horizontalHeaderItem(2)->text(), QString("ngspice"));
        QVERIFY(table.rowCount() >= 7);
        for (int column : {1, 2}) {
            const double power = table.item(0, column)->text().split(' ').first().toDouble();
            QVERIFY2(power > 9.3 && power < 9.4, qPrintable(table.item(0, column)->text()));
        }
        QVERIFY(window.find<QPushButton>("ButtonNgspice").isEnabled());
    }

    void saysWhenThereIsNoSimulator() {
        FormFixture window;
        EnterStage(window);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nonexistent");
        window.click("ButtonNgspice");
        QTRY_COMPARE(window.messages.size(), 1);
        qputenv("PATH", path);
        QVERIFY(window.messages.first().startsWith("ngspice is not installed"));
        QVERIFY(window.find<QPushButton>("ButtonNgspice").isEnabled());
    }

    void closesWhileTheSimulatorRuns() {
        FormFixture window;
        EnterStage(window);
        window.type("Q15Eingabe", "500");
        window.click("ButtonNgspice");
        QVERIFY(!window.find<QPushButton>("ButtonNgspice").isEnabled());
        // The fixture ends here, and with it the simulator.
    }
};

}  // namespace kelvro

QTEST_MAIN(kelvro::StageViewTest)
#include "stage_view_test.moc"
