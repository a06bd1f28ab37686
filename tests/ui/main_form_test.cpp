// The shared part of the main window: inputs, spin buttons, series, hints, buttons.

#include <cmath>

#include "design/opened_network.h"
#include "design/pages.h"
#include "tests/ui/form_fixture.h"
#include "ui/hint_handler.h"
#include "ui/workbench/network_window.h"

using namespace kelvro;

/// Moves the mouse where no control shows a hint.
static void LeaveControls(FormFixture& f) {
    QTest::mouseMove(&f.find<QWidget>("StatusBar"));
}

/// The window, with nothing left over from another run.
NetworkWindow& NetworkWindowOf(FormFixture& f) {
    qputenv("XDG_STATE_HOME", f.configFolder().toLocal8Bit());
    auto* window = dynamic_cast<NetworkWindow*>(f.form().windows().window("NetworkWindow"));
    if (!window) qFatal("no network window");
    return *window;
}

class MainFormTest : public QObject {
    Q_OBJECT

  private slots:
    void typingAnInputUpdatesTheOutputsAtEveryKey() {
        FormFixture f;
        f.goTo(3);
        f.calculations = 0;
        f.type("QEingabe", "10");
        QCOMPARE(f.calculations, 2);
        QCOMPARE(f.text("BAusgabe"), QString("   10.00M"));  // fo/Q = 100 MHz / 10
    }

    void programWritesOfQDoNotCalculate() {
        FormFixture f;
        f.goTo(3);
        f.calculations = 0;
        f.find("QEingabe").setText("7");
        QCOMPARE(f.calculations, 0);
        QCOMPARE(f.state().Q, 5.0);
        f.find("R1Eingabe").setText("75");
        QCOMPARE(f.calculations, 1);
        QCOMPARE(f.state().R1, 75.0);
    }

    void spinButtonsStopAtTheirLimits() {
        struct Row {
            const char* button;
            double Design::*value;
            double start;
            double low;
            double high;
        };
        FormFixture f;
        f.goTo(3);
        f.preferences().SweepFactor = 9;  // few clicks to a limit
        for (const auto& [button, value, start, low, high] :
             {Row{"R1", &Design::R1, 50, 0.001, 1e6}, Row{"R2", &Design::R2, 50, 0.001, 1e6},
              Row{"fo", &Design::fo, 1e6, 1, 2e10}, Row{"Q", &Design::Q, 5, 0.2, 1000},
              Row{"QB", &Design::QB, 100, 5, 10000}, Row{"QBC", &Design::QBC, 100, 5, 10000}}) {
            f.form().session().edit(
                "start", [value = value, start = start](Design& design) { design.*value = start; });
            for (const auto& [direction, limit] : {std::pair{"Up", high}, {"Down", low}}) {
                auto& spin = f.find<QAbstractButton>(QString("SpinButton") + button + direction);
                for (int i = 0; i < 12; ++i) spin.click();
                QVERIFY2(f.state().*value == limit, button);
            }
        }
    }

    void spinButtonsWriteTheirFormat() {
        FormFixture f;
        f.goTo(3);
        f.calculations = 0;
        f.click("SpinButtonfoUp");
        f.click("SpinButtonQDown");
        QCOMPARE(f.calculations, 2);
        QCOMPARE(f.state().fo, 105e6);
        QCOMPARE(f.text("foEingabe"), QString("  105.00M"));
        QCOMPARE(f.text("QEingabe"), QString("    4.70"));  // 5 less 0.3, which is 5 % in one digit
        QTest::keyClick(&f.find("R1Eingabe"), Qt::Key_Up);
        QCOMPARE(f.text("R1Eingabe"), QString("   53.000"));
    }

    void heldSpinButtonStopsAtAMessage() {
        FormFixture f;
        f.goTo(1);
        f.type("R1Eingabe", "195");
        int boxes = 0;
        f.form().session().setMessageSink([&](const QString& text) {
            ++boxes;
            QTimer::singleShot(600, qApp, [] { QApplication::activeModalWidget()->close(); });
            ShowMessageBox(text);
        });
        QTest::mousePress(&f.find<QAbstractButton>("SpinButtonR1Up"), Qt::LeftButton);
        QTRY_COMPARE(boxes, 1);
        QTest::qWait(500);
        QCOMPARE(boxes, 1);
        QCOMPARE(f.state().R1, 200.0);
    }

