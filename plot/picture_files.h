#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <functional>

#include "plot/picture_names.h"
#include "plot/raster_encoders.h"

class QPainter;

namespace kelvro {

/// Draws a picture of a size in logical pixels.
using Drawing = std::function<void(QPainter&, QSize)>;

/// The drawing on white as a bitmap of `scale` pixels per logical pixel; a null image when the size
/// is empty or too large.
QImage ImageOf(const Drawing& drawing, QSize size, double scale = 1);

/// The drawing as the content of a file. Vector formats measure 96 logical pixels per inch; the
/// metafile's box has the size of its header. Raster formats get `scale` pixels per logical pixel.
Encoded EncodePicture(PictureFormat format, QSize size, const Drawing& drawing, double scale = 1);

/// Writes the drawing to a file: whole or, with the message for the user as result, not at all.
Status SavePicture(const QString& path, PictureFormat format, QSize size, const Drawing& drawing,
                   double scale = 1);

}  // namespace kelvro
