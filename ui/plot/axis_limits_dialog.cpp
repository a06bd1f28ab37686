#include "ui/plot/axis_limits_dialog.h"
#include "ui/mnemonics.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"
#include "plot/ticks.h"

namespace kelvro {

namespace {

QString UnitOf(const Trace& trace) {
    return QString::fromUtf8(trace.unit.data(), qsizetype(trace.unit.size()));
}

QString ValueText(double value) {
    return QString::fromStdString(EngineeringLabel(value));
}

}  // namespace

AxisLimitsDialog::AxisLimitsDialog(const View& view, double fo, const Trace& left,
                                   const Trace* right, QWidget* parent)
    : QDialog(parent), view_(view), fo_(fo) {
    setObjectName("AxisLimitsDialog");
    setWindowTitle(tr("Axis Limits"));
    auto* form = new QFormLayout(this);
    addRow(*form, Zone::XStart, "xminEingabe", tr("x m&in"), "Hz");
    addRow(*form, Zone::XEnd, "xmaxEingabe", tr("x m&ax"), "Hz");
    log_ = new QCheckBox(tr("&Logarithmic"), this);
    log_->setObjectName("CheckBoxLog");
    log_->setToolTip(tr("Equal ratios of frequency are equally long"));
    log_->setChecked(view.x.mode == AxisMode::Logarithmic);
    form->addRow(QString(), log_);
    const QString name = QString::fromUtf8(left.symbol.data(), qsizetype(left.symbol.size()));
    addRow(*form, Zone::YStart, "yminEingabe", name + tr(" &min"), UnitOf(left));
    addRow(*form, Zone::YEnd, "ymaxEingabe", name + tr(" ma&x"), UnitOf(left));
    if (right != nullptr) {
        const QString other =
            QString::fromUtf8(right->symbol.data(), qsizetype(right->symbol.size()));
        addRow(*form, Zone::RightStart, "rightMinEingabe", other + tr(" mi&n"), UnitOf(*right));
        addRow(*form, Zone::RightEnd, "rightMaxEingabe", other + tr(" max"), UnitOf(*right));
    }
    problem_ = new QLabel(this);
    problem_->setObjectName("LimitsProblem");
    form->addRow(problem_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setObjectName("OKBtn");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelBtn");
    form->addRow(buttons);
    connect(log_, &QCheckBox::toggled, this, &AxisLimitsDialog::check);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    check();
    rows_.front().field->setFocus();
    rows_.front().field->selectAll();
    GiveMnemonics(*this);
}

void AxisLimitsDialog::addRow(QFormLayout& form, Zone zone, const char* object, const QString& name,
                              const QString& unit) {
    const ValueEdit edit = EndEdit(view_, zone, fo_);
    auto* field = new QLineEdit(ValueText(edit.start), this);
    field->setObjectName(object);
    field->setToolTip(
        tr("From %1 to %2").arg(ValueText(edit.low) + unit, ValueText(edit.high) + unit));
    form.addRow(unit.isEmpty() ? name : name + tr(" in %1").arg(unit), field);
    connect(field, &QLineEdit::textEdited, this, &AxisLimitsDialog::check);
    rows_.push_back({zone, field, edit});
}

double AxisLimitsDialog::valueOf(Zone zone) const {
    const auto row = std::ranges::find(rows_, zone, &Row::zone);
    if (row == rows_.end()) return 0;
    if (!row->field->isModified()) return row->edit.start;
    return Clamp(ParseValue(row->field->text().toStdString()), row->edit.low, row->edit.high);
}

View AxisLimitsDialog::view() const {
    View view = view_;
    view.x.mode = log_->isChecked() ? AxisMode::Logarithmic : AxisMode::Linear;
    view.x = WithRange(view.x, valueOf(Zone::XStart), valueOf(Zone::XEnd));
    view.y = WithRange(view.y, valueOf(Zone::YStart), valueOf(Zone::YEnd));
    if (view.right) {
        view.right = WithRange(*view.right, valueOf(Zone::RightStart), valueOf(Zone::RightEnd));
    }
    return view;
}

void AxisLimitsDialog::check() {
    QString problem;
    for (const auto& [start, end] :
         {std::pair(Zone::XStart, Zone::XEnd), std::pair(Zone::YStart, Zone::YEnd),
          std::pair(Zone::RightStart, Zone::RightEnd)}) {
        const bool shown = std::ranges::find(rows_, start, &Row::zone) != rows_.end();
        if (shown && !(valueOf(start) < valueOf(end))) problem = tr("min has to be below max");
    }
    if (log_->isChecked() && !(valueOf(Zone::XStart) > 0)) {
        problem = tr("a logarithmic axis starts above 0");
    }
    problem_->setText(problem);
    ok_->setEnabled(problem.isEmpty());
}

}  // namespace kelvro
