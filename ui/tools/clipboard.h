#pragma once

#include "analysis/tools/number_list.h"
#include "ui/tools/tool_window.h"

class QCheckBox;
class QPlainTextEdit;
class QTableWidget;

namespace kelvro {

/// "Clipboard": the clipboard's text with the numbers in it and what is usually wanted of them.
/// Follows the clipboard unless the text is kept; the text may be edited.
class TFormClipboard : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormClipboard(QWidget* parent = nullptr);

  protected:
    void recalculate() override;

  private:
    void takeClipboard();
    void showNumbers(const std::vector<FoundNumber>& found, const QByteArray& text);
    void copyNumbers();

    QPlainTextEdit* text_;
    QCheckBox* keep_;
    QTableWidget* numbers_;
    OutputEdit* count_;
    OutputEdit* sum_;
    OutputEdit* mean_;
    OutputEdit* least_;
    OutputEdit* largest_;
    OutputEdit* parallel_;
};

}  // namespace kelvro
