#pragma once

#include <QSize>

#include "plot/smith_picture.h"

class QPainter;

namespace kelvro {

/// Draws a Smith chart with any QPainter: screen, bitmap, SVG, PDF, paper. Sizes are logical
/// pixels. Returns the frame by which pixels are converted to reflections.
ChartFrame DrawSmithChart(QPainter& painter, QSize size, const SmithPicture& picture,
                          int fontPixels = 11);

/// The two halves of that, for a view whose grids stay while what stands on them changes: first
/// background, grids and rim, then all the rest.
void DrawSmithGround(QPainter& painter, QSize size, const SmithPicture& picture,
                     int fontPixels = 11);
ChartFrame DrawSmithContents(QPainter& painter, QSize size, const SmithPicture& picture,
                             int fontPixels = 11);

}  // namespace kelvro
