#pragma once

#include <optional>
#include <string>

#include "analysis/passband.h"
#include "design/cycle.h"
#include "network/network.h"

namespace kelvro {

/// The lowest transducer gain in a band.
struct WorstGain {
    FrequencyBand band;
    double GTDb = 0;
};

/// What a calculated design does, as its response has it: not what was asked for.
struct Achieved {
    double lossDb = 0;   ///< at fo, against a lossless match
    Passband band;       ///< where the gain is at most 3.01 dB below that at fo
    double loadedQ = 0;  ///< fo over the band's width; 0 where the band has no end
    /// Where the worst gain between two edges is the goal: that gain.
    std::optional<WorstGain> worst = {};
    /// The deepest place of a band that begins at 0 Hz, between there and fo: what keeps a low-pass
    /// from having a band of its own around fo. Nothing where the gain has no dip of 1 dB.
    struct Dip {
        double f = 0;
        double depthDb = 0;  ///< below the gain at fo
    };
    std::optional<Dip> dip = {};
    /// The band is more than half as wide again as the bandwidth that the page shows, or as much
    /// narrower.
    bool otherThanBandwidth = false;
};

/// Nothing for a refused design and for pages without a response or whose response knows no
/// frequency.
std::optional<Achieved> AchievedBy(const CycleResult& result);

/// "loss 0.353 dB at fo, -3 dB width 24.62 MHz (88.41 MHz to 113.03 MHz), loaded Q 4.06"; behind it
/// "not the 20.00 MHz of B" where that is so. Behind the loss the worst gain of a band: "worst GT
/// -0.2717 dB from 70.00 MHz to 130.00 MHz"; behind the band of a low-pass its dip: "with a dip of
/// 2.93 dB at 54.10 MHz".
std::string AchievedText(const Achieved& achieved, double bandwidth);

}  // namespace kelvro
