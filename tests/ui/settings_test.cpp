// The design between runs of the program, and designs in files of their own.

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTimer>

#include "tests/ui/form_fixture.h"
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

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
