#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>

#include "cli/session.h"

namespace kelvro {

/// A range of frequencies as given on the command line.
struct RangeOptions {
    std::string from;
    std::string to;
    bool linear = false;
};

/// Declares --from, --to and --linear.
void AddRangeOptions(CLI::App& command, RangeOptions& options, bool required);

struct FrequencyRange {
    double from = 0;
    double to = 0;
};

/// The range with the ends that are not given taken from `otherwise`. A range without extent, and
/// one that a logarithmic axis cannot show, is a problem.
Outcome<FrequencyRange> RangeOf(const RangeOptions& options, const FrequencyRange& otherwise);

}  // namespace kelvro
