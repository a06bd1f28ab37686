#include "ui/workbench/ladder_picture.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "plot/ladder_thumbnail.h"
#include "plot/smith_picture.h"
#include "ui/fields.h"

namespace kelvro {

LadderPicture::LadderPicture(NetworkModel& model, QWidget* parent)
    : QWidget(parent), model_(model) {
    setObjectName(QStringLiteral("LadderPicture"));
    setAccessibleName(tr("Circuit from source to load"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    SetHint(*this, tr("Drag an element to move it, the right button offers more"));
    connect(&model_, &NetworkModel::changed, this, QOverload<>::of(&QWidget::update));
}

void LadderPicture::mark(int element) {
    if (element == marked_) return;
    marked_ = element;
    update();
}

int LadderPicture::elementAt(QPointF at) const {
    for (int i = 0; i < count(); ++i) {
        const QRectF place =
            ThumbnailPlace(model_.network().ladder, size(), static_cast<std::size_t>(i));
        if (at.x() >= place.left() && at.x() < place.right()) return i;
    }
    return -1;
}

QPoint LadderPicture::placeOf(int element) const {
    return ThumbnailPlace(model_.network().ladder, size(), static_cast<std::size_t>(element))
        .center()
        .toPoint();
}

void LadderPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto& ladder = model_.network().ladder;
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    for (std::size_t i = 0; i < ladder.size(); ++i) {
        const QRectF place = ThumbnailPlace(ladder, size(), i);
        const Rgb colour = ElementColour(i, dark);
        QColor fill(colour.red, colour.green, colour.blue);
        // A line in the element's colour; the chosen one stands on a field of it.
        painter.fillRect(QRectF(place.left() + 2, height() - 3, place.width() - 4, 3), fill);
        fill.setAlpha(50);
        if (static_cast<int>(i) == marked_) painter.fillRect(place, fill);
    }
    painter.drawImage(0, 0,
                      LadderThumbnail(ladder, size(), palette().color(QPalette::WindowText).rgb(),
                                      devicePixelRatioF()));
    if (grabbed_ < 0 || target_ < 0 || target_ == grabbed_) return;
    const QRectF place = ThumbnailPlace(ladder, size(), static_cast<std::size_t>(target_));
    const double x = target_ > grabbed_ ? place.right() : place.left();
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawLine(QPointF(x, 2), QPointF(x, height() - 4));
}

void LadderPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    grabbed_ = target_ = elementAt(event->position());
    if (grabbed_ >= 0) emit chosen(grabbed_);
}

void LadderPicture::mouseMoveEvent(QMouseEvent* event) {
    if (grabbed_ < 0) return;
    target_ = elementAt(event->position());
    update();
}

void LadderPicture::mouseReleaseEvent(QMouseEvent*) {
    const int from = std::exchange(grabbed_, -1);
    const int to = std::exchange(target_, -1);
    if (from >= 0 && to >= 0 && from != to) emit moved(from, to);
    update();
}

void LadderPicture::mouseDoubleClickEvent(QMouseEvent* event) {
    grabbed_ = -1;
    const int element = elementAt(event->position());
    if (element >= 0) emit editWanted(element);
}

void LadderPicture::contextMenuEvent(QContextMenuEvent* event) {
    const int element = elementAt(event->pos());
    if (element < 0) return;
    emit chosen(element);
    emit menuWanted(element, event->globalPos());
}

}  // namespace kelvro
