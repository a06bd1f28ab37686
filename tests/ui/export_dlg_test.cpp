// The export dialog in front of the main window, driven by its controls.

#include "ui/export_dlg.h"

#include "tests/ui/form_fixture.h"

using namespace kelvro;

class ExportDlgTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { f_ = std::make_unique<FormFixture>(); }

    void offersTheFormatsOfThePage() {
        open();
        for (const auto& [page, keys] : {std::pair{1, "listing spice touchstone csv json"},
                                         {12, "listing spice touchstone json"},
                                         {15, "listing spice touchstone json"},
                                         {19, "listing spice json"}}) {
            f_->goTo(page);
            auto& formats = find<QComboBox>("ComboBoxExport");
            QStringList offered;
            for (int i = 0; i < formats.count(); ++i) offered << formats.itemData(i).toString();
            QCOMPARE(offered.join(' '), QString(keys));
            for (const QString& key : std::as_const(offered)) {
                choose(key);
                QVERIFY2(preview().size() > 50, qPrintable(key));
                QCOMPARE(note(), QString());
                // Transients and operating points have no frequencies to choose.
                const bool swept = page != 15 && page != 19;
                QCOMPARE(find<QLineEdit>("ExportFromEingabe").isVisible(),
                         (key == "spice" && swept) || key == "touchstone" || key == "csv");
                QCOMPARE(find<QLineEdit>("ExportZ0Eingabe").isVisible(), key == "touchstone");
            }
        }
    }

    void previewFollowsTheDesign() {
        open();
        QVERIFY2(preview().contains("page 1, LC Series Tank"), qPrintable(preview()));
        f_->type("R2Eingabe", "300");
        QVERIFY2(preview().contains("300.00"), qPrintable(preview()));
        f_->goTo(3);
        QVERIFY2(preview().contains("page 3, Pi Section"), qPrintable(preview()));
    }

    void standardValuesGoWithTheBoxOfTheMainWindow() {
        f_->goTo(13);
        f_->click("CheckBoxE");
        open();
        choose("spice");
        QVERIFY(find<QAbstractButton>("CheckBoxExportE").isChecked());
        QVERIFY2(preview().contains("1.5e-11"), qPrintable(preview()));  // 13.783 pF in E12
        QTest::mouseClick(&find<QAbstractButton>("CheckBoxExportE"), Qt::LeftButton, {}, {8, 8});
        QVERIFY(!f_->find<QAbstractButton>("CheckBoxE").isChecked());
        QVERIFY2(preview().contains("1.378"), qPrintable(preview()));
    }

    void roundedRowsOfTheFilterAreExportedAndTaken() {
        f_->goTo(17);
        auto& table = f_->find<QTableWidget>("Bp17Tabelle");
        const QRect cell = table.visualItemRect(table.item(0, 1));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell.center());
        const double rounded =
            f_->state().components[Slot::FirstCoupling] > 15e-12 ? 15e-12 : 12e-12;
        open();
        choose("spice");
        const QString expected = rounded > 14e-12 ? " 1.5e-11" : " 1.2e-11";
        QVERIFY2(preview().contains(expected), qPrintable(preview()));
        f_->click("ButtonTake");
        QCOMPARE(f_->state().components[Slot::FirstCoupling], rounded);
    }

    void refusedDesignShowsItsReasonAndNothingToSave() {
        f_->click("SpeedButtonVertauschen");
        open();
        QVERIFY(note().contains("It must be R2>R1!"));
        QCOMPARE(preview(), QString());
        QVERIFY(!find<QPushButton>("ButtonExportCopy").isEnabled());
        QVERIFY(!find<QPushButton>("ButtonExportSave").isEnabled());
    }

    void rangeThatCannotBeUsedIsNamed() {
        open();
        choose("touchstone");
        type("ExportToEingabe", "1k");
        QCOMPARE(note(), QString("The upper frequency must be above the lower one."));
        type("ExportToEingabe", "1G");
        QCOMPARE(note(), QString());
        type("ExportPointsEingabe", "3");
        QCOMPARE(preview().count(QStringLiteral("\n1000000000 ")) +
                     preview().count(QStringLiteral("\n1e+09 ")),
                 1);
        type("ExportZ0Eingabe", "75");
        QVERIFY2(preview().contains("# HZ S RI R 75"), qPrintable(preview()));
    }

    void typedRangeStaysWhenTheDesignChanges() {
        open();
        choose("csv");
        const QString before = find<QLineEdit>("ExportToEingabe").text();
        f_->type("foEingabe", "10M");
        const QString moved = find<QLineEdit>("ExportToEingabe").text();
        QVERIFY(moved != before);
        type("ExportToEingabe", "20M");
        f_->type("foEingabe", "12M");
        QCOMPARE(find<QLineEdit>("ExportToEingabe").text(), QString("20M"));
    }

    void copyPutsTheTextOnTheClipboard() {
        open();
        press("ButtonExportCopy");
        QCOMPARE(QGuiApplication::clipboard()->text(), preview());
        QCOMPARE(note(), QString("Copied to the clipboard."));
    }

    void saveWritesTheFileOrSaysWhyNot() {
        open();
        choose("json");
        const QString path = f_->configFolder() + "/design.json";
        saveAs(path);
        QCOMPARE(QString::fromUtf8(ReadAll(path)), preview());
        QVERIFY(note().startsWith("Saved as "));
        QVERIFY(f_->messages.isEmpty());
        saveAs(f_->configFolder() + "/no such folder/design.json");
        QTRY_COMPARE(f_->messages.size(), 1);
        QVERIFY(f_->messages[0].contains("Cannot write"));
    }

    void cleanup() { f_.reset(); }

  private:
    TExportDlg& dialog() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<TExportDlg*>(window)) return *found;
        qFatal("no export dialog");
    }
    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = dialog().findChild<Widget*>(QLatin1String(name));
        if (!found) qFatal("no control %s", name);
        return *found;
    }
    QString preview() { return find<QPlainTextEdit>("MemoExport").toPlainText(); }
    QString note() { return find<QLabel>("NoteExport").text(); }
    void open() {
        f_->click("SpeedButtonExport");
        QVERIFY(QTest::qWaitForWindowActive(&dialog()));
    }
    void choose(const QString& key) {
        auto& formats = find<QComboBox>("ComboBoxExport");
        const int index = formats.findData(key);
        QVERIFY2(index >= 0, qPrintable(key));
        formats.setFocus();
        while (formats.currentIndex() != index)
            QTest::keyClick(&formats, formats.currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
    void press(const char* button) {
        QTest::mouseClick(&find<QPushButton>(button), Qt::LeftButton);
    }
    void type(const char* name, const QString& text) {
        auto& edit = find<QLineEdit>(name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    void saveAs(const QString& path) {
        AnswerFileDialog(path);
        press("ButtonExportSave");
    }

    std::unique_ptr<FormFixture> f_;
};

QTEST_MAIN(ExportDlgTest)
#include "export_dlg_test.moc"
