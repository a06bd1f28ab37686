#pragma once

#include <vector>

#include "optimize/search_run.h"

namespace kelvro {

/// A point where f is lower than on both sides of it along a line.
struct Dip {
    Vector x;
    double f;
};

/// Dips on the lines through `centre`, where f has the value given, apart from the one that the
/// centre itself may lie in: the few lowest, lowest first. Lines are followed both ways, over many
/// times the width of a valley, as minima of networks lie orders of magnitude apart. Of dips of one
/// value only one is kept; they tend to be mirror images that lead to the same minimum. Every call
/// counts as one of the line search.
std::vector<Dip> DipsAlongLines(SearchRun& run, const Vector& centre, double f,
                                const std::vector<Vector>& directions);

/// Directions in which all parameters move alike, each up or down: all of them for up to four
/// parameters, eight for more.
std::vector<Vector> Diagonals(Eigen::Index parameters);

}  // namespace kelvro
