#include "ui/form_global_opt.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/fields.h"
#include "ui/form_parts.h"
#include "ui/plot/design_host.h"
#include "ui/texts.h"
#include "ui/tour_image.h"

namespace kelvro {

namespace {

constexpr int kDefaultCities = 15;
constexpr int kInspectedCities = 10;
constexpr int kMostShownCities = 200;
constexpr int kLastSeed = 999;
constexpr int kSlice = 12;  // ms of work between two looks at events
/// Pause behind a drawn move in ms times the number of cities: few cities move slowly enough to be
/// followed, many cities are done within a minute.
constexpr int kPausePerMove = 300;

constexpr int kReportLines = 8;

constexpr char kWhy[] = QT_TRANSLATE_NOOP(
    "kelvro",
    "For such integer or combinatorial optimizations pure down-hill search will often end in a "
    "local minimum. Stochastic optimizers like simulated  annealing are slow but much more "
    "reliable.");

}  // namespace

TFormGlobalOpt::TFormGlobalOpt(DesignHost& host, QWidget* parent) : QDialog(parent), host_(host) {
    setObjectName(QStringLiteral("TFormGlobalOpt"));
    setWindowTitle(tr("Global Optimization"));
    image_ = new TourImage;
    image_->setObjectName(QStringLiteral("ImageXopt"));
    SetHint(*image_, tr("Tour through the cities; grey: the tour at start, red: the first city"));
    auto* why = new QLabel(Shown(kWhy));
    why->setWordWrap(true);

    auto* controls = new QVBoxLayout;
    controls->addWidget(buildProblem());
    controls->addWidget(buildMethod());
    controls->addWidget(buildReport(), 1);
    controls->addLayout(buildButtons());
    auto* columns = new QHBoxLayout;
    columns->addWidget(image_, 1);
    columns->addLayout(controls);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(columns, 1);
    rows->addWidget(why);

    connect(&timer_, &QTimer::timeout, this, &TFormGlobalOpt::work);
    apply(kDefaultCities, false);
    resize(920, 530);
}

QScrollBar* TFormGlobalOpt::addScrollBar(QGridLayout& grid, QLabel*& label, const char* name,
                                         const QString& hint) {
    const int row = grid.rowCount();
    label = new QLabel;
    label->setMinimumWidth(fontMetrics().horizontalAdvance(tr("City random seed: %1 ").arg(9999)));
    grid.addWidget(label, row, 0);
    auto* bar = new QScrollBar(Qt::Horizontal);
    bar->setObjectName(QLatin1String(name));
    bar->setRange(0, kLastSeed);
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setInvertedControls(false);  // the right arrow key and the wheel turned up increase
    SetHint(*bar, hint);
    grid.addWidget(bar, row, 1);
    return bar;
}

QWidget* TFormGlobalOpt::buildProblem() {
    auto* box = new QGroupBox(tr("Travelling salesman"));
    auto* grid = new QGridLayout(box);
    grid->setColumnStretch(1, 1);
    cities_ =
        addScrollBar(*grid, citiesLabel_, "ScrollBarNr", tr("number of total combinations is n!"));
    cities_->setRange(kFewestCities, kMostShownCities);
    citySeed_ = addScrollBar(*grid, citySeedLabel_, "ScrollBarDOffsetCit",
                             tr("influences random number generation for city positioning"));
    seed_ = addScrollBar(*grid, seedLabel_, "ScrollBarDOffset",
                         tr("influences random number generation  (with constant city positions)"));
    connect(cities_, &QScrollBar::valueChanged, this, &TFormGlobalOpt::problemChanged);
    connect(citySeed_, &QScrollBar::valueChanged, this, &TFormGlobalOpt::problemChanged);
    connect(seed_, &QScrollBar::valueChanged, this, [this] {
        showSettings();
        if (!changing_) ButtonTriggerClick();
    });
    return box;
}

QWidget* TFormGlobalOpt::buildMethod() {
    auto* box = new QGroupBox(tr("Method"));
    auto* column = new QVBoxLayout(box);
    auto* modes = new QHBoxLayout;
    column->addLayout(modes);
    annealing_ = AddButton<QRadioButton>(*modes, "RadioButtonAnnealing", tr("Simulated annealing"),
                                         tr("random moves, accepted under a falling temperature"));
    annealing_->setChecked(true);
    for (QRadioButton* other :
         {AddButton<QRadioButton>(*modes, "RadioButtonGenetic", tr("Genetic algorithm"),
                                  tr("not yet implemented")),
          AddButton<QRadioButton>(*modes, "RadioButtonSwarm", tr("Particle swarm"),
                                  tr("not yet implemented"))}) {
        connect(other, &QRadioButton::clicked, this, &TFormGlobalOpt::notYetImplemented);
    }
    random_ =
        AddButton<QCheckBox>(*column, "CheckBoxRndAccept", tr("Random and temperature accept"),
                             tr("accepting criteria , otherwise only temperature decides"));
    deterministic_ =
        AddButton<QCheckBox>(*column, "CheckBoxDeterm", tr("Full deterministic accept"),
                             tr("often leads to trapping into local minimum"));
    drawEachStep_ =
        AddButton<QCheckBox>(*column, "CheckBoxDrawEachStep", tr("Draw each step"),
                             tr("unchecked you can see better start and end set of optimization"));
    connect(random_, &QCheckBox::toggled, this, &TFormGlobalOpt::problemChanged);
    connect(deterministic_, &QCheckBox::toggled, this, &TFormGlobalOpt::problemChanged);
    connect(drawEachStep_, &QCheckBox::toggled, this, &TFormGlobalOpt::setPace);
    return box;
}

QWidget* TFormGlobalOpt::buildReport() {
    reportBox_ = new QGroupBox(tr("Single run"));
    reportBox_->setObjectName(QStringLiteral("GroupBoxReport"));
    auto* column = new QVBoxLayout(reportBox_);
    reportLabel_ = new QLabel;
    reportLabel_->setObjectName(QStringLiteral("LabelReport"));
    reportLabel_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    reportLabel_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    const QFontMetrics metrics = fontMetrics();
    reportLabel_->setMinimumWidth(metrics.horizontalAdvance(
        tr("Minimum length in MC : 999.9999k, minimum average length is 999.9999")));
    reportLabel_->setMinimumHeight(kReportLines * metrics.lineSpacing());
    progress_ = new QProgressBar;
    progress_->setObjectName(QStringLiteral("ProgressBarMC"));
    progress_->setRange(0, kMonteCarloRuns);
    progress_->setFormat(tr("%v of %m runs"));
    SetHint(*progress_, tr("finished runs of the Monte Carlo"));
    column->addWidget(reportLabel_, 1);
    column->addWidget(progress_);
    return reportBox_;
}

QLayout* TFormGlobalOpt::buildButtons() {
    using Form = TFormGlobalOpt;
    auto* rows = new QVBoxLayout;
    auto* upper = new QHBoxLayout;
    auto* lower = new QHBoxLayout;
    rows->addLayout(upper);
    rows->addLayout(lower);
    const auto add = [this](QBoxLayout& row, const char* name, const QString& caption,
                            const QString& hint, void (Form::*clicked)()) {
        auto* button = AddButton<QPushButton>(row, name, caption, hint);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, clicked);
        return button;
    };
    add(*upper, "ButtonTrigger", tr("&Trigger"), tr("Restart optimization with current settings"),
        &Form::ButtonTriggerClick)
        ->setDefault(true);
    add(*upper, "ButtonMC", tr("&Monte Carlo"), tr("Repeat the optimization with 81 random seeds"),
        &Form::ButtonMCClick);
    best_ = add(*upper, "ButtonBest", tr("&Best"), tr("Show the best Monte Carlo run"),
                &Form::ButtonBestClick);
    worst_ = add(*upper, "ButtonWorst", tr("&Worst"), tr("Show the worst Monte Carlo run"),
                 &Form::ButtonWorstClick);
    add(*lower, "ButtonDefaults", tr("&Defaults"), tr("Reset all settings"),
        &Form::ButtonDefaultsClick);
    add(*lower, "ButtonStep", tr("&Step"),
        tr("set meaningful defaults to allow optimization inspection"), &Form::ButtonStepClick);
    cancel_ = add(*lower, "ButtonCancel", tr("&Cancel"), tr("End the optimization now"),
                  &Form::ButtonCancelClick);
    add(*lower, "ButtonClose", tr("C&lose"), tr("Close this window"), &Form::ButtonCloseClick);
    best_->setEnabled(false);
    worst_->setEnabled(false);
    cancel_->setEnabled(false);
    return rows;
}

