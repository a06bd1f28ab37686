#pragma once

#include <QColor>
#include <QLineEdit>
#include <QString>
#include <optional>
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

/// An edit of a value. The first click or Tab selects all, the second click places the caret, which
/// never stands among the blanks that pad the text. An edit with a unit says how it reads what is
/// typed: while text and value differ it is tinted, and its hint tells the value in use.
class NumberEdit : public QLineEdit {
    Q_OBJECT

  public:
    NumberEdit(const QString& objectName, QColor base, QWidget* parent);

    /// The edit holds a number of this unit, which may be typed with it.
    void setUnit(const QString& unit);
    /// What stands in the edit, as read; SI unit.
    double value() const;
    /// After typing: the value that is in use instead of the typed one, where limits or the page
    /// make another of it.
    void showInUse(double inUse);
    /// The text is the program's: no doubt about it.
    void settle();
    /// Are text and value known to differ?
    bool doubtful() const { return !doubt_.isEmpty(); }

  signals:
    /// The focus goes elsewhere and the user has typed.
    void left();

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    bool focusedByClick() const { return focusedByClick_; }
    /// The colour of the field where nothing is in doubt.
    void setBase(QColor base);

  private:
    void keepOutOfPadding();
    void typed();

    QColor base_;
    std::optional<QString> unit_;
    QString doubt_;  ///< how the text was read, while that differs from what it says
    bool typed_ = false;
    bool firstClick_ = false;  ///< the pressed button has brought the focus
    bool focusedByClick_ = false;
};

/// An input: light yellow in every desktop scheme. Cursor keys ask for a step, and so does the
/// wheel while the edit has the focus by a click and nothing around it scrolls.
class InputEdit : public NumberEdit {
    Q_OBJECT

  public:
    explicit InputEdit(const QString& objectName, QWidget* parent = nullptr);

    /// Locked, it looks and acts like an output.
    void setLocked(bool locked);

  signals:
    void stepped(int direction);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

/// An output: silver and read-only, or in the input colour where the user may edit it.
class OutputEdit : public NumberEdit {
    Q_OBJECT

  public:
    OutputEdit(const QString& objectName, bool editable, QWidget* parent = nullptr);

    /// Greyed: the text is that of a design before the present one, which was refused.
    void setStale(bool stale);

  signals:
    void doubleClicked();

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
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
    /// Tells by tint and hint where the design uses another value than was typed.
    void judge(const Design& state) const { edit_->showInUse(field_->read(state)); }
    /// Writes what is in use, with as many decimals as it has, for the user has left the field.
    void writeInUse(const Design& state) const;

  private:
    const InputField* field_;
    InputEdit* edit_;
};

}  // namespace kelvro
