#include "ui/workbench/ladder_picture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "plot/ladder_thumbnail.h"
#include "plot/smith_picture.h"
#include "ui/fields.h"
#include "ui/workbench/element_palette.h"

namespace kelvro {

namespace {

/// Of an element's width at each side: there a drop goes beside it.
constexpr double kBesideShare = 0.25;
constexpr QSize kCarriedSize(60, 44);  // of what hangs at the pointer

}  // namespace

LadderPicture::LadderPicture(NetworkModel& model, QWidget* parent)
    : QWidget(parent), model_(model) {
    setObjectName(QStringLiteral("LadderPicture"));
    setAccessibleName(tr("Circuit from source to load"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    SetHint(*this, tr("Drag an element between others to move it, onto another to swap them, onto "
                      "Delete to remove it; with Ctrl a copy. A kind dragged here from above "
                      "replaces the element it is dropped onto. The right button offers more"));
    connect(&model_, &NetworkModel::changed, this, QOverload<>::of(&QWidget::update));
}

LadderPicture::~LadderPicture() {
    if (carried_) release();
}

void LadderPicture::mark(int element) {
    if (element == marked_) return;
    marked_ = element;
    update();
}

QRectF LadderPicture::placeRect(int element) const {
    return ThumbnailPlace(model_.network().ladder, size(), static_cast<std::size_t>(element));
}

int LadderPicture::elementAt(QPointF at) const {
    for (int i = 0; i < count(); ++i) {
        const QRectF place = placeRect(i);
        if (at.x() >= place.left() && at.x() < place.right()) return i;
    }
    return -1;
}

QPoint LadderPicture::placeOf(int element) const {
    return placeRect(element).center().toPoint();
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
    painter.drawImage(0, 0, drawing());
    paintTarget(painter);
}

const QImage& LadderPicture::drawing() {
    Drawn wanted{model_.network().ladder, size(), palette().color(QPalette::WindowText).rgb(),
                 devicePixelRatioF()};
    for (const Tunable& at : TunablesOf(wanted.ladder)) SetValue(wanted.ladder, at, 1);
    if (drawing_.isNull() || wanted != drawn_) {
        drawing_ = LadderThumbnail(wanted.ladder, wanted.size, wanted.colour, wanted.ratio);
        drawn_ = std::move(wanted);
    }
    return drawing_;
}

/// A frame around what would be replaced, a bar where something would come between.
void LadderPicture::paintTarget(QPainter& painter) const {
    if (!target_) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    const int last = count() - 1;
    if (target_->onto) {
        painter.drawRect(placeRect(target_->element).adjusted(1, 1, -1, -5));
        return;
    }
    const double x = last < 0                   ? width() / 2.0
                     : target_->element <= last ? placeRect(target_->element).left()
                                                : placeRect(last).right();
    painter.drawLine(QPointF(x, 2), QPointF(x, height() - 4));
}

void LadderPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    pressed_ = event->position();
    grabbed_ = elementAt(pressed_);
    if (grabbed_ >= 0) emit chosen(grabbed_);
}

void LadderPicture::mouseMoveEvent(QMouseEvent* event) {
    const double way = (event->position() - pressed_).manhattanLength();
    if (grabbed_ < 0 || way < QApplication::startDragDistance()) return;
    const int from = std::exchange(grabbed_, -1);
    carry({from, nullptr}, model_.network().ladder[static_cast<std::size_t>(from)]);
    carryTo(event->globalPosition().toPoint(), event->modifiers().testFlag(Qt::ControlModifier));
}

void LadderPicture::mouseReleaseEvent(QMouseEvent*) {
    grabbed_ = -1;
}

// ---------------------------------------------------------------- drags

void LadderPicture::carry(const ElementKind& kind) {
    carry({-1, &kind}, kind.make(1, 1));
}

void LadderPicture::carry(Carried what, const LadderElement& drawn) {
    carried_ = what;
    const QPixmap symbol = QPixmap::fromImage(ElementSymbol(
        drawn, kCarriedSize, palette().color(QPalette::WindowText).rgb(), devicePixelRatioF()));
    QApplication::setOverrideCursor(QCursor(symbol));
    qApp->installEventFilter(this);
}

LadderPicture::Carried LadderPicture::release() {
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
    target_.reset();
    if (bin_) bin_->setDown(false);
    update();
    return *std::exchange(carried_, std::nullopt);
}

std::optional<LadderPlace> LadderPicture::targetAt(QPoint global, bool copy) const {
    const QPointF at = mapFromGlobal(global);
    if (!rect().contains(at.toPoint())) return std::nullopt;
    LadderPlace place{count() > 0 && at.x() >= placeRect(0).left() ? count() : 0, false};
    if (const int over = elementAt(at); over >= 0) {
        const QRectF whole = placeRect(over);
        const double part = (at.x() - whole.left()) / whole.width();
        place = {over + (part > 1 - kBesideShare ? 1 : 0),
                 part >= kBesideShare && part <= 1 - kBesideShare};
    }
    const int from = carried_->from;
    const bool stays = place.element == from || (place.element == from + 1 && !place.onto);
    if (from >= 0 && stays && (place.onto || !copy)) return std::nullopt;
    return place;
}

bool LadderPicture::overBin(QPoint global) const {
    return bin_ && carried_->from >= 0 && bin_->rect().contains(bin_->mapFromGlobal(global));
}

void LadderPicture::carryTo(QPoint global, bool copy) {
    const auto target = targetAt(global, copy);
    if (bin_) bin_->setDown(overBin(global));
    if (target == target_) return;
    target_ = target;
    update();
}

void LadderPicture::drop(QPoint global, bool copy) {
    const auto target = targetAt(global, copy);
    const bool away = overBin(global);
    const Carried what = release();
    if (what.from >= count()) return;
    if (away) {
        emit thrownAway(what.from);
    } else if (target && what.kind) {
        emit kindDropped(*what.kind, *target);
    } else if (target) {
        emit dropped(what.from, *target, copy);
    }
}

bool LadderPicture::eventFilter(QObject* watched, QEvent* event) {
    // A window passes its events on to the widget that they are for; there they count.
    if (!carried_ || !watched->isWidgetType()) return QWidget::eventFilter(watched, event);
    const auto copies = [](const QInputEvent* input) {
        return input->modifiers().testFlag(Qt::ControlModifier);
    };
    switch (event->type()) {
        case QEvent::MouseMove:
            carryTo(static_cast<QMouseEvent*>(event)->globalPosition().toPoint(),
                    copies(static_cast<QMouseEvent*>(event)));
            return true;
        case QEvent::MouseButtonRelease:
            drop(static_cast<QMouseEvent*>(event)->globalPosition().toPoint(),
                 copies(static_cast<QMouseEvent*>(event)));
            return true;
        case QEvent::ShortcutOverride:
            event->accept();
            return true;
        case QEvent::KeyPress:
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) release();
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
    }
}

// ---------------------------------------------------------------- the rest

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
