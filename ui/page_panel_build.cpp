// What a page of the notebook is made of: its record, read from top to bottom.

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "ui/circuit_view.h"
#include "ui/folded_views.h"
#include "ui/form_row.h"
#include "ui/page_panel.h"
#include "ui/plot/value_spin.h"
#include "ui/rounding_menu.h"
#include "ui/stage_view.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// A page with more rows than this puts its outputs beside its inputs.
constexpr int kRowsInOneColumn = 6;
/// Grid columns of a block of fields: caption, edit, unit, gap to the next block.
constexpr int kBlock = 4;

constexpr int kTableLine = 21;

QString RoundingHint() {
    return QObject::tr("A double-click rounds to the standard series, the context menu up or down");
}

/// What an output means, and what can be done with it.
QString OutputHint(const OutputField& field) {
    QString meaning = Shown(field.hint);
    if (!field.hasStandardValues()) return meaning;
    return meaning.isEmpty() ? RoundingHint() : meaning + QStringLiteral(". ") + RoundingHint();
}

}  // namespace

/// The grid of a page's fields with the next free row of its two columns.
class FieldGrid {
  public:
    explicit FieldGrid(QWidget* parent) : layout(new QGridLayout(parent)) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setHorizontalSpacing(6);
    }

    /// Grid column in which the second column of fields starts.
    static constexpr int second = kBlock;

    int nextRow(int column) {
        int& row = next_[column == second ? 1 : 0];
        GiveLineHeight(*layout, row);
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
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(10, 3, 10, 3);
    columns->setSpacing(10);
    if (page.switched) stage_ = new StageView(session);
    // The fields have the whole height of the left, above a table where there is one; right of
    // them stand the notes, the picture and its formula.
    auto* left = new QVBoxLayout;
    QWidget* table = buildTable();
    left->addWidget(buildFields(), table ? 0 : 1);
    if (table) left->addWidget(table, 1);
    auto* right = new QVBoxLayout;
    right->addLayout(buildNotes());
    right->setSpacing(3);
    QWidget* picture = buildPicture();
    if (stage_) picture = withWaves(picture);
    if (picture) right->addWidget(picture, 1);
    if (!picture) right->addStretch();
    if (QLabel* formula = buildTransferText()) right->addWidget(formula);
    columns->addLayout(left);
    columns->addLayout(right, 1);
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
    if (stage_) addHarmonics(grid);
    const bool wide = rows > kRowsInOneColumn && !page_.inputs.empty();
    if (wide) grid.layout->setColumnMinimumWidth(FieldGrid::second - 1, 8);
    addOutputs(grid, wide ? FieldGrid::second : 0);
    addSwapBox(grid);
    addChangingNotes(grid);
    if (!stage_) grid.layout->setRowStretch(grid.layout->rowCount(), 1);
    grid.layout->setColumnStretch(2 * kBlock, 1);
    return fields;
}

QLabel* PagePanel::makeNote(const NoteField& note) {
    auto* label = new QLabel(Shown(note.text));
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(ToQString(note.object));
    SetHint(*label, Shown(note.hint));
    QFont font = label->font();
    font.setItalic(true);
    label->setFont(font);
    if (!note.object.empty()) notes_.insert(label->objectName(), label);
    return label;
}

QLayout* PagePanel::buildNotes() {
    auto* row = new QHBoxLayout;
    auto* lines = new QVBoxLayout;
    lines->setSpacing(1);
    for (const NoteField& note : page_.notes)
        if (note.object.empty()) lines->addWidget(makeNote(note));
    row->addLayout(lines);
    row->addStretch();
    const auto addButton = [&](const char* name, const QString& caption, const QString& hint,
                               void (PagePanel::*clicked)()) {
        auto* button = new QPushButton(caption);
        button->setObjectName(QLatin1String(name) + QString::number(page_.number));
        button->setFocusPolicy(Qt::TabFocus);
        SetHint(*button, hint);
        connect(button, &QPushButton::clicked, this, clicked);
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
    if (stage_) row->addWidget(stage_->runButton());
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
            AddInputRow(*grid.layout, {grid.nextRow(0)}, field, Shown(field.label));
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
        auto* box = new QCheckBox(Shown(field.caption));
        box->setObjectName(ToQString(field.object));
        SetHint(*box, Shown(field.hint));
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

/// Beside the outputs, below the inputs, down to the end of the page.
void PagePanel::addHarmonics(FieldGrid& grid) {
    const int row = grid.nextRow(0);
    const int last = static_cast<int>(page_.outputs.size());
    grid.layout->addWidget(stage_->harmonics(), row, 0, last + 1 - row, kBlock - 1);
    grid.layout->setRowStretch(last, 1);
}

QWidget* PagePanel::withWaves(QWidget* picture) {
    constexpr int kPictureHeight = 190;
    constexpr int kWavesHeight = 160;
    auto* views = new FoldedViews;
    views->setObjectName(QStringLiteral("Views%1").arg(page_.number));
    views->add(picture, tr("Circuit"), kPictureHeight);
    views->add(stage_, tr("Waves"), kWavesHeight);
    return views;
}

void PagePanel::addActions(FieldGrid& grid) {
    for (const ActionField& action : page_.actions) {
        auto* button = new QPushButton(Shown(action.caption));
        button->setObjectName(ToQString(action.object));
        SetHint(*button, Shown(action.hint));
        connect(button, &QPushButton::clicked, this, [this, &action] { runAction(action); });
        grid.layout->addWidget(button, grid.nextRow(0), 0, 1, 2);
    }
}

void PagePanel::addOutputs(FieldGrid& grid, int column) {
    for (const OutputField& field : page_.outputs) {
        auto* edit = new OutputEdit(ToQString(field.object), field.editable);
        edit->setText(Shown(field.initial));
        SetHint(*edit, OutputHint(field));
        const FieldRow line{&field, new QLabel, edit, new QLabel};
        SetHint(*line.label, Shown(field.hint));
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
    const QString meaning = Shown(page_.pictureHint);
    const QString use =
        tr("A click on a part leads to its field; the context menu copies and saves");
    SetHint(*picture_, meaning.isEmpty() ? use : meaning);
    connect(picture_, &CircuitView::partClicked, this, &PagePanel::goToField);
    connect(picture_, &CircuitView::failed, &session_, &DesignSession::showMessage);
    return picture_;
}

QLabel* PagePanel::buildTransferText() {
    if (page_.transferText.empty()) return nullptr;
    auto* label = new QLabel;
    label->setObjectName(QStringLiteral("TransferText%1").arg(page_.number));
    label->setTextFormat(Qt::RichText);
    label->setAlignment(Qt::AlignCenter);
    SetHint(*label, tr("Transfer function, G[1] = 1/R1, G[2] = 1/R2"));
    formula_ = label;
    return label;
}

}  // namespace kelvro
