// The design between runs of the program, and designs in files of their own.

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "tests/ui/form_fixture.h"
#include "ui/language.h"
#include "ui/splash_screen.h"

using namespace kelvro;

namespace {

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Answers the next file dialog with a path.
void AnswerFileDialog(const QString& path) {
    QTimer::singleShot(50, qApp, [path] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        // The file it starts from counts before the text until the folder is listed.
        dialog->findChild<QListView*>(QStringLiteral("listView"))->selectionModel()->clear();
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        static_cast<QDialog*>(dialog)->accept();
    });
}

}  // namespace

class SettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void closingWritesTheSettings();
    void settingsThatCannotBeWrittenAreReported();
    void savedDesignIsLoadedOnItsPage();
    void fileWithoutPageLoadsOnTheFirst();
    void startShowsThePageOfTheSettingsAsItWasLeft();
    void fileThatIsNoSettingsFileIsReported();
    void splashScreenStaysAwayOnceItIsUnwanted();
    void nextStartContinuesWithTheTakenComponents();
    void captionTellsFileAndChange();
    void recentFilesAreOpenedAgain();
    void newDesignCanBeTakenBack();
    void droppedFileIsOpened();
    void fileGivenAtTheStartIsOpened();
    void changesAreSavedAfterAPause();
    void secondInstanceLeavesTheFileAlone();
    void settingsOfALaterVersionStayAsTheyAre();
    void languageIsRememberedForTheNextStart();
};

void SettingsTest::closingWritesTheSettings() {
    FormFixture f;
    f.type("foEingabe", "5M");
    f.form().close();
    const QByteArray ini = Contents(f.configFolder() + "/kelvro/kelvro.ini");
    QVERIFY2(ini.contains("fo=5.00M"), ini);
}

void SettingsTest::splashScreenStaysAwayOnceItIsUnwanted() {
    FormFixture f;
    auto& item = f.find<QAction>("SplashScreen1");
    QVERIFY(item.isChecked() && IsSplashWanted());
    item.trigger();
    QVERIFY(!IsSplashWanted());
    // The next start of the program.
    const TSDIAppForm next;
    QVERIFY(!next.findChild<QAction*>("SplashScreen1")->isChecked());
}

void SettingsTest::settingsThatCannotBeWrittenAreReported() {
    FormFixture f;
    QVERIFY(QDir(f.configFolder()).mkpath("kelvro/kelvro.ini"));  // a folder in its place
    f.form().close();
    QCOMPARE(f.messages.size(), 1);
    QVERIFY(!f.form().isVisible());
}

void SettingsTest::savedDesignIsLoadedOnItsPage() {
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

void SettingsTest::fileWithoutPageLoadsOnTheFirst() {
    FormFixture f;
    const QString file = f.configFolder() + "/fo.ini";
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write("[Variablen]\r\nfo=10M\r\n");
    out.close();
    f.goTo(5);
    AnswerFileDialog(file);
    f.click("SpeedButtonINILaden");
    QCOMPARE(f.state().fo, 10e6);
    QCOMPARE(f.state().page, 1);
}

void SettingsTest::startShowsThePageOfTheSettingsAsItWasLeft() {
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
    QCOMPARE(next.findChild<QLineEdit*>("BAusgabe")->text(), QString("   66.67M"));  // 100 MHz/1.5
}

void SettingsTest::fileThatIsNoSettingsFileIsReported() {
    FormFixture f;
    const QString file = f.configFolder() + "/noise.ini";
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(QByteArray(3'000'000, '\0'));
    out.close();
    const double fo = f.state().fo;
    AnswerFileDialog(file);
    f.click("SpeedButtonINILaden");
    QCOMPARE(f.messages.size(), 1);
    QCOMPARE(f.state().fo, fo);
}

void SettingsTest::nextStartContinuesWithTheTakenComponents() {
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

void SettingsTest::captionTellsFileAndChange() {
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
    QVERIFY2(Contents(file).contains("R1=33.00"), Contents(file));
    f.type("R1Eingabe", "44");
    f.choose("Undo1");
    QVERIFY(!f.form().isWindowModified());
}

void SettingsTest::recentFilesAreOpenedAgain() {
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

void SettingsTest::newDesignCanBeTakenBack() {
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

void SettingsTest::droppedFileIsOpened() {
    FormFixture f;
    const QString file = f.configFolder() + "/fo.ini";
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write("[Variablen]\r\nfo=10M\r\n");
    out.close();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&f.form(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&f.form(), &drop);
    QCOMPARE(f.state().fo, 10e6);
    QMimeData text;
    text.setText("no file");
    QDragEnterEvent other({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&f.form(), &other);
    QVERIFY(!other.isAccepted());
}

void SettingsTest::fileGivenAtTheStartIsOpened() {
    QTemporaryDir folder;
    const QString file = folder.filePath("max.ini");  // no keyword, though it holds one
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write("[Variablen]\nfo=10M\nTyp=3\n");
    out.close();
    FormFixture f({file, "nopt"});
    QCOMPARE(f.state().fo, 10e6);
    QCOMPARE(f.state().page, 3);
    QVERIFY(f.form().windowTitle().startsWith("max.ini"));
    QVERIFY(f.startMessages.isEmpty());
    QVERIFY(f.form().session().optimizer().settings.disabled);
}

void SettingsTest::changesAreSavedAfterAPause() {
    FormFixture f;
    const QString file = f.configFolder() + "/kelvro/kelvro.ini";
    f.type("R1Eingabe", "33");
    QVERIFY(!Contents(file).contains("R1=33.00"));
    QTRY_VERIFY(Contents(file).contains("R1=33.00"));
    f.type("R1Eingabe", "44");
    f.form().saveNow();
    QVERIFY(Contents(file).contains("R1=44.00"));
}

void SettingsTest::secondInstanceLeavesTheFileAlone() {
    FormFixture f;
    f.type("R1Eingabe", "33");
    f.form().saveNow();
    const QString file = f.configFolder() + "/kelvro/kelvro.ini";
    const QByteArray before = Contents(file);
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
    QCOMPARE(Contents(file), before);
}

void SettingsTest::settingsOfALaterVersionStayAsTheyAre() {
    FormFixture f;
    f.type("R1Eingabe", "33");
    f.form().close();
    const QString file = f.configFolder() + "/kelvro/kelvro.ini";
    QByteArray later = Contents(file);
    later.replace("Version=1", "Version=9");
    {
        QFile target(file);
        QVERIFY(target.open(QIODevice::WriteOnly));
        target.write(later);
    }
    QStringList messages;
    {
        TSDIAppForm next;
        next.session().optimizerFiles() = {{}, {}};
        next.session().setMessageSink([&](const QString& text) { messages << text; });
        next.startUp({"nopt"});
        QCOMPARE(next.session().design().R1, 33.0);
        next.session().edit("R1", [](Design& design) { design.R1 = 1; });
        next.saveNow();
        next.close();
    }
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].contains("later version"), qPrintable(messages[0]));
    QCOMPARE(Contents(file), later);
}

void SettingsTest::languageIsRememberedForTheNextStart() {
    FormFixture f;
    QCOMPARE(ChosenLanguage(), Language::System);
    f.find<QAction>("Language2").trigger();
    QCOMPARE(f.messages.size(), 1);
    QCOMPARE(ChosenLanguage(), Language::German);
    const TSDIAppForm next;
    QVERIFY(next.findChild<QAction*>("Language2")->isChecked());
    QVERIFY(!next.findChild<QAction*>("Language0")->isChecked());
}

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
