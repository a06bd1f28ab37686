#pragma once

#include <string>
#include <vector>

#include "analysis/trace.h"
#include "design/design.h"
#include "plot/curve_sampling.h"
#include "plot/markers.h"
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

/// A design kept to compare others with, as a curve of the leading trace.
struct HeldCurve {
    std::string name;
    Design design;
};

/// What a plot shows of a design.
struct ResponsePlot {
    TraceList traces;  ///< at least one; the first leads
    View view;
    CurveLook look = CurveLook::Line;
    bool harmonics = true;  ///< lines at the multiples of fo
    bool levels = true;     ///< -1 dB and -3 dB below the peak
    bool edges = false;     ///< where the curve falls below these levels
    bool dark = false;
    Markers markers = {};
    std::vector<HeldCurve> held = {};
    std::string note = {};  ///< why there is nothing to see; the curves are grey then
};

/// Why a design's curves mean nothing: it was refused, or its page has no response. Empty: they do.
std::string NoteFor(const Design& design, bool refused);

/// The curves of a plot, in the order of its traces.
std::vector<Samples> SampledTraces(const Design& state, const ResponsePlot& plot);

/// The whole picture: curves, what is held and marked, harmonics of fo, and the -1 dB and -3 dB
/// levels where the leading trace has them.
Picture ResponsePicture(const Design& state, const ResponsePlot& plot);
Picture ResponsePicture(const Design& state, const ResponsePlot& plot,
                        const std::vector<Samples>& samples);

/// The bands at -1 dB and -3 dB as sentences; empty for a trace without levels.
std::vector<std::string> EdgeTexts(const Design& state, const ResponsePlot& plot,
                                   const std::vector<Samples>& samples);

/// The status line for a place in the plot: the leading trace there, the others as their curves
/// run; v is the design's V2/V1 at fo.
std::string ReadOut(const Design& design, double v, const TraceList& traces, WorldPoint place);

}  // namespace kelvro