    void switchingResistancesCalculatesOnce() {
        FormFixture f;
        f.goTo(3);
        f.type("R1Eingabe", "33.333");
        f.calculations = 0;
        f.click("SpeedButtonVertauschen");
        QCOMPARE(f.calculations, 1);
        QCOMPARE(f.state().R1, 200.0);
        QCOMPARE(f.state().R2, 33.333);  // not the rounded text
        QCOMPARE(f.text("R1Eingabe"), QString("  200.000"));
        QCOMPARE(f.text("R2Eingabe"), QString("   33.330"));
    }

    void okRewritesEveryInputAndCalculatesOnce() {
        FormFixture f;
        f.goTo(5);
        f.type("k5Eingabe", "7");
        f.type("R1Eingabe", "0");
        f.type("QEingabe", "5k");
        f.calculations = 0;
        f.click("OK");
        QCOMPARE(f.calculations, 1);
        QCOMPARE(f.text("k5Eingabe"), QString("   1.000"));
        QCOMPARE(f.text("R1Eingabe"), QString("    1.00m"));
        QCOMPARE(f.text("QEingabe"), QString("   500.00"));
        QCOMPARE(f.text("QBCEingabe"), QString("  1000.00"));
    }

    void seriesAreChosenByButtonAndMenuAlike() {
        FormFixture f;
        QVERIFY(f.find<QAction>("E12Reihe1").isChecked());
        f.click("E96Button");
        QCOMPARE(f.preferences().ESeries, Series::E96);
        QVERIFY(f.find<QAction>("E96Reihe1").isChecked());
        QVERIFY(!f.find<QAction>("E12Reihe1").isChecked());
        f.choose("E6Reihe1");
        QCOMPARE(f.preferences().ESeries, Series::E6);
        QVERIFY(f.find<QRadioButton>("E6Button").isChecked());
    }

    void bandwidthFontFollowsItsText() {
        FormFixture f;
        f.goTo(3);
        QCOMPARE(f.find("BAusgabe").font().family(), QString("System"));
        QCOMPARE(f.find("BAusgabe").font().pointSize(), 10);
        f.goTo(7);
        QCOMPARE(f.text("BAusgabe"), QString("infinite"));
        QCOMPARE(f.find("BAusgabe").font().family(), QString("Arial"));
        QCOMPARE(f.find("BAusgabe").font().pointSize(), 9);
    }

    void hintsShowTheGoalOrTheWarning() {
        FormFixture f;
        f.form().session().optimizer().settings.disabled = true;
        auto& swap = f.find<QAbstractButton>("SpeedButtonVertauschen");
        QTest::mouseMove(&f.find("R1Eingabe"));
        QTest::mouseMove(&swap);
        QCOMPARE(f.find<QStatusBar>("StatusBar").currentMessage(),
                 QString("Switch R1 and R2 - Warning: Optimization is disabled!"));
        f.form().session().optimizer().settings.disabled = false;
        auto& two = f.find<QWidget>("SpinButtonR2");
        QTest::mouseMove(&two, QPoint(2, 2));
        // The hint alone, what was achieved beside it; nothing has run yet.
        QCOMPARE(f.find<QStatusBar>("StatusBar").currentMessage(),
                 QString("Increase or decrease R1"));
        const auto& achieved = f.find<QLabel>("AchievedLabel");
        QVERIFY(achieved.isVisible());
        QVERIFY2(achieved.text().startsWith("loss "), qPrintable(achieved.text()));
        LeaveControls(f);
        QVERIFY(achieved.isHidden());
    }

    /// Under the pointer a control takes its hint back as it goes, behind the form's own members.
    void controlsThatGoLastShowNoHint() {
        int shown = 0;
        {
            FormFixture f;
            connect(f.form().findChild<HintHandler*>(), &HintHandler::hintChanged, this,
                    [&shown] { ++shown; });
            connect(&f.find("R1Eingabe"), &QObject::destroyed, this, [] {
                QStatusTipEvent tip(QStringLiteral("late"));
                QApplication::sendEvent(qApp, &tip);
            });
            shown = 0;
        }
        QCOMPARE(shown, 0);
    }

