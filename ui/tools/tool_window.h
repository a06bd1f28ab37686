#pragma once

#include <QDialog>
#include <QString>
#include <vector>

#include "ui/form_row.h"

class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace kelvro {

class DesignHost;
class InputEdit;
class OutputEdit;

/// Engineering text of an output, less the "0" that FormatEng puts in place of a prefix: behind
/// three decimals it would read as a fourth. "-" and "infinite" for what is no finite number.
QString EngineeringText(double value);

/// A small window of the Tools menu: groups of labelled inputs and outputs, recalculated with every
/// keystroke. A tool declares its rows and says in recalculate() what the outputs show; Copy,
/// Close, Escape, the remembered place, stepping by cursor keys and copying one output by a
/// double-click are the same for all.
class ToolWindow : public QDialog {
    Q_OBJECT

  public:
    /// Takes fo from the design until the user types another frequency, and the sweep factor of its
    /// steps. The host must outlive the window.
    void followDesign(DesignHost& host);

    /// What Copy puts on the clipboard: one line per visible row, "label<TAB>text unit".
    virtual QString resultText() const;

  protected:
    ToolWindow(const char* className, const QString& title, QWidget* parent);

    /// Where a group is put: below the one before, or at the top of a new column.
    enum class Place : unsigned char { Below, NewColumn };

    // Building; rows go into the group begun last.
    void beginGroup(const QString& title, Place place = Place::Below);
    InputEdit* addInput(const char* name, const RowTexts& texts, const QString& start);
    OutputEdit* addOutput(const char* name, const RowTexts& texts);
    QComboBox* addChoice(const char* name, const QString& label, const QStringList& entries,
                         const QString& hint);
    /// A field of any other kind; what its changes do is the tool's to connect.
    void addField(QWidget* field, const RowTexts& texts);
    /// A pair of inputs or outputs in one line, as the parts of a complex number.
    template <typename Edit>
    struct Pair {
        Edit* first;
        Edit* second;
    };
    Pair<InputEdit> addInputPair(const char* name, const QString& label, const QString& hint);
    Pair<OutputEdit> addOutputPair(const char* name, const QString& label);
    /// Lets the field of the last row take the place of its unit and all width that is left.
    void widenLast();
    /// Any widget below the rows, over the whole width of the group.
    void addWide(QWidget* widget);
    /// A button left of Copy.
    void addButton(QWidget* button);
    /// Any other widget that takes the rest of the window, in a column of its own.
    void addColumn(QWidget* widget);
    /// Recalculates after a change of a widget that is no row.
    void changed();

    // What recalculate() uses.
    static double number(const InputEdit* edit);
    static bool isEmpty(const InputEdit* edit);
    static void write(OutputEdit* edit, double value);
    static void writeFixed(OutputEdit* edit, int decimals, double value);
    /// Shows or hides a field with its label and unit.
    void setShown(QWidget* field, bool shown);
    /// Other texts for a row; an empty unit leaves the unit.
    void setTexts(QWidget* field, const QString& label, const QString& unit = {});
    /// The line below the groups: what is wrong or doubtful.
    void setNote(const QString& text);
    /// The small print: formulas and their range.
    void setSource(const QString& text);

    /// Reads the inputs and writes the outputs.
    virtual void recalculate() = 0;
    /// To be called once at the end of a tool's constructor.
    void finish();

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// The field takes the design's fo until it is edited.
    void setFrequencyField(InputEdit* edit) { frequency_ = edit; }
    /// Whether the cursor keys step a field's value.
    virtual bool stepsValues() const { return true; }

  private:
    template <typename Edit>
    Pair<Edit> addPair(const char* name, const QString& label);
    InputEdit* makeInput(const QString& name);
    OutputEdit* makeOutput(const QString& name);
    const FormRow* rowOf(const QWidget* field) const;
    void step(InputEdit* edit, int direction);
    void takeFrequency();
    void colourNote();
    void copyResult();

    std::vector<FormRow> rows_;
    QHBoxLayout* columns_;
    QVBoxLayout* column_ = nullptr;
    QGridLayout* grid_ = nullptr;
    QHBoxLayout* buttons_;
    QLabel* note_ = nullptr;
    QLabel* source_;
    DesignHost* host_ = nullptr;
    InputEdit* frequency_ = nullptr;
    bool frequencyTyped_ = false;
    bool busy_ = true;  ///< the window itself is writing several inputs
};

}  // namespace kelvro
