#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/trace.h"
#include "plot/frame.h"

// A trace over the frequencies of a view: the samples, and between them what it takes to draw the
// curve as it is.

namespace kelvro {

/// A curve as sampled over a view: frequencies in Hz, values in the unit of its trace.
struct Samples {
    std::vector<double> x;
    std::vector<double> y;
    /// Indices of samples 0 to the view's sample count; the other points were put between them.
    std::vector<std::size_t> prescribed;
    /// Indices at which a reading stops: these samples, fo, every peak and every notch.
    std::vector<std::size_t> stops;
    std::size_t first = 0;  ///< index of the first valid sample: a response has no value at f = 0
    double turn = 0;        ///< 360 for the phase, see Curve

    std::span<const double> validX() const { return std::span(x).subspan(first); }
    std::span<const double> validY() const { return std::span(y).subspan(first); }
};

/// Samples 0 to the view's sample count, and points at fo and at each peak and notch, and as many
/// more that no straight line between neighbours is off by more than the tolerance of the trace
/// (0.1 dB), nor visibly. Resonances of any sharpness are found where the phase turns over them.
Samples Sampled(const TraceSource& source, const View& view, const Trace& trace);
Samples Sampled(const Design& state, const View& view, const Trace& trace);

/// Highest valid point; -infinity without any.
double PeakOf(const Samples& samples);

/// Places among the stops: the one nearest to a frequency, and the highest.
std::size_t NearestStop(const Samples& samples, double f);
std::size_t PeakStop(const Samples& samples);

}  // namespace kelvro
