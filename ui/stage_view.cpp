#include "ui/stage_view.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QThread>
#include <QVBoxLayout>
#include <utility>

#include "io/design_report.h"
#include "plot/class_e_picture.h"
#include "ui/export_dlg.h"
#include "ui/fields.h"
#include "ui/mnemonics.h"
#include "ui/plot/design_host.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr int kTableLine = 19;

/// A table for reading, its first row of texts as heading.
QTableWidget* ReadingTable(const QString& name) {
    auto* table = new QTableWidget;
    table->setObjectName(name);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(kTableLine);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

void Fill(QTableWidget& table, const TextRows& rows) {
    table.setRowCount(rows.empty() ? 0 : static_cast<int>(rows.size()) - 1);
    table.setColumnCount(rows.empty() ? 0 : static_cast<int>(rows.front().size()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < rows[i].size(); ++j) {
            auto* item = new QTableWidgetItem(Shown(rows[i][j]));
            const int column = static_cast<int>(j);
            if (i == 0) {
                table.setHorizontalHeaderItem(column, item);
                continue;
            }
            if (j > 0) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table.setItem(static_cast<int>(i) - 1, column, item);
        }
    }
}

}  // namespace

StageView::StageView(DesignHost& host, QWidget* parent)
    : QWidget(parent),
      host_(host),
      harmonics_(ReadingTable(QStringLiteral("Harmonics15Tabelle"))),
      voltage_(new PlotImage),
      currents_(new PlotImage),
      run_(new QPushButton(tr("Si&mulate"))) {
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    SetHint(*harmonics_, tr("Harmonics of the load current, parts without loss"));
    harmonics_->setMinimumSize(280, 5 * kTableLine);
    harmonics_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    run_->setObjectName(QStringLiteral("ButtonNgspice"));
    SetHint(*run_, tr("Run the exported netlist in ngspice and compare"));
    voltage_->setObjectName(QStringLiteral("ImageVoltage15"));
    currents_->setObjectName(QStringLiteral("ImageCurrents15"));
    SetHint(*voltage_, tr("One period from turn-on, parts without loss"));
    SetHint(*currents_, tr("One period from turn-on, parts without loss"));
    for (PlotImage* image : {voltage_, currents_}) {
        // The window takes the size of its other contents; the pictures fill what is there.
        image->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        image->setMinimumSize(200, 120);
        columns->addWidget(image, 1);
    }
    connect(run_, &QPushButton::clicked, this, &StageView::ButtonNgspiceClick);
}

StageView::~StageView() {
    stop_.request_stop();
    if (simulation_) simulation_->wait();
}

void StageView::showStage(const CycleResult& result) {
    Fill(*harmonics_, HarmonicRows(result));
    const auto& operation = result.operation;
    const double fo = result.design.fo;
    voltage_->setPicture(operation ? ClassEVoltagePicture(*operation, fo) : Picture());
    currents_->setPicture(operation ? ClassECurrentPicture(*operation, fo) : Picture());
    run_->setEnabled(operation && !simulation_);
}

void StageView::ButtonNgspiceClick() {
    if (simulation_) return;
    auto prepared = ExportAsShown(host_);
    if (!prepared) return host_.showMessage(Shown(prepared.message()));
    run_->setEnabled(false);
    run_->setText(tr("ngspice is running..."));
    auto comparison = std::make_shared<Comparison>(Status::Failure("ngspice was stopped"));
    simulation_.reset(
        QThread::create([comparison, stop = stop_.get_token(), design = std::move(*prepared)] {
            *comparison = CompareWithNgspice(design, stop);
        }));
    connect(simulation_.get(), &QThread::finished, this, [this, comparison] {
        simulation_.release()->deleteLater();
        run_->setText(tr("Si&mulate"));
        run_->setEnabled(true);
        showComparison(*comparison);
    });
    simulation_->start();
}

void StageView::showComparison(const Comparison& comparison) {
    if (!comparison) return host_.showMessage(Shown(comparison.message()));
    auto* dialog = new QDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("TNgspiceDlg"));
    dialog->setWindowTitle(tr("Computed and simulated"));
    auto* column = new QVBoxLayout(dialog);
    column->addWidget(new QLabel(tr("The stage with the element Q of its parts:")));
    QTableWidget* table = ReadingTable(QStringLiteral("NgspiceTabelle"));
    Fill(*table, ComparisonRows(*comparison));
    table->setMinimumSize(430, (table->rowCount() + 2) * kTableLine);
    column->addWidget(table);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    column->addWidget(buttons);
    GiveMnemonics(*dialog);
    dialog->show();
}

}  // namespace kelvro
