#include "ui/tools/tool_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/rounding.h"
#include "ui/fields.h"
#include "ui/plot/design_host.h"
#include "ui/texts.h"
#include "ui/window_place.h"

namespace kelvro {

namespace {

constexpr int kDecimals = 3;
constexpr double kUsualSweepFactor = 1.05;
constexpr QColor kNoteColour(192, 48, 16);
constexpr QColor kNoteColourOnDark(255, 140, 110);

/// The texts for what is no finite number, as on the pages.
QString TextOf(double value, const std::string& finite) {
    if (std::isnan(value)) return QStringLiteral("-");
    if (std::isinf(value)) return ShownValue(value > 0 ? "infinite" : "-infinite");
    return ToQString(finite);
}

/// What a field shows; of several edits side by side one after the other.
QString ShownText(const QWidget* field) {
    if (const auto* box = qobject_cast<const QComboBox*>(field)) return box->currentText();
    if (const auto* edit = qobject_cast<const QLineEdit*>(field)) return edit->text().trimmed();
    QStringList texts;
    for (const auto* edit : field->findChildren<const QLineEdit*>())
        texts << edit->text().trimmed();
    return texts.join(QStringLiteral("; "));
}

}  // namespace

QString EngineeringText(double value) {
    std::string text = FormatEng(0, kDecimals, value);
    if (text.ends_with('0')) text.pop_back();
    return TextOf(value, text).trimmed();  // short exponents end in a space
}

ToolWindow::ToolWindow(const char* className, const QString& title, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QLatin1String(className));
    setWindowTitle(title);
    columns_ = new QHBoxLayout;
    note_ = new QLabel;
    note_->setObjectName(QStringLiteral("Note"));
    source_ = new QLabel;
    source_->setObjectName(QStringLiteral("Source"));
    for (QLabel* text : {note_, source_}) {
        text->setWordWrap(true);
        text->setTextFormat(Qt::PlainText);
    }
    colourNote();
    note_->setMinimumHeight(note_->fontMetrics().lineSpacing());
    QFont small = source_->font();
    small.setPointSizeF(0.9 * small.pointSizeF());
    source_->setFont(small);
    auto* copy = new QPushButton(tr("Cop&y"));
    copy->setObjectName(QStringLiteral("ButtonCopy"));
    SetHint(*copy, tr("Copy all values to the clipboard"));
    auto* close = new QPushButton(tr("Close"));
    close->setObjectName(QStringLiteral("ButtonClose"));
    SetHint(*close, tr("Close the window; what stands in it stays"));
    connect(copy, &QPushButton::clicked, this, &ToolWindow::copyResult);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    buttons_ = new QHBoxLayout;
    buttons_->addStretch(1);
    for (QPushButton* button : {copy, close}) {
        button->setAutoDefault(false);  // Enter belongs to the fields
        buttons_->addWidget(button);
    }
    auto* all = new QVBoxLayout(this);
    all->addLayout(columns_, 1);
    all->addWidget(note_);
    all->addWidget(source_);
    all->addLayout(buttons_);
}

// ---------------------------------------------------------------- building

void ToolWindow::beginGroup(const QString& title, Place place) {
    if (!column_ || place == Place::NewColumn) {
        column_ = new QVBoxLayout;
        columns_->addLayout(column_);
    } else {
        delete column_->takeAt(column_->count() - 1);  // the stretch below the last group
    }
    auto* box = new QGroupBox(title);
    grid_ = new QGridLayout(box);
    grid_->setColumnStretch(2, 1);
    column_->addWidget(box);
    column_->addStretch(1);
}

void ToolWindow::addField(QWidget* field, const RowTexts& texts) {
    rows_.push_back(AddRow(*grid_, {grid_->rowCount()}, field, texts));
}

InputEdit* ToolWindow::makeInput(const QString& name) {
    auto* edit = new InputEdit(name);
    connect(edit, &QLineEdit::textChanged, this, &ToolWindow::changed);
    connect(edit, &InputEdit::stepped, this, [=, this](int direction) { step(edit, direction); });
    return edit;
}

OutputEdit* ToolWindow::makeOutput(const QString& name) {
    auto* edit = new OutputEdit(name, false);
    SetHint(*edit, tr("A double-click copies this value"));
    connect(edit, &OutputEdit::doubleClicked, this,
            [edit] { QApplication::clipboard()->setText(edit->text()); });
    return edit;
}

InputEdit* ToolWindow::addInput(const char* name, const RowTexts& texts, const QString& start) {
    InputEdit* edit = makeInput(QLatin1String(name));
    edit->setText(start);
    if (!texts.unit.isEmpty())
        edit->setUnit(texts.unit == tr("ohm") ? QStringLiteral("Ω") : texts.unit);
    addField(edit, texts);
    return edit;
}

OutputEdit* ToolWindow::addOutput(const char* name, const RowTexts& texts) {
    OutputEdit* edit = makeOutput(QLatin1String(name));
    addField(edit, texts);
    return edit;
}

QComboBox* ToolWindow::addChoice(const char* name, const QString& label, const QStringList& entries,
                                 const QString& hint) {
    auto* box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->addItems(entries);
    connect(box, &QComboBox::currentIndexChanged, this, &ToolWindow::changed);
    addField(box, {label, {}, hint});
    widenLast();
    return box;
}

