#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "cli/match_band.h"
#include "synthesis/limit.h"
#include "synthesis/search.h"
#include "synthesis/standard_values.h"
#include "synthesis/yield.h"

namespace kelvro {

/// A network that was found, with what building it means.
struct MatchedNetwork {
    FoundNetwork found;
    std::optional<StandardNetwork> standard;
    std::optional<YieldReport> yield;
};

struct MatchReport {
    std::vector<MatchedNetwork> networks;
    GainLimit limit;
    std::string series;  ///< of the standard values: "E24"; empty: none chosen
    double yieldLimitDb = 0;
    std::optional<CentredNetwork> centred;  ///< the first network, where that was wanted

    /// What a project file gets: the first network as it is to be built.
    Network best() const;
};

/// The parts of a list that the user owns; none without a file name.
std::variant<OwnedParts, Problem> OwnedPartsOf(const std::string& file);

MatchReport ReportOn(const Network& problem, const SearchResult& result,
                     const MatchBandOptions& options, const OwnedParts& owned);

std::string MatchText(const MatchReport& report);
std::string MatchJson(const MatchReport& report);

/// "no lossless network does better than -0.215 dB".
std::string LimitText(const GainLimit& limit);

}  // namespace kelvro
