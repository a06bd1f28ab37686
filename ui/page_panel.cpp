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
#include <QToolButton>
#include <algorithm>
#include <array>
#include <limits>

#include "core/number_text.h"
#include "core/series.h"
#include "ui/circuit_view.h"
#include "ui/form_row.h"
#include "ui/plot/value_spin.h"
#include "ui/rounding_menu.h"
#include "ui/stage_view.h"

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

QString RoundingHint() {
    return QObject::tr("A double-click rounds to the standard series, the context menu up or down");
}

/// What an output means, and what can be done with it.
QString OutputHint(const OutputField& field) {
    QString meaning = ToQString(field.hint);
    if (!field.hasStandardValues()) return meaning;
    return meaning.isEmpty() ? RoundingHint() : meaning + QStringLiteral(". ") + RoundingHint();
}

/// What the user has typed into the field of a component.
double TypedComponent(const OutputEdit& edit) {
    const bool infinite = edit.text().trimmed() == ToQString(kInfinite);
    return infinite ? std::numeric_limits<double>::infinity() : edit.value();
}

/// A table's value with its unit. Two leading spaces mark a rounded value, as in fields.
QString CellText(const std::string& text, const TableRow& row) {
    const QString value = QString::fromStdString(text);
    const bool rounded = text.starts_with("  ") && !text.starts_with("   ");
    return (rounded ? value : value.trimmed()) + ' ' + ToQString(row.unit);
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
    if (page.switched) {
        stage_ = new StageView(session);
        grid->addWidget(stage_, kTable, 0, 1, 2);
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(table || stage_ ? kTable : kFields, 1);
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
    const auto addButton = [&](const char* name, const QString& caption, const QString& hint,
                               void (PagePanel::*clicked)()) {
        auto* button = new QToolButton;
        button->setObjectName(QLatin1String(name) + QString::number(page_.number));
        button->setText(caption);
        button->setAutoRaise(true);
        SetHint(*button, hint);
        connect(button, &QToolButton::clicked, this, clicked);
        row->addWidget(button);
    };
    if (page_.networks && page_.atFrequency) {
        addButton("OpenAsNetwork", tr("Open as Network"),
                  tr("Take this circuit over into the Network window, to tune it there"),
                  &PagePanel::openAsNetworkClicked);
    }
    if (page_.suggestion.role == Role::Match) {
        addButton("FindBetter", tr("Find Better…"),
                  tr("Search for networks that match R1 to R2 better over the band fo/Q"),
                  &PagePanel::findBetterClicked);
    }
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
        const InputRow row =
            AddInputRow(*grid.layout, {grid.nextRow(0)}, field, ToQString(field.label));
        const BoundInput input(field, *row.edit);
        inputs_.push_back(input);
        const auto step = [this, input](int direction) { SpinButtonClick(input, direction); };
        connect(row.edit, &QLineEdit::textEdited, this, [this, input] { EingabeChange(input); });
        connect(row.edit, &InputEdit::stepped, this, step);
        // With the session as context: fields lose their focus once more while they are torn down.
        connect(row.edit, &NumberEdit::left, &session_,
                [this, input] { input.writeInUse(session_.design()); });
        connect(row.spin, &ValueSpin::clicked, this, step);
    }
}

