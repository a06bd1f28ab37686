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

void CircuitView::show(std::vector<Network> networks) {
    networks_ = std::move(networks);
    update();
}

void CircuitView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::Text);
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    const CircuitColours colours{ink, ink,
                                 dark ? QColor(0x8A, 0xC4, 0xFF) : QColor(0x00, 0x50, 0xA0)};
    PaintNetworks(painter, QRectF(rect()).adjusted(6, 6, -6, -6), networks_, colours);
}

}  // namespace kelvro
