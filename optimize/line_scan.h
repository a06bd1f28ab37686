#pragma once

#include <vector>

#include "optimize/valley.h"

namespace kelvro {

/// Points where f is lower than on both sides of it along lines through `centre`, where f has the
/// value given, apart from the dip that the centre itself may lie in: the lowest ones, lowest
/// first, at most `most`. Lines are followed both ways, over many times the width of a valley, as
/// minima of networks lie orders of magnitude apart. Of dips of one value only one is kept; they
/// tend to be mirror images that lead to the same minimum. Every call counts as one of the line
/// search.
std::vector<ValuedPoint> DipsAlongLines(SearchRun& run, const Vector& centre, double f,
                                        const std::vector<Vector>& directions, std::size_t most);

/// The lowest of points on both sides along a line: in steps of `step` up to `reach`, then by
/// parabolas around the lowest one.
ValuedPoint LowestOnLine(SearchRun& run, const ValuedPoint& from, const Vector& direction,
                         double reach, double step);

/// Directions in which all parameters move alike, each up or down: all of them for up to four
/// parameters, eight for more.
std::vector<Vector> Diagonals(Eigen::Index parameters);

}  // namespace kelvro
