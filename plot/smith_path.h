#pragma once

#include <complex>
#include <optional>
#include <string>
#include <vector>

#include "network/network.h"
#include "network/tunable.h"

// The way of the impedance through a network on the Smith chart, from the load to the source at one
// frequency, and what dragging a node of it means. Arithmetic only.

namespace kelvro {

/// One part's piece of the way: on a circle of constant resistance for a lossless series part, of
/// constant conductance for one across, around the line's own impedance for a line.
struct PathStep {
    std::size_t element = 0;  ///< index in the ladder
    /// What dragging the node at the end of the step tunes; nothing for measured data and the like.
    std::optional<Tunable> tunable;
    std::string name;                         ///< "L1"
    std::vector<std::complex<double>> gamma;  ///< on the chart of the source, from load side on
    std::complex<double> before;              ///< impedance before the part, ohm
    std::complex<double> after;               ///< and behind it
};

/// The steps from the load to the source. Parts of one arm that lie in parallel across the line, or
/// in series in it, have steps of their own. Empty where a termination has no value at f.
std::vector<PathStep> SmithPath(const Network& network, double f);

/// The value that puts the end of a step as near to the place `gamma` as its part can: a series
/// part keeps r and takes the cursor's x, a part across keeps g and takes its b, a resistor takes r
/// or g, a line takes the angle about its own impedance. Held to the range of the part.
double DraggedValue(const Network& network, const PathStep& step, std::complex<double> gamma,
                    double f);

/// Index of the step whose end lies nearest to a place, within a reach (in units of Γ); nothing
/// when none does. Steps that cannot be dragged are passed over.
std::optional<std::size_t> NodeNear(const std::vector<PathStep>& path, std::complex<double> gamma,
                                    double reach);

}  // namespace kelvro
