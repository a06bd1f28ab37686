#include "ui/workbench/network_window.h"

#include <QAction>
#include <QActionGroup>
#include <QEvent>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "core/exact_number.h"
#include "core/number_text.h"
#include "plot/device_contours.h"
#include "ui/fields.h"
#include "ui/plot/design_host.h"
#include "ui/texts.h"
#include "ui/workbench/ladder_panel.h"
#include "ui/workbench/part_losses.h"
#include "ui/workbench/slider_panel.h"
#include "ui/workbench/smith_view.h"
#include "ui/workbench/sweep_view.h"

namespace kelvro {

namespace {

constexpr int kAutosavePause = 3000;  // ms after the last change
constexpr double kLowestFrequency = 1e-3;
constexpr double kHighestFrequency = 1e13;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

}  // namespace

Result<std::vector<FrequencyBand>> ParseBands(const std::string& text) {
    std::vector<FrequencyBand> bands;
    std::string_view rest = text;
    while (!Trimmed(rest).empty()) {
        const std::size_t comma = rest.find(',');
        const std::string one = Trimmed(rest.substr(0, comma));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
        const std::size_t colon = one.find_first_of(":-");
        if (colon == std::string::npos)
            return Status::Failure('"' + one + "\" is no band: write 70M:130M");
        const FrequencyBand band{ParseValue(one.substr(0, colon)),
                                 ParseValue(one.substr(colon + 1))};
        if (!(band.low >= kLowestFrequency && band.high > band.low &&
              band.high <= kHighestFrequency))
            return Status::Failure('"' + one + "\" does not rise");
        bands.push_back(band);
    }
    return bands;
}

std::string BandsText(const std::vector<FrequencyBand>& bands) {
    std::string text;
    for (const FrequencyBand& band : bands) {
        if (!text.empty()) text += ", ";
        text += FormatPrefixed(band.low) + ':' + FormatPrefixed(band.high);
    }
    return text;
}

NetworkWindow::NetworkWindow(DesignHost& host, QWidget* parent)
    : QMainWindow(parent), host_(host), autosaveTimer_(new QTimer(this)) {
    setObjectName(QStringLiteral("NetworkWindow"));
    setAcceptDrops(true);
    message_ = [this](const QString& text) { host_.showMessage(text); };
    buildContents();
    buildMenus();
    connect(&model_, &NetworkModel::changed, this, &NetworkWindow::showModel);
    autosaveTimer_->setSingleShot(true);
    autosaveTimer_->setInterval(kAutosavePause);
    connect(autosaveTimer_, &QTimer::timeout, this, &NetworkWindow::autosave);
    restorePlace();
    showModel();
}

NetworkWindow::~NetworkWindow() {
    // Ended from outside before the pause was over.
    if (autosaveTimer_->isActive()) autosave();
    // The views speak to the model once more when they lose the focus; it is to be there still.
    delete takeCentralWidget();
}

// ---------------------------------------------------------------- contents

void NetworkWindow::buildContents() {
    split_ = new QSplitter(Qt::Horizontal);
    split_->setObjectName(QStringLiteral("NetworkSplit"));
    split_->setChildrenCollapsible(false);
    split_->addWidget(buildNetworkSide());
    chart_ = new SmithView(model_);
    split_->addWidget(chart_);
    split_->addWidget(buildPlotSide());
    split_->setStretchFactor(0, 0);
    split_->setStretchFactor(1, 3);
    split_->setStretchFactor(2, 2);
    setCentralWidget(split_);
    statusBar()->setObjectName(QStringLiteral("NetworkStatus"));
    connect(chart_, &SmithView::hovered, statusBar(),
            [this](const QString& text) { statusBar()->showMessage(text); });
    for (SweepView* plot : plots_) {
        connect(plot, &SweepView::hovered, statusBar(),
                [this](const QString& text) { statusBar()->showMessage(text); });
    }
    connect(sliders_, &SliderPanel::seriesChosen, this, &NetworkWindow::chooseSeries);
}

QWidget* NetworkWindow::buildNetworkSide() {
    auto* side = new QWidget;
    side->setMinimumWidth(230);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(6, 6, 2, 6);
    column->addWidget(new TerminationEdit("SourceEingabe", tr("So&urce"), model_, &Network::source,
                                          data_.loader()));
    ladder_ = new LadderPanel(model_, data_.loader());
    column->addWidget(ladder_, 1);
    column->addWidget(
        new TerminationEdit("LoadEingabe", tr("&Load"), model_, &Network::load, data_.loader()));
    auto* form = new QFormLayout;
    frequency_ = new QLineEdit;
    frequency_->setObjectName(QStringLiteral("FrequencyEingabe"));
    SetHint(*frequency_, tr("Frequency of the path on the chart and of Match here; empty: the "
                            "middle of the bands"));
    bands_ = new QLineEdit;
    bands_->setObjectName(QStringLiteral("BandsEingabe"));
    SetHint(*bands_, tr("Where the network has to work: 70M:130M, 400M:410M"));
    form->addRow(tr("Fre&quency"), frequency_);
    form->addRow(tr("&Bands"), bands_);
    auto* coils = new PartLossesEdit("CoilsEingabe", PartKind::Inductor, model_);
    auto* capacitors = new PartLossesEdit("CapacitorsEingabe", PartKind::Capacitor, model_);
    form->addRow(tr("Co&ils"), coils);
    form->addRow(tr("&Capacitors"), capacitors);
    column->addLayout(form);
    problem_ = new QLabel;
    problem_->setObjectName(QStringLiteral("NetworkProblem"));
    problem_->setWordWrap(true);
    problem_->hide();
    column->addWidget(problem_);
    dataNotes_ = new QLabel;
    dataNotes_->setObjectName(QStringLiteral("DataNotes"));
    dataNotes_->setWordWrap(true);
    dataNotes_->hide();
    column->addWidget(dataNotes_);
    const auto showProblem = [this](const QString& text) {
        problem_->setText(text);
        problem_->setVisible(!text.isEmpty());
    };
    connect(ladder_, &LadderPanel::problem, this, showProblem);
    for (PartLossesEdit* losses : {coils, capacitors})
        connect(losses, &PartLossesEdit::problem, this, showProblem);
    connect(frequency_, &QLineEdit::textEdited, this, &NetworkWindow::applyFrequency);
    connect(frequency_, &QLineEdit::editingFinished, this, &NetworkWindow::showModel);
    connect(bands_, &QLineEdit::textEdited, this, &NetworkWindow::applyBands);
    connect(bands_, &QLineEdit::editingFinished, this, &NetworkWindow::showModel);
    return side;
}

QWidget* NetworkWindow::buildPlotSide() {
    right_ = new QSplitter(Qt::Vertical);
    right_->setObjectName(QStringLiteral("PlotSplit"));
    right_->setChildrenCollapsible(false);
    plots_ = {new SweepView("Plot1", "gt", model_), new SweepView("Plot2", "rl", model_)};
    for (SweepView* plot : plots_) right_->addWidget(plot);
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("NetworkTabs"));
    sliders_ = new SliderPanel(model_);
    tabs->addTab(sliders_, tr("Sliders"));
    tabs->addTab(buildSnapshots(), tr("Snapshots"));
    right_->addWidget(tabs);
    return right_;
}

