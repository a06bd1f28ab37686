#pragma once

#include <QDockWidget>
#include <string>
#include <vector>

#include "plot/markers.h"

class QLabel;
class QTableWidget;

namespace kelvro {

/// What markers and band edges say, beside the plot; hidden while there are none.
class MarkerPanel : public QDockWidget {
    Q_OBJECT

  public:
    explicit MarkerPanel(QWidget* parent = nullptr);
    void show(const MarkerTable& table, const std::vector<std::string>& edges);

  private:
    QTableWidget* table_;
    QLabel* edges_;
};

}  // namespace kelvro
