#include "ui/tol_dlg.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/form_row.h"
#include "ui/plot/design_host.h"

namespace kelvro {

namespace {

QString PercentText(double percent) {
    return ' ' + ToQString(FormatFixed(6, 1, percent));
}

double TypedTolerance(const InputEdit& edit) {
    return ClampTolerance(edit.value());
}

}  // namespace

TToldlg::TToldlg(DesignHost& host, QWidget* parent)
    : QDialog(parent), host_(host), working_(host.tolerances()) {
    setObjectName(QStringLiteral("TToldlg"));
    setWindowTitle(tr("Monte-Carlo Analysis"));
    auto* grid = new QGridLayout(this);
    CTolEingabe_ = addRow(tr("Capacitance Tolerances"), "CTolEingabe", &TToldlg::CTolEingabeChange);
    LTolEingabe_ = addRow(tr("Inductance Tolerances"), "LTolEingabe", &TToldlg::LTolEingabeChange);
    ZLTolEingabe_ =
        addRow(tr("Charac. Imp. Tolerance"), "ZLTolEingabe", &TToldlg::ZLTolEingabeChange);
    RTolEingabe_ = addRow(tr("Resistance Tolerances"), "RTolEingabe", &TToldlg::RTolEingabeChange);
    auto* note = new QLabel(tr("The buttons of the gain window draw the runs."));
    QFont italic = note->font();
    italic.setItalic(true);
    note->setFont(italic);
    grid->addWidget(note, grid->rowCount(), 0, 1, 3);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("OKBtn"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("CancelBtn"));
    grid->addWidget(buttons, grid->rowCount(), 0, 1, 3);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &TToldlg::OKBtnClick);
    connect(buttons, &QDialogButtonBox::rejected, this, &TToldlg::CancelBtnClick);
}

InputEdit* TToldlg::addRow(const QString& caption, const QString& name,
                           void (TToldlg::*handler)()) {
    auto* grid = static_cast<QGridLayout*>(layout());
    auto* edit = new InputEdit(name);
    AddRow(*grid, {grid->rowCount()}, edit,
           {caption, QStringLiteral("%"), tr("0.1 to 35 percent")});
    connect(edit, &QLineEdit::textEdited, this, handler);
    return edit;
}

void TToldlg::showEvent(QShowEvent* event) {
    FormActivate();
    QDialog::showEvent(event);
}

void TToldlg::FormActivate() {
    working_ = host_.tolerances();
    CTolEingabe_->setText(PercentText(working_.capacitance));
    LTolEingabe_->setText(PercentText(working_.inductance));
    ZLTolEingabe_->setText(PercentText(working_.lineImpedance));
    RTolEingabe_->setText(PercentText(working_.resistance));
    CTolEingabe_->setFocus();
    CTolEingabe_->selectAll();
}

void TToldlg::CTolEingabeChange() {
    working_.capacitance = TypedTolerance(*CTolEingabe_);
}

void TToldlg::LTolEingabeChange() {
    working_.inductance = TypedTolerance(*LTolEingabe_);
}

void TToldlg::ZLTolEingabeChange() {
    working_.lineImpedance = TypedTolerance(*ZLTolEingabe_);
}

void TToldlg::RTolEingabeChange() {
    working_.resistance = TypedTolerance(*RTolEingabe_);
}

void TToldlg::OKBtnClick() {
    host_.setTolerances(working_);
    accept();
}

}  // namespace kelvro
