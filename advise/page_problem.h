#pragma once

#include "core/result.h"
#include "design/design.h"
#include "network/network.h"
#include "synthesis/search.h"

namespace kelvro {

/// What a matching page is asked for, as a problem for the search over bands: R1 to R2 over a band
/// as wide as fo/Q with fo in its geometric middle, with what the page has designed between them.
/// Fails on pages that match nothing.
Result<Network> PageProblem(const Design& design);

/// Losses of a search's parts as the pages reckon them: the element Q of inductors and capacitors.
SearchLosses LossesOf(const Design& design);

/// The band of this width with fo in its geometric middle; edges have six digits.
FrequencyBand BandAround(double fo, double width);

}  // namespace kelvro