    void statusPanelTellsWhatTheShownDesignAchieves() {
        FormFixture f({"single"});
        const auto& panel = f.find<QStatusBar>("StatusBar");
        f.goTo(3);
        QTest::mouseMove(&f.find<QWidget>("SpeedButtonVertauschen"));
        QVERIFY(f.find<QLabel>("AchievedLabel").text().startsWith("achieved fmin="));
        LeaveControls(f);
        const QString optimized = panel.currentMessage();
        QVERIFY2(
            optimized.contains(QRegularExpression("achieved fmin= +[0-9.]+, loss 0\\.[0-9]+ dB at "
                                                  "fo, -3 dB width [0-9.]+ MHz .*loaded Q [0-9]")),
            qPrintable(optimized));
        f.goTo(8);  // nothing to optimize, no band
        LeaveControls(f);
        QVERIFY2(!panel.currentMessage().contains("fmin"), qPrintable(panel.currentMessage()));
    }

    void reportThatCannotBeWrittenStandsInTheStatusPanel() {
        FormFixture f({"single"});
        f.goTo(3);
        LeaveControls(f);
        const auto& panel = f.find<QStatusBar>("StatusBar");
        QVERIFY2(panel.currentMessage().contains("achieved fmin="),
                 qPrintable(panel.currentMessage()));
        f.form().session().optimizerFiles().log = "/dev/full";
        f.type("QEingabe", "6");
        QVERIFY2(panel.currentMessage().contains(
                     ", Cannot write \"/dev/full\": No space left on device, "),
                 qPrintable(panel.currentMessage()));
        QVERIFY(f.messages.isEmpty());
        QCOMPARE(f.state().Q, 6.0);
    }

