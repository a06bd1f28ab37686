// Reading and editing the plot with the mouse and the keys.

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr const char* kZoneHints[] = {
    "",
    QT_TRANSLATE_NOOP("kelvro", "Click to set xmin"),
    QT_TRANSLATE_NOOP("kelvro", "Click to set xmax"),
    QT_TRANSLATE_NOOP("kelvro", "Click to set ymin"),
    QT_TRANSLATE_NOOP("kelvro", "Click to set ymax"),
    QT_TRANSLATE_NOOP("kelvro", "Click to set ymin of the right axis"),
    QT_TRANSLATE_NOOP("kelvro", "Click to set ymax of the right axis")};

/// Name of the step in the menu.
constexpr const char* kPan = QT_TRANSLATE_NOOP("kelvro", "Pan");

}  // namespace

void PlotForm::showReadOut(WorldPoint place) {
    status_->setText(Shown(ReadOut(host_.design(), host_.result().v, plot_.traces, place)));
}

void PlotForm::moveCursor(Zone zone, bool inside) {
    image_->setToolTip(Shown(kZoneHints[static_cast<std::size_t>(zone)]));
    if (zone == Zone::XStart || zone == Zone::XEnd) {
        image_->setCursor(Qt::SizeHorCursor);
    } else if (zone != Zone::None) {
        image_->setCursor(Qt::SizeVerCursor);
    } else if (inside) {
        static const QCursor kCross = PlotCursor();
        image_->setCursor(kCross);
    } else {
        image_->unsetCursor();
    }
}

void PlotForm::ImageMouseMove(QMouseEvent* event) {
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    stopReading();
    moveCursor(ZoneAt(frame, at.x(), at.y()), frame.contains(at.x(), at.y()));
    const WorldPoint place = frame.toWorld(at.x(), at.y());
    mouseFrequency_ = frame.contains(at.x(), at.y()) ? std::optional(place.x) : std::nullopt;
    showReadOut(place);
    if (draggedMarker_) return dragMarker(at);
    if (pan_) pan(event->pos());
    if (dragStart_) {
        const auto& plot = frame.plot;
        const QPoint end(std::clamp(event->pos().x(), plot.left, plot.right),
                         std::clamp(event->pos().y(), plot.top, plot.bottom));
        image_->setRubberBand(QRect(*dragStart_, end));
    }
}

void PlotForm::ImageMouseDown(QMouseEvent* event) {
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    if (event->button() == Qt::LeftButton) {
        const Zone zone = ZoneAt(frame, at.x(), at.y());
        if (zone != Zone::None) editEnd(zone, event->pos());
        draggedMarker_ = markerUnder(at);
        if (draggedMarker_) return;
        if (frame.contains(at.x(), at.y())) pan_ = Pan{event->pos(), frame};
    } else if (event->button() == Qt::RightButton && frame.contains(at.x(), at.y())) {
        dragStart_ = event->pos();
    }
}

void PlotForm::ImageMouseUp(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) draggedMarker_.reset();
    if (event->button() == Qt::LeftButton && pan_) return endPan();
    if (event->button() != Qt::RightButton || !dragStart_) return;
    const Frame frame = image_->frame();
    const QPoint start = *dragStart_;
    const QPointF end = event->position();
    cancelDrag();
    if (!frame.contains(end.x(), end.y())) return;
    const auto zoomed =
        DragZoomed(view(), frame.toWorld(start.x(), start.y()), frame.toWorld(end.x(), end.y()));
    if (zoomed) {
        editView(*zoomed, QT_TRANSLATE_NOOP("kelvro", "Zoom"));
    } else {
        redraw();
    }
}

