#pragma once

#include "ui/tools/calculator_engine.h"
#include "ui/tools/tool_window.h"

class QListWidget;

namespace kelvro {

/// "Calculator": an expression and its value while it is typed. Enter keeps a line in the list,
/// from which the cursor keys or a double-click bring it back.
class TFormCalculator : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormCalculator(QWidget* parent = nullptr);

    /// The kept lines with the present one.
    QString resultText() const override;

  protected:
    void recalculate() override;
    bool stepsValues() const override { return false; }
    void showEvent(QShowEvent* event) override;

  private:
    void keepLine();
    void recall(int direction);
    void takeBack(int line);

    CalculatorEngine engine_;
    InputEdit* expression_;
    OutputEdit* result_;
    OutputEdit* digits_;
    QListWidget* lines_;
    double value_ = 0;
    bool valid_ = false;
};

}  // namespace kelvro
