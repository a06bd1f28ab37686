#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/result.h"
#include "network/network.h"

// What measured data allow: where a network can be computed at all, and what to say about it.

namespace kelvro {

/// All measured data of an impedance or a network, each file once, from source to load.
std::vector<std::shared_ptr<const PortData>> DataOf(const Impedance& impedance);
std::vector<std::shared_ptr<const PortData>> DataOf(const Network& network);

/// Other data in the place of those of a network that `other` answers differently for.
void ReplaceData(Network& network, const std::function<std::shared_ptr<const PortData>(
                                       const std::shared_ptr<const PortData>&)>& other);

/// Can [low, high] be computed? A failure names the first data that do not cover it, with their
/// range.
Status CheckRange(const Network& network, double low, double high);

/// The part of [low, high] that all data cover; nothing where they leave none.
std::optional<FrequencyBand> CoveredRange(const Network& network, double low, double high);

/// What a reader should know of the data between two frequencies, a line each: samples that turn
/// by more than 30° from one to the next, and such as no passive device has.
std::vector<std::string> DataWarnings(const PortData& data, double low, double high);

}  // namespace kelvro
