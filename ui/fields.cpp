#include "ui/fields.h"

#include <QAbstractScrollArea>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPalette>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "core/field_text.h"
#include "core/number_text.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr QColor kInputColour(255, 255, 208);
constexpr QColor kOutputColour(192, 192, 192);
constexpr QColor kPlaceholderColour(96, 96, 96);
constexpr QColor kDoubtColour(255, 200, 140);
constexpr QColor kStaleColour(112, 112, 112);

/// Field colours are fixed, so the text colours must be too: a dark desktop scheme would otherwise
/// write white on light yellow.
void SetFieldColours(QLineEdit& edit, QColor base) {
    QPalette palette = edit.palette();
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::PlaceholderText, kPlaceholderColour);
    edit.setPalette(palette);
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

/// Can anything around the widget be scrolled up or down?
bool StandsInScrollingArea(const QWidget& widget) {
    for (const QWidget* around = widget.parentWidget(); around; around = around->parentWidget()) {
        const auto* area = qobject_cast<const QAbstractScrollArea*>(around);
        if (!area) continue;
        const QScrollBar& bar = *area->verticalScrollBar();
        if (bar.minimum() < bar.maximum()) return true;
    }
    return false;
}

/// Numbers as near as their texts can tell.
bool Agree(double x, double y) {
    return x == y || std::fabs(x - y) <= 1e-9 * std::max(std::fabs(x), std::fabs(y));
}

/// "3.00 kΩ; "3" was not read".
QString ReadingText(const FieldReading& reading, double inUse, const QString& unit) {
    QString text = ToQString(FormatQuantity(2, inUse, unit.toStdString()));
    if (!reading.unread.empty())
        text += QObject::tr("; \"%1\" was not read").arg(ToQString(reading.unread));
    else if (!Agree(reading.value, inUse))
        text += QObject::tr(" is used instead");
    return text;
}

}  // namespace

std::string StepName(const InputField& field, int page) {
    std::string name(field.object.substr(0, field.object.find("Eingabe")));
    const std::string number = std::to_string(page);
    if (name.ends_with(number)) name.resize(name.size() - number.size());
    // The symbol that the label gives the quantity; where it gives none, as to the edges of a band,
    // the label itself. "Element Q" is there twice, once for each kind of part.
    const std::string label(field.label);
    if (label.find(name) != std::string::npos) return name;
    return field.unit == "L" || field.unit == "C" ? label + " (" + std::string(field.unit) + ")"
                                                  : label;
}

void SetHint(QWidget& widget, const QString& hint) {
    if (hint.isEmpty()) return;
    widget.setToolTip(hint);
    widget.setStatusTip(hint);
}

int FieldWidth(const QWidget& widget) {
    return widget.fontMetrics().horizontalAdvance(QStringLiteral("  -000.000m")) + 18;
}

NumberEdit::NumberEdit(const QString& objectName, QColor base, QWidget* parent)
    : QLineEdit(parent), base_(base) {
    setObjectName(objectName);
    setAlignment(Qt::AlignRight);
    setFixedWidth(FieldWidth(*this));
    SetFieldColours(*this, base);
    connect(this, &QLineEdit::cursorPositionChanged, this, &NumberEdit::keepOutOfPadding);
    connect(this, &QLineEdit::textEdited, this, &NumberEdit::typed);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!isModified()) settle();
    });
}

void NumberEdit::setUnit(const QString& unit) {
    unit_ = unit;
}

double NumberEdit::value() const {
    return ReadField(text().toStdString(), unit_.value_or(QString()).toStdString()).value;
}

void NumberEdit::showInUse(double inUse) {
    if (!unit_) return;
    const FieldReading reading = ReadField(text().toStdString(), unit_->toStdString());
    if (reading.asMeant && Agree(reading.value, inUse)) return settle();
    doubt_ = ReadingText(reading, inUse, *unit_);
    SetFieldColours(*this, kDoubtColour);
    if (hasFocus() && isVisible())
        QToolTip::showText(mapToGlobal(rect().bottomLeft()), doubt_, this, rect());
}

void NumberEdit::settle() {
    if (doubt_.isEmpty()) return;
    doubt_.clear();
    SetFieldColours(*this, base_);
    QToolTip::hideText();
}

void NumberEdit::setBase(QColor base) {
    base_ = base;
    if (!doubtful()) SetFieldColours(*this, base);
}

