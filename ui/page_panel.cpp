#include "ui/page_panel.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <algorithm>
#include <array>
#include <limits>

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/series.h"
#include "ui/circuit_view.h"
#include "ui/plot/value_spin.h"

namespace kelvro {

namespace {

/// A page with more rows than this puts its outputs beside its inputs.
constexpr int kRowsInOneColumn = 9;
/// Grid columns of a block of fields: caption, edit, unit, gap to the next block.
constexpr int kBlock = 4;

/// Least width of a circuit picture.
constexpr int kPictureWidth = 520;

/// A line has the same height with a spin button, a check box or a field alone, so that the two
/// columns of a page stay in step.
constexpr int kLineHeight = 26;

constexpr int kTableLine = 21;

/// "k5Eingabe" has the spin button "SpinButtonk5".
QString SpinName(QString edit) {
    return QStringLiteral("SpinButton") + edit.remove(QStringLiteral("Eingabe"));
}

QString SeriesText(const Preferences& preferences, double value) {
    return "  " + QString::fromStdString(SeriesNearest(preferences.ESeries, value));
}

}  // namespace

/// The grid of a page's fields with the next free row of its two columns.
class FieldGrid {
  public:
    explicit FieldGrid(QWidget* parent) : layout(new QGridLayout(parent)) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setHorizontalSpacing(6);
        layout->setVerticalSpacing(3);
    }

    /// Grid column in which the second column of fields starts.
    static constexpr int second = kBlock;

    int nextRow(int column) {
        int& row = next_[column == second ? 1 : 0];
        layout->setRowMinimumHeight(row, kLineHeight);
        return row++;
    }
    /// A row across both columns.
    int nextWholeRow() {
        const int row = std::max(next_[0], next_[1]);
        next_[0] = next_[1] = row;
        nextRow(second);
        return nextRow(0);
    }

    QGridLayout* const layout;

  private:
    std::array<int, 2> next_{};
};

