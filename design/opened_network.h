#pragma once

#include "core/result.h"
#include "design/design.h"
#include "network/network.h"

namespace kelvro {

/// A page's design as a network to go on working with: the parts as its fields show them, with the
/// losses that the page reckons with, between its resistances, at fo. Its response is the page's,
/// swapped ones too. What is connected at one end only becomes the load of R1; an output stage is
/// its load network, driven by a resistance like its load. A failure is one line for the user:
/// pages without a network, or without a frequency.
Result<Network> OpenedNetwork(const Design& design);

}  // namespace kelvro
