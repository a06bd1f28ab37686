#pragma once

#include <QWidget>
#include <vector>

#include "plot/circuit_painter.h"

namespace kelvro {

/// The circuit picture of a page, in the colours of the desktop.
class CircuitView : public QWidget {
  public:
    explicit CircuitView(QWidget* parent = nullptr);

    void show(std::vector<Network> networks);
    using QWidget::show;

    QSize sizeHint() const override { return {560, 220}; }
    QSize minimumSizeHint() const override { return {320, 140}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<Network> networks_;
};

}  // namespace kelvro
