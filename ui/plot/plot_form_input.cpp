// Reading and editing the plot with the mouse and the keys.

#include <QLabel>
#include <QMouseEvent>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

namespace {

constexpr const char* kZoneHints[] = {"",
                                      "Click to set xmin",
                                      "Click to set xmax",
                                      "Click to set ymin",
                                      "Click to set ymax",
                                      "Click to set ymin of the right axis",
                                      "Click to set ymax of the right axis"};

}  // namespace

void PlotForm::showReadOut(WorldPoint place) {
    status_->setText(
        QString::fromStdString(ReadOut(host_.design(), host_.result().v, plot_.traces, place)));
}

void PlotForm::moveCursor(Zone zone, bool inside) {
    image_->setToolTip(tr(kZoneHints[static_cast<std::size_t>(zone)]));
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
    showReadOut(frame.toWorld(at.x(), at.y()));
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
    } else if (event->button() == Qt::RightButton && frame.contains(at.x(), at.y())) {
        dragStart_ = event->pos();
    }
}

void PlotForm::ImageMouseUp(QMouseEvent* event) {
    if (event->button() != Qt::RightButton || !dragStart_) return;
    const Frame frame = image_->frame();
    const QPoint start = *dragStart_;
    const QPointF end = event->position();
    cancelDrag();
    if (!frame.contains(end.x(), end.y())) return;
    const auto zoomed =
        DragZoomed(view(), frame.toWorld(start.x(), start.y()), frame.toWorld(end.x(), end.y()));
    if (zoomed) {
        setView(*zoomed);
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
    const bool onlyY = event->modifiers() & Qt::ShiftModifier || at.x() < frame.plot.left;
    const ZoomOf axes = onlyX == onlyY ? ZoomOf::Both : onlyX ? ZoomOf::X : ZoomOf::Y;
    setView(ZoomedView(view(), factor, fixed, axes, host_.design().fo));
    event->accept();
}

void PlotForm::ImageKeyDown(QKeyEvent* event) {
    const int step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    const int last = static_cast<int>(samples().x.size()) - 1;
    const auto moved = [&](int by) {
        const int start = sampleNearest(reading_.value_or(host_.design().fo));
        moveReading(reading_ ? start + by : start);
    };
    switch (event->key()) {
        case Qt::Key_Escape:
            return dragStart_ ? cancelDrag() : stopReading();
        case Qt::Key_Left:
            return moved(-step);
        case Qt::Key_Right:
            return moved(step);
        case Qt::Key_Home:
            return moveReading(0);
        case Qt::Key_End:
            return moveReading(last);
        case Qt::Key_Up:
            return moveReading(static_cast<int>(
                std::max_element(samples().validY().begin(), samples().validY().end()) -
                samples().validY().begin() + static_cast<std::ptrdiff_t>(samples().first)));
        default:
            event->ignore();
    }
}

int PlotForm::sampleNearest(double frequency) const {
    const auto distance = [=](double f) { return std::fabs(f - frequency); };
    const auto nearest =
        std::min_element(samples().x.begin(), samples().x.end(),
                         [&](double a, double b) { return distance(a) < distance(b); });
    return static_cast<int>(nearest - samples().x.begin());
}

void PlotForm::moveReading(int index) {
    const int last = static_cast<int>(samples().x.size()) - 1;
    const int first = std::min(static_cast<int>(samples().first), last);
    const auto at = static_cast<std::size_t>(std::clamp(index, first, last));
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
    dragStart_.reset();
    if (image_->rubberBand()) image_->setRubberBand(std::nullopt);
}

}  // namespace kelvro
