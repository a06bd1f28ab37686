#pragma once

#include <limits>

#include "analysis/tools/coil_quality.h"
#include "ui/tools/tool_window.h"

namespace kelvro {

/// "Coils": solenoids, flat spirals and toroids, from turns to inductance and back.
class TFormCoils : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormCoils(QWidget* parent = nullptr);

  protected:
    void recalculate() override;

  private:
    /// What every kind of coil tells the outputs.
    struct Outcome {
        double turns = 0;
        double inductance = 0;
        double atWholeTurns = 0;
        double length = 0;  ///< of a solenoid's winding, or a spiral's outside diameter
        double pitch = 0;
        double wire = 0;
        double factor = 0;  ///< A_L of a toroid
        QString note;
        double resistance = std::numeric_limits<double>::quiet_NaN();   ///< at fo
        double capacitance = std::numeric_limits<double>::quiet_NaN();  ///< of its own
    };

    void addInputs();
    void addOutputs();
    void showRows();
    void showQuality(const Outcome& outcome);
    Outcome solenoid() const;
    Outcome spiral() const;
    Outcome toroid() const;
    template <typename Coil>
    Outcome solve(Coil coil) const;
    bool wantsTurns() const;

    QComboBox* kind_;
    QComboBox* direction_;
    InputEdit* turns_;
    InputEdit* inductance_;
    InputEdit* f_;
    InputEdit* diameter_;
    InputEdit* wire_;
    QComboBox* keeps_;
    InputEdit* extent_;
    QComboBox* shape_;
    InputEdit* inner_;
    InputEdit* width_;
    InputEdit* gap_;
    QComboBox* core_;
    InputEdit* permeability_;
    InputEdit* coreOuter_;
    InputEdit* coreInner_;
    InputEdit* coreHeight_;
    InputEdit* factor_;
    OutputEdit* inductanceOut_;
    OutputEdit* turnsOut_;
    OutputEdit* wholeOut_;
    OutputEdit* reactanceOut_;
    OutputEdit* lengthOut_;
    OutputEdit* pitchOut_;
    OutputEdit* wireOut_;
    OutputEdit* factorOut_;
    OutputEdit* qualityOut_;
    OutputEdit* capacitanceOut_;
    OutputEdit* resonanceOut_;
};

}  // namespace kelvro
