#pragma once

#include <span>
#include <string>
#include <vector>

#include "plot/response_picture.h"
#include "plot/scatter.h"

// What a plot shows, as numbers for other programs.

namespace kelvro {

/// Monte Carlo runs of a plot, and which of it is drawn.
struct ShownRuns {
    std::span<const Design> designs;
    bool curves = false;
    bool envelope = false;
};

/// A line of names, then one line for each point of the drawn curves: f in Hz, the traces, the held
/// curves and what is shown of the runs. Numbers read back exactly; where there is none the cell is
/// empty. Names that hold the separator or quotes are quoted. Lines end with LF.
std::string ShownNumbers(const Design& state, const ResponsePlot& plot,
                         const std::vector<Samples>& samples, const ShownRuns& runs = {},
                         char separator = ',');

}  // namespace kelvro
