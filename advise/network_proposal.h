#pragma once

#include <string>
#include <vector>

#include "advise/ranked_circuit.h"
#include "core/result.h"
#include "design/design.h"
#include "synthesis/search.h"

// Networks of the search beside the pages: looked for where a page is asked for, and judged with
// the same measures.

namespace kelvro {

/// A search that competes with the pages.
struct WishedSearch {
    Network problem;
    SearchOptions options;
    Wishes wishes;

    bool operator==(const WishedSearch&) const;
};

/// The search for what a state and wishes ask for: R1 to R2 over the wanted bandwidth, else over
/// fo/Q, with up to four parts of the state's element Q that can be built. Refused where the wishes
/// are for what no lossless two-port does.
Result<WishedSearch> SearchFor(const Design& state, const Wishes& wishes);

struct NetworkProposal : RankedCircuit {
    FoundNetwork found;
};

/// What a search has found, judged: the best of each number of parts, best first.
std::vector<NetworkProposal> ProposeNetworks(const WishedSearch& search,
                                             const std::vector<FoundNetwork>& networks);

/// "Search, 3 parts".
std::string Title(const NetworkProposal& proposal);

}  // namespace kelvro
