#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/session.h"
#include "network/network.h"

namespace kelvro {

/// What a search for networks over bands takes from the command line, as texts.
struct MatchBandOptions {
    std::vector<std::string> bands;
    int parts = 4;
    std::vector<std::string> kinds = {"L", "C"};
    std::string dc = "any";
    bool lowPass = false;
    bool highPass = false;
    std::string leastL, mostL, leastC, mostC, leastZ0, mostZ0;
    std::string coilQ, capacitorQ;
    std::string atSource, atLoad;
    std::vector<std::string> harmonics;
    std::string series;
    std::string ownedFile;
    std::string capacitorTolerance = "5";
    std::string coilTolerance = "5";
    std::string yieldLimit;
    bool centre = false;
    int top = 10;
    std::uint64_t seed = 1;
    unsigned threads = 0;
    std::string output;
};

/// Declares --band and everything that goes with it.
void AddMatchBandOptions(CLI::App& command, MatchBandOptions& options);

/// Takes bands as given ("70M:130M"); where none is given, those that the problem has stay. What is
/// wrong with them, if anything.
std::optional<Problem> TakeBands(const std::vector<std::string>& texts, Network& problem);

/// Searches between the terminations of `problem` and writes what it found, as JSON or as text.
ExitCode MatchBands(Network problem, const MatchBandOptions& options, bool json, Session& session);

}  // namespace kelvro
