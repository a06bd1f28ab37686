// The design between runs of the program, and designs in files of their own.

#include "tests/ui/form_fixture.h"
#include "ui/language.h"
#include "ui/splash_screen.h"

using namespace kelvro;

class SettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void splashScreenStaysAwayOnceItIsUnwanted() {
        FormFixture f;
        auto& item = f.find<QAction>("SplashScreen1");
        QVERIFY(item.isChecked() && IsSplashWanted());
        item.trigger();
        QVERIFY(!IsSplashWanted());
        // The next start of the program.
        const TSDIAppForm next;
        QVERIFY(!next.findChild<QAction*>("SplashScreen1")->isChecked());
    }

    void settingsThatCannotBeWrittenAreReported() {
        FormFixture f;
        QVERIFY(QDir(f.configFolder()).mkpath("kelvro/kelvro.ini"));  // a folder in its place
        f.form().close();
        QCOMPARE(f.messages.size(), 1);
        QVERIFY(!f.form().isVisible());
    }

    void savedDesignIsLoadedOnItsPage() {
        FormFixture f;
        const QString file = f.configFolder() + "/pi.ini";
        f.goTo(3);
        f.type("R1Eingabe", "33");
        f.type("QEingabe", "2.5");
        AnswerFileDialog(file);
        f.click("SpeedButtonINISave");
        f.goTo(5);
        f.type("R1Eingabe", "1k");
        f.click("CheckBoxQ");
        QVERIFY(!f.state().QByBandwidth);
        f.calculations = 0;
        AnswerFileDialog(file);
        f.click("SpeedButtonINILaden");
        QCOMPARE(f.calculations, 1);
        QCOMPARE(f.state().page, 3);
        QCOMPARE(f.text("R1Eingabe"), QString("   33.000"));
        QCOMPARE(f.text("QEingabe"), QString("     2.50"));
        QVERIFY(f.find<QAbstractButton>("CheckBoxQ").isChecked());
    }

    void startShowsThePageOfTheSettingsAsItWasLeft() {
        FormFixture f;
        f.goTo(16);
        f.type("QEingabe", "1.5");
        f.form().close();
        TSDIAppForm next;
        next.session().optimizerFiles() = {{}, {}};
        next.startUp({"nopt"});
        QCOMPARE(next.session().design().page, 16);
        QCOMPARE(next.session().design().Q, 1.5);  // entering the page anew would make it 0.2
        QCOMPARE(next.findChild<TabSet*>("TabSet1")->currentIndex(), 15);
        QCOMPARE(next.findChild<QLineEdit*>("BAusgabe")->text(),
                 QString("   66.67M"));  // 100 MHz/1.5
    }

    void fileThatIsNoSettingsFileIsReported() {
        FormFixture f;
        const QString file = f.written("noise.ini", QByteArray(3'000'000, '\0'));
        const double fo = f.state().fo;
        AnswerFileDialog(file);
        f.click("SpeedButtonINILaden");
        QCOMPARE(f.messages.size(), 1);
        QCOMPARE(f.state().fo, fo);
    }

    void nextStartContinuesWithTheTakenComponents() {
        FormFixture f;
        f.goTo(3);
        f.type("R1Eingabe", "33.333333");
        f.doubleClick("C13Ausgabe");
        f.click("ButtonTake");
        f.doubleClick("L3Ausgabe");
        f.choose("E48Reihe1");
        const Design left = f.state();
        const QString loss = f.text("dAusgabe");
        f.form().close();
        TSDIAppForm next;
        next.session().optimizerFiles() = {{}, {}};
        next.startUp({"nopt"});
        QVERIFY(next.session().design() == left);
        QCOMPARE(next.findChild<QLineEdit*>("L3Ausgabe")->text(), f.text("L3Ausgabe"));
        QCOMPARE(next.findChild<QLineEdit*>("dAusgabe")->text(), loss);
        QVERIFY(next.findChild<QAbstractButton*>("E48Button")->isChecked());
    }

    void captionTellsFileAndChange() {
        FormFixture f;
        const QString product = "Kelvro - Matching Network and PA Design";
        const QString file = f.configFolder() + "/pi.ini";
        QCOMPARE(f.form().windowTitle(), product);
        AnswerFileDialog(file);
        f.choose("SaveAs1");
        QCOMPARE(f.form().windowTitle(), "pi.ini[*] - " + product);
        QVERIFY(!f.form().isWindowModified());
        f.type("R1Eingabe", "33");
        QVERIFY(f.form().isWindowModified());
        f.choose("Save1");
        QVERIFY(!f.form().isWindowModified());
        QVERIFY2(ReadAll(file).contains("R1=33.00"), ReadAll(file));
        f.type("R1Eingabe", "44");
        f.choose("Undo1");
        QVERIFY(!f.form().isWindowModified());
    }

    void recentFilesAreOpenedAgain() {
        FormFixture f;
        for (const char* name : {"one.ini", "two.ini"}) {
            f.type("R1Eingabe", name == QString("one.ini") ? "11" : "22");
            AnswerFileDialog(f.configFolder() + '/' + name);
            f.choose("SaveAs1");
        }
        QVERIFY(f.find<QAction>("Recent1").text().endsWith("two.ini"));
        f.choose("Recent2");
        QCOMPARE(f.state().R1, 11.0);
        QVERIFY(f.find<QAction>("Recent1").text().endsWith("one.ini"));
    }

    void newDesignCanBeTakenBack() {
        FormFixture f;
        f.goTo(3);
        f.type("R1Eingabe", "33");
        const Design before = f.state();
        f.choose("New1");
        QCOMPARE(f.state().R1, 50.0);
        QCOMPARE(f.state().page, 3);
        QCOMPARE(f.text("R1Eingabe"), QString("   50.000"));
        f.find("foEingabe").setFocus();
        f.choose("Undo1");
        QVERIFY(f.state() == before);
    }

    void droppedFileIsOpened() {
        FormFixture f;
        const QString file = f.written("fo.ini", "[Variablen]\r\nfo=10M\r\n");
        QVERIFY(DropFile(f.form(), file));
        QCOMPARE(f.state().fo, 10e6);
        QVERIFY(!DropFile(f.form(), "letter.txt"));
    }

    void fileGivenAtTheStartIsOpened() {
        QTemporaryDir folder;
        const QString file = folder.filePath("max.ini");  // no keyword, though it holds one
        Write(file, "[Variablen]\nfo=10M\nTyp=3\n");
        FormFixture f({file, "nopt"});
        QCOMPARE(f.state().fo, 10e6);
        QCOMPARE(f.state().page, 3);
        QVERIFY(f.form().windowTitle().startsWith("max.ini"));
        QVERIFY(f.startMessages.isEmpty());
        QVERIFY(f.form().session().optimizer().settings.disabled);
    }

    void changesAreSavedAfterAPause() {
        FormFixture f;
        const QString file = f.configFolder() + "/kelvro/kelvro.ini";
        f.type("R1Eingabe", "33");
        QVERIFY(!ReadAll(file).contains("R1=33.00"));
        QTRY_VERIFY(ReadAll(file).contains("R1=33.00"));
        f.type("R1Eingabe", "44");
        f.form().saveNow();
        QVERIFY(ReadAll(file).contains("R1=44.00"));
    }

    void secondInstanceLeavesTheFileAlone() {
        FormFixture f;
        f.type("R1Eingabe", "33");
        f.form().saveNow();
        const QString file = f.configFolder() + "/kelvro/kelvro.ini";
        const QByteArray before = ReadAll(file);
        QStringList messages;
        {
            TSDIAppForm second;
            second.session().optimizerFiles() = {{}, {}};
            second.session().setMessageSink([&](const QString& text) { messages << text; });
            second.startUp({"nopt"});
            QCOMPARE(second.session().design().R1, 33.0);
            second.session().edit("R1", [](Design& design) { design.R1 = 1; });
            second.saveNow();
            second.close();
        }
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].contains("running already"), qPrintable(messages[0]));
        QCOMPARE(ReadAll(file), before);
    }

    void languageIsRememberedForTheNextStart() {
        FormFixture f;
        QCOMPARE(ChosenLanguage(), Language::System);
        f.find<QAction>("Language2").trigger();
        QCOMPARE(f.messages.size(), 1);
        QCOMPARE(ChosenLanguage(), Language::German);
        const TSDIAppForm next;
        QVERIFY(next.findChild<QAction*>("Language2")->isChecked());
        QVERIFY(!next.findChild<QAction*>("Language0")->isChecked());
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
