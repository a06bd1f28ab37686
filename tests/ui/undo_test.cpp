// Undo and redo over everything that changes the design, by the controls and keys of the window.

#include "core/number_text.h"
#include "tests/ui/form_fixture.h"

using namespace kelvro;

namespace {

using Act = void (*)(FormFixture&);

/// All that the window shows of a design.
struct Shown {
    Design design;
    QHash<QString, QString> texts;
    bool operator==(const Shown&) const = default;
};

Shown Now(FormFixture& f) {
    Shown shown{f.state(), {}};
    for (const auto* edit : f.form().findChildren<QLineEdit*>())
        if (edit->isVisible()) shown.texts.insert(edit->objectName(), edit->text());
    for (const auto* box : f.form().findChildren<QCheckBox*>())
        if (box->isVisible()) shown.texts.insert(box->objectName(), box->isChecked() ? "x" : "");
    for (const auto* bar : f.form().findChildren<QScrollBar*>())
        if (!bar->objectName().isEmpty() && bar->isVisible())
            shown.texts.insert(bar->objectName(), QString::number(bar->value()));
    for (const auto* table : f.form().findChildren<QTableWidget*>())
        for (int row = 0; table->isVisible() && row < table->rowCount(); ++row)
            shown.texts.insert(table->item(row, 0)->text(), table->item(row, 1)->text());
    return shown;
}

QString Difference(const Shown& x, const Shown& y) {
    for (const QString& object : x.texts.keys())
        if (x.texts[object] != y.texts[object])
            return object + ": '" + x.texts[object] + "' and '" + y.texts[object] + "'";
    return x.design == y.design ? QString("nothing") : QString("design");
}

/// By the keys, wherever the focus is.
void Press(FormFixture& f, Qt::KeyboardModifiers modifiers) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &f.form(), Qt::Key_Z, modifiers);
}
void Undo(FormFixture& f) {
    Press(f, Qt::ControlModifier);
}
void Redo(FormFixture& f) {
    Press(f, Qt::ControlModifier | Qt::ShiftModifier);
}

QString UndoText(FormFixture& f) {
    return f.find<QAction>("Undo1").text();
}

void DoubleClickCell(FormFixture& f, int row) {
    auto& table = f.find<QTableWidget>("Bp17Tabelle");
    const QPoint at = table.visualItemRect(table.item(row, 1)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, at);
}

void LoadFile(FormFixture& f) {
    AnswerFileDialog(f.written("mine.ini", "[Variablen]\nR1=75\nTyp=4\nQ by phase=No\n"));
    f.click("SpeedButtonINILaden");
    f.form().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f.form()));
}

}  // namespace

class UndoTest : public QObject {
    Q_OBJECT