PagePanel::PagePanel(const Page& page, DesignSession& session, QWidget* parent)
    : QWidget(parent), page_(page), session_(session) {
    setObjectName(QStringLiteral("Page%1").arg(page.number));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(12, 8, 12, 8);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(6);
    enum Row { kNotes, kFields, kTable, kFormula };
    grid->addLayout(buildNotes(), kNotes, 0, 1, 2);
    grid->addWidget(buildFields(), kFields, 0);
    QWidget* table = buildTable();
    if (table) grid->addWidget(table, kTable, 0);
    if (QWidget* picture = buildPicture()) grid->addWidget(picture, kFields, 1, table ? 2 : 1, 1);
    if (QLabel* formula = buildTransferText()) grid->addWidget(formula, kFormula, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(table ? kTable : kFields, 1);
    refresh();
}

QWidget* PagePanel::buildFields() {
    auto* fields = new QWidget;
    FieldGrid grid(fields);
    inputs_.reserve(page_.inputs.size());
    rows_.reserve(page_.outputs.size());
    addInputs(grid);
    addSwitches(grid);
    addActions(grid);
    const auto rows = page_.inputs.size() + page_.outputs.size() + page_.switches.size();
    const bool wide = rows > kRowsInOneColumn && !page_.inputs.empty();
    if (wide) grid.layout->setColumnMinimumWidth(FieldGrid::second - 1, 14);
    addOutputs(grid, wide ? FieldGrid::second : 0);
    addSwapBox(grid);
    addChangingNotes(grid);
    grid.layout->setRowStretch(grid.layout->rowCount(), 1);
    grid.layout->setColumnStretch(2 * kBlock, 1);
    return fields;
}

QLabel* PagePanel::makeNote(const NoteField& note) {
    auto* label = new QLabel(ToQString(note.text));
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(ToQString(note.object));
    SetHint(*label, ToQString(note.hint));
    QFont font = label->font();
    font.setItalic(true);
    label->setFont(font);
    if (!note.object.empty()) notes_.insert(label->objectName(), label);
    return label;
}

QLayout* PagePanel::buildNotes() {
    auto* row = new QHBoxLayout;
    row->setSpacing(24);
    for (const NoteField& note : page_.notes)
        if (note.object.empty()) row->addWidget(makeNote(note));
    row->addStretch();
    return row;
}

void PagePanel::addChangingNotes(FieldGrid& grid) {
    for (const NoteField& note : page_.notes) {
        if (note.object.empty()) continue;
        grid.layout->addWidget(makeNote(note), grid.nextWholeRow(), 0, 1, 2 * kBlock);
    }
}

void PagePanel::addInputs(FieldGrid& grid) {
    for (const InputField& field : page_.inputs) {
        auto* edit = new InputEdit(ToQString(field.object));
        auto* label = new QLabel(ToQString(field.label));
        label->setBuddy(edit);
        SetHint(*edit, ToQString(field.hint));
        SetHint(*label, ToQString(field.hint));
        const BoundInput input(field, *edit);
        inputs_.push_back(input);
        connect(edit, &QLineEdit::textEdited, this, [this, input] { EingabeChange(input); });
        connect(edit, &InputEdit::stepped, this,
                [this, input](int direction) { SpinButtonClick(input, direction); });
        auto* spin = new ValueSpin(SpinName(edit->objectName()));
        SetHint(*spin, tr("Increase or decrease %1").arg(ToQString(field.label)));
        connect(spin, &ValueSpin::clicked, this,
                [this, input](int direction) { SpinButtonClick(input, direction); });
        auto* pair = new QHBoxLayout;
        pair->setSpacing(0);
        pair->addWidget(edit);
        pair->addWidget(spin);
        const int row = grid.nextRow(0);
        grid.layout->addWidget(label, row, 0);
        grid.layout->addLayout(pair, row, 1);
        grid.layout->addWidget(new QLabel(ToQString(field.unit)), row, 2);
    }
}

void PagePanel::addSwitches(FieldGrid& grid) {
    for (const SwitchField& field : page_.switches) {
        auto* box = new QCheckBox(ToQString(field.caption));
        box->setObjectName(ToQString(field.object));
        SetHint(*box, ToQString(field.hint));
        connect(box, &QCheckBox::clicked, this, [this, &field](bool checked) {
            field.flag(session_.state()) = checked;
            session_.recalculate();
            refresh();
        });
        const int row = grid.nextRow(0);
        grid.layout->addWidget(box, row, 0);
        QScrollBar* weight = nullptr;
        if (field.weight) {
            weight = new QScrollBar(Qt::Horizontal);
            weight->setObjectName(ToQString(field.weightObject));
            weight->setRange(0, 100);
            weight->setInvertedControls(false);  // the right key leads to the right
            weight->setFocusPolicy(Qt::TabFocus);
            SetHint(*weight, tr("Weight"));
            connect(weight, &QScrollBar::valueChanged, this, [this, &field](int position) {
                if (field.weight(session_.state()) == position) return;
                field.weight(session_.state()) = position;
                session_.recalculate();
            });
            grid.layout->addWidget(weight, row, 1);
        }
        switches_.push_back({&field, box, weight});
    }
}

void PagePanel::addSwapBox(FieldGrid& grid) {
    if (page_.swapBox.empty()) return;
    swapBox_ = new QCheckBox(tr("L <--> C"));
    swapBox_->setObjectName(ToQString(page_.swapBox));
    SetHint(*swapBox_, tr("Change inductance and capacitances and vice versa"));
    connect(swapBox_, &QCheckBox::clicked, this, &PagePanel::CheckBoxClick);
    grid.layout->addWidget(swapBox_, grid.nextRow(0), 1, 1, 2);
}

void PagePanel::addActions(FieldGrid& grid) {
    for (const ActionField& action : page_.actions) {
        auto* button = new QPushButton(ToQString(action.caption));
        button->setObjectName(ToQString(action.object));
        SetHint(*button, ToQString(action.hint));
        connect(button, &QPushButton::clicked, this, [this, &action] { runAction(action); });
        grid.layout->addWidget(button, grid.nextRow(0), 0, 1, 2);
    }
}

void PagePanel::addOutputs(FieldGrid& grid, int column) {
    for (const OutputField& field : page_.outputs) {
        auto* edit = new OutputEdit(ToQString(field.object), field.editable);
        edit->setText(ToQString(field.initial));
        SetHint(*edit, ToQString(field.hint));
        const FieldRow line{&field, new QLabel, edit, new QLabel};
        SetHint(*line.label, ToQString(field.hint));
        outputs_.insert(edit->objectName(), edit);
        rows_.push_back(line);
        if (field.hasStandardValues())
            connect(edit, &OutputEdit::doubleClicked, this,
                    [this, line] { AusgabeDblClick(line); });
        if (field.editable)
            connect(edit, &QLineEdit::textEdited, this, [this, line] { AusgabeChange(line); });
        const int row = grid.nextRow(column);
        grid.layout->addWidget(line.label, row, column);
        grid.layout->addWidget(line.edit, row, column + 1, Qt::AlignLeft);
        grid.layout->addWidget(line.unit, row, column + 2);
    }
}

QWidget* PagePanel::buildTable() {
    if (page_.table.empty()) return nullptr;
    table_ = new QTableWidget(0, 2);
    table_->setObjectName(ToQString(page_.table));
    table_->setHorizontalHeaderLabels({tr("Element"), tr("Value")});
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(kTableLine);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(table_, &QTableWidget::cellDoubleClicked, this, &PagePanel::roundRowToSeries);
    table_->setMinimumHeight(6 * kTableLine);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return table_;
}

QWidget* PagePanel::buildPicture() {
    if (!page_.circuit) return nullptr;
    picture_ = new CircuitView;
    picture_->setObjectName(QStringLiteral("Image%1").arg(page_.number));
    picture_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    picture_->setMinimumWidth(kPictureWidth);
    SetHint(*picture_, ToQString(page_.pictureHint));
    return picture_;
}

QLabel* PagePanel::buildTransferText() {
    if (page_.transferText.empty()) return nullptr;
    const QString formula = ToQString(page_.transferText);
    auto* label = new QLabel(FormulaMarkup(formula, palette().color(QPalette::WindowText)));
    label->setObjectName(QStringLiteral("TransferText%1").arg(page_.number));
    label->setAccessibleName(formula);
    label->setTextFormat(Qt::RichText);
    label->setAlignment(Qt::AlignCenter);
    SetHint(*label, tr("Transfer function, G[1] = 1/R1, G[2] = 1/R2"));
    formula_ = label;
    return label;
}

/// The fraction bar does not follow the text's colour by itself.
void PagePanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && formula_) {
        formula_->setText(
            FormulaMarkup(ToQString(page_.transferText), palette().color(QPalette::WindowText)));
    }
    QWidget::changeEvent(event);
}

