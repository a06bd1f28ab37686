// What every window and dialog of the program keeps to, whichever it is.

#include <QPrintDialog>
#include <QPrinter>

#include "analysis/trace.h"
#include "design/pages.h"
#include "tests/ui/form_fixture.h"
#include "ui/language.h"
#include "ui/mnemonics.h"
#include "ui/plot/axis_limits_dialog.h"
#include "ui/plot/xmax_dialog.h"
#include "ui/workbench/centre_dialog.h"
#include "ui/workbench/find_dialog.h"
#include "ui/workbench/limit_watch.h"
#include "ui/workbench/match_dialog.h"
#include "ui/workbench/network_model.h"
#include "ui/workbench/standard_dialog.h"

using namespace kelvro;

namespace {

/// 1024 x 600 less a title bar and frames.
constexpr QSize kSmallScreen(1016, 564);

/// Parts of a widget that Qt has put into it.
bool IsInnards(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return widget.objectName().startsWith("qt_") || qobject_cast<const QTabBar*>(parent) ||
           qobject_cast<const QLineEdit*>(parent) ||
           qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractItemView*>(parent);
}

QString Name(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return QString("%1 %2 %3")
        .arg(widget.metaObject()->className(), widget.objectName(),
             button ? button->text() : QString());
}

bool NeedsHint(const QWidget& widget) {
    if (IsInnards(widget) || qobject_cast<const QDialogButtonBox*>(widget.parentWidget()))
        return false;
    const auto* area = qobject_cast<const QAbstractScrollArea*>(
        widget.parentWidget() ? widget.parentWidget()->parentWidget() : nullptr);
    if (area && qobject_cast<const QScrollBar*>(&widget)) return false;
    return qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QTableWidget*>(&widget);
}

/// The letter behind '&' in upper case; null without one.
QChar Letter(QString caption) {
    caption.replace("&&", "");
    const qsizetype at = caption.indexOf('&');
    return at < 0 || at + 1 == caption.size() ? QChar() : caption[at + 1].toUpper();
}

/// Adds what is wrong with captions that stand together: a letter twice, or a caption without one
/// though one of its letters is free.
void Judge(const QStringList& captions, const QString& where, QHash<QChar, QString> seen,
           QStringList& wrong, const QSet<QChar>& hidden = {}) {
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
            if (letter.unicode() < 128 && letter.isLetterOrNumber() && !seen.contains(letter) &&
                !hidden.contains(letter))
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
    QSet<QChar> hidden;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->buddy() || Letter(label->text()).isNull()) continue;
        if (label->isVisibleTo(&window)) captions << label->text();
        hidden << Letter(label->text());
    }
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
    Judge(captions, where, seen, wrong, hidden);
}

}  // namespace

/// The German catalogue with an invisible sign behind each text: what stands in a window without it
/// was not translated.
class MarkedCatalogue : public QTranslator {
  public:
    static constexpr QChar mark{0x2060};

    QString translate(const char* context, const char* source, const char* comment,
                      int number) const override {
        const QString text = QTranslator::translate(context, source, comment, number);
        return text.isEmpty() ? text : text + mark;
    }
};

bool InGerman() {
    return qEnvironmentVariable("KELVRO_TEST_LANGUAGE") == "de";
}

/// Words that are the same in all languages, or no texts of the program.
bool IsForeign(QString text) {
    static const QRegularExpression names(
        "[xy](?:min|max)=|Kelvro|English|Deutsch|[EÅ]?Butterworth|Chebyshev|VSWR|Leff|Ceff|https?:"
        "\\S+|"
        "PDF|E\\d+|ABCD|\\*?\\.\\w+|Impedance|[A-Za-z]+\\d\\w*|RLopt|etaA|phi|log|sqrt|dB\\w");
    static const QRegularExpression word("[A-Za-z]{3}");
    return !text.replace(names, QString()).contains(word);
}

/// Is there less room than the text of a label or button takes?
bool IsCutOff(const QWidget& widget) {
    if (IsInnards(widget)) return false;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->wordWrap() || label->text().isEmpty()) return false;
        return label->sizeHint().width() > label->width() && label->textFormat() != Qt::RichText;
    }
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const bool captioned = button && !button->text().isEmpty();
    const auto* tool = qobject_cast<const QToolButton*>(button);
    if (!captioned || (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly)) return false;
    return button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() >
           button->width();
}