void PlotForm::ImageMouseWheel(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const double notches = std::clamp((turned.x() + turned.y()) / 120.0, -10.0, 10.0);
    const double factor = std::pow(kZoomStep, notches);
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    const WorldPoint fixed = frame.toWorld(at.x(), at.y());
    const bool onlyX = event->modifiers() & Qt::ControlModifier || at.y() > frame.plot.bottom;
    const bool besideY = at.x() < frame.plot.left || at.x() > frame.plot.right;
    const bool onlyY = event->modifiers() & Qt::ShiftModifier || besideY;
    const ZoomOf axes = onlyX == onlyY ? ZoomOf::Both : onlyX ? ZoomOf::X : ZoomOf::Y;
    // The notches of one turn are one step to take back.
    constexpr qint64 kPause = 700;  // ms
    if (!wheelPause_.isValid() || wheelPause_.restart() > kPause) {
        views_.close();
        wheelPause_.start();
    }
    editView(ZoomedView(view(), factor, fixed, axes, host_.design().fo),
             QT_TRANSLATE_NOOP("kelvro", "Zoom"), "wheel");
    event->accept();
}

/// The plot goes with the mouse once that has moved further than a trembling hand.
void PlotForm::pan(QPoint to) {
    const QPoint way = to - pan_->start;
    if (!pan_->moved && way.manhattanLength() < QApplication::startDragDistance()) return;
    if (!pan_->moved) views_.close();
    pan_->moved = true;
    image_->setCursor(Qt::ClosedHandCursor);
    editView(Panned(pan_->frame, way.x(), way.y(), host_.design().fo), kPan, "drag");
}

void PlotForm::endPan() {
    if (pan_->moved) image_->unsetCursor();
    pan_.reset();
    views_.close();
}

/// Ctrl and an arrow look further by a tenth of the window; each stands for a step of its own.
bool PlotForm::panByKey(int key) {
    const auto& plot = image_->frame().plot;
    const double dx = (plot.right - plot.left) / 10.0;
    const double dy = (plot.bottom - plot.top) / 10.0;
    const auto by = [&](double x, double y) {
        editView(Panned(image_->frame(), x, y, host_.design().fo), kPan);
        return true;
    };
    if (key == Qt::Key_Left) return by(dx, 0);
    if (key == Qt::Key_Right) return by(-dx, 0);
    if (key == Qt::Key_Up) return by(0, dy);
    if (key == Qt::Key_Down) return by(0, -dy);
    return false;
}

void PlotForm::ImageKeyDown(QKeyEvent* event) {
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (control && panByKey(event->key())) return;
    const std::ptrdiff_t step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    const auto moved = [&](std::ptrdiff_t by) {
        const double start = reading_.value_or(host_.design().fo);
        const auto stop = static_cast<std::ptrdiff_t>(NearestStop(samples(), start));
        moveReading(reading_ ? stop + by : stop);
    };
    switch (event->key()) {
        case Qt::Key_Escape:
            return dragStart_ || pan_ ? cancelDrag() : stopReading();
        case Qt::Key_Left:
            return moved(-step);
        case Qt::Key_Right:
            return moved(step);
        case Qt::Key_Home:
            return control ? moveReading(0) : Home1Click();
        case Qt::Key_End:
            return moveReading(static_cast<std::ptrdiff_t>(samples().stops.size()) - 1);
        case Qt::Key_Up:
            return moveReading(static_cast<std::ptrdiff_t>(PeakStop(samples())));
        default:
            event->ignore();
    }
}

void PlotForm::moveReading(std::ptrdiff_t stop) {
    const auto last = static_cast<std::ptrdiff_t>(samples().stops.size()) - 1;
    if (last < 0) return;
    const auto at =
        samples().stops[static_cast<std::size_t>(std::clamp(stop, std::ptrdiff_t{0}, last))];
    const Frame& frame = image_->frame();
    reading_ = samples().x[at];
    image_->setCross(QPointF(frame.xPixel(samples().x[at]), frame.yPixel(samples().y[at])));
    showReadOut({samples().x[at], samples().y[at]});
}

void PlotForm::stopReading() {
    reading_.reset();
    if (image_->hasCross()) image_->setCross(std::nullopt);
}

void PlotForm::cancelDrag() {
    if (pan_ && pan_->moved && views_.undoName() == kPan) UndoView1Click();
    if (pan_) endPan();
    dragStart_.reset();
    if (image_->rubberBand()) image_->setRubberBand(std::nullopt);
}

}  // namespace kelvro
