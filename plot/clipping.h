#pragma once

#include <span>
#include <vector>

#include "plot/frame.h"

namespace kelvro {

/// A curve as it lies in the plot area: runs of two or more points in pixels, with fractions. Lines
/// are cut where they cross the border; a sample without a place (not finite, or not positive on a
/// logarithmic axis) ends a run. So does a jump of more than half a `turn` (see Curve): the line
/// goes on to half a turn and comes back in from the other side.
std::vector<std::vector<WorldPoint>> ClippedRuns(const Frame& frame, std::span<const double> x,
                                                 std::span<const double> y, double turn = 0);

}  // namespace kelvro
