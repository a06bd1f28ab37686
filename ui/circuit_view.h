#pragma once

#include <QWidget>
#include <vector>

#include "plot/circuit_painter.h"
#include "plot/picture_files.h"

namespace kelvro {

/// The circuit picture of a page, in the colours of the desktop. It leaves the window by its
/// context menu, on white: as a picture and a drawing on the clipboard, or as a file.
class CircuitView : public QWidget {
    Q_OBJECT

  public:
    explicit CircuitView(QWidget* parent = nullptr);

    void show(std::vector<Network> networks);
    using QWidget::show;

    QSize sizeHint() const override { return {520, 260}; }
    QSize minimumSizeHint() const override { return {320, 100}; }

  public slots:
    void CopyCircuitClick();
    void SaveCircuitClick();

  signals:
    void partClicked(const QString& name);
    /// Why a picture could not be saved.
    void failed(const QString& reason);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QRectF area() const;
    Drawing drawing() const;

    std::vector<Network> networks_;
};

}  // namespace kelvro
