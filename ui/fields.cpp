#include "ui/fields.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPalette>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

#include "core/number_text.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr QColor kInputColour(255, 255, 208);
constexpr QColor kOutputColour(192, 192, 192);
constexpr QColor kPlaceholderColour(96, 96, 96);

/// Field colours are fixed, so the text colours must be too: a dark desktop scheme would otherwise
/// write white on light yellow.
void SetFieldColours(QLineEdit& edit, QColor base) {
    QPalette palette = edit.palette();
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::PlaceholderText, kPlaceholderColour);
    edit.setPalette(palette);
}

void SetUpField(QLineEdit& edit, const QString& objectName, QColor base) {
    edit.setObjectName(objectName);
    edit.setAlignment(Qt::AlignRight);
    edit.setFixedWidth(FieldWidth(edit));
    SetFieldColours(edit, base);
}

/// The keys of Undo and Redo belong to the window's menu, which comes back to the edit first. Edits
/// of windows without such a menu get them all the same.
bool LeavesToMenu(QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride) return false;
    auto& key = static_cast<QKeyEvent&>(event);
    if (!key.matches(QKeySequence::Undo) && !key.matches(QKeySequence::Redo)) return false;
    event.ignore();
    return true;
}

double ParsedText(const QLineEdit& edit) {
    return ParseValue(edit.text().toStdString());
}

}  // namespace

std::string StepName(const InputField& field, int page) {
    std::string name(field.object.substr(0, field.object.find("Eingabe")));
    const std::string number = std::to_string(page);
    if (name.ends_with(number)) name.resize(name.size() - number.size());
    return name;
}

void SetHint(QWidget& widget, const QString& hint) {
    if (hint.isEmpty()) return;
    widget.setToolTip(hint);
    widget.setStatusTip(hint);
}

int FieldWidth(const QWidget& widget) {
    return widget.fontMetrics().horizontalAdvance(QStringLiteral("  -000.000m")) + 18;
}

InputEdit::InputEdit(const QString& objectName, QWidget* parent) : QLineEdit(parent) {
    SetUpField(*this, objectName, kInputColour);
}

bool InputEdit::event(QEvent* event) {
    return LeavesToMenu(*event) || QLineEdit::event(event);
}

void InputEdit::keyPressEvent(QKeyEvent* event) {
    const bool up = event->key() == Qt::Key_Up;
    if ((up || event->key() == Qt::Key_Down) && event->modifiers() == Qt::NoModifier) {
        emit stepped(up ? 1 : -1);
        return event->accept();
    }
    QLineEdit::keyPressEvent(event);
}

void InputEdit::wheelEvent(QWheelEvent* event) {
    const int turn = event->angleDelta().y();
    if (!hasFocus() || turn == 0) return event->ignore();
    emit stepped(turn > 0 ? 1 : -1);
    event->accept();
}

OutputEdit::OutputEdit(const QString& objectName, bool editable, QWidget* parent)
    : QLineEdit(parent) {
    SetUpField(*this, objectName, editable ? kInputColour : kOutputColour);
    setReadOnly(!editable);
    // Read-only fields are left out of the tab order; a click still lets their text be copied.
    if (!editable) setFocusPolicy(Qt::ClickFocus);
}

bool OutputEdit::event(QEvent* event) {
    return LeavesToMenu(*event) || QLineEdit::event(event);
}

void OutputEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    emit doubleClicked();
    event->accept();
}

void BoundInput::read(Design& state, const Limits& limits) const {
    InputField field = *field_;
    field.limits = limits;
    field.write(state, ParsedText(*edit_));
}

void BoundInput::write(const Design& state, const TextFormat& format) const {
    const QSignalBlocker blocker(edit_);
    edit_->setText(QString::fromStdString(format.text(field_->read(state))));
    edit_->setCursorPosition(0);
    edit_->end(false);
}

void BoundInput::refresh(const Design& state, const Limits& limits) const {
    const double shown = Clamp(ParsedText(*edit_), limits.low, limits.high);
    const auto text = [&](double value) { return field_->format.text(value); };
    if (edit_->text().isEmpty() || text(shown) != text(field_->read(state))) write(state);
}

}  // namespace kelvro
