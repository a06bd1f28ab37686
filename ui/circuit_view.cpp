#include "ui/circuit_view.h"

#include <QPainter>
#include <QPalette>
#include <utility>

namespace kelvro {

CircuitView::CircuitView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void CircuitView::show(std::vector<Circuit> circuits, const CircuitEnds& ends) {
    circuits_ = std::move(circuits);
    ends_ = ends;
    update();
}

void CircuitView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::Text);
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    const CircuitColours colours{ink, ink,
                                 dark ? QColor(0x8A, 0xC4, 0xFF) : QColor(0x00, 0x50, 0xA0)};
    PaintCircuits(painter, QRectF(rect()).adjusted(6, 6, -6, -6), circuits_, ends_, colours);
}

}  // namespace kelvro
