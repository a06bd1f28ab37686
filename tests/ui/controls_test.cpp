// Keys, the way of Tab, and what outputs offer.

#include <cmath>

#include "core/number_text.h"
#include "design/pages.h"
#include "tests/ui/form_fixture.h"
#include "ui/help/manual_text.h"
#include "ui/mnemonics.h"

using namespace kelvro;

class ControlsTest : public QObject {
    Q_OBJECT

  private slots:
    void manualListsEveryKey() {
        FormFixture f;
        QTextDocument chapter;
        chapter.setHtml(ManualHtml("keys"));
        const QString text = chapter.toPlainText();
        QList<QKeySequence> keys;
        for (const QAction* action : f.form().findChildren<QAction*>())
            if (!action->shortcut().isEmpty()) keys << action->shortcut();
        for (const QShortcut* key : f.form().findChildren<QShortcut*>()) keys << key->key();
        QVERIFY(keys.size() > 6);
        for (const QKeySequence& key : keys)
            QVERIFY2(text.contains(key.toString(QKeySequence::PortableText)),
                     qPrintable(key.toString()));
    }

    void tabReachesTheOutputsAndEntersGroupsAtTheChosen() {
        FormFixture f;
        f.goTo(5);
        f.click("E48Button");
        f.find("R1Eingabe").setFocus();
        QStringList reached;
        for (int i = 0; i < 90; ++i) {
            reached << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        for (const char* output : {"BAusgabe", "dAusgabe", "L15Ausgabe", "C15Ausgabe"})
            QVERIFY2(reached.contains(output), output);
        QVERIFY(reached.contains("E48Button"));
        QVERIFY(!reached.contains("E6Button"));
        QVERIFY(reached.contains("Tab5"));
        QVERIFY(!reached.contains("Tab1"));
        f.find<QAbstractButton>("E48Button").setFocus(Qt::TabFocusReason);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QVERIFY(f.find<QRadioButton>("E96Button").isChecked());
        f.goTo(7);
        QVERIFY(f.find<TabSet>("TabSet1").tab(6)->focusPolicy() & Qt::TabFocus);
    }

    void outputsOfferRounding() {
        FormFixture f;
        f.goTo(3);
        QLineEdit& L = f.find("L3Ausgabe");
        const QString calculated = L.text();
        const double value = ParseValue(calculated.toStdString());
        QContextMenuEvent ask(QContextMenuEvent::Keyboard, L.rect().center(),
                              L.mapToGlobal(L.rect().center()));
        QApplication::sendEvent(&L, &ask);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (const char* name : {"RoundDownL3Ausgabe", "RoundUpL3Ausgabe", "RoundNearestL3Ausgabe",
                                 "RoundUndoL3Ausgabe"})
            QVERIFY2(menu->actions().contains(&f.find<QAction>(name)), name);
        menu->close();
        const auto shown = [&] { return ParseValue(L.text().toStdString()); };
        f.find<QAction>("RoundUpL3Ausgabe").trigger();
        const double above = shown();
        QVERIFY(above > value && above < 1.25 * value);
        QVERIFY(L.text().startsWith("  "));
        f.find<QAction>("RoundDownL3Ausgabe").trigger();
        const double below = shown();
        QVERIFY(below < value && below > value / 1.25);
        f.find<QAction>("RoundUndoL3Ausgabe").trigger();
        QCOMPARE(L.text(), calculated);
        f.doubleClick("L3Ausgabe");
        QCOMPARE(shown(), value - below < above - value ? below : above);
        QTest::keyClick(&L, Qt::Key_C, Qt::ControlModifier);
    }

    void roundAllRoundsWhatIsSold() {
        FormFixture f;
        f.goTo(3);
        f.click("ButtonRoundAll");
        for (const char* field : {"L3Ausgabe", "C13Ausgabe", "C23Ausgabe"}) {
            const std::string text = f.text(field).toStdString();
            const double value = ParseValue(text);
            QCOMPARE(ParseValue(SeriesNearest(Series::E12, value)), value);
        }
        f.choose("Undo1");
        const double L = ParseValue(f.text("L3Ausgabe").toStdString());
        QVERIFY(std::fabs(L - f.state().components[Slot::L]) < 0.01 * L);
        f.goTo(6);
        const QString length = f.text("l6Ausgabe");
        f.click("ButtonRoundAll");
        QCOMPARE(f.text("l6Ausgabe"), length);
    }

    void takeShowsTheResultsOfTheTakenValues() {
        FormFixture f;
        f.goTo(3);
        const auto loss = [&] { return f.text("dAusgabe").toDouble(); };
        const double designed = loss();
        const QString v = f.text("ueAusgabe");
        f.choose("E6Reihe1");
        f.click("ButtonRoundAll");
        QCOMPARE(loss(), designed);
        const QString rounded = f.text("C13Ausgabe");
        f.click("ButtonTake");
        QVERIFY(loss() > designed + 0.01);
        QVERIFY(f.text("ueAusgabe") != v);
        QCOMPARE(f.text("C13Ausgabe"), rounded);
        QCOMPARE(loss(), std::round(1000 * f.form().session().result().lossDb) / 1000);
        f.choose("Undo1");
        QCOMPARE(loss(), designed);
    }

    void pagesThatFindQLockItsField() {
        FormFixture f;
        for (const int page : {6, 3, 13, 5}) {
            f.goTo(page);
            if (page == 13) f.type("R1Eingabe", "20");
            const bool locked = page == 6 || page == 13;
            const double Q = f.state().Q;
            f.type("QEingabe", "7");
            QCOMPARE(f.find("QEingabe").isReadOnly(), locked);
            QCOMPARE(f.state().Q, locked ? Q : 7.0);
            QCOMPARE(f.find<QWidget>("SpinButtonQ").isEnabled(), !locked);
        }
    }
};

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"
