#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <span>

#include "network/network.h"

namespace kelvro {

/// Colours of a circuit picture; from the desktop's palette on screen, black on paper.
struct CircuitColours {
    QColor wire = Qt::black;
    QColor name = Qt::black;
    QColor value = QColor(0x00, 0x50, 0xA0);
};

/// Draws networks as vector graphics, as large as fits into the area, centred: source with its
/// resistance, the elements with name and present value, load, ground. A long ladder goes on in
/// further rows.
void PaintNetworks(QPainter& painter, const QRectF& area, std::span<const Network> networks,
                   const CircuitColours& colours = {});

/// The name of the part whose symbol or label stands at a point of such a picture; empty where none
/// does.
QString PartAt(const QRectF& area, std::span<const Network> networks, QPointF at);

/// A value with prefix and unit as people write it: "15.92 µH", "4.70 kΩ".
QString ReadableValue(double value, std::string_view unit);

}  // namespace kelvro