void PagePanel::EingabeChange(const BoundInput& input) {
    input.read(session_.state());
    session_.recalculate();
}

void PagePanel::SpinButtonClick(const BoundInput& input, int direction) {
    Design& state = session_.state();
    const double x = input.field().read(state);
    const bool whole = std::holds_alternative<int Design::*>(input.field().value);
    const double f = session_.preferences().SweepFactor;
    const double stepped = whole           ? x + direction
                           : direction > 0 ? SpinStepUp(x, f)
                                           : SpinStepDown(x, f);
    input.field().write(state, stepped);
    input.write(state);
    session_.recalculate();
}

void PagePanel::AusgabeChange(const FieldRow& row) {
    TakeText(session_.state(), *row.field, row.edit->text().toStdString());
    edited_ = row.edit;
    session_.showComponents();  // optimizing now would move the value that is being typed
    edited_ = nullptr;
}

void PagePanel::AusgabeDblClick(const FieldRow& row) {
    const double value = ParseValue(row.edit->text().toStdString());
    if (value > 0) row.edit->setText(SeriesText(session_.preferences(), value));
}

void PagePanel::runAction(const ActionField& action) {
    const std::string message = action.run(session_.state());
    if (!message.empty()) return session_.showMessage(QString::fromStdString(message));
    session_.announceInputs();
    session_.recalculate();
}

void PagePanel::CheckBoxClick(bool checked) {
    session_.state().LCSwapped = checked;
    refresh();
    session_.recalculate();
}

void PagePanel::showResult(const CycleResult& result) {
    for (const FieldCaption& caption : result.captions)
        captions_.insert(ToQString(caption.object), caption);
    if (result.table && table_) showTable(*result.table);
    refused_ = result.message.has_value();
    refresh();
}

bool PagePanel::setText(const QString& object, const QString& text) {
    if (QLabel* note = notes_.value(object)) {
        note->setText(text);
        return true;
    }
    OutputEdit* edit = outputs_.value(object);
    if (!edit || edit == edited_) return false;
    edit->setText(text);
    return true;
}

