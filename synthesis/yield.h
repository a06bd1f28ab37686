#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "analysis/tolerance.h"
#include "core/result.h"
#include "network/network.h"
#include "network/tunable.h"

// How many of the networks that are built keep their worst gain in the bands, and nominal values
// that more of them keep it with.

namespace kelvro {

struct YieldOptions {
    /// Percent, of parts without a tolerance of their own. Each part is equally distributed.
    Tolerances tolerances = {};
    double leastGT = 0.8;  ///< worst transducer gain that a build has to keep, a ratio
    int builds = 2000;
    std::uint64_t seed = 1;  ///< the same seed draws the same deviations for every network
    std::size_t pointsPerBand = 41;
    bool operator==(const YieldOptions&) const = default;
};

/// What a tolerance of one part costs.
struct PartSensitivity {
    Tunable part;
    double tolerance = 0;  ///< percent, its own or that of its kind
    /// Worst gain lost when this part alone is off by its tolerance, in the worse direction, dB.
    double costDb = 0;
    bool operator==(const PartSensitivity&) const = default;
};

struct YieldReport {
    double yield = 0;  ///< fraction of the builds that keep the gain
    /// 95 % confidence interval of the yield: Y ± 1.96·√(Y·(1 - Y)/N), within 0 and 1.
    double low = 0;
    double high = 1;
    double nominalGT = 0;                     ///< worst gain of the nominal network
    double quantile10 = 0;                    ///< worst gain that 90 % of the builds surpass
    std::vector<PartSensitivity> parts = {};  ///< from source to load
    bool operator==(const YieldReport&) const = default;
};

/// Builds a network many times with its parts off by their tolerances. Fails where there is no band
/// or nothing that could be off.
Result<YieldReport> YieldOf(const Network& network, const YieldOptions& options);

struct CentredNetwork {
    Network network;
    YieldReport before;
    YieldReport after;
};

struct CentringOptions {
    std::vector<Tunable> locked = {};   ///< values that stay where they are
    std::function<bool()> goesOn = {};  ///< asked before each step; false ends it so far
};

/// Moves the nominal values so that the 10 % quantile of the worst gain rises. Never returns a
/// network with a lower one; both reports stand on the same draws, others than the values were
/// moved with.
Result<CentredNetwork> Centred(const Network& network, const YieldOptions& options,
                               const CentringOptions& centring = {});

}  // namespace kelvro
