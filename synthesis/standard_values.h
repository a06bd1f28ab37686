#pragma once

#include "core/result.h"
#include "core/series.h"
#include "network/network.h"
#include "network/tunable.h"
#include "synthesis/owned_parts.h"
#include "synthesis/value_limits.h"

// The best network of parts that can be bought.

namespace kelvro {

/// What parts of a kind may be. Series::None leaves them free.
struct StandardOptions {
    Series resistors = Series::None;
    Series inductors = Series::E24;
    Series capacitors = Series::E24;
    OwnedParts owned = {};        ///< a list that is not empty counts instead of the series
    ValueLimits inductance = {};  ///< values beyond them are not chosen
    ValueLimits capacitance = {};
    std::vector<Tunable> locked = {};  ///< numbers that stay where they are
    bool operator==(const StandardOptions&) const = default;
};

struct StandardNetwork {
    Network network;
    double worstGT = 0;    ///< in the bands, a ratio
    double roundedGT = 0;  ///< with each part rounded to its nearest value by itself
};

/// The values of a ladder's parts that together keep the worst gain in the bands highest, out of
/// the nearest ones of their series or list; parts that stay free, lines and transformers are
/// optimized anew. Never worse than rounding part by part. Fails where there is no band, no part to
/// choose, or no value within the limits.
Result<StandardNetwork> WithStandardValues(const Network& network, const StandardOptions& options);

}  // namespace kelvro
