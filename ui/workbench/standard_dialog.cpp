#include "ui/workbench/standard_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <cmath>

#include "core/number_text.h"
#include "synthesis/refine.h"
#include "ui/fields.h"
#include "ui/mnemonics.h"
#include "ui/texts.h"
#include "ui/workbench/series_choice.h"

namespace kelvro {

namespace {

QString DecibelText(double ratio) {
    return QString::fromStdString(FormatFixed(0, 3, 10 * std::log10(ratio))) +
           QStringLiteral(" dB");
}

}  // namespace

StandardDialog::StandardDialog(NetworkModel& model, QWidget* parent)
    : QDialog(parent),
      model_(model),
      start_(model.problem()),
      series_(new SeriesChoice(QStringLiteral("Standard"), true, Series::E24)),
      table_(new QTableWidget),
      gains_(new QLabel),
      problem_(new QLabel) {
    setObjectName(QStringLiteral("StandardDialog"));
    setWindowTitle(tr("Standard values"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(series_);
    table_->setObjectName(QStringLiteral("StandardTable"));
    table_->setColumnCount(3);
    table_->setHorizontalHeaderLabels({tr("Part"), tr("Now"), tr("Chosen")});
    table_->verticalHeader()->hide();
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setStretchLastSection(true);
    SetHint(*table_, tr("What stays free, lines and transformers are optimized for the others"));
    column->addWidget(table_, 1);
    gains_->setObjectName(QStringLiteral("StandardGains"));
    gains_->setWordWrap(true);
    problem_->setObjectName(QStringLiteral("StandardProblem"));
    problem_->setWordWrap(true);
    column->addWidget(gains_);
    column->addWidget(problem_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    take_ = buttons->button(QDialogButtonBox::Ok);
    take_->setObjectName(QStringLiteral("StandardTake"));
    take_->setText(tr("&Take"));
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(series_, &SeriesChoice::changed, this, &StandardDialog::choose);
    resize(380, 420);
    model_.beginDrag(tr("Standard values"));
    choose();
    GiveMnemonics(*this);
}

void StandardDialog::done(int result) {
    model_.endDrag(result == Accepted);
    QDialog::done(result);
}

void StandardDialog::choose() {
    auto options = series_->options();
    if (options) {
        for (const Tunable& at : TunablesOf(start_.ladder)) {
            if (model_.locked(at)) options->locked.push_back(at);
        }
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto chosen = options ? WithStandardValues(start_, *options)
                                : Result<StandardNetwork>(Status::Failure(
                                      tr("every value is free: choose a series").toStdString()));
    QApplication::restoreOverrideCursor();
    problem_->setText(Shown(chosen.message()));
    problem_->setVisible(!chosen);
    take_->setEnabled(chosen.ok());
    showParts(chosen ? chosen->network : start_);
    gains_->setVisible(chosen.ok());
    if (chosen) {
        gains_->setText(tr("Worst GT: %1 now, %2 with each part rounded by itself, %3 chosen "
                           "together")
                            .arg(DecibelText(WorstGain(start_)), DecibelText(chosen->roundedGT),
                                 DecibelText(chosen->worstGT)));
    }
    // The bands stay what they were: none, perhaps.
    Network next = model_.network();
    next.ladder = chosen ? chosen->network.ladder : start_.ladder;
    model_.preview(std::move(next));
}

void StandardDialog::showParts(const Network& chosen) {
    const auto tunables = TunablesOf(start_.ladder);
    table_->setRowCount(static_cast<int>(tunables.size()));
    for (std::size_t i = 0; i < tunables.size(); ++i) {
        const auto text = [&](const Network& network) {
            return QString::fromStdString(
                FormatQuantity(4, ValueOf(network.ladder, tunables[i]),
                               std::string(UnitOf(network.ladder, tunables[i]))));
        };
        const int row = static_cast<int>(i);
        const QString name = QString::fromStdString(NameOf(start_.ladder, tunables[i]));
        table_->setItem(row, 0, new QTableWidgetItem(name));
        table_->setItem(row, 1, new QTableWidgetItem(text(start_)));
        table_->setItem(row, 2, new QTableWidgetItem(text(chosen)));
    }
    table_->resizeColumnsToContents();
}

}  // namespace kelvro
