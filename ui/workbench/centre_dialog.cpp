#include "ui/workbench/centre_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/number_text.h"
#include "synthesis/rating.h"
#include "synthesis/refine.h"
#include "ui/fields.h"
#include "ui/mnemonics.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

QString NumberText(double value, int decimals) {
    return QString::fromStdString(FormatFixed(0, decimals, value));
}

QString DecibelText(double ratio) {
    return NumberText(10 * std::log10(ratio), 3) + QStringLiteral(" dB");
}

QString YieldText(const YieldReport& report) {
    return CentreDialog::tr("yield %1 % (%2 to %3), 90 % of the builds keep %4")
        .arg(NumberText(100 * report.yield, 1), NumberText(100 * report.low, 1),
             NumberText(100 * report.high, 1), DecibelText(report.quantile10));
}

/// Tolerances of a hundredth of a percent or of many times the value are slips of the finger.
bool IsTolerance(const ParsedNumber& number) {
    return !number.noDigits && number.value >= kToleranceLimits.low &&
           number.value <= kToleranceLimits.high;
}

}  // namespace

CentreDialog::CentreDialog(NetworkModel& model, QWidget* parent)
    : QDialog(parent), model_(model), start_(model.problem()) {
    setObjectName(QStringLiteral("CentreDialog"));
    setWindowTitle(tr("Yield and centring"));
    auto* column = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    const Tolerances usual;
    coils_ = addEdit(*form, "CentreLtol", tr("&Inductors ±%"), NumberText(usual.inductance, 0));
    capacitors_ =
        addEdit(*form, "CentreCtol", tr("Ca&pacitors ±%"), NumberText(usual.capacitance, 0));
    resistors_ = addEdit(*form, "CentreRtol", tr("&Resistors ±%"), NumberText(usual.resistance, 0));
    lines_ =
        addEdit(*form, "CentreZtol", tr("Line impedances ±%"), NumberText(usual.lineImpedance, 0));
    const double leastGT = LeastGTOf(WorstGain(start_), {});
    for (QLineEdit* edit : {coils_, capacitors_, resistors_, lines_})
        SetHint(*edit, tr("Largest error of a part, percent"));
    least_ = addEdit(*form, "CentreLeast", tr("A build &keeps dB"),
                     NumberText(10 * std::log10(leastGT), 2));
    SetHint(*least_, tr("Worst gain in the bands that a build has to keep to count as good"));
    column->addLayout(form);
    const auto label = [&](const char* name) {
        auto* made = new QLabel;
        made->setObjectName(QLatin1String(name));
        made->setWordWrap(true);
        column->addWidget(made);
        return made;
    };
    before_ = label("CentreBefore");
    after_ = label("CentreAfter");
    problem_ = label("CentreProblem");
    table_ = new QTableWidget(0, 5);
    table_->setObjectName(QStringLiteral("CentreTable"));
    table_->setHorizontalHeaderLabels(
        {tr("Part"), tr("Value"), tr("± %"), tr("Costs dB"), tr("Centred dB")});
    table_->verticalHeader()->hide();
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setStretchLastSection(true);
    SetHint(*table_, tr("Worst gain lost when this part alone is off by its tolerance, its own or "
                        "that of its kind: the dearest part first"));
    column->addWidget(table_, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    take_ = buttons->button(QDialogButtonBox::Ok);
    take_->setObjectName(QStringLiteral("CentreTake"));
    take_->setText(tr("&Take"));
    centre_ = buttons->addButton(tr("&Centre"), QDialogButtonBox::ActionRole);
    centre_->setObjectName(QStringLiteral("CentreStart"));
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(centre_, &QPushButton::clicked, this, &CentreDialog::startOrStop);
    connect(&work_, &BackgroundWork::finished, this, &CentreDialog::showState);
    resize(420, 480);
    model_.beginDrag(tr("Centring"));
    rate();
    showState();
    GiveMnemonics(*this);
}

CentreDialog::~CentreDialog() = default;

QLineEdit* CentreDialog::addEdit(QFormLayout& form, const char* name, const QString& caption,
                                 const QString& text) {
    auto* edit = new QLineEdit(text);
    edit->setObjectName(QLatin1String(name));
    edit->setAccessibleName(QString(caption).remove('&'));
    form.addRow(caption, edit);
    connect(edit, &QLineEdit::textEdited, this, &CentreDialog::rate);
    return edit;
}

Result<YieldOptions> CentreDialog::options() const {
    YieldOptions options;
    Tolerances& tolerances = options.tolerances;
    for (const auto& [edit, value] : {std::pair{coils_, &tolerances.inductance},
                                      {capacitors_, &tolerances.capacitance},
                                      {resistors_, &tolerances.resistance},
                                      {lines_, &tolerances.lineImpedance}}) {
        const ParsedNumber number = ParseNumber(edit->text().toStdString());
        if (!IsTolerance(number)) {
            return Status::Failure(tr("%1: expected percent from %2 to %3")
                                       .arg(edit->accessibleName(),
                                            NumberText(kToleranceLimits.low, 1),
                                            NumberText(kToleranceLimits.high, 0))
                                       .toStdString());
        }
        *value = number.value;
    }
    const ParsedNumber least = ParseNumber(least_->text().toStdString());
    if (least.noDigits || !(least.value <= 0)) {
        return Status::Failure(
            tr("%1: expected dB below 0").arg(least_->accessibleName()).toStdString());
    }
    options.leastGT = std::pow(10, least.value / 10);
    return options;
}

void CentreDialog::rate() {
    work_.askToStop();
    if (std::exchange(centred_, false)) {
        Network next = model_.network();
        next.ladder = start_.ladder;
        model_.preview(std::move(next));
    }
    after_->clear();
    const auto wanted = options();
    const auto report = wanted ? YieldOf(start_, *wanted) : Result<YieldReport>(wanted.status());
    say(Shown(report.message()));
    before_->setText(report ? tr("Now: %1").arg(YieldText(*report)) : QString());
    centre_->setEnabled(report.ok());
    if (report) showParts(*report, {});
    showState();
}

void CentreDialog::startOrStop() {
    if (work_.running()) return work_.askToStop();
    const auto wanted = options();
    if (!wanted) return say(Shown(wanted.message()));
    std::vector<Tunable> locked;
    for (const Tunable& at : TunablesOf(start_.ladder)) {
        if (model_.locked(at)) locked.push_back(at);
    }
    const auto work = [this, locked, options = *wanted](const std::stop_token& stop,
                                                        const BackgroundWork::HandOver& handOver) {
        const auto goesOn = [&] { return !stop.stop_requested(); };
        handOver([this, options, centred = Centred(start_, options, {locked, goesOn})] {
            // Fields that were changed meanwhile ask for something else.
            const auto now = this->options();
            if (now && *now == options) showCentred(centred);
        });
    };
    work_.start(work);
    showState();
}

void CentreDialog::showCentred(const Result<CentredNetwork>& centred) {
    say(Shown(centred.message()));
    if (!centred || !model_.dragging()) return;
    centred_ = centred->network.ladder != start_.ladder;
    after_->setText(centred_ ? tr("Centred: %1").arg(YieldText(centred->after))
                             : tr("No other values are better in the middle"));
    showParts(centred->before, centred->after);
    Network next = model_.network();
    next.ladder = centred->network.ladder;
    model_.preview(std::move(next));
}

/// The part that costs most stands first.
void CentreDialog::showParts(const YieldReport& before, const std::optional<YieldReport>& after) {
    std::vector<std::size_t> order(before.parts.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::ranges::stable_sort(order, std::greater{},
                             [&](std::size_t i) { return before.parts[i].costDb; });
    table_->setRowCount(static_cast<int>(order.size()));
    for (std::size_t row = 0; row < order.size(); ++row) {
        const auto& [part, tolerance, costDb] = before.parts[order[row]];
        const QString texts[] = {
            QString::fromStdString(NameOf(start_.ladder, part)),
            QString::fromStdString(FormatQuantity(4, ValueOf(start_.ladder, part),
                                                  std::string(UnitOf(start_.ladder, part)))),
            QString::fromStdString(FormatShortest(tolerance)), NumberText(costDb, 3),
            after ? NumberText(after->parts[order[row]].costDb, 3) : QString()};
        int column = 0;
        for (const QString& text : texts) {
            table_->setItem(static_cast<int>(row), column++, new QTableWidgetItem(text));
        }
    }
    table_->resizeColumnsToContents();
}

void CentreDialog::showState() {
    centre_->setText(work_.running() ? tr("&Stop") : tr("&Centre"));
    take_->setEnabled(centred_ && !work_.running());
}

/// Escape ends the centring first: what it has found is still there.
void CentreDialog::reject() {
    if (work_.running()) return work_.askToStop();
    QDialog::reject();
}

void CentreDialog::done(int result) {
    work_.askToStop();
    model_.endDrag(result == Accepted);
    QDialog::done(result);
}

void CentreDialog::say(const QString& problem) {
    problem_->setText(problem);
    problem_->setVisible(!problem.isEmpty());
}

}  // namespace kelvro