AnnealingOptions TFormGlobalOpt::options() const {
    AnnealingOptions options;
    options.cities = cities_->value();
    options.citySeed = static_cast<std::uint64_t>(citySeed_->value());
    options.moveSeed = static_cast<std::uint64_t>(seed_->value());
    options.acceptance = deterministic_->isChecked() ? Acceptance::Deterministic
                         : random_->isChecked()      ? Acceptance::Random
                                                     : Acceptance::Threshold;
    return options;
}

void TFormGlobalOpt::apply(int cities, bool drawEachStep) {
    changing_ = true;
    cities_->setValue(cities);
    citySeed_->setValue(0);
    seed_->setValue(0);
    random_->setChecked(true);
    deterministic_->setChecked(false);
    drawEachStep_->setChecked(drawEachStep);
    changing_ = false;
    showSettings();
}

void TFormGlobalOpt::showSettings() {
    citiesLabel_->setText(tr("Number of cities: %1").arg(cities_->value()));
    citySeedLabel_->setText(tr("City random seed: %1").arg(citySeed_->value()));
    seedLabel_->setText(tr("Random seed: %1").arg(seed_->value()));
    random_->setEnabled(!deterministic_->isChecked());
}

void TFormGlobalOpt::problemChanged() {
    showSettings();
    if (changing_) return;
    results_ = {};
    progress_->setValue(0);
    ButtonTriggerClick();
}

