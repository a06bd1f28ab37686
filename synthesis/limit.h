#pragma once

#include <span>

#include "core/result.h"
#include "network/network.h"

// How well a load can be matched over a band at all.

namespace kelvro {

/// The worst transducer gain in the bands that no lossless network, of whatever size and shape,
/// surpasses.
struct GainLimit {
    double GT = 1;  ///< a ratio, at most 1
    /// The source is no fixed resistance: the smaller of the limits that its own side and the
    /// load's side set for themselves. No network surpasses it either as long as the reactance is
    /// one that a circuit can have, but it need not be within reach.
    bool estimate = false;
};

/// The limit of a load (ohm at each frequency of the bands) seen from a source. Solved as a Nehari
/// problem on the unit disc after J. C. Allen and D. Healy, "Hyperbolic geometry, Nehari's theorem,
/// electric circuits, and analog signal processing", MSRI Publications 46 (2003). Accurate to about
/// 1e-4; the map is refined by itself where bands are narrow. Fails for bands that are none, for
/// terminations without a value in them (measured data that end), and for resistances not above 0.
Result<GainLimit> GainLimitOf(const Termination& source, const Termination& load,
                              std::span<const FrequencyBand> bands);

}  // namespace kelvro
