#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "plot/frame_painter.h"

namespace kelvro {

/// The drawing surface of a plot window: shows a picture, keeps it as drawn, and hands mouse and
/// keys to the window. What is laid over the picture (rubber band, reading cross) is not part of
/// it.
class PlotImage : public QWidget {
    Q_OBJECT

  public:
    explicit PlotImage(QWidget* parent = nullptr);

    /// Shows another picture; the frame holds from here on.
    void setPicture(Picture picture);
    /// Adds a curve on top at once, without drawing the picture anew.
    void addCurve(Curve curve);
    const Picture& picture() const { return picture_; }
    const Frame& frame() const { return frame_; }
    /// Draws with the font of the desktop, in proportion to its size.
    const FramePainter& painter() const { return painter_; }
    /// The picture as a bitmap of `scale` pixels per logical pixel.
    QImage toImage(double scale = 1) const;

    void setRubberBand(std::optional<QRect> band);
    void setCross(std::optional<QPointF> cross);
    bool hasCross() const { return cross_.has_value(); }
    const std::optional<QRect>& rubberBand() const { return rubberBand_; }

    QSize sizeHint() const override { return {640, 480}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

  signals:
    void mouseMoved(QMouseEvent* event);
    void mousePressed(QMouseEvent* event);
    void mouseReleased(QMouseEvent* event);
    void doubleClicked(QMouseEvent* event);
    void mouseLeft();
    void wheelTurned(QWheelEvent* event);
    void keyPressed(QKeyEvent* event);
    void resized();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override { emit mouseMoved(event); }
    void mousePressEvent(QMouseEvent* event) override { emit mousePressed(event); }
    void mouseReleaseEvent(QMouseEvent* event) override { emit mouseReleased(event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { emit doubleClicked(event); }
    void leaveEvent(QEvent*) override { emit mouseLeft(); }
    void wheelEvent(QWheelEvent* event) override { emit wheelTurned(event); }
    void keyPressEvent(QKeyEvent* event) override { emit keyPressed(event); }

  private:
    void render();

    FramePainter painter_;
    Picture picture_;
    Frame frame_;
    QPixmap drawn_;
    std::optional<QRect> rubberBand_;
    std::optional<QPointF> cross_;
};

/// The cross that reads positions in a plot: thin, open in the middle.
QCursor PlotCursor();

}  // namespace kelvro
