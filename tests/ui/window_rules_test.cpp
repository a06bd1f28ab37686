// What every window and dialog of the program keeps to, whichever it is.

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QInputDialog>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>

#include "analysis/trace.h"
#include "tests/ui/form_fixture.h"
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
           qobject_cast<const QAbstractSlider*>(&widget);
}

/// The letters of one menu, and what is wrong with them.
QStringList FaultsOf(const QList<QAction*>& actions, const QString& menu) {
    QStringList faults;
    QHash<QChar, QString> owners;
    static const QRegularExpression mark("&([^&])");
    for (const QAction* item : actions) {
        if (item->isSeparator() || !item->isVisible()) continue;
        const QString text = item->text();
        if (item->menu()) faults += FaultsOf(item->menu()->actions(), menu + " > " + text);
        const auto found = mark.match(QString(text).remove("&&"));
        const QChar letter = found.hasMatch() ? found.captured(1)[0].toUpper() : QChar();
        if (letter.isNull()) faults << menu + ": no letter in " + text;
        if (owners.contains(letter)) faults << menu + ": " + owners[letter] + " and " + text;
        owners[letter] = text;
    }
    return faults;
}

}  // namespace

class WindowRulesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<FormFixture> form_;
    std::unique_ptr<NetworkModel> model_;
    std::unique_ptr<LimitWatch> limit_;
    std::vector<std::unique_ptr<QWidget>> dialogs_;
    QList<QWidget*> windows_;

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
        add(std::make_unique<TXmaxDlg1>(ValueEdit{"Set xmax", 1e6, 1, 1e9}, "Hz",
                                        TXmaxDlg1::Spin{}));
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

    void pagesWithFewFieldsDoNotScrollThere() {
        const auto& form = form_->form();
        const int around = form.height() - form.findChild<QWidget*>("Notebook1")->height();
        const int room = kSmallScreen.height() - around;
        for (const int page : {1, 2, 3, 4, 6, 7, 9, 13, 14, 18}) {
            const auto* panel = form.findChild<QWidget*>(QString("Page%1").arg(page));
            const QSize least = panel->minimumSizeHint();
            QVERIFY2(
                least.height() <= room && least.width() <= kSmallScreen.width(),
                qPrintable(QString("page %1: %2 of %3").arg(page).arg(least.height()).arg(room)));
        }
    }

    void noMenuHasALetterTwice_data() { rows(); }
    void noMenuHasALetterTwice() {
        QFETCH(QWidget*, window);
        for (const QMenuBar* bar : window->findChildren<QMenuBar*>()) {
            const QStringList faults = FaultsOf(bar->actions(), "bar");
            QVERIFY2(faults.isEmpty(), qPrintable(faults.join("; ")));
        }
    }

    /// A window that is not among the rows would keep to nothing.
    void noWindowIsMissing() {
        QSet<QString> known{"TSplashScreen", "PlotForm", "ToolWindow"};
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