void NumberEdit::typed() {
    typed_ = true;
    if (text().trimmed().isEmpty()) return settle();  // a choice of its own in many fields
    showInUse(value());
}

void NumberEdit::keepOutOfPadding() {
    if (hasSelectedText()) return;
    const auto isBlank = [](QChar c) { return c == ' '; };
    const QString shown = text();
    const auto number = std::find_if_not(shown.begin(), shown.end(), isBlank) - shown.begin();
    if (number < shown.size() && cursorPosition() < number)
        setCursorPosition(static_cast<int>(number));
}

bool NumberEdit::event(QEvent* event) {
    if (LeavesToMenu(*event)) return true;
    if (event->type() == QEvent::ToolTip && doubtful()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), doubt_, this);
        return true;
    }
    return QLineEdit::event(event);
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
    typed_ = false;
    firstClick_ = focusedByClick_ = reason == Qt::MouseFocusReason;
    if (!firstClick_) selectAll();
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
    if (typed_) emit left();
    typed_ = false;
}

void NumberEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (firstClick_ && !hasSelectedText()) selectAll();
    firstClick_ = false;
}

void NumberEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    selectAll();  // not the fragment of the number that a point separates
    event->accept();
}

InputEdit::InputEdit(const QString& objectName, QWidget* parent)
    : NumberEdit(objectName, kInputColour, parent) {}

void InputEdit::setLocked(bool locked) {
    if (locked == isReadOnly()) return;
    setReadOnly(locked);
    setBase(locked ? kOutputColour : kInputColour);
}

void InputEdit::keyPressEvent(QKeyEvent* event) {
    const bool up = event->key() == Qt::Key_Up;
    if (isReadOnly()) return QLineEdit::keyPressEvent(event);
    if ((up || event->key() == Qt::Key_Down) && event->modifiers() == Qt::NoModifier) {
        emit stepped(up ? 1 : -1);
        return event->accept();
    }
    QLineEdit::keyPressEvent(event);
}

void InputEdit::wheelEvent(QWheelEvent* event) {
    const int turn = event->angleDelta().y();
    if (isReadOnly() || !hasFocus() || !focusedByClick() || turn == 0 ||
        StandsInScrollingArea(*this))
        return event->ignore();
    emit stepped(turn > 0 ? 1 : -1);
    event->accept();
}

OutputEdit::OutputEdit(const QString& objectName, bool editable, QWidget* parent)
    : NumberEdit(objectName, editable ? kInputColour : kOutputColour, parent) {
    setReadOnly(!editable);
}

void OutputEdit::setStale(bool stale) {
    QPalette colours = palette();
    colours.setColor(QPalette::Text, stale ? kStaleColour : QColor(Qt::black));
    setPalette(colours);
}

/// The usual menu of an edit, for the whole text where nothing is selected, and what else the field
/// offers.
void OutputEdit::contextMenuEvent(QContextMenuEvent* event) {
    if (!hasSelectedText()) selectAll();
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("OutputMenu"));
    if (!actions().isEmpty()) menu->addSeparator();
    menu->addActions(actions());
    menu->popup(event->globalPos());
}

void OutputEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    emit doubleClicked();
    event->accept();
}

void BoundInput::read(Design& state, const Limits& limits) const {
    InputField field = *field_;
    field.limits = limits;
    field.write(state, edit_->value());
}

void BoundInput::write(const Design& state, const TextFormat& format) const {
    const QSignalBlocker blocker(edit_);
    edit_->setText(QString::fromStdString(format.text(field_->read(state))));
    edit_->setCursorPosition(0);
    edit_->end(false);
    edit_->settle();
}

void BoundInput::writeInUse(const Design& state) const {
    constexpr int mostDecimals = 9;
    const double value = field_->read(state);
    const std::string unit(field_->unit);
    TextFormat format = field_->format;
    const auto loses = [&] { return !Agree(ReadField(format.text(value), unit).value, value); };
    while (format.decimals < mostDecimals && loses()) ++format.decimals;
    write(state, loses() ? field_->format : format);
}

void BoundInput::refresh(const Design& state, const Limits& limits) const {
    const double shown = Clamp(edit_->value(), limits.low, limits.high);
    const auto text = [&](double value) { return field_->format.text(value); };
    if (edit_->text().isEmpty() || text(shown) != text(field_->read(state))) write(state);
}

}  // namespace kelvro