QString PagePanel::text(const QString& object) const {
    if (const QTableWidgetItem* cell = tableCell(object)) return cell->text();
    const OutputEdit* edit = outputs_.value(object);
    return edit ? edit->text() : QString();
}

void PagePanel::writeInputs() {
    for (const BoundInput& input : inputs_) input.write(session_.state());
}

void PagePanel::refresh() {
    Design& state = session_.state();
    for (const BoundInput& input : inputs_)
        if (!input.edit().hasFocus()) input.refresh(state);
    for (const SwitchRow& row : switches_) {
        row.box->setChecked(row.field->flag(state));
        if (row.weight) row.weight->setValue(row.field->weight(state));
    }
    if (swapBox_) swapBox_->setChecked(state.LCSwapped);
    showCaptions();
    if (picture_) showPicture();
}

void PagePanel::showPicture() {
    const Design& state = session_.state();
    std::vector<Circuit> circuits = page_.builtCircuits(state);
    // The slots of a refused design hold another page's values.
    for (Circuit& circuit : circuits)
        for (Element& element : circuit.elements)
            if (refused_ && element.slot != Slot::None)
                element.value = std::numeric_limits<double>::quiet_NaN();
    picture_->show(std::move(circuits), {state.R1, state.R2});
}

void PagePanel::showCaptions() {
    const Design& state = session_.state();
    const bool duals = page_.showsDuals(state);
    for (const FieldRow& row : rows_) {
        const OutputField& field = *row.field;
        const bool shown = !field.shown || field.shown(state);
        row.label->setText(duals ? QString::fromStdString(DualLabel(field.label))
                                 : ToQString(field.label));
        row.unit->setText(ToQString(duals ? DualUnit(field.unit) : field.unit));
        if (const auto changed = captions_.find(row.edit->objectName());
            changed != captions_.end()) {
            row.label->setText(QString::fromStdString(changed->caption));
            row.unit->setText(QString::fromStdString(changed->unit));
        }
        row.label->setVisible(shown);
        row.edit->setVisible(shown);
        row.unit->setVisible(shown);
    }
}

void PagePanel::showTable(const std::vector<TableRow>& rows) {
    tableRows_ = rows;
    table_->setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < table_->rowCount(); ++i) {
        const TableRow& row = rows[static_cast<std::size_t>(i)];
        auto* value = new QTableWidgetItem(QString::fromStdString(row.text).trimmed() + ' ' +
                                           ToQString(row.unit));
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table_->setItem(i, 0, new QTableWidgetItem(QString::fromStdString(row.element)));
        table_->setItem(i, 1, value);
    }
}

void PagePanel::roundRowToSeries(int row) {
    const TableRow& element = tableRows_[static_cast<std::size_t>(row)];
    if (element.slot == Slot::None) return;  // an input
    QTableWidgetItem* cell = table_->item(row, 1);
    const double value = ParseValue(cell->text().toStdString());
    if (value > 0)
        cell->setText(SeriesText(session_.preferences(), value) + ' ' + ToQString(element.unit));
}

QTableWidgetItem* PagePanel::tableCell(const QString& object) const {
    for (std::size_t i = 0; i < tableRows_.size(); ++i)
        if (object == QString::fromStdString(RowObject(page_, tableRows_[i])))
            return table_->item(static_cast<int>(i), 1);
    return nullptr;
}

QString FormulaMarkup(const QString& formula, const QColor& barColour) {
    QString text = formula.toHtmlEscaped();
    text.replace('[', "<sub>").replace(']', "</sub>");
    const qsizetype equals = text.indexOf(" = ");
    const qsizetype bar = text.indexOf(" / (");
    if (equals < 0 || bar < equals || !text.endsWith(')')) return text;
    const QString numerator = text.mid(equals + 3, bar - equals - 3);
    const QString denominator = text.mid(bar + 4).chopped(1);
    return QStringLiteral(
               "<table cellspacing='0' cellpadding='2'><tr>"
               "<td rowspan='2' style='vertical-align:middle'>%1 =&nbsp;</td>"
               "<td align='center' style='border-bottom:1px solid %4'>%2</td></tr>"
               "<tr><td align='center'>%3</td></tr></table>")
        .arg(text.left(equals), numerator, denominator, barColour.name());
}

}  // namespace kelvro
