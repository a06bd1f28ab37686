#pragma once

#include <QByteArray>
#include <QImage>

#include "core/result.h"

namespace kelvro {

/// A picture as the bytes of a file, or the reason why there are none.
using Encoded = Result<QByteArray>;

/// JPEG by libjpeg: quality 90 with full colour resolution, since lines and texts fray at less.
Encoded EncodeJpeg(const QImage& image);

/// GIF by giflib, at most 256 colours.
Encoded EncodeGif(const QImage& image);

}  // namespace kelvro