  private slots:
    void everyChangeCanBeTakenBackAndDoneAgain_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<Act>("before");
        QTest::addColumn<Act>("change");
        QTest::addColumn<QString>("step");
        const auto nothing = [](FormFixture&) {};
        const auto row = [&](const char* name, int page, Act before, Act change) {
            QTest::addRow("%s", name) << page << before << change << QString("&Undo %1").arg(name);
        };
        row("R1", 3, nothing, [](FormFixture& f) {
            f.type("R1Eingabe", "75");
            f.find("foEingabe").setFocus();
        });
        row("fo", 3, nothing, [](FormFixture& f) { f.click("SpinButtonfoUp"); });
        row("Element Q (C)", 3, nothing, [](FormFixture& f) {
            f.type("QBCEingabe", "500");
            f.find("foEingabe").setFocus();
        });
        row("Q", 3, nothing,
            [](FormFixture& f) { QTest::keyClick(&f.find("QEingabe"), Qt::Key_Up); });
        row("Ub", 10, nothing, [](FormFixture& f) { f.click("SpinButtonUb10Up"); });
        row("N", 17, nothing, [](FormFixture& f) { f.click("SpinButtonN17Up"); });
        row("Switch", 3, nothing, [](FormFixture& f) { f.click("SpeedButtonVertauschen"); });
        row("Round C1", 3, nothing, [](FormFixture& f) { f.doubleClick("C13Ausgabe"); });
        row("Round C01", 17, nothing, [](FormFixture& f) { DoubleClickCell(f, 0); });
        const Act rounded = [](FormFixture& f) { f.doubleClick("L3Ausgabe"); };
        row("Take Entries", 3, rounded, [](FormFixture& f) { f.click("ButtonTake"); });
        row("Take and Optimize", 3, rounded, [](FormFixture& f) { f.click("ButtonTakeAndOpt"); });
        const Act taken = [](FormFixture& f) {
            f.doubleClick("L3Ausgabe");
            f.click("ButtonTakeAndOpt");
        };
        row("Calculate", 3, taken, [](FormFixture& f) { f.click("OK"); });
        row("L <--> C", 2, nothing, [](FormFixture& f) { f.click("CheckBox2"); });
        row("Q by d", 3, nothing, [](FormFixture& f) { f.click("CheckBoxQ"); });
        row("C1 = 0", 5, nothing, [](FormFixture& f) { f.click("CheckBoxC1Null"); });
        row("Weight of Min. L", 5, nothing, [](FormFixture& f) {
            QTest::keyClick(&f.find<QScrollBar>("ScrollBarLtot"), Qt::Key_Right);
            QTest::keyClick(&f.find<QScrollBar>("ScrollBarLtot"), Qt::Key_Right);
        });
        row("Band", 16, nothing, [](FormFixture& f) { f.click("CheckBoxBand16"); });
        row("Band from", 16, nothing, [](FormFixture& f) {
            f.type("fLow16Eingabe", "80M");
            f.find("foEingabe").setFocus();
        });
        row("8 elements", 16, nothing, [](FormFixture& f) { f.click("CheckBoxExt16"); });
        row("L2", 5, nothing, [](FormFixture& f) {
            f.type("L25Ausgabe", "40n");
            f.find("foEingabe").setFocus();
        });
        row("Use as R1", 10, nothing, [](FormFixture& f) { f.click("ButtonTakeRL10"); });
        row("Find Cs, Lp for Ls", 12, nothing, [](FormFixture& f) { f.click("ButtonDesign12"); });
        row("Broadband Match", 3, nothing, [](FormFixture& f) { f.goTo(16); });
        row("TRL", 3, nothing, [](FormFixture& f) { f.goTo(6); });
        row("Load mine.ini", 3, nothing, LoadFile);
    }

    void everyChangeCanBeTakenBackAndDoneAgain() {
        QFETCH(int, page);
        QFETCH(Act, before);
        QFETCH(Act, change);
        QFETCH(QString, step);
        FormFixture f;
        f.goTo(page);
        before(f);
        const Shown start = Now(f);
        change(f);
        const Shown changed = Now(f);
        QVERIFY(!(changed == start));
        QCOMPARE(UndoText(f), step);
        Undo(f);
        QVERIFY2(Now(f) == start, qPrintable(Difference(Now(f), start)));
        QCOMPARE(f.find<QAction>("Redo1").text(), QString(step).replace("Undo", "Redo"));
        Redo(f);
        const Shown again = Now(f);
        QVERIFY2(again.design == changed.design, qPrintable(Difference(again, changed)));
        // Typed texts come back in the form that the program gives them.
        for (const QString& object : changed.texts.keys())
            QCOMPARE(ParseValue(again.texts[object].toStdString()),
                     ParseValue(changed.texts[object].toStdString()));
    }

    void keystrokesInOneFieldAreOneStep() {
        FormFixture f;
        f.goTo(3);
        const Shown start = Now(f);
        f.type("R1Eingabe", "123");
        f.type("R2Eingabe", "456");
        QCOMPARE(UndoText(f), QString("&Undo R2"));
        f.find("foEingabe").setFocus();
        Undo(f);
        QCOMPARE(f.state().R2, 200.0);
        QCOMPARE(f.state().R1, 123.0);
        Undo(f);
        QVERIFY2(Now(f) == start, qPrintable(Difference(Now(f), start)));
        QCOMPARE(UndoText(f), QString("&Undo"));
    }

    void theKeyFirstTakesBackTheTyping() {
        FormFixture f;
        f.goTo(3);
        f.click("SpeedButtonVertauschen");
        const Shown switched = Now(f);
        f.type("R1Eingabe", "75");
        f.find("R1Eingabe").setFocus();
        Undo(f);
        QCOMPARE(f.text("R1Eingabe"), QString("  200.000"));
        QVERIFY2(Now(f) == switched, qPrintable(Difference(Now(f), switched)));
        QCOMPARE(UndoText(f), QString("&Undo Switch"));
        Undo(f);
        QCOMPARE(f.state().R1, 50.0);
        QCOMPARE(f.text("R1Eingabe"), QString("   50.000"));
    }

    void takenComponentsComeBackWithoutOptimizing() {
        FormFixture f({"single"});
        f.goTo(3);
        f.doubleClick("L3Ausgabe");
        f.click("ButtonTake");
        const Shown taken = Now(f);
        f.click("SpinButtonR1Up");
        QVERIFY(f.state().components != taken.design.components);
        const auto calls = [&] { return f.form().session().lastOptimization().milliseconds; };
        const double last = calls();
        Undo(f);
        QVERIFY2(Now(f) == taken, qPrintable(Difference(Now(f), taken)));
        QCOMPARE(calls(), last);
    }

    void looksAtOtherPagesAreNoSteps() {
        FormFixture f;
        f.goTo(3);
        f.click("SpinButtonR1Up");
        const Shown spun = Now(f);
        f.goTo(4);
        f.goTo(9);
        QCOMPARE(UndoText(f), QString("&Undo R1"));
        Undo(f);
        QCOMPARE(f.state().page, 3);
        QCOMPARE(f.state().R1, 50.0);
        QVERIFY(f.find<QWidget>("C13Ausgabe").isVisible());
        Redo(f);
        QVERIFY2(Now(f) == spun, qPrintable(Difference(Now(f), spun)));
    }

    void aRefusedDesignComesBackWithoutItsMessage() {
        FormFixture f;
        f.goTo(1);
        const Shown accepted = Now(f);
        f.click("SpeedButtonVertauschen");
        QCOMPARE(f.messages.size(), 1);
        const Shown refused = Now(f);
        f.click("SpeedButtonVertauschen");
        Undo(f);
        QVERIFY2(Now(f) == refused, qPrintable(Difference(Now(f), refused)));
        Undo(f);
        QVERIFY2(Now(f) == accepted, qPrintable(Difference(Now(f), accepted)));
        QCOMPARE(f.messages.size(), 1);
    }

    void aStartIsNoStep() {
        FormFixture f;
        const Shown start = Now(f);
        QCOMPARE(UndoText(f), QString("&Undo"));
        Undo(f);
        Redo(f);
        QVERIFY(Now(f) == start);
    }
};

QTEST_MAIN(UndoTest)
#include "undo_test.moc"
