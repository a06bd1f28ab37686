#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plot/curve_sampling.h"
#include "plot/picture.h"

// What is read off a plot and stays: markers on the curve, and the edges of the band around its
// peak.

namespace kelvro {

/// Frequencies at which markers stand, in Hz. They keep their places and numbers when the design
/// changes.
using Markers = std::vector<double>;

/// The marker nearest to a frequency, by ratio; nothing without markers.
std::optional<std::size_t> NearestMarker(const Markers& markers, double f);

/// The pointer of a picture that the mouse touches; nothing where there is none.
std::optional<std::size_t> PointerAt(const Frame& frame, const std::vector<Pointer>& pointers,
                                     double px, double py);

/// Where a curve has fallen by `drop` dB from its highest point in view.
struct PassEdges {
    double drop = 0;
    double peak = 0;  ///< Hz
    double low = 0;   ///< Hz; NaN where the curve does not fall so far within its range
    double high = 0;

    double width() const { return high - low; }
    /// Centre frequency by the width: for a single resonance and -3 dB its loaded Q.
    double loadedQ() const { return peak / width(); }
};
/// Exact between the points of the curve.
PassEdges EdgesOf(const TraceSource& source, const Trace& trace, const Samples& samples,
                  double drop);

/// What the markers say, as a table of texts: number, f, the traces' values there, and from the
/// second row on the differences to the first marker.
struct MarkerTable {
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
};
MarkerTable MarkerTableOf(const TraceSource& source, const TraceList& traces,
                          const Markers& markers);

/// The table as sentences, one for each marker, for pictures: "1: f=10.00MHz, GT=-0.310dB".
std::vector<std::string> MarkerLines(const TraceSource& source, const TraceList& traces,
                                     const Markers& markers);

/// "-3 dB: 9.12 MHz to 10.95 MHz, width 1.83 MHz, loaded Q 5.46"; an edge outside of the curve's
/// range is said to lie there.
std::string EdgesText(const PassEdges& edges);

/// Adds the markers to a picture of the traces, on each of their curves.
void AddMarkers(Picture& picture, const TraceSource& source, const TraceList& traces,
                const Markers& markers);

/// Adds the edges to a picture whose leading trace they belong to.
void AddEdges(Picture& picture, const PassEdges& edges);

}  // namespace kelvro
