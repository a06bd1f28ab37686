#include "ui/form_row.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "core/rounding.h"
#include "ui/fields.h"
#include "ui/plot/value_spin.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Room for a field with its frame, and what lines have where there is space.
constexpr int kLeastLine = 24;
constexpr int kLine = 28;

/// The row without its field.
FormRow AddTexts(QGridLayout& grid, RowPlace place, QWidget* field, const RowTexts& texts) {
    const FormRow made{new QLabel(texts.label), field, new QLabel(texts.unit)};
    made.label->setBuddy(field);
    SetHint(*made.label, texts.hint);
    SetHint(*field, texts.hint);
    grid.addWidget(made.label, place.row, place.column);
    grid.addWidget(made.unit, place.row, place.column + 1 + place.fieldColumns);
    return made;
}

}  // namespace

void GiveLineHeight(QGridLayout& grid, int row) {
    grid.setVerticalSpacing(1);
    grid.setRowMinimumHeight(row, kLeastLine);
    grid.addItem(new QSpacerItem(0, kLine, QSizePolicy::Fixed, QSizePolicy::Maximum), row, 0);
}

FormRow AddRow(QGridLayout& grid, RowPlace place, QWidget* field, const RowTexts& texts) {
    const FormRow made = AddTexts(grid, place, field, texts);
    grid.addWidget(field, place.row, place.column + 1, 1, place.fieldColumns);
    return made;
}

InputRow AddInputRow(QGridLayout& grid, RowPlace place, const InputField& field,
                     const QString& spun) {
    auto* edit = new InputEdit(ToQString(field.object));
    // Behind the element Qs stands what they belong to.
    const bool quality = field.object.starts_with("Q");
    edit->setUnit(quality ? QString() : ToQString(field.unit));
    auto* spin = new ValueSpin(QStringLiteral("SpinButton") +
                               edit->objectName().remove(QStringLiteral("Eingabe")));
    SetHint(*spin, QCoreApplication::translate("InputRow", "Increase or decrease %1").arg(spun));
    const FormRow texts =
        AddTexts(grid, place, edit, {Shown(field.label), ToQString(field.unit), Shown(field.hint)});
    auto* pair = new QHBoxLayout;
    pair->setSpacing(0);
    pair->addWidget(edit);
    pair->addWidget(spin);
    grid.addLayout(pair, place.row, place.column + 1, 1, place.fieldColumns);
    return {texts.label, edit, spin, texts.unit};
}

void StepInput(const InputField& field, Design& design, int direction, double factor,
               const Limits& limits) {
    InputField limited = field;
    limited.limits = limits;
    const double x = field.read(design);
    const bool whole = std::holds_alternative<int Design::*>(field.value);
    limited.write(design, whole ? x + direction : SpinStep(x, direction, factor));
}

}  // namespace kelvro