void PagePanel::addSwitches(FieldGrid& grid) {
    for (const SwitchField& field : page_.switches) {
        auto* box = new QCheckBox(ToQString(field.caption));
        box->setObjectName(ToQString(field.object));
        SetHint(*box, ToQString(field.hint));
        connect(box, &QCheckBox::clicked, this, [this, &field](bool checked) {
            session_.edit(std::string(field.caption),
                          [&](Design& design) { design.*field.flag = checked; });
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
                if (session_.design().*field.weight == position) return;
                session_.edit("Weight of " + std::string(field.caption),
                              [&](Design& design) { design.*field.weight = position; },
                              {.joins = std::string(field.weightObject)});
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
        SetHint(*edit, OutputHint(field));
        const FieldRow line{&field, new QLabel, edit, new QLabel};
        SetHint(*line.label, ToQString(field.hint));
        outputs_.insert(edit->objectName(), edit);
        rows_.push_back(line);
        if (field.hasStandardValues()) {
            connect(edit, &OutputEdit::doubleClicked, this,
                    [this, line] { AusgabeDblClick(line); });
            AddRounding(*edit, session_, [this, line] { return line.part(page_); });
        }
        if (field.editable) {
            edit->setUnit(ToQString(field.unit));
            connect(edit, &QLineEdit::textEdited, this, [this, line] { AusgabeChange(line); });
            connect(edit, &NumberEdit::left, &session_, [this, line] {
                const std::string inUse = line.part(page_).shownText(session_.design());
                if (line.edit->doubtful()) line.edit->setText(QString::fromStdString(inUse));
            });
        }
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
    table_->setContextMenuPolicy(Qt::ActionsContextMenu);
    SetHint(*table_, tr("Elements from source to load. ") + RoundingHint());
    AddRounding(*table_, session_, [this] { return partOfRow(table_->currentRow()); });
    table_->setMinimumHeight(6 * kTableLine);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return table_;
}

QWidget* PagePanel::buildPicture() {
    if (!page_.networks) return nullptr;
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
    Design typed = session_.design();
    input.read(typed);
    input.judge(typed);
    session_.edit(StepName(input.field(), page_.number),
                  [&](Design& design) { input.read(design); },
                  {.joins = "type " + std::string(input.field().object)});
}

void PagePanel::SpinButtonClick(const BoundInput& input, int direction) {
    Design stepped = session_.design();
    StepInput(input.field(), stepped, direction, session_.preferences().SweepFactor,
              input.field().limits);
    input.write(stepped);
    session_.edit(StepName(input.field(), page_.number), [&](Design& design) { design = stepped; },
                  {.joins = "spin " + std::string(input.field().object)});
}

void PagePanel::AusgabeChange(const FieldRow& row) {
    session_.type(row.part(page_), TypedComponent(*row.edit));
}

void PagePanel::AusgabeDblClick(const FieldRow& row) {
    session_.round(row.part(page_));
}

void PagePanel::runAction(const ActionField& action) {
    Design changed = session_.design();
    const std::string message = action.run(changed);
    if (!message.empty()) return session_.showMessage(QString::fromStdString(message));
    session_.edit(std::string(action.caption), [&](Design& design) { design = changed; },
                  {.fields = Fields::Follow});
}

void PagePanel::CheckBoxClick(bool checked) {
    session_.edit("L <--> C", [=](Design& design) { design.LCSwapped = checked; });
}

void PagePanel::showResult(const CycleResult& result) {
    for (const FieldCaption& caption : result.captions)
        captions_.insert(ToQString(caption.object), caption);
    if (result.table && table_) showTable(*result.table);
    if (stage_) stage_->showStage(result);
    refused_ = result.message.has_value();
    refresh();
}

bool PagePanel::setText(const QString& object, const QString& text) {
    if (QLabel* note = notes_.value(object)) {
        note->setText(text);
        return true;
    }
    OutputEdit* edit = outputs_.value(object);
    if (!edit) return false;
    const OutputField* field = page_.output(object.toStdString());
    if (field->slot == Slot::None) edit->setText(text);  // components show the design: showParts
    return true;
}

void PagePanel::writeInputs() {
    for (const BoundInput& input : inputs_) input.write(session_.design());
}

void PagePanel::refresh() {
    const Design& state = session_.design();
    for (const BoundInput& input : inputs_) {
        if (!input.edit().hasFocus()) input.refresh(state);
        input.edit().setEnabled(input.field().hasEffect(state));
    }
    for (const SwitchRow& row : switches_) {
        row.box->setChecked(state.*row.field->flag);
        if (row.weight) row.weight->setValue(state.*row.field->weight);
    }
    if (swapBox_) swapBox_->setChecked(state.LCSwapped);
    showCaptions();
    showParts();
    if (picture_) showPicture();
}

void PagePanel::showPicture() {
    const Design& state = session_.design();
    if (state.page != page_.number) return;
    std::vector<Network> networks = ShownNetworks(state);
    if (refused_) std::ranges::for_each(networks, [this](Network& network) { blank(network); });
    picture_->show(std::move(networks));
}

/// The slots of a refused design hold another page's values.
void PagePanel::blank(Network& network) const {
    const std::vector<ListedPart> listed = ListOf(network);
    const std::vector<double*> values = ValuesOf(network);
    const bool duals = page_.showsDuals(session_.design());
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const auto part = PartOf(page_, network, listed[i].name, duals);
        if (part && part->slot != Slot::None) *values[i] = std::numeric_limits<double>::quiet_NaN();
    }
}

void PagePanel::showCaptions() {
    const Design& state = session_.design();
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
        auto* value = new QTableWidgetItem(CellText(row.text, row));
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table_->setItem(i, 0, new QTableWidgetItem(QString::fromStdString(row.element)));
        table_->setItem(i, 1, value);
    }
}

void PagePanel::showParts() {
    const Design& design = session_.design();
    for (const FieldRow& row : rows_) {
        if (row.field->slot == Slot::None) continue;
        row.edit->setStale(refused_);
        const ShownPart* shown = design.shown.find(row.part(page_).key());
        const std::string text = row.edit->text().toStdString();
        // What the user has typed stays in their own form.
        const bool typed = shown && shown->form == ShownPart::Form::Typed;
        if (typed && TypedComponent(*row.edit) == shown->value) continue;
        const std::string shownText = row.part(page_).shownText(design);
        if (shownText != text) row.edit->setText(QString::fromStdString(shownText));
    }
    for (std::size_t i = 0; i < tableRows_.size(); ++i) {
        const TableRow& row = tableRows_[i];
        const std::string text = PartRef{&page_, row.slot}.shownText(design);
        if (row.slot == Slot::None || text.empty()) continue;
        table_->item(static_cast<int>(i), 1)->setText(CellText(text, row));
    }
}

void PagePanel::roundRowToSeries(int row) {
    if (const auto part = partOfRow(row)) session_.round(*part);
}

std::optional<PartRef> PagePanel::partOfRow(int row) const {
    if (row < 0) return std::nullopt;
    const TableRow& element = tableRows_[static_cast<std::size_t>(row)];
    if (element.slot == Slot::None) return std::nullopt;  // an input
    return PartRef{&page_, element.slot};
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
