#pragma once

#include <QDialog>

#include "ui/workbench/network_model.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace kelvro {

class SeriesChoice;

/// "Standard Values": the values on sale that together keep the worst gain in the bands highest,
/// beside what rounding part by part would leave. The choice is previewed; Take makes it one step.
class StandardDialog : public QDialog {
    Q_OBJECT

  public:
    explicit StandardDialog(NetworkModel& model, QWidget* parent = nullptr);

  public slots:
    void done(int result) override;

  private:
    void choose();
    void showParts(const Network& chosen);

    NetworkModel& model_;
    const Network start_;  ///< as it came, with bands
    SeriesChoice* series_;
    QTableWidget* table_;
    QLabel* gains_;
    QLabel* problem_;
    QPushButton* take_;
};

}  // namespace kelvro