// ---------------------------------------------------------------- menus

QAction* NetworkWindow::add(QMenu& menu, const char* object, const QString& text,
                            const QKeySequence& key, const std::function<void()>& run) {
    QAction* action = menu.addAction(text);
    action->setObjectName(QLatin1String(object));
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void NetworkWindow::buildMenus() {
    buildFileMenu();
    buildEditMenu();
    buildNetworkMenu();
    buildViewMenu();
    QMenu& help = *menuBar()->addMenu(tr("&Help"));
    add(help, "NetworkExample", tr("&Example: Whip on a Car"), {}, [this] { openExample(); });
}

void NetworkWindow::buildFileMenu() {
    QMenu& file = *menuBar()->addMenu(tr("&File"));
    add(file, "NetworkNew", tr("&New"), QKeySequence::New, [this] { newProject(); });
    add(file, "NetworkOpen", tr("&Open…"), QKeySequence::Open, [this] { chooseFile(); });
    recent_ = file.addMenu(tr("Open &Recent"));
    recent_->setObjectName(QStringLiteral("NetworkRecent"));
    connect(recent_, &QMenu::aboutToShow, this, &NetworkWindow::fillRecent);
    add(file, "NetworkSave", tr("&Save"), QKeySequence::Save, [this] { save(); });
    add(file, "NetworkSaveAs", tr("Save &As…"), QKeySequence::SaveAs, [this] { saveAs(); });
    file.addSeparator();
    add(file, "NetworkExport", tr("&Export…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
        [this] { exportNetwork(); });
    add(file, "NetworkSavePicture", tr("Save &Picture…"), {}, [this] { savePicture(); });
    add(file, "NetworkPrint", tr("Prin&t…"), QKeySequence::Print, [this] { printPicture(); });
    file.addSeparator();
    add(file, "NetworkClose", tr("&Close"), QKeySequence::Close, [this] { close(); });
}

void NetworkWindow::buildEditMenu() {
    QMenu& edit = *menuBar()->addMenu(tr("&Edit"));
    undo_ = add(edit, "NetworkUndo", tr("&Undo"), QKeySequence::Undo, [this] { model_.undo(); });
    redo_ = add(edit, "NetworkRedo", tr("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                [this] { model_.redo(); });
    edit.addSeparator();
    add(edit, "NetworkCopyPicture", tr("Copy &Picture"), {}, [this] { copyPicture(); });
    add(edit, "NetworkCopyCommand", tr("Copy as &Command Line"), {}, [this] { copyCommandLine(); });
}

void NetworkWindow::buildNetworkMenu() {
    QMenu& network = *menuBar()->addMenu(tr("&Network"));
    add(network, "NetworkMatchHere", tr("&Match Here…"), QKeySequence(Qt::CTRL | Qt::Key_M),
        [this] { matchHere(); });
    add(network, "NetworkRefine", tr("&Refine"), QKeySequence(Qt::CTRL | Qt::Key_R),
        [this] { refine(); });
    addSearchActions(network);
    network.addSeparator();
    addDataMenu(network);
    network.addSeparator();
    add(network, "NetworkSnapshot", tr("Take &Snapshot"), QKeySequence(Qt::Key_F6),
        [this] { takeSnapshot(); });
    add(network, "NetworkFreeze", tr("&Freeze as Ghost"), QKeySequence(Qt::Key_F7),
        [this] { model_.freeze(); });
    add(network, "NetworkUnfreeze", tr("Remove &Ghost"), {}, [this] { model_.unfreeze(); });
}

void NetworkWindow::buildViewMenu() {
    QMenu& view = *menuBar()->addMenu(tr("&View"));
    addToggle(view, "NetworkGridZ", tr("&Impedance Grid"), true, [this](bool on) {
        ChartGrids grids = chart_->grids();
        grids.impedance = on;
        chart_->setGrids(grids);
    });
    addToggle(view, "NetworkGridY", tr("&Admittance Grid"), false, [this](bool on) {
        ChartGrids grids = chart_->grids();
        grids.admittance = on;
        chart_->setGrids(grids);
    });
    addToggle(view, "NetworkDark", tr("&Dark Chart"),
              palette().color(QPalette::Window).lightness() < 128,
              [this](bool on) { setDark(on); });
    setDark(palette().color(QPalette::Window).lightness() < 128);
    addCircles(view);
    view.addSeparator();
    add(view, "NetworkFit", tr("&Fit"), QKeySequence(Qt::Key_Home), [this] {
        chart_->fit();
        for (SweepView* plot : plots_) plot->fit();
    });
}

void NetworkWindow::addToggle(QMenu& menu, const char* object, const QString& text, bool on,
                              const std::function<void(bool)>& run) {
    QAction* action = menu.addAction(text);
    action->setObjectName(QLatin1String(object));
    action->setCheckable(true);
    action->setChecked(on);
    connect(action, &QAction::toggled, this, run);
}

/// Circles to read against, on request.
void NetworkWindow::addCircles(QMenu& view) {
    const auto numbers = [](const QStringList& texts) {
        std::vector<double> values;
        for (const QString& text : texts) values.push_back(ParseValue(text.toStdString()));
        return values;
    };
    add(view, "NetworkVswr", tr("&VSWR Circles…"), {}, [this, numbers] {
        auto values = numbers(circlesFromUser(tr("VSWR circles"), tr("VSWR values:"), "2"));
        std::erase_if(values, [](double s) { return !(s > 1); });
        chart_->setVswrCircles(values);
    });
    add(view, "NetworkQ", tr("Constant &Q…"), {}, [this, numbers] {
        auto values = numbers(circlesFromUser(tr("Constant Q"), tr("Q values:"), "1 2 5"));
        std::erase_if(values, [](double Q) { return !(Q > 0); });
        chart_->setQualityCircles(values);
    });
    const auto circles = [&](const char* object, const QString& text, DeviceSide side) {
        addToggle(view, object, text, false, [this, side](bool on) {
            chart_->showDeviceCircles(side, on);
            const bool none =
                DeviceContours(model_.network(), model_.designFrequency(), side).empty();
            if (on && none)
                statusBar()->showMessage(tr("The ladder has no two-port file at this frequency"));
        });
    };
    circles("NetworkLoadCircles", tr("Stability and Gain of &Loads"), DeviceSide::Load);
    circles("NetworkSourceCircles", tr("Stability and Gain of S&ources"), DeviceSide::Source);
}

QStringList NetworkWindow::circlesFromUser(const QString& title, const QString& label,
                                           const QString& present) {
    bool given = false;
    const QString text =
        QInputDialog::getText(this, title, label, QLineEdit::Normal, present, &given);
    if (!given) return {};
    return text.split(QRegularExpression(QStringLiteral("[ ;]+")), Qt::SkipEmptyParts);
}

// ---------------------------------------------------------------- the model

void NetworkWindow::showModel() {
    const Network& network = model_.network();
    if (!frequency_->hasFocus() || !frequency_->isModified())
        frequency_->setText(network.designFrequency > 0
                                ? Text(FormatPrefixed(network.designFrequency))
                                : QString());
    if (!bands_->hasFocus() || !bands_->isModified())
        bands_->setText(Text(BandsText(network.bands)));
    const auto name = [](const QString& verb, const std::string& step) {
        return StepCaption(verb, step);
    };
    undo_->setText(name(tr("&Undo"), model_.history().undoName()));
    undo_->setEnabled(model_.history().canUndo());
    redo_->setText(name(tr("&Redo"), model_.history().redoName()));
    redo_->setEnabled(model_.history().canRedo());
    showSnapshots();
    showDataNotes();
    showTitle();
    autosaveTimer_->start();
}

void NetworkWindow::showTitle() {
    const QString name = file_.isEmpty() ? tr("untitled") : QFileInfo(file_).fileName();
    setWindowTitle(name + (model_.modified() ? QStringLiteral(" *") : QString()) +
                   (project_.readOnly ? tr(" (read-only)") : QString()) +
                   tr(" - Network - Kelvro"));
}

void NetworkWindow::applyFrequency() {
    const std::string text = frequency_->text().toStdString();
    const double f = ParseValue(text);
    if (!(f >= kLowestFrequency && f <= kHighestFrequency) && !Trimmed(text).empty()) return;
    model_.edit(
        tr("Frequency"),
        [=](Network& network) { network.designFrequency = Trimmed(text).empty() ? 0 : f; },
        QStringLiteral("frequency"));
}

void NetworkWindow::applyBands() {
    auto bands = ParseBands(bands_->text().toStdString());
    problem_->setVisible(!bands.ok());
    problem_->setText(Shown(bands.message()));
    if (!bands) return;
    model_.edit(
        tr("Bands"), [&](Network& network) { network.bands = *bands; }, QStringLiteral("bands"));
}

void NetworkWindow::chooseSeries(Series series) {
    const Series standard = series == Series::None ? Series::E24 : series;
    chart_->setSeries(standard);
    ladder_->setSeries(standard);
}

void NetworkWindow::setDark(bool dark) {
    chart_->setDark(dark);
    for (SweepView* plot : plots_) plot->setDark(dark);
}

void NetworkWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && chart_)
        setDark(palette().color(QPalette::Window).lightness() < 128);
    QMainWindow::changeEvent(event);
}

}  // namespace kelvro
