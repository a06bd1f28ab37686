#pragma once

#include "analysis/tools/line_parameters.h"
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
    void showLength(double permittivity, double f);

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
};

}  // namespace kelvro
