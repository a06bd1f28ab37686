#include "synthesis/rating.h"

#include <algorithm>
#include <cmath>

namespace kelvro {

namespace {

/// A build may fall so far behind the best network's worst gain, dB, where nobody says otherwise.
constexpr double kYieldMarginDb = 0.5;

}  // namespace

double LeastGTOf(double bestGT, const RatingOptions& options) {
    if (options.yieldLimitDb) return std::pow(10, *options.yieldLimitDb / 10);
    return bestGT * std::pow(10, -kYieldMarginDb / 10);
}

Rating Rated(const std::vector<FoundNetwork>& networks, const RatingOptions& options) {
    Rating rating;
    if (networks.empty()) return rating;
    rating.leastGT = LeastGTOf(networks.front().worstGT, options);
    YieldOptions yield = options.yield;
    yield.leastGT = rating.leastGT;
    for (const FoundNetwork& found : networks) {
        RatedNetwork rated{found, {}, {}};
        if (options.standard) {
            const auto standard = WithStandardValues(found.network, *options.standard);
            if (standard) rated.standard = *standard;
        }
        if (const auto built = YieldOf(found.network, yield)) rated.yield = *built;
        rating.networks.push_back(std::move(rated));
    }
    return rating;
}

GainLimit LimitBeside(GainLimit limit, double bestGT) {
    if (limit.estimate) limit.GT = std::max(limit.GT, bestGT);
    return limit;
}

}  // namespace kelvro
