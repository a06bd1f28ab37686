#pragma once

#include <QSize>

#include "plot/smith_picture.h"

class QPainter;

namespace kelvro {

/// Draws a Smith chart with any QPainter: screen, bitmap, SVG, PDF, paper. Sizes are logical
/// pixels. Returns the frame by which pixels are converted to reflections.
ChartFrame DrawSmithChart(QPainter& painter, QSize size, const SmithPicture& picture,
                          int fontPixels = 11);

}  // namespace kelvro
