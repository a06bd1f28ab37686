#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/passband.h"
#include "design/cycle.h"
#include "design/design.h"
#include "network/network.h"

// Which circuit to take: every page is designed for the present inputs by the program's own
// calculation, judged by the user's wishes, and ranked.

namespace kelvro {

/// What the network shall do besides matching R1 to R2 at fo of the state.
struct Wishes {
    enum class Dc : std::uint8_t { Any, Pass, Block };

    std::optional<double> Q;             ///< loaded Q; else
    std::optional<double> bandwidth;     ///< Hz between the -3 dB points
    std::optional<double> voltageRatio;  ///< V2/V1, below that of the lossless match: attenuate
    Dc dc = Dc::Any;
    bool suppressHarmonics = false;
    bool balancedOutput = false;
    bool resistive = false;  ///< a flat pad, no tuned circuit
    bool amplifierStage = false;

    /// The wanted bandwidth, from Q where that is given.
    std::optional<double> wantedBandwidth(double fo) const;
};

/// A component with the magnitude of its impedance at fo: the order in which parts of all kinds
/// are small or large.
struct SizedPart {
    std::string name;
    double value = 0;  ///< SI unit
    std::string unit;
    double impedance = 0;  ///< ohm

    std::string text() const;  ///< "C1 15.92 pF"
};

/// One page as it would stand for the present inputs.
struct Proposal {
    int page = 1;
    bool LCSwapped = false;
    bool turned = false;  ///< designed for exchanged R1 and R2, and used the other way round
    Design state;         ///< designed; what going to the page shows
    bool suited = false;
    std::string reason;  ///< one sentence; of an unsuited page why it is not
    double score = 0;    ///< higher is better
    CycleResult cycle;   ///< what the page's calculation says: v, loss, bandwidth

    /// V2/V1 at fo from the user's source to his load, also where the design runs the other way.
    double v = 0;

    // Achievable numbers; empty where the page has no response of its own.
    std::optional<double> gtDb;  ///< transducer gain at fo
    std::optional<Passband> passband;
    std::optional<double> secondHarmonicDb;  ///< gain at 2·fo below that at fo, positive
    std::optional<SizedPart> smallest;
    std::optional<SizedPart> largest;
    int parts = 0;
    bool practical = true;
    std::string impractical;  ///< why values cannot be built
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
