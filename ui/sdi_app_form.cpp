#include "ui/sdi_app_form.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>

#include "analysis/achieved.h"
#include "core/number_text.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "io/settings.h"
#include "ui/fields.h"
#include "ui/hint_handler.h"
#include "ui/language.h"
#include "ui/menus.h"
#include "ui/page_panel.h"
#include "ui/shared_panel.h"
#include "ui/tab_set.h"
#include "ui/texts.h"
#include "ui/window_place.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

constexpr int kPauseBeforeSaving = 1000;  // ms
constexpr char kFirstCaption[] = QT_TRANSLATE_NOOP("kelvro", "Matching Network and PA Design");

}  // namespace

TSDIAppForm::TSDIAppForm(QWidget* parent)
    : QMainWindow(parent),
      windows_(session_, *this),
      startProgram_([](const QString& program) { return QProcess::startDetached(program, {}); }) {
    setObjectName(QStringLiteral("TSDIAppForm"));
    setWindowTitle(Shown(kFirstCaption));
    // The window is as large as its contents: no Size, no Maximize.
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    buildContents();
    windows_.connectControls(*this);
    windows_.whenMade([this](QWidget& window) { connectSuggestions(window); });
    auto* hints = new HintHandler(this);
    connect(hints, &HintHandler::hintChanged, this, &TSDIAppForm::ShowHint);
    connect(&session_, &DesignSession::calculated, this, &TSDIAppForm::showResult);
    connect(&session_, &DesignSession::pageEntered, this, &TSDIAppForm::enterPage);
    connect(&session_, &DesignSession::inputsChanged, this, &TSDIAppForm::refreshInputs);
    connect(&session_, &DesignSession::fieldsOutdated, this, &TSDIAppForm::writeFields);
    connect(&session_, &DesignSession::shownChanged, this,
            [this] { panels_[static_cast<std::size_t>(notebook_->currentIndex())]->refresh(); });
    connect(&session_, &DesignSession::historyChanged, this, &TSDIAppForm::nameSteps);
    // With the session as context: the window loses its focus once more while it is torn down.
    connect(qApp, &QApplication::focusChanged, &session_, [this] { session_.closeStep(); });
    auto* exportBox = findChild<QCheckBox*>(QStringLiteral("CheckBoxE"));
    connect(exportBox, &QCheckBox::toggled, &session_, &DesignSession::setStandardValues);
    connect(&session_, &DesignSession::standardValuesChanged, exportBox, &QCheckBox::setChecked);
    pause_.setSingleShot(true);
    pause_.setInterval(kPauseBeforeSaving);
    connect(&pause_, &QTimer::timeout, this, &TSDIAppForm::saveNow);
    connect(&session_, &DesignSession::historyChanged, this, &TSDIAppForm::saveSoon);
    connect(&session_, &DesignSession::plotChoicesChanged, this, &TSDIAppForm::saveSoon);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &TSDIAppForm::saveNow);
    setAcceptDrops(true);
    writeInputs();
    enterPage();
    SeriesClick(session_.preferences().ESeries);
    RestorePlace(*this);
    findChild<QLineEdit*>(QStringLiteral("R1Eingabe"))->setFocus(Qt::TabFocusReason);
}

TSDIAppForm::~TSDIAppForm() {
    // Windows under the pointer take their hints back as they go; nothing is left to show them.
    delete findChild<HintHandler*>();
}

void TSDIAppForm::startUp(const QStringList& arguments) {
    const bool first = claimSettings();
    const SettingsRead read = ReadSettings(DefaultSettingsFile(), settings());
    if (read.later) claim_.reset();  // neither saved in between nor at the end
    applyPreferences(read.settings);
    namePrinter();
    QStringList keywords = arguments;
    // A file to open comes before the keywords, which are searched for in any text.
    const QString named = keywords.value(0);
    const bool opens = QFileInfo(named).isFile() && !NetworkWindow::opens(named);
    const QString file = opens ? keywords.takeFirst() : QString();
    readArguments(keywords);
    showCaption();
    listRecentFiles();
    session_.open(read.settings.design, read.whole ? Followup::Restoration : Followup::Calculation);
    if (!file.isEmpty()) openFile(file);
    if (read.later) session_.showMessage(Shown(read.message.toStdString()));
    if (!first)
        session_.showMessage(
            tr("Kelvro is running already. This window does not save its settings "
               "as it closes; those of the first one stay."));
}

void TSDIAppForm::OKClick() {
    writeInputs();
    session_.recalculate();
}

void TSDIAppForm::ExitClick() {
    close();
}

void TSDIAppForm::TabSet1Click(int index) {
    session_.goToPage(index + 1);
}

void TSDIAppForm::SpeedButtonVertauschenClick() {
    session_.switchResistances();
}

void TSDIAppForm::SeriesClick(Series series) {
    session_.preferences().ESeries = series;
    shared_->setSeries(series);
    CheckSeriesItem(*this, series);
}

void TSDIAppForm::LanguageClick(Language language) {
    if (language == ChosenLanguage()) return;
    RememberLanguage(language);
    session_.showMessage(tr("The windows speak this language from the next start on."));
}

void TSDIAppForm::ButtonTakeClick() {
    session_.edit(QT_TRANSLATE_NOOP("kelvro", "Take Entries"), Take,
                  {.followup = Followup::Results});
}

void TSDIAppForm::ButtonRoundAllClick() {
    session_.roundAll();
}

