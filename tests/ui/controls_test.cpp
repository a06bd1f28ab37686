// What all controls have in common: hints, letters, keys; and what outputs offer.

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTableWidget>
#include <QTextDocument>
#include <QToolBar>
#include <QToolButton>
#include <cmath>

#include "core/number_text.h"
#include "design/pages.h"
#include "tests/ui/form_fixture.h"
#include "ui/help/manual_text.h"
#include "ui/mnemonics.h"

using namespace kelvro;

namespace {

/// The letter behind '&' in upper case; null without one.
QChar Letter(QString caption) {
    caption.replace("&&", "");
    const qsizetype at = caption.indexOf('&');
    return at < 0 || at + 1 == caption.size() ? QChar() : caption[at + 1].toUpper();
}

/// Adds what is wrong with captions that stand together: a letter twice, or a caption without one
/// though one of its letters is free.
void Judge(const QStringList& captions, const QString& where, QHash<QChar, QString> seen,
           QStringList& wrong) {
    QStringList bare;
    for (const QString& caption : captions) {
        const QChar letter = Letter(caption);
        if (letter.isNull()) {
            bare << caption;
        } else if (seen.contains(letter)) {
            wrong << where + ": " + seen[letter] + " and " + caption;
        }
        if (!letter.isNull()) seen.insert(letter, caption);
    }
    for (const QString& caption : std::as_const(bare))
        for (const QChar letter : caption.toUpper())
            if (letter.unicode() < 128 && letter.isLetterOrNumber() && !seen.contains(letter))
                wrong << where + ": " + letter + " is free in " + caption;
}

void JudgeMenu(const QList<QAction*>& items, const QString& where, QStringList& wrong) {
    QStringList captions;
    for (const QAction* item : items) {
        if (item->isSeparator() || !item->isVisible()) continue;
        captions << item->text();
        if (item->menu()) JudgeMenu(item->menu()->actions(), item->text(), wrong);
    }
    Judge(captions, where, {}, wrong);
}

/// Letters of what a window shows at present.
void JudgeWindow(const QWidget& window, const QString& where, const QHash<QChar, QString>& seen,
                 QStringList& wrong) {
    QStringList captions;
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        const auto* tool = qobject_cast<const QToolButton*>(button);
        const bool icon = tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly;
        if (!button->isVisibleTo(&window) || button->text().isEmpty()) continue;
        // Pictures in the first place: a letter where one is left.
        const bool inToolBar = qobject_cast<const QToolBar*>(button->parentWidget());
        if (inToolBar && Letter(button->text()).isNull()) continue;
        if (button->inherits("QTabBar") || button->objectName().startsWith("Tab")) continue;
        if (!icon || !Letter(button->text()).isNull()) captions << button->text();
    }
    Judge(captions, where, seen, wrong);
}

/// Controls a user works with, and outputs.
QList<QWidget*> Controls(const QWidget& root) {
    QList<QWidget*> controls;
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        const bool part = widget->objectName().startsWith("qt_") ||
                          widget->inherits("QTableCornerButton") ||
                          qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) ||
                          qobject_cast<QComboBox*>(widget->parentWidget()) ||
                          widget->parentWidget()->objectName().startsWith("SpinButton") ||
                          widget->parentWidget()->objectName() == "TabSet1";
        const bool bar = qobject_cast<QScrollBar*>(widget) && widget->objectName().isEmpty();
        const bool control =
            qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
            qobject_cast<QComboBox*>(widget) || qobject_cast<QAbstractSlider*>(widget) ||
            qobject_cast<QTableWidget*>(widget) || widget->objectName().startsWith("SpinButton");
        if (control && !part && !bar) controls << widget;
    }
    return controls;
}

}  // namespace

class ControlsTest : public QObject {
    Q_OBJECT

  private slots:
    void everyControlOfEveryPageHasAHint();
    void lettersAreSharedOut_data();
    void lettersAreSharedOut();
    void noLetterStandsTwice();
    void manualListsEveryKey();
    void tabReachesTheOutputs();
    void tabEntersGroupsAtTheChosen();
    void outputsOfferRounding();
    void roundAllRoundsWhatIsSold();
    void takeShowsTheResultsOfTheTakenValues();
    void pagesThatFindQLockItsField();
};

