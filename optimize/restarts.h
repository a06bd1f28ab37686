#pragma once

#include "optimize/descent.h"

namespace kelvro {

/// Looks for better minima than the one that the first descent found, until the run's iterations
/// are used up or further descents only confirm it: down directions of negative curvature, across
/// ridges at the side of narrow valleys, from dips on long lines through the best minimum and
/// through the origin, and from points at random around the origin. Functions that the first
/// descent has met as harmless cost nothing. Returns the best result; `startValue` is f at the
/// start.
DescentResult SeekOtherMinima(SearchRun& run, DescentResult best, const Vector& origin,
                              double startValue);

}  // namespace kelvro
