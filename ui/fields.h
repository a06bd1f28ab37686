#pragma once

#include <QLineEdit>
#include <QString>
#include <string>
#include <string_view>

#include "design/design.h"
#include "design/page.h"

class QLabel;

namespace kelvro {

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What Undo calls a change of the input: "R1", "k", "Vlow1"; the object's name without the number
/// of the page that it belongs to.
std::string StepName(const InputField& field, int page = 0);

/// Tool tip and status-panel hint of a widget in one; an empty text changes nothing.
void SetHint(QWidget& widget, const QString& hint);

/// Width in pixels of a field for the texts that FormatEng and FixedText write, in the widget's
/// font.
int FieldWidth(const QWidget& widget);

/// An input: light yellow in every desktop scheme. Cursor keys and the wheel of the focused edit
/// ask for a step.
class InputEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit InputEdit(const QString& objectName, QWidget* parent = nullptr);

  signals:
    void stepped(int direction);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

/// An output: silver and read-only, or in the input colour where the user may edit it.
class OutputEdit : public QLineEdit {
    Q_OBJECT

  public:
    OutputEdit(const QString& objectName, bool editable, QWidget* parent = nullptr);

  signals:
    void doubleClicked();

  protected:
    bool event(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

/// An edit bound to an input of the design state.
class BoundInput {
  public:
    BoundInput(const InputField& field, InputEdit& edit) : field_(&field), edit_(&edit) {}

    InputEdit& edit() const { return *edit_; }
    const InputField& field() const { return *field_; }

    /// Stores the edit's text in the state, clamped to the limits.
    void read(Design& state, const Limits& limits) const;
    void read(Design& state) const { read(state, field_->limits); }
    /// Writes the state's value in the field's format.
    void write(const Design& state) const { write(state, field_->format); }
    void write(const Design& state, const TextFormat& format) const;
    /// Writes only where the edit shows another value than the state holds; so a text that the
    /// user typed in a form of their own stays.
    void refresh(const Design& state, const Limits& limits) const;
    void refresh(const Design& state) const { refresh(state, field_->limits); }

  private:
    const InputField* field_;
    InputEdit* edit_;
};

}  // namespace kelvro