void TFormGlobalOpt::notYetImplemented() {
    annealing_->setChecked(true);
    host_.showMessage(tr("Not yet implemented!"));
}

void TFormGlobalOpt::ButtonTriggerClick() {
    startRun(seed_->value(), tr("Single run"));
}

void TFormGlobalOpt::ButtonDefaultsClick() {
    apply(kDefaultCities, false);
    problemChanged();
}

void TFormGlobalOpt::ButtonStepClick() {
    apply(kInspectedCities, true);
    problemChanged();
}

void TFormGlobalOpt::ButtonBestClick() {
    startRun(results_.best, tr("Best MC point, random seed %1").arg(results_.best));
}

void TFormGlobalOpt::ButtonWorstClick() {
    startRun(results_.worst, tr("Worst MC point, random seed %1").arg(results_.worst));
}

void TFormGlobalOpt::ButtonMCClick() {
    monteCarlo_.emplace(options());
    image_->setTour(monteCarlo_->current());
    results_ = {};
    timer_.start();
    setPace();
    showProgress();
}

void TFormGlobalOpt::ButtonCancelClick() {
    if (!running()) return;
    const bool many = monteCarlo_.has_value();
    many ? monteCarloEnded() : runEnded();
    reportBox_->setTitle(
        many ? tr("Cancelled after %1 of %2 runs").arg(results_.runs).arg(kMonteCarloRuns)
             : tr("Cancelled"));
}

void TFormGlobalOpt::ButtonCloseClick() {
    close();
}

void TFormGlobalOpt::done(int result) {
    ButtonCancelClick();
    QDialog::done(result);
}

void TFormGlobalOpt::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!run_) ButtonTriggerClick();
}

void TFormGlobalOpt::startRun(int seed, const QString& caption) {
    monteCarlo_.reset();
    caption_ = caption;
    AnnealingOptions settings = options();
    settings.moveSeed = static_cast<std::uint64_t>(seed);
    run_.emplace(settings);
    image_->setTour(run_->summary());
    timer_.start();
    setPace();
    showProgress();
    // Short runs are done before anybody sees them running.
    if (!drawEachStep_->isChecked()) workOnRun();
}

void TFormGlobalOpt::setPace() {
    const bool inspected = !monteCarlo_ && drawEachStep_->isChecked();
    timer_.setInterval(inspected ? kPausePerMove / cities_->value() : 0);
}

void TFormGlobalOpt::work() {
    monteCarlo_ ? workOnMonteCarlo() : workOnRun();
}

void TFormGlobalOpt::workOnRun() {
    QElapsedTimer slice;
    slice.start();
    while (slice.elapsed() < kSlice) {
        const Annealing::Event event = run_->advance();
        if (event == Annealing::Event::Finished) return runEnded();
        if (event == Annealing::Event::Moved && drawEachStep_->isChecked()) {
            image_->setTour(run_->summary());
            break;
        }
    }
    showProgress();
}

void TFormGlobalOpt::workOnMonteCarlo() {
    QElapsedTimer slice;
    slice.start();
    const int before = monteCarlo_->summary().runs;
    while (slice.elapsed() < kSlice) {
        if (!monteCarlo_->advance()) return monteCarloEnded();
    }
    if (monteCarlo_->summary().runs != before || drawEachStep_->isChecked()) {
        image_->setTour(monteCarlo_->current());
        showProgress();
    }
}

void TFormGlobalOpt::runEnded() {
    image_->setTour(run_->summary());
    report(caption_, ReportLines(run_->summary()));
    ended();
}

void TFormGlobalOpt::monteCarloEnded() {
    results_ = monteCarlo_->summary();
    monteCarlo_.reset();
    progress_->setValue(results_.runs);
    AnnealingOptions best = options();
    best.moveSeed = static_cast<std::uint64_t>(results_.best);
    image_->setTour(Annealing(best).finish());
    report(tr("80 MC points"), ReportLines(results_));
    ended();
}

void TFormGlobalOpt::ended() {
    timer_.stop();
    cancel_->setEnabled(false);
    best_->setEnabled(results_.runs > 0);
    worst_->setEnabled(results_.runs > 0);
}

void TFormGlobalOpt::showProgress() {
    cancel_->setEnabled(true);
    best_->setEnabled(false);
    worst_->setEnabled(false);
    if (monteCarlo_) {
        progress_->setValue(monteCarlo_->summary().runs);
        report(tr("Running, 80 MC points"), ReportLines(monteCarlo_->summary()));
    } else {
        report(tr("Running"), ReportLines(run_->summary()));
    }
}

void TFormGlobalOpt::report(const QString& caption, const std::vector<std::string>& lines) {
    QStringList texts;
    for (const std::string& line : lines) texts << Shown(line);
    reportBox_->setTitle(caption);
    reportLabel_->setText(texts.join('\n'));
}

}  // namespace kelvro
