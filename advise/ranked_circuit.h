#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "analysis/passband.h"
#include "network/network.h"

// What stands in the ranking of suggestions for every circuit, be it a page's or one that a search
// has found, and how many points that is worth.

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
    /// Less voltage than the lossless match of R1 to R2 gives?
    bool attenuate(double R1, double R2) const;
};

/// Less than this is no suppression of harmonics worth its name, dB.
inline constexpr double kLeastHarmonicDb = 6;

// What can be bought or wound, and what still behaves as drawn: smaller values drown in the
// parasitics of pads and leads, larger ones resonate with their own.
struct BuildRange {
    double low;
    double high;
};
inline constexpr BuildRange kInductance = {0.5e-9, 0.1};
inline constexpr BuildRange kCapacitance = {0.3e-12, 1e-3};

/// A component with the magnitude of its impedance at fo: the order in which parts of all kinds
/// are small or large.
struct SizedPart {
    std::string name;
    double value = 0;  ///< SI unit
    std::string unit;
    double impedance = 0;  ///< ohm

    std::string text() const;  ///< "C1 15.92 pF"
};

struct RankedCircuit {
    std::string reason;  ///< one sentence; of an unsuited page why it is not
    bool suited = false;
    double score = 0;  ///< higher is better

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

    /// Counts a part and judges its size at fo.
    void add(const ListedPart& part, double fo);
};

/// Points of a circuit; a lossless two-part match that meets every wish has about 100. `match`: it
/// is to lose nothing. What only pages have is added to that.
double ScoreOf(const RankedCircuit& circuit, const Wishes& wishes, double fo, bool match);

/// Suited ones stand before the others, more points before fewer.
bool RanksBefore(const RankedCircuit& a, const RankedCircuit& b);

/// "0.1 dB".
std::string DecibelWords(double value);

}  // namespace kelvro
