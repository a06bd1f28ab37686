#pragma once

#include <CLI/App.hpp>
#include <string>

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
};

/// Declares --at, --topology and --q.
void AddExactMatchOptions(CLI::App& command, MatchOptions& options);

/// The exact solutions at one frequency.
ExitCode MatchAtFrequency(const MatchOptions& options, Session& session);

}  // namespace kelvro
