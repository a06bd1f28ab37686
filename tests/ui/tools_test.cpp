// The windows of the Tools menu, driven by keys and object names. Their arithmetic has tests of its
// own; here the numbers show that fields, units and choices reach it and come back.

#include "core/number_text.h"
#include "tests/ui/form_fixture.h"
#include "ui/plot/plot_image.h"
#include "ui/tools/tool_window.h"
#include "ui/tools/tool_windows.h"

using namespace kelvro;

namespace {

/// One tool by the name of its class, without a main window.
class Tool {
  public:
    explicit Tool(const char* name) {
        for (const ToolEntry& entry : ToolWindows())
            if (QLatin1String(entry.window) == name) window_.reset(entry.create(nullptr));
        if (!window_) qFatal("no tool %s", name);
        widget().show();
    }

    QWidget& widget() { return *window_; }
    ToolWindow& window() { return *window_; }

    template <typename Widget = QLineEdit>
    Widget& find(const QString& name) {
        auto* found = widget().findChild<Widget*>(name);
        if (!found) qFatal("no control %s", qPrintable(name));
        return *found;
    }

    void type(const QString& edit, const QString& text) {
        QLineEdit& field = find(edit);
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }

    /// Chooses an entry with the keyboard.
    void choose(const QString& choice, int entry) {
        auto& box = find<QComboBox>(choice);
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < entry; ++i) QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.currentIndex(), entry);
    }

    QString text(const QString& edit) { return find(edit).text(); }
    double number(const QString& edit) { return ParseValue(text(edit).toStdString()); }
    QString note() { return find<QLabel>("Note").text(); }
    void press(const QString& button) {
        QTest::mouseClick(&find<QAbstractButton>(button), Qt::LeftButton);
    }

  private:
    std::unique_ptr<ToolWindow> window_;
};

}  // namespace

class ToolsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", config_.path().toLocal8Bit()); }

    void everyMenuItemOpensItsWindowAndEscapeClosesIt() {
        FormFixture fixture;
        for (const ToolEntry& entry : ToolWindows()) {
            fixture.choose(entry.control);
            QWidget* window = fixture.form().windows().window(entry.window);
            QVERIFY2(window && window->isVisible(), entry.window);
            QVERIFY(!window->windowTitle().isEmpty());
            QTest::keyClick(window, Qt::Key_Escape);
            QVERIFY2(!window->isVisible(), entry.window);
        }
        QVERIFY(!fixture.find<QAction>("SerienParallelkreise1").isVisible());
    }

    void frequencyFollowsTheDesignUntilItIsTyped() {
        FormFixture fixture;
        fixture.choose("Spulen1");
        QWidget* coils = fixture.form().windows().window("TFormCoils");
        auto* fo = coils->findChild<QLineEdit*>("foEingabe");
        fixture.type("foEingabe", "7M");
        QCOMPARE(ParseValue(fo->text().toStdString()), 7e6);
        fo->selectAll();
        QTest::keyClicks(fo, "3M");
        fixture.type("foEingabe", "9M");
        QCOMPARE(fo->text(), "3M");
        fixture.preferences().SweepFactor = 1.5;
        QTest::keyClick(fo, Qt::Key_Up);
        QVERIFY(ParseValue(fo->text().toStdString()) > 4e6);  // 1.05 is the usual factor
    }

    void windowsOpenWhereTheyStoodLast() {
        {
            Tool tool("TFormMixed");
            tool.widget().move(120, 90);
            QTest::keyClick(&tool.widget(), Qt::Key_Escape);
        }
        Tool again("TFormMixed");
        QCOMPARE(again.widget().pos(), QPoint(120, 90));
    }

    void resultsAreCopiedTogetherOrOneByOne() {
        Tool tool("TFormMixed");
        tool.press("ButtonCopy");
        const QString all = QApplication::clipboard()->text();
        QVERIFY2(all.contains("fo\t100M Hz\n"), qPrintable(all));
        QVERIFY2(all.contains("Rs\t10.000 ohm\n"), qPrintable(all));
        QTest::mouseDClick(&tool.find("ElementsAusgabe"), Qt::LeftButton);
        QCOMPARE(QApplication::clipboard()->text(), "100.000n");
        tool.press("ButtonClose");
        QVERIFY(!tool.widget().isVisible());
    }

    // By hand: X = 20 ohm is 31.831 nH at 100 MHz; Q = 2, so 50 ohm across 25 ohm (39.789 nH). The
    // same reactance of a capacitor is 79.577 pF, in parallel form 63.662 pF.
    void mixedCircuitsSwitchBetweenInductorAndCapacitor() {
        Tool tool("TFormMixed");
        tool.type("LEingabe", "31.831n");
        QCOMPARE(tool.text("RpAusgabe"), "50.000");
        QCOMPARE(tool.text("ElementpAusgabe"), "39.789n");
        tool.type("LEingabe", "");
        tool.type("CEingabe", "79.577p");
        QCOMPARE(tool.text("RpAusgabe"), "50.000");
        QCOMPARE(tool.text("ElementpAusgabe"), "63.662p");
        QVERIFY(tool.window().resultText().contains("Cp\t63.662p F\n"));
        QVERIFY(tool.note().isEmpty());
        tool.type("REingabe", "");
        tool.type("CEingabe", "");
        QCOMPARE(tool.text("RsAusgabe"), "-");
        QVERIFY(!tool.note().isEmpty());
    }
    void coilsFindTurnsForTheInductanceTheyFound() {
        for (const int kind : {0, 1, 2}) {  // solenoid, spiral, toroid
            Tool tool("TFormCoils");
            tool.choose("KindChoice", kind);
            tool.type("NEingabe", "7");
            const QString inductance = tool.text("LAusgabe");
            tool.choose("DirectionChoice", 1);
            tool.type("LEingabe", inductance);
            QCOMPARE(tool.text("LAusgabe"), inductance);
            QVERIFY(std::abs(tool.number("NAusgabe") - 7) <= 0.01);
            tool.type("LEingabe", "-1n");
            QCOMPARE(tool.text("NAusgabe"), "-");
            QVERIFY(!tool.note().isEmpty());
        }
    }

    /// 20 turns on an A_L of 4.9 nH are 1.96 µH; overlapping turns of a solenoid are told.
    void coilsReadCoreAndWire() {
        Tool tool("TFormCoils");
        tool.type("WireEingabe", "2m");
        QVERIFY(tool.note().contains("overlap"));
        tool.choose("KindChoice", 2);
        tool.type("NEingabe", "20");
        QCOMPARE(tool.text("LAusgabe"), "1.960u");
        QVERIFY(!tool.find("DEingabe").isVisible());
        QVERIFY(tool.find("ALEingabe").isVisible());
    }

    /// D. M. Pozar, Microwave Engineering, 3rd ed., example 3.7: 50 ohm and 90° at 2.5 GHz on 0.127
    /// cm with er = 2.20 take 0.391 cm by 2.19 cm.
    void linesMeetTheTextbookBothWays() {
        Tool tool("TFormLines");
        tool.choose("DirectionChoice", 1);
        tool.type("erEingabe", "2.20");
        tool.type("HeightEingabe", "50mil");
        tool.type("ThicknessEingabe", "0");
        tool.type("foEingabe", "2.5G");
        QVERIFY(std::abs(tool.number("WidthAusgabe") - 3.91e-3) < 0.03e-3);
        QVERIFY(std::abs(tool.number("LengthAusgabe") - 21.9e-3) < 0.2e-3);
        const QString width = tool.text("WidthAusgabe");
        tool.choose("DirectionChoice", 0);
        tool.type("WidthEingabe", width);
        QVERIFY(std::abs(tool.number("ZoAusgabe") - 50) < 0.01);
        tool.type("WidthEingabe", "1u");
        QVERIFY(tool.note().contains("0.01"));
        tool.choose("TypeChoice", 0);
        QVERIFY(!tool.find("GapEingabe").isVisible());
        tool.type("WidthEingabe", "9m");  // thicker than the outer conductor
        QCOMPARE(tool.text("ZoAusgabe"), "-");
    }

    /// What was typed for one type of line waits for it; a first look at a type shows a line.
    void everyTypeOfLineKeepsItsDimensions() {
        Tool tool("TFormLines");
        tool.type("WidthEingabe", "2.5m");
        tool.type("tanEingabe", "0.01");
        for (int type = 0; type < 5; ++type) {
            tool.choose("TypeChoice", type);
            QVERIFY2(std::abs(tool.number("ZoAusgabe") - 50) < 6,
                     qPrintable(tool.text("ZoAusgabe")));
            QVERIFY2(tool.note().isEmpty(), qPrintable(tool.note()));
        }
        tool.choose("TypeChoice", 1);
        QCOMPARE(tool.text("WidthEingabe"), "2.5m");
        QCOMPARE(tool.text("tanEingabe"), "0.01");
    }

    /// By hand (see the losses' own test): 0.327 dB/m of copper, 0.0525 dB/m of PTFE at 1 GHz.
    void linesAndCoilsTellTheirLosses() {
        Tool line("TFormLines");
        line.choose("TypeChoice", 0);
        line.type("WidthEingabe", "0.91m");
        line.type("HeightEingabe", "3.02m");
        line.type("erEingabe", "2.08");
        line.type("foEingabe", "1G");
        line.type("LengthEingabe", "10");
        QVERIFY(std::abs(line.number("ConductorLossAusgabe") - 0.327) < 1e-3);
        QVERIFY(std::abs(line.number("LossAusgabe") - 3.7955) < 1e-3);
        line.type("SigmaEingabe", "0");
        QCOMPARE(line.text("LossAusgabe"), "-");
        QVERIFY(line.note().contains("conductivity"));

        Tool coil("TFormCoils");  // 5.395 µH and 1.102 ohm by hand
        coil.type("NEingabe", "20");
        coil.type("DEingabe", "20m");
        coil.type("WireEingabe", "0.5m");
        coil.type("ExtentEingabe", "20m");
        coil.type("foEingabe", "10M");
        QVERIFY(std::abs(coil.number("QAusgabe") - 307.5) < 0.5);
        QVERIFY(coil.note().isEmpty());
        coil.type("foEingabe", "50M");
        QVERIFY(coil.note().contains("self-resonance"));
        coil.choose("KindChoice", 1);
        QVERIFY(!coil.find("QAusgabe").isVisible());
    }

    /// By hand: third-order Butterworth has g = 1, 2, 1; at 100 MHz in 50 ohm that is 31.831 pF,
    /// 159.155 nH, 31.831 pF, with 10·log(1 + 2^6) = 18.129 dB at twice the cutoff.
    void filtersShowTheirElementsAndResponse() {
        Tool tool("TFormFilters");
        auto& order = tool.find<QSpinBox>("OrderEingabe");
        order.selectAll();
        QTest::keyClicks(&order, "3");
        const auto& elements = tool.find<QTableWidget>("ElementsTable");
        QCOMPARE(elements.rowCount(), 3);
        QCOMPARE(elements.item(0, 2)->text(), "31.831pF");
        QCOMPARE(elements.item(1, 1)->text(), "159.155nH");
        QCOMPARE(tool.text("AttenuationAusgabe"), "18.129");
        QVERIFY(tool.window().resultText().contains("159.155nH"));
        const Picture& picture = tool.find<PlotImage>("FilterPlot").picture();
        QCOMPARE(picture.curves.size(), std::size_t(2));
        tool.choose("BandChoice", 2);
        QCOMPARE(elements.item(0, 3)->text(), "L, C in parallel");
        tool.type("BEingabe", "0");
        QCOMPARE(elements.rowCount(), 0);
        QVERIFY(picture.curves.empty());
        QVERIFY(!tool.note().isEmpty());
    }

    void decibelsConvertAtAnyImpedance() {
        Tool tool("TFormDecibel");
        tool.type("REingabe", "600");
        QCOMPARE(tool.text("Level3Ausgabe"), "774.597m");
        tool.choose("LevelUnitChoice", 3);
        tool.type("LevelEingabe", "1");
        QCOMPARE(tool.text("Level0Ausgabe"), "2.218");  // 1 V in 600 ohm
        tool.type("LevelEingabe", "0");
        QCOMPARE(tool.text("Level0Ausgabe"), "-infinite");
        tool.type("R2Eingabe", "200");
        tool.type("RatioEingabe", "0");
        QCOMPARE(tool.text("RatioVoltageAusgabe"), "2.000");
        tool.type("ListEingabe", "7; 7 dBm");
        QCOMPARE(tool.text("PowersAusgabe"), "10.010");
        QCOMPARE(tool.text("VoltagesAusgabe"), "13.021");
        QCOMPARE(tool.text("ChainAusgabe"), "14.000");
    }

    /// 100 ohm in series, then 100 ohm across, as chain matrices: A = 2, B = 100, C = 0.01, D = 1.
    void twoPortsAreJoinedAndConverted() {
        Tool tool("TFormTwoPorts");
        const auto enter = [&](const QString& prefix, const QStringList& values) {
            for (int i = 0; i < 4; ++i)
                tool.type(prefix + QStringList{"11", "12", "21", "22"}[i] + "aEingabe", values[i]);
        };
        tool.choose("AKindChoice", 3);
        enter("A", {"1", "100", "0", "1"});
        tool.choose("ResultKindChoice", 1);
        QCOMPARE(tool.text("Result11aAusgabe"), "-");
        QVERIFY(tool.note().contains("no such matrix"));
        tool.choose("BKindChoice", 4);
        enter("B", {"1", "0", "10m", "1"});
        QCOMPARE(tool.text("Result11aAusgabe"), "200.000");  // A/C
        QCOMPARE(tool.text("Result22aAusgabe"), "100.000");  // D/C
        QVERIFY(tool.note().isEmpty());
        tool.type("A12bEingabe", "100");
        tool.choose("FormatChoice", 1);
        QVERIFY(std::abs(tool.number("A12aEingabe") - 141.4214) < 1e-3);
        QVERIFY(std::abs(tool.number("A12bEingabe") - 45) < 1e-3);
        tool.choose("FormatChoice", 0);
        QVERIFY(std::abs(tool.number("A12bEingabe") - 100) < 1e-3);
        tool.type("Zo1Eingabe", "0");
        QCOMPARE(tool.text("GainAusgabe"), "-");
    }

    void clipboardNumbersAreListedAndCopied() {
        Tool tool("TFormClipboard");
        QApplication::clipboard()->setText("R1 = 20 ohm, 30 ohm\n60");
        const auto& numbers = tool.find<QTableWidget>("NumbersTable");
        QCOMPARE(numbers.rowCount(), 3);
        QCOMPARE(tool.text("SumAusgabe"), "110.000");
        QCOMPARE(tool.text("ParallelAusgabe"), "10.000");
        QTest::mouseClick(&tool.find<QAbstractButton>("KeepCheck"), Qt::LeftButton, {}, {8, 8});
        tool.press("ButtonCopyNumbers");
        QCOMPARE(QApplication::clipboard()->text(), "20.000\n30.000\n60.000");
        QVERIFY(tool.find<QPlainTextEdit>("ClipboardText").toPlainText().startsWith("R1"));
        QTest::mouseClick(&tool.find<QAbstractButton>("KeepCheck"), Qt::LeftButton, {}, {8, 8});
        QApplication::clipboard()->clear();
        QCOMPARE(numbers.rowCount(), 0);
        QCOMPARE(tool.text("SumAusgabe"), "-");
    }

    /// Whatever is typed: no window fails, and no output shows the texts of the C library.
    void absurdInputsGiveNoAbsurdTexts() {
        const QStringList absurd{"", "0", "-1", "1e999", "1e-300", "abc", "1e300", "-1e308"};
        const QRegularExpression foreign("nan|\\binf\\b");
        for (const ToolEntry& entry : ToolWindows()) {
            Tool tool(entry.window);
            const auto edits = tool.widget().findChildren<QLineEdit*>();
            const auto choices = tool.widget().findChildren<QComboBox*>();
            for (int round = 0; round < 3; ++round) {
                for (QComboBox* choice : choices)
                    choice->setCurrentIndex(std::min(round, choice->count() - 1));
                for (QLineEdit* edit : edits) {
                    if (edit->isReadOnly() || edit->parentWidget()->inherits("QSpinBox")) continue;
                    const QString before = edit->text();
                    for (const QString& text : absurd) {
                        edit->setText(text);
                        for (const QLineEdit* output : edits) {
                            const bool sound =
                                !output->isReadOnly() || !output->text().contains(foreign);
                            QVERIFY2(sound, qPrintable(edit->objectName() + '=' + text + ": " +
                                                       output->text()));
                        }
                    }
                    edit->setText(before);
                }
            }
        }
    }

  private:
    QTemporaryDir config_;
};

QTEST_MAIN(ToolsTest)
#include "tools_test.moc"
