#pragma once

#include <QString>

#include "design/page.h"

class QGridLayout;
class QLabel;
class QWidget;

namespace kelvro {

class InputEdit;
class ValueSpin;

/// Texts of a row of a form; the unit stands behind the field.
struct RowTexts {
    QString label;
    QString unit;
    QString hint;
};

/// A row of a form: a label that leads to its field, the field, its unit.
struct FormRow {
    QLabel* label;
    QWidget* field;
    QLabel* unit;
};

/// Where a row stands in a grid: label, field over so many columns, unit.
struct RowPlace {
    int row;
    int column = 0;
    int fieldColumns = 1;
};

/// Gives a row of a grid the height of a line, the same with a spin button, a check box or a field
/// alone, so that columns beside each other stay in step. Lines draw together in a low window.
void GiveLineHeight(QGridLayout& grid, int row);

/// Binds a field with its texts into a row of a grid. Label and field carry the hint.
FormRow AddRow(QGridLayout& grid, RowPlace place, QWidget* field, const RowTexts& texts);

/// An input of the design with its spin button, as a row built from its record.
struct InputRow {
    QLabel* label;
    InputEdit* edit;
    ValueSpin* spin;
    QLabel* unit;
};

/// "k5Eingabe" becomes an edit of that name with the spin button "SpinButtonk5", whose hint names
/// `spun`.
InputRow AddInputRow(QGridLayout& grid, RowPlace place, const InputField& field,
                     const QString& spun);

/// One step of a spin button, a cursor key or the wheel: whole numbers by one, others by the sweep
/// factor, clamped to the limits.
void StepInput(const InputField& field, Design& design, int direction, double factor,
               const Limits& limits);

}  // namespace kelvro
