#pragma once

#include <span>
#include <vector>

#include "network/network.h"

namespace kelvro {

/// Frequencies that cover a band with its ends, rising: evenly spaced, or evenly on a logarithmic
/// scale where the band spans more than a factor of 4. A band that begins at 0 begins a little
/// above.
std::vector<double> FrequenciesIn(const FrequencyBand& band, std::size_t points);

/// The same for each of several bands, one behind the other.
std::vector<double> FrequenciesIn(std::span<const FrequencyBand> bands, std::size_t pointsPerBand);

/// The middle of all bands on a logarithmic scale, Hz; of bands from 0 on their upper end.
double MiddleOf(std::span<const FrequencyBand> bands);

}  // namespace kelvro
