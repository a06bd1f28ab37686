#include "ui/form_guide_gxl.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/form_parts.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr const char* kTradeOff[] = {
    QT_TRANSLATE_NOOP(
        "kelvro",
        "The two major design approaches are construction and optimization, often you mix them. "
        "How "
        "much construction makes sense and how much optimization depends highly on the designers "
        "capabilities, circuit type and spec difficulty. If your elements are near-ideal (like at "
        "low "
        "frequencies) and if you can easily over-design, then usually construction is leading to a "
        "ood solution. Which does not mean that no simulations and some tweaks are needed."),
    QT_TRANSLATE_NOOP(
        "kelvro",
        "However, for difficult circuits (like RF) optimization can make a lot sense, e.g. it "
        "could "
        "happen that already one change in a parameter like the W of the LNA transistor can change "
        "many performances (like NF, gain, input impedance, stability, bandwidth, etc.)."),
    QT_TRANSLATE_NOOP(
        "kelvro",
        "If optimization makes sense then the question is often which optimizer to use. Global "
        "optimizer tend to be more robust but slower. Local optimizer may stop early on a local "
        "optimum, which might exist in some cases or it starting point is bad."),
};

}  // namespace

TFormGuideGXL::TFormGuideGXL(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("TFormGuideGXL"));
    setWindowTitle(tr("Guide for Optimization"));
    auto* rows = new QVBoxLayout(this);
    for (const char* text : kTradeOff) {
        auto* label = new QLabel(Shown(text));
        label->setWordWrap(true);
        rows->addWidget(label);
    }
    rows->addWidget(buildConstraints());
    out_ = new QLabel;
    out_->setObjectName(QStringLiteral("LabelOut"));
    out_->setWordWrap(true);
    out_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    out_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    out_->setMargin(8);
    QFont bold = out_->font();
    bold.setBold(true);
    out_->setFont(bold);
    out_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    out_->setMinimumHeight(5 * fontMetrics().lineSpacing());
    rows->addWidget(out_, 1);
    auto* close = new QPushButton(tr("C&lose"));
    close->setObjectName(QStringLiteral("ButtonClose"));
    SetHint(*close, tr("Close this window"));
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    rows->addWidget(close, 0, Qt::AlignRight);
    resize(680, layout()->heightForWidth(680));
}

QGroupBox* TFormGuideGXL::buildConstraints() {
    auto* box = new QGroupBox(tr("Your primary constraints:"));
    auto* column = new QVBoxLayout(box);
    badStartpoint_ = AddButton<QRadioButton>(
        *column, "RadioButtonBadStartpoint", tr("Starting point is probably bad"),
        tr("The first design is a guess, or far from what is wanted"));
    goodStartpoint_ = AddButton<QRadioButton>(
        *column, "RadioButtonGoodStartpoint", tr("Designer found a good starting point"),
        tr("The first design works already and shall become better"));
    goodStartpoint_->setChecked(true);
    nonlinear_ = AddButton<QCheckBox>(
        *column, "CheckBoxNL", tr("Goal to parameter variation highly nonlinear"),
        tr("Twice the change of a parameter is far from twice the effect"));
    difficult_ = AddButton<QCheckBox>(*column, "CheckBoxDifficult",
                                      tr("Difficult correlations, many trade-offs"),
                                      tr("What improves one property of the design spoils others"));
    auto* form = new QFormLayout;
    parameters_ = new InputEdit(QStringLiteral("NEingabe"));
    parameters_->setText(QStringLiteral(" 10"));
    SetHint(*parameters_, tr("How many values the optimizer may change"));
    form->addRow(tr("&Number of parameters"), parameters_);
    auto* loss = new InputEdit(QStringLiteral("EditTargetLoss"));
    loss->setText(QStringLiteral(" 0.1"));
    SetHint(*loss, tr("A note of the loss that is aimed at, in dB; the estimate does not use it"));
    form->addRow(tr("&Equivalent loss"), loss);
    column->addLayout(form);

    for (QRadioButton* button : {badStartpoint_, goodStartpoint_}) {
        connect(button, &QRadioButton::toggled, this, &TFormGuideGXL::FormShow);
    }
    for (QCheckBox* button : {nonlinear_, difficult_}) {
        connect(button, &QCheckBox::toggled, this, &TFormGuideGXL::FormShow);
    }
    connect(parameters_, &QLineEdit::textChanged, this, &TFormGuideGXL::FormShow);
    connect(parameters_, &InputEdit::stepped, this, [this](int direction) {
        const double n = std::max(0.0, std::floor(situation().parameters) + direction);
        parameters_->setText(QStringLiteral(" %1").arg(n, 0, 'f', 0));
    });
    return box;
}

GuideSituation TFormGuideGXL::situation() const {
    return {.parameters = ParseValue(parameters_->text().toStdString()),
            .goodStartPoint = goodStartpoint_->isChecked(),
            .nonlinear = nonlinear_->isChecked(),
            .difficult = difficult_->isChecked()};
}

void TFormGuideGXL::FormShow() {
    out_->setText(Shown(GuideAdvice(situation())));
}

void TFormGuideGXL::showEvent(QShowEvent* event) {
    FormShow();
    QDialog::showEvent(event);
}

}  // namespace kelvro
