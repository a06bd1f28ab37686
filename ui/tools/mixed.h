#pragma once

#include "analysis/tools/immittance.h"
#include "ui/tools/tool_window.h"

namespace kelvro {

/// "Mixed Series/Parallel Circuits": R, L and C in one of the usual connections, as the series and
/// the parallel circuit of equal impedance at fo.
class TFormMixed : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormMixed(QWidget* parent = nullptr);

  protected:
    void recalculate() override;

  private:
    /// Outputs of one equivalent form.
    struct Form {
        OutputEdit* resistance;
        OutputEdit* reactance;
        OutputEdit* element;
    };
    Form addForm(const QString& title, const char* suffix);
    void showForm(const Form& form, const char* suffix, const Equivalent& equivalent);
    void clearOutputs();

    QComboBox* connection_;
    InputEdit* R_;
    InputEdit* L_;
    InputEdit* C_;
    InputEdit* f_;
    Form series_;
    Form parallel_;
    OutputEdit* Q_;
    OutputEdit* magnitude_;
    OutputEdit* phase_;
};

}  // namespace kelvro
