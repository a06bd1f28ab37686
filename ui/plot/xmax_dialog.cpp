#include "ui/plot/xmax_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/scalar.h"
#include "plot/ticks.h"
#include "ui/mnemonics.h"
#include "ui/plot/value_spin.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

QString ValueText(double value) {
    return QString::fromStdString(EngineeringLabel(value));
}

}  // namespace

TXmaxDlg1::TXmaxDlg1(const ValueEdit& edit, const QString& unit, Spin spin, QWidget* parent)
    : QDialog(parent), edit_(edit), spin_(spin), value_(edit.start) {
    setObjectName("TXmaxDlg1");
    setWindowTitle(tr("Axis"));
    auto* caption = new QLabel(Shown(edit.caption), this);
    caption->setObjectName("LabelXmax");
    xmaxEingabe_ = new QLineEdit(ValueText(edit.start), this);
    xmaxEingabe_->setObjectName("xmaxEingabe");
    xmaxEingabe_->setToolTip(
        tr("From %1 to %2").arg(ValueText(edit.low) + unit, ValueText(edit.high) + unit));
    xmaxEingabe_->selectAll();
    caption->setBuddy(xmaxEingabe_);
    auto* arrows = new ValueSpin("SpinButtonXmax", this);
    arrows->setToolTip(tr("Increase or decrease the value"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OKBtn");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelBtn");

    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(xmaxEingabe_, 1);
    row->addWidget(arrows);
    row->addWidget(new QLabel(unit, this));
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(buttons);

    connect(xmaxEingabe_, &QLineEdit::textEdited, this, &TXmaxDlg1::xmaxEingabeChange);
    connect(arrows, &ValueSpin::clicked, this, &TXmaxDlg1::SpinButtonXmaxClick);
    connect(buttons, &QDialogButtonBox::accepted, this, &TXmaxDlg1::OKBtnClick);
    connect(buttons, &QDialogButtonBox::rejected, this, &TXmaxDlg1::CancelBtnClick);
    GiveMnemonics(*this);
}

void TXmaxDlg1::xmaxEingabeChange() {
    value_ = Clamp(ParseValue(xmaxEingabe_->text().toStdString()), edit_.low, edit_.high);
}

void TXmaxDlg1::SpinButtonXmaxClick(int direction) {
    const double swept = SpinStep(value_, direction, spin_.sweepFactor);
    const double moved = spin_.step > 0 ? value_ + direction * spin_.step : swept;
    value_ = Clamp(moved, edit_.low, edit_.high);
    xmaxEingabe_->setText(ValueText(value_));
}

}  // namespace kelvro
