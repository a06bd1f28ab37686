#pragma once

#include <optional>
#include <vector>

#include "analysis/passband.h"
#include "core/result.h"
#include "network/network.h"

// Perfect matches at one frequency, in closed form: two or three reactances between any two
// terminations with resistance.

namespace kelvro {

enum class MatchTopology : unsigned char { L, Pi, T };

/// How direct current goes through a ladder.
enum class DcPath : unsigned char {
    Passed,    ///< from source to load
    Blocked,   ///< by a series capacitor
    Grounded,  ///< source and load joined, both shorted by a shunt inductor
};

/// One of the solutions. Parts of vanishing value are left out.
struct ExactMatch {
    Network network;
    double GT = 0;  ///< at the frequency of the match
    DcPath dc = DcPath::Passed;
    /// Where the gain is at most 1 dB below that of the match; the terminations follow their own
    /// law, and where measured data end the band ends.
    Passband width;
};

struct ExactMatchOptions {
    MatchTopology topology = MatchTopology::L;
    /// Of pi and t, above LowestQ: the reactance of the end with the larger (pi) or smaller (t)
    /// resistance to that resistance. Not given: twice the lowest, 2 at least.
    std::optional<double> Q = {};
};

/// The lowest Q of a pi or t between two impedances, sqrt(Rhigh/Rlow - 1): of parallel resistances
/// for a pi, series ones for a t. Both need resistances above 0.
double LowestQ(MatchTopology topology, std::complex<double> ZS, std::complex<double> ZL);

/// All solutions for a frequency above 0: two to four L sections, or the pi or t sections of the
/// given Q with every choice of signs. Refused where a termination has no resistance above 0 or no
/// data there, and below the lowest Q.
Result<std::vector<ExactMatch>> ExactMatches(const Termination& source, const Termination& load,
                                             double f, const ExactMatchOptions& options = {});

/// How direct current goes through a ladder of arms; other elements pass it, a transformer and
/// coils ground it.
DcPath DcPathOf(const std::vector<LadderElement>& ladder);

}  // namespace kelvro