    void stayInFrontTogglesFlagAndCheckMark() {
        FormFixture f;
        auto& item = f.find<QAction>("ImVordergrundbleiben1");
        item.trigger();
        QVERIFY(f.form().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(item.isChecked());
        QVERIFY(f.form().isVisible());
        item.trigger();
        QVERIFY(!f.form().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(!item.isChecked());
    }

    void windowIsCopiedToTheClipboard() {
        FormFixture f;
        f.click("ButtonCopy");
        QCOMPARE(QApplication::clipboard()->pixmap().deviceIndependentSize().toSize(),
                 f.form().size());
    }

    void programThatCannotStartIsReportedByABeepOnly() {
        FormFixture f;
        f.form().execute("/no/such/program");
        QVERIFY(f.messages.isEmpty());
    }

    void argumentsPresetTheOptimizerAndSaySo() {
        FormFixture f({"dfp_nopt_mruns", "2", "0,25"});
        QCOMPARE(
            f.startMessages,
            QStringList({"Hint: DFP update formulas used instead of BFGS.",
                         "Hint: Line accuracy modified (0=fast,1=accurate)! Parameter set to 1.00",
                         "Hint: Line center parameter modified (0.5=default,0=short)! Parameter "
                         "set to 0.25"}));
        QVERIFY(f.form().session().optimizer().settings.disabled);
        const OptimizerSettings& settings = f.form().session().optimizer().settings;
        QVERIFY(settings.local.dfp);
        QVERIFY(!settings.singleRun);
        QCOMPARE(settings.local.lineAccuracy, 1.0);
        QCOMPARE(settings.local.lineCentre, 0.25);
        QCOMPARE(f.form().windowTitle(), QString("Kelvro - Matching Network and PA Design"));
    }

    void everyControlOfTheWindowIsThere() {
        FormFixture f;
        const QStringList names =
            QString(
                "R1Eingabe R2Eingabe foEingabe QEingabe QBEingabe QBCEingabe SpinButtonR1 "
                "SpinButtonR2 SpinButtonfo SpinButtonQ SpinButtonQB SpinButtonQBC BAusgabe "
                "ueAusgabe dBAusgabe dAusgabe QBgesAusgabe CheckBoxQ CheckBoxE E6Button "
                "E12Button E24Button E48Button E96Button SpeedButtonVertauschen "
                "SpeedButtonHint SpeedButtonExport ButtonTake ButtonTakeAndOpt ButtonGuide OK "
                "Abbruch Hilfe StatusBar SpeedPanel ExitBtn RechenButton ExecButton "
                "SweepButton ButtonCopy VuButton SpeedButtonTol SpeedButtonINISave "
                "SpeedButtonINILaden SpeedButtonInfo SpeedButtonOptSettings "
                "SpeedButtonGlobalOpt PhiBtn PanelQ Notebook1 TabSet1 CheckBox1 CheckBox2 "
                "CheckBox3 CheckBox4 CheckBoxL1L2 CheckBoxLtot CheckBoxC1Null ScrollBarW "
                "ScrollBarWC ScrollBarLtot")
                .split(' ');
        for (const QString& name : names)
            QVERIFY2(f.form().findChild<QWidget*>(name), qPrintable(name));
        const QStringList items =
            QString(
                "Drucken1 Druckereinstellung1 ExitItem Rechnen1 Undo1 SweepFaktor1 "
                "Optimizationsetup1 LCS1 LCP1 Pi1 T1 Uebertrager1 Leitung1 PassivesLGlied1 "
                "PassivesPiGlied1 LCAllpass1 RLoptberechnen1 LeffCeff1 KombinierterLCKreis1 "
                "LCGamma1 LCCL1 KlasseEVerstrker1 Bandpass1 DoubleLSection1 E6Reihe1 E96Reihe1 "
                "Ausfhren1 ImVordergrundbleiben1")
                .split(' ');
        for (const QString& name : items)
            QVERIFY2(f.form().findChild<QAction*>(name), qPrintable(name));
    }

    void oddCaptionsAndHintsStandAsUsersKnowThem() {
        FormFixture f;
        QCOMPARE(f.find<QAbstractButton>("ButtonCopy").text(),
                 QString("&Copy window contents to clipboard"));
        QCOMPARE(f.find<QWidget>("ButtonCopy").toolTip(),
                 QString("Copy window contents to clipboard"));
        QCOMPARE(f.find<QWidget>("SpinButtonR2").toolTip(), QString("Increase or decrease R1"));
        QCOMPARE(f.find<QWidget>("Image3").toolTip(), QString("R measured from the center"));
    }

    void tabKeyFollowsTheEye() {
        FormFixture f;
        f.goTo(5);
        f.form().activateWindow();
        f.find("R1Eingabe").setFocus();
        QStringList order;
        for (int i = 0; i < 9 && QApplication::focusWidget(); ++i) {
            order << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order.mid(0, 8),
                 QStringList({"R1Eingabe", "R2Eingabe", "foEingabe", "SpeedButtonVertauschen",
                              "QEingabe", "QBEingabe", "QBCEingabe", "CheckBoxQ"}));
    }

    void everyPageOpensAsANetwork() {
        FormFixture f;
        NetworkWindowOf(f);
        for (const Page& page : Pages()) {
            f.goTo(page.number);
            f.messages.clear();
            if (!page.networks || !page.atFrequency) {
                f.choose("OpenAsNetwork1");
                QVERIFY2(f.messages.join(' ').contains(ToQString(page.caption)),
                         qPrintable(ToQString(page.key)));
                continue;
            }
            f.click(QString("OpenAsNetwork%1").arg(page.number));
            NetworkWindow& window = NetworkWindowOf(f);
            const auto opened = OpenedNetwork(f.state());
            if (!opened) {  // refused for these resistances
                QCOMPARE(f.messages.last(), QString::fromStdString(opened.message()));
                continue;
            }
            QVERIFY2(f.messages.isEmpty(), qPrintable(f.messages.join('\n')));
            QVERIFY2(window.isVisible() && window.model().network() == *opened,
                     qPrintable(ToQString(page.key)));
            QVERIFY2(window.model().history().undoName() == "Open " + std::string(page.caption),
                     qPrintable(ToQString(page.key)));
        }
        NetworkWindowOf(f).model().markSaved();
    }

    void projectsOpenFromCommandLineAndDrop() {
        QTemporaryDir folder;
        const QString file = folder.filePath("antenna.kelvro");
        Project project;
        project.network = StartNetwork();
        project.network.load = std::complex(12.0, 34.0);
        QVERIFY(WriteProject(file.toStdString(), project).ok());
        FormFixture f({"nopt", file});
        NetworkWindowOf(f);
        f.form().openNetworkFiles();
        NetworkWindow& window = NetworkWindowOf(f);
        QVERIFY(window.isVisible());
        QVERIFY(window.model().network() == project.network);
        QVERIFY2(f.messages.isEmpty(), qPrintable(f.messages.join('\n')));

        window.newProject();
        QVERIFY(!DropFile(f.form(), folder.filePath("letter.txt")));
        QVERIFY(window.model().network() == StartNetwork());
        QVERIFY(DropFile(f.form(), file));
        QVERIFY(window.model().network() == project.network);
    }
};

QTEST_MAIN(MainFormTest)
#include "main_form_test.moc"
