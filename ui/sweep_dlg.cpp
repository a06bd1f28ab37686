#include "ui/sweep_dlg.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

#include "core/number_text.h"
#include "core/scalar.h"
#include "ui/design_session.h"
#include "ui/fields.h"
#include "ui/form_row.h"

namespace kelvro {

namespace {

constexpr double kSmallestFactor = 1.0001;
constexpr double kLargestFactor = 10;

/// "  1.05": two spaces, and two to four decimals as the factor needs.
QString FactorText(double factor) {
    constexpr int mostDecimals = 4;
    int decimals = 2;
    std::string text = FormatFixed(0, decimals, factor);
    while (decimals < mostDecimals && ParseValue(text) != factor)
        text = FormatFixed(0, ++decimals, factor);
    return "  " + QString::fromStdString(text);
}

}  // namespace

TSweepDlg::TSweepDlg(DesignSession& session, QWidget* parent)
    : QDialog(parent), session_(session), before_(session.preferences().SweepFactor) {
    setObjectName(QStringLiteral("TSweepDlg"));
    setWindowTitle(tr("Sweep Factor"));
    edit_ = new InputEdit(QStringLiteral("SweepEingabe"));
    edit_->setText(FactorText(before_));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* note = new QLabel(tr("Each click of a spin button changes a value by this factor."));
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(12);
    grid->addWidget(note, 0, 0, 1, 3);
    AddRow(*grid, {1}, edit_,
           {tr("Sweep &Factor"), {}, tr("Factor of one click of a spin button, 1.0001 to 10")});
    grid->addWidget(buttons, 2, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    connect(edit_, &QLineEdit::textEdited, this, &TSweepDlg::SweepEingabeChange);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, &TSweepDlg::restore);
}

void TSweepDlg::SweepEingabeChange() {
    const double typed = ParseValue(edit_->text().toStdString());
    session_.preferences().SweepFactor = Clamp(typed, kSmallestFactor, kLargestFactor);
}

void TSweepDlg::restore() {
    session_.preferences().SweepFactor = before_;
}

void TSweepDlg::showEvent(QShowEvent* event) {
    before_ = session_.preferences().SweepFactor;
    edit_->setText(FactorText(before_));
    edit_->setFocus();
    edit_->selectAll();
    QDialog::showEvent(event);
}

}  // namespace kelvro
