// Named variants beside the present network, and the table of what differs.

#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

constexpr int kShownDigits = 4;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

QWidget* NetworkWindow::buildSnapshots() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(4, 4, 4, 4);
    snapshots_ = new QTableWidget;
    snapshots_->setObjectName(QStringLiteral("SnapshotTable"));
    snapshots_->verticalHeader()->hide();
    // Close together: the variants of one element are to be seen at once.
    snapshots_->verticalHeader()->setMinimumSectionSize(fontMetrics().height());
    snapshots_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 5);
    snapshots_->setEditTriggers(QAbstractItemView::DoubleClicked |
                                QAbstractItemView::EditKeyPressed);
    SetHint(*snapshots_, tr("Named variants beside the present network; ticked ones are drawn"));
    column->addWidget(snapshots_, 1);
    auto* row = new QHBoxLayout;
    const auto button = [&](const char* object, const QString& caption, const QString& hint,
                            auto&& run) {
        auto* made = new QPushButton(caption);
        made->setObjectName(QLatin1String(object));
        SetHint(*made, hint);
        connect(made, &QPushButton::clicked, this, run);
        row->addWidget(made);
    };
    button("ButtonSnapshot", tr("&Take snapshot"), tr("Keep the present network under a name"),
           [this] { takeSnapshot(); });
    button("ButtonSnapshotRestore", tr("&Restore"),
           tr("Make the chosen snapshot the present network"), [this] {
               const int at = snapshots_->currentColumn() - 2;
               if (at < 0 || at >= static_cast<int>(model_.snapshots().size())) return;
               const Snapshot& chosen = model_.snapshots()[static_cast<std::size_t>(at)];
               model_.take(tr("Restore %1").arg(chosen.name), chosen.network);
           });
    button("ButtonSnapshotDelete", tr("&Delete"), tr("Forget the chosen snapshot"), [this] {
        const int at = snapshots_->currentColumn() - 2;
        if (at >= 0) model_.removeSnapshot(static_cast<std::size_t>(at));
    });
    row->addStretch();
    column->addLayout(row);
    connect(snapshots_, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
        if (item->row() != 0 || item->column() < 2) return;
        const auto at = static_cast<std::size_t>(item->column() - 2);
        const bool shown = item->checkState() == Qt::Checked;
        model_.renameSnapshot(at, item->text());
        model_.showSnapshot(at, shown);
    });
    return page;
}

void NetworkWindow::takeSnapshot() {
    model_.addSnapshot(tr("Variant %1").arg(model_.snapshots().size() + 1));
}

/// A network as the table of snapshots shows it: source, elements, load. Nothing where it ends.
struct NetworkWindow::Column {
    QString name;
    const Network* network;
    const Snapshot* snapshot = nullptr;

    std::size_t rows() const { return network->ladder.size() + 2; }
    QString text(std::size_t row, std::size_t rows) const {
        const std::size_t element = row - 1;
        if (row == 0) return Text(ImpedanceText(network->source, kShownDigits));
        if (row + 1 == rows) return Text(ImpedanceText(network->load, kShownDigits));
        return element < network->ladder.size()
                   ? Text(ElementText(network->ladder[element], kShownDigits))
                   : QString();
    }
    bool same(const Column& other, std::size_t row, std::size_t rows) const {
        const Network& a = *network;
        const Network& b = *other.network;
        const std::size_t element = row - 1;
        if (row == 0) return a.source == b.source;
        if (row + 1 == rows) return a.load == b.load;
        const bool here = element < a.ladder.size();
        if (here != (element < b.ladder.size())) return false;
        return !here || a.ladder[element] == b.ladder[element];
    }
};

/// Rows: name, worst gain, source, elements, load; columns: the quantity, now, and the snapshots.
/// What differs from the present network stands in bold.
void NetworkWindow::showSnapshots() {
    const QSignalBlocker blocker(snapshots_);
    if (model_.snapshots().empty()) return snapshots_->setColumnCount(0);
    std::vector<Column> columns{{tr("now"), &model_.network()}};
    for (const Snapshot& snapshot : model_.snapshots())
        columns.push_back({snapshot.name, &snapshot.network, &snapshot});
    std::size_t rows = 0;
    for (const Column& column : columns) rows = std::max(rows, column.rows());
    snapshots_->setColumnCount(static_cast<int>(columns.size()) + 1);
    snapshots_->setRowCount(static_cast<int>(rows) + 2);
    snapshots_->horizontalHeader()->hide();
    const auto put = [&](std::size_t row, std::size_t column, const QString& text) {
        QTableWidgetItem* item = snapshots_->item(static_cast<int>(row), static_cast<int>(column));
        if (!item) {
            item = new QTableWidgetItem;
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            snapshots_->setItem(static_cast<int>(row), static_cast<int>(column), item);
        }
        item->setText(text);
        return item;
    };
    put(0, 0, tr("Variant"));
    put(1, 0, tr("Worst GT"));
    put(2, 0, tr("Source"));
    for (std::size_t i = 1; i + 1 < rows; ++i) put(i + 2, 0, tr("Element %1").arg(i));
    put(rows + 1, 0, tr("Load"));
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const Column& column = columns[c];
        showVariant(*put(0, c + 1, column.name), column.snapshot);
        const auto worst = NetworkModel::WorstGainDb(*column.network);
        put(1, c + 1,
            worst                           ? Text(FormatFixed(0, 3, *worst)) + tr(" dB")
            : column.network->bands.empty() ? tr("no bands")
                                            : tr("no value"));
        for (std::size_t row = 0; row < rows; ++row) {
            auto* item = put(row + 2, c + 1, column.text(row, rows));
            QFont font = snapshots_->font();
            font.setBold(!column.same(columns.front(), row, rows));
            item->setFont(font);
        }
    }
    snapshots_->resizeColumnsToContents();
}

/// The head of a snapshot: its name to edit, a tick that draws it, its colour.
void NetworkWindow::showVariant(QTableWidgetItem& head, const Snapshot* snapshot) {
    if (!snapshot) return;
    head.setFlags(head.flags() | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
    head.setCheckState(snapshot->shown ? Qt::Checked : Qt::Unchecked);
    head.setForeground(QColor(snapshot->colour.red, snapshot->colour.green, snapshot->colour.blue));
}

}  // namespace kelvro
