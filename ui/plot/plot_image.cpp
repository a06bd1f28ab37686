#include "ui/plot/plot_image.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/language.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// What is written in a picture, in the language of the window that shows it.
void Translate(Picture& picture) {
    if (!IsTranslated()) return;
    const auto show = [](std::string& text) { text = Shown(text).toStdString(); };
    for (std::string* text :
         {&picture.title, &picture.xName, &picture.yName, &picture.rightName, &picture.note})
        show(*text);
    for (LegendEntry& entry : picture.legend) show(entry.text);
    for (LevelMark& mark : picture.marks) show(mark.label);
}

/// The plots' own size stands beside the 9 points, at 96 dots per inch, of a plain desktop.
FramePainter PainterFor(const QFont& font) {
    constexpr double kDesktopPixels = 12;
    const QFontInfo desktop(font);
    const double pixels = FramePainter::kFontPixels * desktop.pixelSize() / kDesktopPixels;
    return FramePainter(std::max(6, qRound(pixels)), desktop.family());
}

}  // namespace

PlotImage::PlotImage(QWidget* parent) : QWidget(parent), painter_(PainterFor(font())) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PlotImage::setPicture(Picture picture) {
    Translate(picture);
    picture_ = std::move(picture);
    frame_ = painter_.layout(size(), picture_).frame;
    drawn_ = {};
    update();
}

void PlotImage::addCurve(Curve curve) {
    if (!drawn_.isNull()) {
        QPainter painter(&drawn_);
        painter_.drawCurve(painter, frame_, curve, picture_.dark);
    }
    picture_.curves.push_back(std::move(curve));
    update();
}

void PlotImage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    painter_ = PainterFor(font());
    frame_ = painter_.layout(size(), picture_).frame;
    drawn_ = {};
    update();
}

QImage PlotImage::toImage(double scale) const {
    QImage image((QSizeF(size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    painter_.draw(painter, size(), picture_);
    return image;
}

void PlotImage::setRubberBand(std::optional<QRect> band) {
    rubberBand_ = band;
    update();
}

void PlotImage::setCross(std::optional<QPointF> cross) {
    cross_ = cross;
    update();
}

void PlotImage::render() {
    const double ratio = devicePixelRatioF();
    drawn_ = QPixmap((QSizeF(size()) * ratio).toSize());
    drawn_.setDevicePixelRatio(ratio);
    QPainter painter(&drawn_);
    painter_.draw(painter, size(), picture_);
}

void PlotImage::paintEvent(QPaintEvent*) {
    if (drawn_.isNull() || drawn_.devicePixelRatio() != devicePixelRatioF()) render();
    QPainter painter(this);
    painter.drawPixmap(0, 0, drawn_);
    if (rubberBand_) {
        painter.fillRect(*rubberBand_, QColor(0, 90, 200, 28));
        painter.setPen(QPen(QColor(0, 90, 200), 1, Qt::DashLine));
        painter.drawRect(rubberBand_->normalized().adjusted(0, 0, -1, -1));
    }
    if (cross_) {
        const auto& plot = frame_.plot;
        painter.setPen(QPen(QColor(160, 0, 120), 1, Qt::DotLine));
        painter.drawLine(QPointF(cross_->x(), plot.top), QPointF(cross_->x(), plot.bottom));
        painter.drawLine(QPointF(plot.left, cross_->y()), QPointF(plot.right, cross_->y()));
    }
}

void PlotImage::resizeEvent(QResizeEvent*) {
    frame_ = painter_.layout(size(), picture_).frame;
    drawn_ = {};
    emit resized();
}

QCursor PlotCursor() {
    constexpr int kMiddle = 15;
    QPixmap shape(2 * kMiddle + 1, 2 * kMiddle + 1);
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    // White beside black keeps the cross visible on every background.
    for (const auto& [colour, width] : {std::pair(Qt::white, 3), std::pair(Qt::black, 1)}) {
        painter.setPen(QPen(colour, width));
        painter.drawLine(kMiddle, 3, kMiddle, kMiddle - 3);
        painter.drawLine(kMiddle, kMiddle + 3, kMiddle, 2 * kMiddle - 3);
        painter.drawLine(3, kMiddle, kMiddle - 3, kMiddle);
        painter.drawLine(kMiddle + 3, kMiddle, 2 * kMiddle - 3, kMiddle);
    }
    painter.setPen(Qt::black);
    painter.drawPoint(kMiddle, kMiddle);
    painter.end();
    return QCursor(shape, kMiddle, kMiddle);
}

}  // namespace kelvro
