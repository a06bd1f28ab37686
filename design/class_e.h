#pragma once

#include <array>
#include <vector>

#include "core/result.h"

// The single-ended class-E stage at 50 % duty: supply, choke, a switch with C1 across it, then C2,
// L2 and the load R in series. Between two actions of the switch the circuit is linear, so its
// periodic steady state is exact but for rounding: two matrix exponentials and one set of linear
// equations. N. O. Sokal, A. D. Sokal, "Class E - a new class of high-efficiency tuned single-ended
// switching power amplifiers", IEEE JSSC 10, 1975; finite chokes: M. Acar, A. J. Annema, B. Nauta,
// "Generalized design equations for class-E power amplifiers with finite DC feed inductance", 2006.

namespace kelvro {

/// Below this loaded Q no C2 gives zero voltage and slope at turn-on where the choke is infinite.
inline constexpr double kSmallestClassEQ = 1.7879;

/// What a stage is to do.
struct ClassERequest {
    double power;       ///< in R, harmonics included, of parts without loss, W
    double supply;      ///< Ub, V
    double saturation;  ///< Usat, what the closed switch keeps, V; below the supply
    double fo;          ///< Hz
    double Q;           ///< loaded: ω·L2/R
    double choke;       ///< ω·Lc/R, may be infinite
};

/// The parts of a stage, SI units; the choke may be infinite.
struct ClassEStage {
    double fo = 0;
    double supply = 0;
    double saturation = 0;
    double R = 0;
    double C1 = 0;
    double C2 = 0;
    double L2 = 0;
    double choke = 0;
    double lossC1 = 0;  ///< resistance in series with C1
    double loss = 0;    ///< resistance in series with C2 and L2

    bool operator==(const ClassEStage&) const = default;
};

/// The parts for zero voltage and zero slope of voltage at turn-on, without losses. Fails where Q
/// is too low, the voltages leave no swing, or a number is not positive.
Result<ClassEStage> DesignClassEStage(const ClassERequest& request);

/// One instant of the steady state.
struct ClassEInstant {
    double phase = 0;          ///< of the period, 0 to 1; the switch is closed up to 0.5
    double voltage = 0;        ///< across the switch, V
    double switchCurrent = 0;  ///< A
    double loadCurrent = 0;    ///< A
};

inline constexpr int kClassEHarmonics = 10;

/// The periodic steady state of a stage whose switch has no resistance.
struct ClassEOperation {
    double outputPower = 0;    ///< in R, harmonics included, W
    double supplyCurrent = 0;  ///< mean, A
    double efficiency = 0;     ///< output power over supply power
    double turnOnVoltage = 0;  ///< above the saturation voltage, when the switch closes, V
    double peakVoltage = 0;    ///< across the switch, V
    double peakCurrent = 0;    ///< through the switch, A
    /// Amplitudes of the load current at fo, 2·fo, ..., A.
    std::array<double, kClassEHarmonics> harmonics{};
    // State when the switch closes, just before.
    double chokeCurrent = 0;  ///< A
    double voltageC1 = 0;     ///< V, as are the next; C1 to ground, C2 from switch to load
    double voltageC2 = 0;
    double currentL2 = 0;  ///< towards the load, A
    /// One period in equal steps from turn-on. At both actions of the switch there are two instants
    /// of the same phase, before and behind; the first and the last are those inside the period.
    std::vector<ClassEInstant> waves;

    /// n-th harmonic (1 = fo) against the first, dB.
    double harmonicDb(int n) const;
};

/// Steady state of any stage of positive parts, also of one that misses zero voltage at turn-on:
/// its switch then empties C1 at once. Fails where a part is not a positive number.
Result<ClassEOperation> OperateClassE(const ClassEStage& stage);

}  // namespace kelvro
