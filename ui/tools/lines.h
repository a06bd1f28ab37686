#pragma once

#include "analysis/tools/line_losses.h"
#include "ui/tools/tool_window.h"

namespace kelvro {

/// "Transmission Line Parameters": impedance and length of a line from its dimensions, and back.
class TFormLines : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormLines(QWidget* parent = nullptr);

  protected:
    void recalculate() override;

  private:
    void addInputs();
    void addOutputs();
    const LineDescription& description() const;
    bool wantsWidth() const;
    void showRows();
    LineShape shape() const;
    void exchangeDimensions();
    /// Answers with the length.
    double showLength(double permittivity, double f);
    void showLosses(const LineShape& line, double f, double length);
    QString noteOn(const LineShape& line, double impedance, double f) const;

    /// The dimensions and the dielectric, which every type of line keeps for itself.
    std::vector<InputEdit*> ownFields() const;
    LineMaterials materials() const;

    std::vector<QStringList> ownTexts_;  ///< by type
    int shownType_;
    QComboBox* type_;
    QComboBox* direction_;
    InputEdit* impedance_;
    InputEdit* angle_;
    InputEdit* f_;
    InputEdit* permittivity_;
    InputEdit* width_;
    InputEdit* height_;
    InputEdit* gap_;
    InputEdit* thickness_;
    InputEdit* length_;
    InputEdit* lossTangent_;
    InputEdit* conductivity_;
    InputEdit* roughness_;
    OutputEdit* impedanceOut_;
    OutputEdit* widthOut_;
    OutputEdit* lengthOut_;
    OutputEdit* angleOut_;
    OutputEdit* effective_;
    OutputEdit* dispersed_;
    OutputEdit* velocity_;
    OutputEdit* wavelength_;
    OutputEdit* delay_;
    OutputEdit* inductance_;
    OutputEdit* capacitance_;
    OutputEdit* limit_;
    OutputEdit* conductorLoss_;
    OutputEdit* dielectricLoss_;
    OutputEdit* lengthLoss_;
    OutputEdit* quality_;
};

}  // namespace kelvro
