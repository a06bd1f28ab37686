#pragma once

#include <vector>

#include "ui/tools/tool_window.h"

namespace kelvro {

/// "Decibel Calculations": one level in all units at any impedance, a ratio in decibels, nepers,
/// power and voltage, and several levels taken together.
class TFormDecibel : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormDecibel(QWidget* parent = nullptr);

  protected:
    void recalculate() override;

  private:
    void addLevels();
    void addRatio();
    void addSums();
    QString showLevels();
    QString showRatio();
    QString showSums();

    InputEdit* level_;
    QComboBox* levelUnit_;
    InputEdit* R_;
    std::vector<OutputEdit*> levels_;  ///< in the order of LevelUnits()
    InputEdit* ratio_;
    QComboBox* ratioUnit_;
    InputEdit* R1_;
    InputEdit* R2_;
    OutputEdit* ratioDb_;
    OutputEdit* ratioNp_;
    OutputEdit* ratioPower_;
    OutputEdit* ratioVoltage_;
    InputEdit* list_;
    OutputEdit* count_;
    OutputEdit* powers_;
    OutputEdit* voltages_;
    OutputEdit* chain_;
};

}  // namespace kelvro
