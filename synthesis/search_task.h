#pragma once

#include <vector>

#include "core/result.h"
#include "optimize/ladder_model.h"
#include "synthesis/search.h"

namespace kelvro {

/// Nepers kept from what a harmonic is allowed, as the weight of its row leaves a little of an
/// excess.
inline constexpr double kHarmonicReserve = 0.01;

/// A search, prepared: what ladders are evaluated against, and where values are looked for.
struct SearchTask {
    Network problem;  ///< source, load and bands
    SearchOptions options;
    double R0 = 50;       ///< geometric mean of the terminations' resistances, ohm
    double f0 = 1;        ///< middle of the bands, Hz
    double spread = 2;    ///< of starting values around R0, nepers
    ModelGrid grid = {};  ///< few frequencies, for screening

    /// A grid of frequencies in the bands. The frequencies of the harmonics follow behind.
    ModelGrid gridOf(std::vector<double> f) const;
    /// How far around R0 values may lie, nepers.
    double widest() const { return spread + 4; }
};

/// Checks a problem and prepares it; why it cannot be searched otherwise.
Result<SearchTask> PrepareSearch(const Network& problem, const SearchOptions& options);

}  // namespace kelvro
