#pragma once

#include "analysis/tools/lc_filter.h"
#include "ui/tools/tool_window.h"

class QSpinBox;
class QTableWidget;

namespace kelvro {

class PlotImage;

/// "LC Filters": Butterworth and Chebyshev ladders for low-pass, high-pass, band-pass and
/// band-stop, with their elements and their response, losses included.
class TFormFilters : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormFilters(QWidget* parent = nullptr);

    /// The rows and the list of elements.
    QString resultText() const override;

  protected:
    void recalculate() override;

  private:
    void addInputs();
    void addOutputs();
    QWidget* makePlotColumn();
    FilterWishes wishes() const;
    FilterLosses losses() const;
    void showRows();
    void showEdges(const FilterWishes& wishes);
    void showElements(const Filter& filter);

    QComboBox* band_;
    QComboBox* shape_;
    QSpinBox* order_;
    InputEdit* ripple_;
    InputEdit* f_;
    InputEdit* bandwidth_;
    InputEdit* source_;
    QComboBox* first_;
    InputEdit* QL_;
    InputEdit* QC_;
    InputEdit* at_;
    InputEdit* wanted_;
    OutputEdit* load_;
    OutputEdit* lower_;
    OutputEdit* upper_;
    OutputEdit* lowerHalf_;
    OutputEdit* upperHalf_;
    OutputEdit* attenuation_;
    OutputEdit* reflection_;
    OutputEdit* leastOrder_;
    QComboBox* depth_;
    PlotImage* plot_;
    QTableWidget* elements_;
};

}  // namespace kelvro
