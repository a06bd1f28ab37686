#pragma once

#include <QImage>
#include <QSize>

#include "network/network.h"

namespace kelvro {

/// A ladder in a small picture: symbols without names between two terminals, for lists to choose
/// from. `scale` pixels per logical pixel, transparent around the lines.
QImage LadderThumbnail(const std::vector<LadderElement>& ladder, QSize size, QRgb colour,
                       double scale = 1);

}  // namespace kelvro
