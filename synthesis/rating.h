#pragma once

#include <optional>
#include <vector>

#include "synthesis/limit.h"
#include "synthesis/search.h"
#include "synthesis/standard_values.h"
#include "synthesis/yield.h"

// What building the networks of a search means.

namespace kelvro {

struct RatingOptions {
    std::optional<StandardOptions> standard = {};  ///< choose values of parts on sale
    YieldOptions yield = {};                       ///< its leastGT does not count
    /// Worst gain that a build has to keep, dB; otherwise a little below the best network's.
    std::optional<double> yieldLimitDb = {};
    bool operator==(const RatingOptions&) const = default;
};

struct RatedNetwork {
    FoundNetwork found;
    std::optional<StandardNetwork> standard;
    std::optional<YieldReport> yield;

    /// As it is to be built: with standard values where they were chosen.
    const Network& asBuilt() const { return standard ? standard->network : found.network; }
};

struct Rating {
    std::vector<RatedNetwork> networks;  ///< in the order of the search
    double leastGT = 0;                  ///< that the builds had to keep, a ratio
};

/// Rates networks, of which the first one is the best.
Rating Rated(const std::vector<FoundNetwork>& networks, const RatingOptions& options);

/// What a build has to keep, a ratio, where the best network has this worst gain.
double LeastGTOf(double bestGT, const RatingOptions& options);

/// A limit beside what was found: an estimate that was surpassed was too low.
GainLimit LimitBeside(GainLimit limit, double bestGT);

}  // namespace kelvro
