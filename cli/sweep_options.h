#pragma once

#include <CLI/App.hpp>
#include <vector>

#include "cli/range_options.h"
#include "network/network.h"

namespace kelvro {

/// The frequencies at which a network is analysed, as given on the command line.
struct SweepOptions {
    RangeOptions range;
    int points = 201;
};

/// Declares --from, --to, --points and --linear.
void AddSweepOptions(CLI::App& command, SweepOptions& options);

/// The frequencies of the options, ends exact: one where both ends are the same. Ends that are not
/// given are those of the network's bands, a decade around its design frequency or the range of its
/// measured data. Refused where measured data do not cover them.
Outcome<std::vector<double>> FrequenciesOf(const SweepOptions& options, const Network& network);

}  // namespace kelvro
