#pragma once

#include <string>
#include <vector>

#include "analysis/trace.h"
#include "design/design.h"
#include "plot/curve_sampling.h"
#include "plot/picture.h"

// The response of a design as a picture; the windows and the command line draw the same.

namespace kelvro {

/// The states through which a window's button steps.
enum class CurveLook { Line, LineWithDots, Alternative };
CurveLook NextLook(CurveLook look);

/// The view with which traces open: Hz, and the ranges of the leading trace and of the right axis.
View DefaultView(const TraceList& traces, const TraceSource& source);
View DefaultView(const Trace& trace, const Design& state);

/// The view with the right axis that other traces need: it stays where one is there already, it
/// opens with its range where there is none, and it goes where none is needed.
View WithRightAxis(View view, const TraceList& before, const TraceList& traces,
                   const TraceSource& source);

/// The trace of a design at one frequency.
double ValueAt(const Design& state, const Trace& trace, double f);

/// The view with each y axis scaled to the traces that it carries; zeros of the response (hundreds
/// of decades down) do not count.
View AutoscaledToTraces(const Design& state, const TraceList& traces, View view);

/// What a plot shows of a design.
struct ResponsePlot {
    TraceList traces;  ///< at least one; the first leads
    View view;
    CurveLook look = CurveLook::Line;
};

/// The curves of a plot, in the order of its traces.
std::vector<Samples> SampledTraces(const Design& state, const ResponsePlot& plot);

/// The whole picture: curves, harmonics of fo, and the -1 dB and -3 dB levels where the leading
/// trace has them.
Picture ResponsePicture(const Design& state, const ResponsePlot& plot);
Picture ResponsePicture(const Design& state, const ResponsePlot& plot,
                        const std::vector<Samples>& samples);

/// The thin grey curve of a Monte Carlo run.
Curve ScatterCurve(const Samples& samples);

/// The status line for a place in the plot: the leading trace there, the others as their curves
/// run; v is the design's V2/V1 at fo.
std::string ReadOut(const Design& design, double v, const TraceList& traces, WorldPoint place);

}  // namespace kelvro
