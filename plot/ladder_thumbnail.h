#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>

#include "network/network.h"

namespace kelvro {

/// A ladder in a small picture: symbols without names between two terminals, for lists to choose
/// from. `scale` pixels per logical pixel, transparent around the lines.
QImage LadderThumbnail(const std::vector<LadderElement>& ladder, QSize size, QRgb colour,
                       double scale = 1);

/// One element likewise, its symbol as large as it goes.
QImage ElementSymbol(const LadderElement& element, QSize size, QRgb colour, double scale = 1);

/// Where element number `index` stands in that picture, from top to bottom.
QRectF ThumbnailPlace(const std::vector<LadderElement>& ladder, QSize size, std::size_t index);

}  // namespace kelvro
