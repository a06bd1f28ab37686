#pragma once

#include <string>
#include <vector>

#include "advise/ranked_circuit.h"
#include "design/cycle.h"
#include "design/design.h"
#include "network/network.h"

// Which circuit to take: every page is designed for the present inputs by the program's own
// calculation, judged by the user's wishes, and ranked.

namespace kelvro {

/// One page as it would stand for the present inputs.
struct Proposal : RankedCircuit {
    int page = 1;
    bool LCSwapped = false;
    bool turned = false;  ///< designed for exchanged R1 and R2, and used the other way round
    Design state;         ///< designed; what going to the page shows
    CycleResult cycle;    ///< what the page's calculation says: v, loss, bandwidth
};

/// What a circuit does to direct current from source to load; Any where it does neither cleanly (a
/// coil across the path) or is no path.
Wishes::Dc DcPathOf(const Network& network);

/// All pages and their variants with L and C interchanged, suited ones first, best first. `state`
/// gives the inputs; its page and components do not matter. `services` evaluate and, if they do,
/// optimize as the window would.
std::vector<Proposal> Propose(const Design& state, const Wishes& wishes, CycleServices& services);

/// "LC Gamma, L and C interchanged, R1 and R2 switched".
std::string Title(const Proposal& proposal);

/// Puts the inputs and the variant of a proposal into the state. The caller enters its page. R1 and
/// R2 are exchanged for a turned proposal only where `exchange` says so; else its page will refuse.
void Apply(const Proposal& proposal, Design& state, bool exchange);

}  // namespace kelvro
