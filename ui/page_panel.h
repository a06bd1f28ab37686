#pragma once

#include <QColor>
#include <QHash>
#include <QWidget>
#include <vector>

#include "design/cycle.h"
#include "design/page.h"
#include "design/part_ref.h"
#include "ui/design_session.h"
#include "ui/fields.h"

class QAbstractButton;
class QCheckBox;
class QLabel;
class QScrollBar;
class QTableWidget;

namespace kelvro {

class CircuitView;
class FieldGrid;
class StageView;

/// One design page of the notebook, built from its record: notes, inputs, switches, actions,
/// outputs, element table, circuit picture and transfer function.
class PagePanel : public QWidget {
    Q_OBJECT

  public:
    PagePanel(const Page& page, DesignSession& session, QWidget* parent = nullptr);

    const Page& page() const { return page_; }
    /// Shows a calculation of this page.
    void showResult(const CycleResult& result);
    /// Text of an output field or note; false when it is none of this page's.
    bool setText(const QString& object, const QString& text);
    /// Rewrites all inputs from the state.
    void writeInputs();
    /// Follows the state where the page shows something else: inputs, switches, swap box, captions,
    /// visible fields, picture.
    void refresh();

  signals:
    void openAsNetworkClicked();
    void findBetterClicked();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    struct FieldRow {
        const OutputField* field;
        QLabel* label;
        OutputEdit* edit;
        QLabel* unit;

        PartRef part(const Page& page) const { return {&page, field->slot, field}; }
    };
    struct SwitchRow {
        const SwitchField* field;
        QCheckBox* box;
        QScrollBar* weight;
    };

    QWidget* buildFields();
    QLabel* makeNote(const NoteField& note);
    QLayout* buildNotes();
    void addChangingNotes(FieldGrid& grid);
    void addInputs(FieldGrid& grid);
    void addSwitches(FieldGrid& grid);
    void addSwapBox(FieldGrid& grid);
    void addHarmonics(FieldGrid& grid);
    /// The picture with the waves of the stage.
    QWidget* withWaves(QWidget* picture);
    void addActions(FieldGrid& grid);
    void addOutputs(FieldGrid& grid, int column);
    QWidget* buildTable();
    QWidget* buildPicture();
    QLabel* buildTransferText();

    void EingabeChange(const BoundInput& input);
    void SpinButtonClick(const BoundInput& input, int direction);
    void AusgabeChange(const FieldRow& row);
    void AusgabeDblClick(const FieldRow& row);
    void runAction(const ActionField& action);
    void CheckBoxClick(bool checked);
    void goToField(const QString& part);
    void showCaptions();
    void showFormula();
    void showPicture();
    void blank(Network& network) const;
    void showTable(const std::vector<TableRow>& rows);
    /// Components as the design says that they are shown.
    void showParts();
    void roundRowToSeries(int row);
    /// The component in a row of the table; nothing for an input or no row.
    std::optional<PartRef> partOfRow(int row) const;

    const Page& page_;
    DesignSession& session_;
    std::vector<BoundInput> inputs_;
    std::vector<FieldRow> rows_;
    std::vector<SwitchRow> switches_;
    QHash<QString, OutputEdit*> outputs_;
    QHash<QString, QLabel*> notes_;
    QHash<QString, FieldCaption> captions_;  ///< captions that the page's design has changed
    bool refused_ = false;                   ///< the last calculation had no design to show
    QCheckBox* swapBox_ = nullptr;
    QTableWidget* table_ = nullptr;
    StageView* stage_ = nullptr;
    std::vector<TableRow> tableRows_;  ///< as last calculated
    CircuitView* picture_ = nullptr;
    QLabel* formula_ = nullptr;
};

/// A printed formula "V(s) = a / (b)" as markup with subscripts and a fraction bar
/// in the given colour.
QString FormulaMarkup(const QString& formula, const QColor& barColour = Qt::black);

}  // namespace kelvro
