#include "ui/plot/marker_panel.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/texts.h"

namespace kelvro {

MarkerPanel::MarkerPanel(QWidget* parent)
    : QDockWidget(tr("Markers"), parent), table_(new QTableWidget(this)), edges_(new QLabel(this)) {
    setObjectName("MarkerPanel");
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    table_->setObjectName("MarkerTable");
    table_->setToolTip(tr("Markers on the curve, and what lies between each and the first"));
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table_->verticalHeader()->hide();
    table_->setFocusPolicy(Qt::ClickFocus);
    edges_->setObjectName("BandEdges");
    edges_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(4, 2, 4, 2);
    column->addWidget(edges_);
    column->addWidget(table_);
    setWidget(content);
    hide();
}

void MarkerPanel::show(const MarkerTable& table, const std::vector<std::string>& edges) {
    QStringList lines;
    for (const std::string& line : edges) lines.append(Shown(line));
    edges_->setText(lines.join('\n'));
    edges_->setVisible(!lines.isEmpty());
    QStringList header;
    for (const std::string& name : table.header) header.append(QString::fromStdString(name));
    table_->setColumnCount(static_cast<int>(header.size()));
    table_->setHorizontalHeaderLabels(header);
    table_->setRowCount(static_cast<int>(table.rows.size()));
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        for (std::size_t column = 0; column < table.rows[row].size(); ++column) {
            auto* item = new QTableWidgetItem(QString::fromStdString(table.rows[row][column]));
            table_->setItem(static_cast<int>(row), static_cast<int>(column), item);
        }
    }
    table_->resizeColumnsToContents();
    table_->resizeRowsToContents();
    table_->setVisible(!table.rows.empty());
    // As high as four rows at most: the plot is what the window is for.
    constexpr int kMostRows = 4;
    const int rows = std::min(kMostRows, static_cast<int>(table.rows.size()));
    const int rowHeight = table.rows.empty() ? 0 : table_->rowHeight(0);
    table_->setFixedHeight(table_->horizontalHeader()->sizeHint().height() + rows * rowHeight +
                           2 * table_->frameWidth());
    setVisible(!table.rows.empty() || !edges.empty());
}

}  // namespace kelvro