template <typename Edit>
ToolWindow::Pair<Edit> ToolWindow::addPair(const char* name, const QString& label) {
    const auto make = [&](const char* suffix) {
        const QString full = QLatin1String(name) + QLatin1String(suffix);
        if constexpr (std::is_same_v<Edit, InputEdit>) {
            return makeInput(full + "Eingabe");
        } else {
            return makeOutput(full + "Ausgabe");
        }
    };
    const Pair<Edit> pair{make("a"), make("b")};
    auto* both = new QWidget;
    auto* line = new QHBoxLayout(both);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(pair.first);
    line->addWidget(pair.second);
    line->addStretch(1);
    addField(both, {label, {}, {}});
    widenLast();
    return pair;
}

ToolWindow::Pair<InputEdit> ToolWindow::addInputPair(const char* name, const QString& label,
                                                     const QString& hint) {
    const Pair<InputEdit> pair = addPair<InputEdit>(name, label);
    SetHint(*pair.first, hint);
    SetHint(*pair.second, hint);
    return pair;
}

ToolWindow::Pair<OutputEdit> ToolWindow::addOutputPair(const char* name, const QString& label) {
    return addPair<OutputEdit>(name, label);
}

void ToolWindow::widenLast() {
    QWidget* field = rows_.back().field;
    field->setMaximumWidth(QWIDGETSIZE_MAX);
    grid_->addWidget(field, grid_->rowCount() - 1, 1, 1, 2);
}

void ToolWindow::addWide(QWidget* widget) {
    grid_->addWidget(widget, grid_->rowCount(), 0, 1, 3);
    // Such widgets grow with the window; the group takes what the end of the column had.
    const int end = column_->count() - 1;
    column_->setStretch(end - 1, 1);
    column_->setStretch(end, 0);
}

void ToolWindow::addButton(QWidget* button) {
    buttons_->insertWidget(0, button);
}

void ToolWindow::addColumn(QWidget* widget) {
    columns_->addWidget(widget, 1);
}

void ToolWindow::finish() {
    busy_ = false;
    recalculate();
}

// ---------------------------------------------------------------- values

double ToolWindow::number(const InputEdit* edit) {
    return edit->value();
}

bool ToolWindow::isEmpty(const InputEdit* edit) {
    return edit->text().trimmed().isEmpty();
}

void ToolWindow::write(OutputEdit* edit, double value) {
    edit->setText(EngineeringText(value));
}

void ToolWindow::writeFixed(OutputEdit* edit, int decimals, double value) {
    edit->setText(TextOf(value, FormatFixed(0, decimals, value)));
}

const FormRow* ToolWindow::rowOf(const QWidget* field) const {
    const auto row = std::ranges::find(rows_, field, &FormRow::field);
    return row == rows_.end() ? nullptr : &*row;
}

void ToolWindow::setShown(QWidget* field, bool shown) {
    const FormRow* row = rowOf(field);
    row->label->setVisible(shown);
    row->field->setVisible(shown);
    row->unit->setVisible(shown);
}

void ToolWindow::setTexts(QWidget* field, const QString& label, const QString& unit) {
    const FormRow* row = rowOf(field);
    row->label->setText(label);
    if (!unit.isEmpty()) row->unit->setText(unit);
}

void ToolWindow::setNote(const QString& text) {
    note_->setText(text);
}

void ToolWindow::setSource(const QString& text) {
    source_->setText(text);
}

// ---------------------------------------------------------------- behaviour

void ToolWindow::changed() {
    if (busy_) return;
    if (sender() && sender() == frequency_) frequencyTyped_ = true;
    recalculate();
}

void ToolWindow::step(InputEdit* edit, int direction) {
    if (!stepsValues() || isEmpty(edit)) return;
    const double factor = host_ ? host_->preferences().SweepFactor : kUsualSweepFactor;
    const double value = number(edit);
    edit->setText(ToQString(FormatEngShort(kDecimals, SpinStep(value, direction, factor))));
}

void ToolWindow::followDesign(DesignHost& host) {
    host_ = &host;
    connect(&host, &DesignHost::designChanged, this, &ToolWindow::takeFrequency);
    takeFrequency();
}

void ToolWindow::takeFrequency() {
    if (!frequency_ || frequencyTyped_) return;
    const double fo = host_->design().fo;
    if (number(frequency_) == fo) return;
    frequency_->setText(ToQString(FormatEngShort(kDecimals, fo)));
    frequencyTyped_ = false;
}

QString ToolWindow::resultText() const {
    QString text;
    for (const FormRow& row : rows_) {
        if (row.field->isHidden()) continue;
        QStringList line{ShownText(row.field), row.unit->text()};
        text += row.label->text().remove('&') + '\t' + line.join(' ').trimmed() + '\n';
    }
    return text;
}

void ToolWindow::copyResult() {
    QApplication::clipboard()->setText(resultText());
}

void ToolWindow::colourNote() {
    QPalette colours = note_->palette();
    const bool dark = palette().color(QPalette::Window).lightnessF() < 0.5;
    colours.setColor(QPalette::WindowText, dark ? kNoteColourOnDark : kNoteColour);
    note_->setPalette(colours);
}

void ToolWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && note_) colourNote();
}

void ToolWindow::showEvent(QShowEvent* event) {
    RestorePlace(*this);
    QDialog::showEvent(event);
}

void ToolWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) SavePlace(*this);
    QDialog::hideEvent(event);
}

}  // namespace kelvro
