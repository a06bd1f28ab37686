#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>

#include "analysis/tolerance.h"

namespace kelvro {

/// Tolerances and the seed of a Monte Carlo analysis as given on the command line.
struct ToleranceOptions {
    std::string capacitance;
    std::string inductance;
    std::string lineImpedance;
    std::string resistance;
    std::string seed;

    /// Those of the window where none are given, held to the same limits.
    Tolerances tolerances() const;
    /// The given seed, else one from the clock.
    std::uint64_t seedOrClock() const;
};

/// Declares --ctol, --ltol, --zltol, --rtol and --seed.
void AddToleranceOptions(CLI::App& command, ToleranceOptions& options);

}  // namespace kelvro