void ControlsTest::everyControlOfEveryPageHasAHint() {
    FormFixture f;
    QStringList bare;
    for (const QWidget* control : Controls(f.form()))
        if (control->toolTip().isEmpty())
            bare << control->objectName() + " of " + control->parentWidget()->objectName();
    QVERIFY2(bare.isEmpty(), qPrintable(bare.join('\n')));
}

void ControlsTest::lettersAreSharedOut_data() {
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, QStringList captions, QString taken, QStringList result) {
        QTest::addRow("%s", name) << captions << taken << result;
    };
    row("own ones stay", {"&Print", "E&xit"}, "", {"&Print", "E&xit"});
    row("second of a letter", {"&Coils", "&Clipboard"}, "", {"C&oils", "&Clipboard"});
    row("three letters for three", {"&T Section", "&TR", "T&L"}, "", {"&T Section", "T&R", "T&L"});
    row("taken ones", {"&Save", "Open"}, "so", {"S&ave", "O&pen"});
    row("none left", {"&A", "&A"}, "", {"&A", "A"});
    row("printed ampersand", {"R && D"}, "", {"&R && D"});
    row("digits", {"E6 Series", "E12 Series"}, "es", {"E&6 Series", "E&12 Series"});
}

void ControlsTest::lettersAreSharedOut() {
    QFETCH(QStringList, captions);
    QFETCH(QString, taken);
    QFETCH(QStringList, expected);
    QStringList given = WithUniqueMnemonics(captions, taken);
    QStringList plain = given;
    QHash<QChar, int> uses;
    for (const QString& caption : given) ++uses[Letter(caption)];
    uses.remove(QChar());
    for (const int count : std::as_const(uses)) QCOMPARE(count, 1);
    QCOMPARE(plain.replaceInStrings("&", ""), QStringList(expected).replaceInStrings("&", ""));
    const auto missing = [](const QStringList& texts) {
        return std::count_if(texts.begin(), texts.end(),
                             [](const QString& text) { return Letter(text).isNull(); });
    };
    QCOMPARE(missing(given), missing(expected));
    for (const QString& caption : given)
        QVERIFY(!taken.contains(Letter(caption), Qt::CaseInsensitive) || Letter(caption).isNull());
}

void ControlsTest::noLetterStandsTwice() {
    FormFixture f;
    QStringList wrong;
    JudgeMenu(f.form().menuBar()->actions(), "menu bar", wrong);
    QHash<QChar, QString> titles{{'X', "Alt+X"}};
    for (const QAction* menu : f.form().menuBar()->actions())
        titles.insert(Letter(menu->text()), menu->text());
    for (const Page& page : Pages()) {
        f.goTo(page.number);
        JudgeWindow(f.form(), ToQString(page.caption), titles, wrong);
    }
    for (const WindowLink& link : AppWindows::links())
        JudgeWindow(*f.form().windows().window(link.window), link.window, {}, wrong);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
}

void ControlsTest::manualListsEveryKey() {
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

void ControlsTest::tabReachesTheOutputs() {
    FormFixture f;
    f.goTo(3);
    QStringList reached;
    for (int i = 0; i < 90; ++i) {
        reached << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char* output : {"BAusgabe", "dAusgabe", "L3Ausgabe", "C13Ausgabe", "C23Ausgabe"})
        QVERIFY2(reached.contains(output), output);
}

void ControlsTest::tabEntersGroupsAtTheChosen() {
    FormFixture f;
    f.goTo(5);
    f.click("E48Button");
    f.find("R1Eingabe").setFocus();
    QStringList reached;
    for (int i = 0; i < 90; ++i) {
        reached << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
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

void ControlsTest::outputsOfferRounding() {
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
    for (const char* name :
         {"RoundDownL3Ausgabe", "RoundUpL3Ausgabe", "RoundNearestL3Ausgabe", "RoundUndoL3Ausgabe"})
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

void ControlsTest::roundAllRoundsWhatIsSold() {
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

void ControlsTest::takeShowsTheResultsOfTheTakenValues() {
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

void ControlsTest::pagesThatFindQLockItsField() {
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

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"
