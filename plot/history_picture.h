#pragma once

#include <string>
#include <vector>

#include "optimize/page_optimizer.h"
#include "plot/picture.h"

// The histories of an optimization as plots over the iterations. The runs of one optimization
// follow each other on one axis.

namespace kelvro {

enum class HistoryPlot : unsigned char {
    Gradient,
    Function,
    ParameterChanges,
    FunctionCalls,
    StepSize,
    Parameters
};

struct HistoryStyle {
    bool axisNames = true;        ///< names beside the axes
    bool successive = false;      ///< parameter changes from iteration to iteration, not to the end
    bool logarithmicStep = true;  ///< step size on a logarithmic axis
};

/// State behind one iteration of the joined runs.
struct HistoryPoint {
    int iteration = 0;
    double gradient = 0;  ///< |g|
    int calls = 0;        ///< goal calls so far
    double excess = 0;    ///< f less the achieved goal
    double t = 0;
    std::vector<double> x;
    std::vector<double> toFinal;  ///< x less the final x
    std::vector<double> toNext;   ///< x less the next x; 0 at the end
};

std::vector<HistoryPoint> JoinedHistory(const PageOptimization& optimization);

Picture HistoryPicture(HistoryPlot plot, const std::vector<HistoryPoint>& history,
                       const HistoryStyle& style);

}  // namespace kelvro
