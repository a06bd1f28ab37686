#pragma once

#include "optimize/descent.h"

namespace kelvro {

/// Looks for better minima than the one that the first descent from `start` found, until the run's
/// iterations are used up or further descents only confirm it: down directions of negative
/// curvature, across ridges at the side of narrow valleys, and from points beside the start and the
/// best minimum. Functions that the first descent has met as harmless cost nothing. Returns the
/// best result; `startValue` is f at the start.
DescentResult SeekOtherMinima(SearchRun& run, DescentResult best, const Vector& start,
                              double startValue);

}  // namespace kelvro
