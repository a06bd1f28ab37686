// What the controls of the main window open, and its small dialogs.

#include <QPrintDialog>

#include "tests/ui/form_fixture.h"
#include "ui/help/help_box.h"

using namespace kelvro;

namespace {

QList<QAction*> ItemsOf(QWidget& bar) {
    QList<QAction*> items;
    QList<QAction*> open = bar.actions();
    while (!open.isEmpty()) {
        QAction* item = open.takeFirst();
        if (item->menu()) {
            open += item->menu()->actions();
        } else if (!item->isSeparator() && item->isVisible()) {
            items << item;
        }
    }
    return items;
}

}  // namespace

class WindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void helpKeyOfAWindowOpensItsChapter() {
        FormFixture f;
        for (const auto& [window, chapter] : {std::pair{"TFormLines", "tools"},
                                              {"TFormOpt", "optimizer"},
                                              {"TFormQuiz", "suggestions"}}) {
            f.form().windows().open(window);
            QWidget* opened = f.form().windows().window(window);
            QApplication::setActiveWindow(opened);
            QTest::keyClick(opened, Qt::Key_F1);
            auto* help = dynamic_cast<THilfeBox*>(f.form().windows().window("THilfeBox"));
            QVERIFY2(help->isVisible(), window);
            QCOMPARE(help->topic(), QLatin1String(chapter));
            help->close();
        }
    }

    void everyLinkedControlOpensItsWindowWhichEscapeCloses() {
        FormFixture f;
        f.goTo(3);
        for (const WindowLink& link : AppWindows::links()) {
            if (auto* button = f.form().findChild<QAbstractButton*>(link.control)) button->click();
            if (auto* item = f.form().findChild<QAction*>(link.control)) item->trigger();
            if (QLatin1String(link.control) == QLatin1String("GRHilfe1")) {
                QWidget* plot = f.form().windows().window("TFormPhi");
                plot->findChild<QAction*>(link.control)->trigger();
            }
            QWidget* window = f.form().windows().window(link.window);
            QVERIFY2(window && window->isVisible(), link.control);
            QTest::keyClick(window, Qt::Key_Escape);
            if (qobject_cast<QDialog*>(window)) QVERIFY2(!window->isVisible(), link.window);
            window->close();
        }
    }

    void windowsOpenWhollyOnTheScreen() {
        FormFixture f;
        const QRect room = f.form().screen()->availableGeometry();
        QWidget& window = *f.form().windows().window("TSweepDlg");
        for (const QPoint corner : {QPoint(-300, -300), QPoint(5000, 5000), QPoint(40, 50)}) {
            window.move(corner);
            f.form().windows().open("TSweepDlg");
            QVERIFY(room.contains(window.frameGeometry()));
            window.close();
        }
        QCOMPARE(window.pos(), QPoint(40, 50));
        QWidget& large = *f.form().windows().window("TExportDlg");
        large.resize(room.size() * 2);
        f.form().windows().open("TExportDlg");
        QVERIFY(room.contains(large.frameGeometry()));
    }

    void noMenuItemAndNoButtonLeadsNowhere() {
        FormFixture f;
        const QStringList own =
            QString(
                "Drucken1 Druckereinstellung1 ExitItem Rechnen1 Undo1 Redo1 Ausfhren1 OpenProject1 "
                "OpenAsNetwork1 FindBetter1 NetworkExample1 ImVordergrundbleiben1 OK ButtonTake "
                "ButtonTakeAndOpt ButtonRoundAll New1 Open1 OpenRecent1 Save1 SaveAs1 Abbruch "
                "SpeedButtonVertauschen ExitBtn RechenButton ExecButton ButtonCopy "
                "SpeedButtonINISave "
                "SpeedButtonINILaden")
                .split(' ');
        QSet<QString> known(own.begin(), own.end());
        for (const WindowLink& link : AppWindows::links()) known << QLatin1String(link.control);
        QStringList lost;
        for (const QAction* item : ItemsOf(*f.form().menuBar())) {
            const bool pageOrSeries = item->isCheckable();
            if (!pageOrSeries && !known.contains(item->objectName())) lost << item->objectName();
        }
        const QWidget& pages =
            f.find<QWidget>("Notebook1");  // their buttons come with their actions
        for (const auto* button : f.form().findChildren<QPushButton*>())
            if (!pages.isAncestorOf(button) && !known.contains(button->objectName()))
                lost << button->objectName();
        for (const auto* button : f.find<QWidget>("SpeedPanel").findChildren<QToolButton*>())
            if (button->objectName() != "qt_toolbar_ext_button" &&
                !known.contains(button->objectName()))
                lost << button->objectName();
        QCOMPARE(lost, QStringList());
    }

    void sweepFactorIsHeldToItsRangeWhileTyping() {
        FormFixture f;
        f.choose("SweepFaktor1");
        QWidget* dialog = f.form().windows().window("TSweepDlg");
        auto* edit = dialog->findChild<QLineEdit*>("SweepEingabe");
        QCOMPARE(edit->text(), QString("  1.05"));
        for (const auto& [text, factor, shown] : {std::tuple{"1.2", 1.2, "  1.20"},
                                                  {"1.025", 1.025, "  1.025"},
                                                  {"1", 1.0001, "  1.0001"},
                                                  {"11", 10.0, "  10.00"},
                                                  {"x", 1.0001, "  1.0001"}}) {
            edit->selectAll();
            QTest::keyClicks(edit, text);
            QCOMPARE(f.preferences().SweepFactor, factor);
            QTest::keyClick(dialog, Qt::Key_Return);
            f.choose("SweepFaktor1");
            QCOMPARE(edit->text(), QString(shown));
        }
    }

    void cancelledSweepFactorIsRestored() {
        FormFixture f;
        f.choose("SweepFaktor1");
        QWidget* dialog = f.form().windows().window("TSweepDlg");
        auto* edit = dialog->findChild<QLineEdit*>("SweepEingabe");
        edit->selectAll();
        QTest::keyClicks(edit, "3");
        QTest::keyClick(dialog, Qt::Key_Escape);
        QCOMPARE(f.preferences().SweepFactor, 1.05);
    }

    void windowIsPrintedIntoAFile() {
        FormFixture f;
        const QString file = f.configFolder() + "/window.pdf";
        QTimer::singleShot(100, qApp, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->findChild<QLineEdit*>("filename")->setText(file);
            dialog->accept();
        });
        f.choose("Drucken1");
        const QByteArray printed = ReadAll(file);
        QVERIFY(printed.startsWith("%PDF-") && printed.size() > 5000);
        QVERIFY(f.messages.isEmpty());
    }

    void closingTheFormClosesItsWindows() {
        FormFixture f;
        f.goTo(3);
        f.click("VuButton");
        QWidget* plot = f.form().windows().window("TFormVu");
        QVERIFY(plot->isVisible());
        f.form().close();
        QVERIFY(!plot->isVisible());
    }
};

QTEST_MAIN(WindowsTest)
#include "windows_test.moc"
