#pragma once

#include <span>

#include "core/result.h"
#include "network/network.h"
#include "network/tunable.h"

namespace kelvro {

/// Lowest transducer gain of a network over its bands, a ratio; NaN where a band has no value.
/// Looked at on 41 points a band.
double WorstGain(const Network& network);

/// The network with its numbers moved from where they stand so that the worst gain in its bands (at
/// its design frequency where it has no bands) rises: a local search, no other shape and no jump to
/// another design. Never worse than before. Numbers in `locked` stay. Refused where the network has
/// nothing to move or no value in its bands.
Result<Network> Refined(const Network& network, std::span<const Tunable> locked);

}  // namespace kelvro
