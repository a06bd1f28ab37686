#pragma once

#include <QImage>
#include <QSize>

#include "network/network.h"

namespace kelvro {

/// GT of a network over a range of frequencies in a small picture, from `lowestDb` at the bottom to
/// 0 dB at the top, its bands shaded: for lists to choose from. Transparent around the curve.
QImage GainThumbnail(const Network& network, FrequencyBand range, double lowestDb, QSize size,
                     QRgb colour, double scale = 1);

}  // namespace kelvro
