#pragma once

#include <CLI/App.hpp>
#include <string>

#include "cli/given_options.h"
#include "cli/match_band.h"
#include "cli/network_options.h"
#include "cli/session.h"

namespace kelvro {

/// What is to be matched, and how.
struct MatchOptions {
    NetworkOptions ends;  ///< its ladder does not count
    bool json = false;
    MatchBandOptions band;  ///< searched over bands

    std::string at;  ///< exact at this frequency
    std::string topology = "l";
    std::string Q;

    OptionList onlyExact;  ///< what goes with --at alone
    OptionList onlyBand;   ///< what goes with bands alone
};

/// Declares --topology and --q, which go with --at.
void AddExactMatchOptions(CLI::App& command, MatchOptions& options);

/// The exact solutions at one frequency.
ExitCode MatchAtFrequency(const MatchOptions& options, Session& session);

}  // namespace kelvro