/// All that a widget says, by itself and in its items.
QStringList TextsOf(const QWidget& widget) {
    QStringList texts{widget.toolTip(), widget.windowTitle()};
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) texts << group->title();
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
        texts << edit->placeholderText();
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
    if (const auto* bar = qobject_cast<const QTabBar*>(&widget))
        for (int i = 0; i < bar->count(); ++i) texts << bar->tabText(i);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget); view && view->model())
        for (int i = 0; i < view->model()->columnCount(); ++i)
            texts << view->model()->headerData(i, Qt::Horizontal).toString();
    for (const QAction* action : widget.actions()) texts << action->text() << action->toolTip();
    return texts;
}

class WindowRulesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<FormFixture> form_;
    std::unique_ptr<NetworkModel> model_;
    std::unique_ptr<LimitWatch> limit_;
    std::vector<std::unique_ptr<QWidget>> dialogs_;
    QList<QWidget*> windows_;
    MarkedCatalogue catalogue_;
    QTemporaryDir state_;

    template <typename Dialog>
    void add(std::unique_ptr<Dialog> dialog) {
        if (dialog->objectName().isEmpty())
            dialog->setObjectName(dialog->metaObject()->className());
        windows_ << dialog.get();
        dialogs_.push_back(std::move(dialog));
    }

    void rows() {
        QTest::addColumn<QWidget*>("window");
        for (QWidget* window : windows_) QTest::newRow(qPrintable(window->objectName())) << window;
    }

  private slots:
    void initTestCase() {
        if (InGerman()) {
            SpeakLanguage(*qApp, Language::German);
            QVERIFY(catalogue_.load(":/translations/kelvro_de.qm"));
            QCoreApplication::installTranslator(&catalogue_);
        }
        // What another program has left behind would be offered in a box of its own.
        QVERIFY(state_.isValid());
        qputenv("XDG_STATE_HOME", state_.path().toLocal8Bit());
        form_ = std::make_unique<FormFixture>();
        windows_ << &form_->form();
        for (const QString& name : AppWindows::names())
            windows_ << form_->form().windows().window(name);
        model_ = std::make_unique<NetworkModel>();
        limit_ = std::make_unique<LimitWatch>(*model_);
        add(std::make_unique<StandardDialog>(*model_));
        add(std::make_unique<MatchDialog>(*model_));
        add(std::make_unique<FindDialog>(*model_, *limit_));
        add(std::make_unique<CentreDialog>(*model_));
        add(std::make_unique<TXmaxDlg1>(ValueEdit{"xmax=", 1e6, 1, 1e9}, "Hz", TXmaxDlg1::Spin{}));
        add(std::make_unique<AxisLimitsDialog>(View(), 1e6, Traces()[0], &Traces()[2]));
    }

    void everyWindowFitsASmallScreen_data() { rows(); }
    void everyWindowFitsASmallScreen() {
        QFETCH(QWidget*, window);
        // The main window takes the size of its screen; without one it is as large as its contents.
        const bool main = window == &form_->form();
        const QWidget* contents = form_->form().findChild<QWidget*>("Contents");
        const QSize least = main ? contents->minimumSizeHint()
                                 : window->minimumSizeHint().expandedTo(window->minimumSize());
        QVERIFY2(least.boundedTo(kSmallScreen) == least,
                 qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
    }

    void everyControlHasAHint_data() { rows(); }
    void everyControlHasAHint() {
        QFETCH(QWidget*, window);
        QStringList silent;
        for (const QWidget* widget : window->findChildren<QWidget*>())
            if (widget->window() == window && NeedsHint(*widget) && widget->toolTip().isEmpty())
                silent << Name(*widget);
        QVERIFY2(silent.isEmpty(), qPrintable(silent.join("; ")));
    }

    void noPageScrollsThere() {
        TSDIAppForm& form = form_->form();
        const QSize whole = form.size();
        form.setFixedSize(kSmallScreen);
        QStringList scrolling;
        for (int page = 1; page <= static_cast<int>(Pages().size()); ++page) {
            form_->goTo(page);
            QCoreApplication::processEvents();
            for (const auto* area : form.findChildren<QScrollArea*>())
                if (area->isVisible() && (area->horizontalScrollBar()->maximum() > 0 ||
                                          area->verticalScrollBar()->maximum() > 0))
                    scrolling << QString("page %1: %2 lines, %3 columns")
                                     .arg(page)
                                     .arg(area->verticalScrollBar()->maximum())
                                     .arg(area->horizontalScrollBar()->maximum());
        }
        form.setFixedSize(whole);
        form_->goTo(1);
        QVERIFY2(scrolling.isEmpty(), qPrintable(scrolling.join("; ")));
    }

    void noCaptionIsCutOff_data() { rows(); }
    void noCaptionIsCutOff() {
        QFETCH(QWidget*, window);
        const bool main = window == &form_->form();
        const QSize whole = window->size();
        if (main) form_->form().setFixedSize(kSmallScreen);
        if (!main) window->resize(window->sizeHint().expandedTo(whole).boundedTo(kSmallScreen));
        window->show();
        QStringList cut;
        for (std::size_t i = 0; i < (main ? Pages().size() : 1); ++i) {
            if (main) form_->goTo(Pages()[i].number);
            QCoreApplication::processEvents();
            for (const QWidget* widget : window->findChildren<QWidget*>())
                if (widget->window() == window && widget->isVisible() && IsCutOff(*widget))
                    cut << Name(*widget);
        }
        if (main) form_->form().setFixedSize(whole);
        if (main) form_->goTo(1);
        if (!main) window->hide();
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join("; ")));
    }

    void noLetterStandsTwice_data() { rows(); }
    void noLetterStandsTwice() {
        QFETCH(QWidget*, window);
        QStringList wrong;
        QHash<QChar, QString> titles;
        for (const QMenuBar* bar : window->findChildren<QMenuBar*>()) {
            JudgeMenu(bar->actions(), "menu bar", wrong);
            for (const QAction* menu : bar->actions())
                titles.insert(Letter(menu->text()), menu->text());
        }
        const bool main = window == &form_->form();
        if (main) titles.insert('X', "Alt+X");
        for (std::size_t i = 0; i < (main ? Pages().size() : 1); ++i) {
            if (main) form_->goTo(Pages()[i].number);
            JudgeWindow(*window, main ? ToQString(Pages()[i].caption) : "window", titles, wrong);
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join("; ")));
    }

    void noTextIsLeftInEnglish_data() {
        if (!InGerman()) QSKIP("only where the windows speak German");
        rows();
    }
    void noTextIsLeftInEnglish() {
        QFETCH(QWidget*, window);
        QSet<QString> left;
        QList<QWidget*> widgets = window->findChildren<QWidget*>();
        for (const QWidget* widget : widgets << window) {
            if (widget->window() != window && !qobject_cast<const QMenu*>(widget)) continue;
            if (qobject_cast<const QDialogButtonBox*>(widget->parentWidget())) continue;
            // Formulas, and what the machine says of itself.
            if (widget->objectName().startsWith("TransferText")) continue;
            const auto* label = qobject_cast<const QLabel*>(widget);
            if (label && window->objectName() == "TInfoDlg" && label->textInteractionFlags())
                continue;
            for (const QString& text : TextsOf(*widget))
                if (!text.contains(MarkedCatalogue::mark) && !IsForeign(text))
                    left << widget->objectName() + ": " + text;
        }
        QVERIFY2(left.isEmpty(), qPrintable(QStringList(left.values()).join("; ")));
    }

    void lettersAreSharedOut() {
        struct Row {
            QStringList captions;
            QString taken;
            int without = 0;  ///< captions for which no letter is left
        };
        for (const auto& [captions, taken, without] :
             {Row{{"&Print", "E&xit"}, ""}, Row{{"&Coils", "&Clipboard"}, ""},
              Row{{"&T Section", "&TR", "T&L"}, ""}, Row{{"&Save", "Open"}, "so"},
              Row{{"&A", "&A"}, "", 1}, Row{{"R && D"}, ""},
              Row{{"E6 Series", "E12 Series"}, "es"}}) {
            const QStringList given = WithUniqueMnemonics(captions, taken);
            const QString all = given.join(", ");
            QCOMPARE(QString(all).remove('&'), captions.join(", ").remove('&'));
            QSet<QChar> letters;
            for (const QString& caption : given)
                if (!Letter(caption).isNull()) letters << Letter(caption);
            QVERIFY2(letters.size() == given.size() - without, qPrintable(all));
            for (const QChar letter : std::as_const(letters))
                QVERIFY2(!taken.contains(letter, Qt::CaseInsensitive), qPrintable(all));
        }
    }

    /// A window that is not among the rows would keep to nothing.
    void noWindowIsMissing() {
        QSet<QString> known{"TSplashScreen", "PlotForm", "ToolWindow", "ExportWindow"};
        for (const QWidget* window : windows_)
            known << QString(window->metaObject()->className()).section("::", -1);
        const QRegularExpression declared(
            "class (\\w+) (?:final )?: public (?:QDialog|QMainWindow|PlotForm|ToolWindow)\\b");
        QStringList missing;
        QDirIterator files(SOURCE_FOLDER "/ui", {"*.h"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            auto found = declared.globalMatch(QString::fromUtf8(file.readAll()));
            while (found.hasNext()) {
                const QString name = found.next().captured(1);
                if (!known.contains(name)) missing << name;
            }
        }
        QCOMPARE(missing, QStringList());
    }
};

QTEST_MAIN(WindowRulesTest)
#include "window_rules_test.moc"