void TSDIAppForm::ButtonTakeAndOptClick() {
    session_.edit(QT_TRANSLATE_NOOP("kelvro", "Take and Optimize"), Take,
                  {.followup = Followup::KeptComponents});
}

void TSDIAppForm::Undo1Click() {
    auto* edit = qobject_cast<QLineEdit*>(focusWidget());
    if (edit && !edit->isReadOnly() && edit->isUndoAvailable()) return edit->undo();
    session_.undo();
}

void TSDIAppForm::Redo1Click() {
    auto* edit = qobject_cast<QLineEdit*>(focusWidget());
    if (edit && !edit->isReadOnly() && edit->isRedoAvailable()) return edit->redo();
    session_.redo();
}

void TSDIAppForm::nameSteps() {
    const auto name = [this](const char* item, const QString& verb, const std::string& step) {
        if (auto* action = findChild<QAction*>(QLatin1String(item)))
            action->setText(StepCaption(verb, step));
    };
    name("Undo1", tr("&Undo"), session_.undoName());
    name("Redo1", tr("&Redo"), session_.redoName());
}

void TSDIAppForm::ImVordergrundbleiben1Click() {
    const bool front = !windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    const QPoint place = pos();
    setWindowFlag(Qt::WindowStaysOnTopHint, front);
    move(place);
    show();  // changed flags hide the window
    if (auto* item = findChild<QAction*>(QStringLiteral("ImVordergrundbleiben1")))
        item->setChecked(front);
}

void TSDIAppForm::ButtonCopyClick() {
    QApplication::clipboard()->setPixmap(grab());
}

void TSDIAppForm::ExecButtonClick() {
    QFileDialog dialog(this, tr("Execute"));
    dialog.setObjectName(QStringLiteral("ExecDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted) execute(dialog.selectedFiles().value(0));
}

void TSDIAppForm::execute(const QString& program) {
    if (!startProgram_(program)) QApplication::beep();
}

void TSDIAppForm::setProgramStarter(ProgramStarter starter) {
    startProgram_ = std::move(starter);
}

void TSDIAppForm::ShowHint(const QString& hint) {
    hint_ = hint;
    if (session_.optimizer().settings.disabled) {
        achieved_->hide();
        statusBar()->showMessage((hint.isEmpty() ? QString() : hint + tr(" - ")) +
                                 tr("Warning: Optimization is disabled!"));
        return;
    }
    // A hint stands alone on the left; of what was achieved the first stays, on the right.
    const QStringList achieved = achievedTexts();
    statusBar()->showMessage(hint.isEmpty() ? achieved.join(tr(", ")) : hint);
    achieved_->setText(hint.isEmpty() ? QString() : achieved.value(0));
    achieved_->setVisible(!achieved_->text().isEmpty());
}

/// What the last run has to say, where the design is still what it delivered, and what the response
/// of the design really does.
QStringList TSDIAppForm::achievedTexts() const {
    QStringList texts;
    const CycleResult& result = session_.result();
    const Design& design = session_.design();
    const PageOptimization& last = session_.lastOptimization();
    const bool ran = last.status == PageOptimization::Status::Finished && !result.message &&
                     last.page == design.page && last.components == design.components;
    if (ran) {
        texts << tr("achieved fmin=") + ToQString(FormatFixed(9, 4, last.achievedGoal));
        for (const std::string& warning : last.warnings) texts << Shown(warning);
        if (!last.reportProblem.empty()) texts << Shown(last.reportProblem);
    }
    if (const auto achieved = AchievedBy(result)) {
        texts << Shown(AchievedText(*achieved, result.bandwidth));
    }
    return texts;
}

void TSDIAppForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return OKClick();
    QMainWindow::keyPressEvent(event);
}

void TSDIAppForm::enterPage() {
    const Page& page = PageOf(session_.design());
    shared_->enterPage();
    shared_->lockQ(false);
    enable("SpeedButtonExport", page.exportable);
    enable("VuButton", page.plottable);
    enable("PhiBtn", page.plottable);
    notebook_->setCurrentIndex(page.number - 1);
    tabs_->setCurrentIndex(notebook_->currentIndex());
    panels_[static_cast<std::size_t>(page.number - 1)]->refresh();
    CheckPageItem(*this, page);
}

void TSDIAppForm::enable(const char* control, bool on) {
    if (auto* button = findChild<QAbstractButton*>(QLatin1String(control))) button->setEnabled(on);
}

void TSDIAppForm::showResult(const CycleResult& result) {
    // A refused design says nothing of Q: what its page does with it is known from before.
    if (!result.message) shared_->lockQ(result.text("QEingabe"));
    PagePanel* panel = panels_[static_cast<std::size_t>(notebook_->currentIndex())];
    panel->showResult(result);
    shared_->showRefusal(Shown(result.message.value_or(std::string())));
    for (const FieldText& field : result.texts) {
        const QString object = ToQString(field.object);
        const QString text = QString::fromStdString(field.text);
        if (!panel->setText(object, text)) shared_->setText(object, text);
    }
    ShowHint(hint_);  // the goal value is that of this calculation now
}

void TSDIAppForm::writeInputs() {
    shared_->writeInputs();
    for (PagePanel* panel : panels_) panel->writeInputs();
}

void TSDIAppForm::writeFields() {
    writeInputs();
    for (PagePanel* panel : panels_) panel->refresh();
}

void TSDIAppForm::refreshInputs() {
    shared_->refreshInputs();
    for (PagePanel* panel : panels_) panel->refresh();
}

}  // namespace kelvro
