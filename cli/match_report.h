#pragma once

#include <optional>
#include <string>

#include "cli/match_band.h"
#include "synthesis/rating.h"

namespace kelvro {

struct MatchReport {
    Rating rating;
    GainLimit limit;
    std::string series;                     ///< of the standard values: "E24"; empty: none chosen
    std::optional<CentredNetwork> centred;  ///< the first network, where that was wanted

    /// What a project file gets: the first network as it is to be built.
    Network best() const;
};

/// The parts of a list that the user owns; none without a file name.
Outcome<OwnedParts> OwnedPartsOf(const std::string& file);

/// What `search` found, with what building it means.
MatchReport ReportOn(const Network& problem, const SearchOptions& search,
                     const SearchResult& result, const MatchBandOptions& options,
                     const OwnedParts& owned);

std::string MatchText(const MatchReport& report);
std::string MatchJson(const MatchReport& report);

/// "no lossless network does better than -0.215 dB".
std::string LimitText(const GainLimit& limit);

}  // namespace kelvro
