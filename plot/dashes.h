#pragma once

#include <span>
#include <vector>

#include "plot/frame.h"

namespace kelvro {

/// The dashes of a line: the runs of points that a pattern of lengths (dash, gap, dash, gap, ...)
/// leaves of it. A pattern without extent gives the whole line; a line of more than 100000 dashes
/// too.
std::vector<std::vector<WorldPoint>> Dashes(std::span<const WorldPoint> line,
                                            std::span<const double> pattern);

}  // namespace kelvro
