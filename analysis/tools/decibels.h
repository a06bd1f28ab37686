#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// Levels, ratios and sums in decibels and nepers. Voltages and currents are effective values of a
// sine unless named otherwise.

namespace kelvro {

enum class LevelUnit : std::uint8_t {
    Dbm,  ///< power over 1 mW
    Dbw,  ///< power over 1 W
    Watt,
    Volt,
    VoltPeak,
    VoltPeakToPeak,
    DbV,
    DbMillivolt,
    DbMicrovolt,
    Neper,  ///< half the natural logarithm of power over 1 mW
    Ampere,
};

struct LevelUnitName {
    LevelUnit unit;
    std::string_view text;
    bool logarithmic;
};
/// All units in the order of their numbers.
const std::vector<LevelUnitName>& LevelUnits();

/// Power in W that a level delivers into a resistance.
double PowerOf(LevelUnit unit, double level, double resistance);
/// The level of a power in a resistance; -inf for no power in logarithmic units.
double LevelOf(LevelUnit unit, double power, double resistance);

/// A two-port's gain in the four usual ways; from R1 to R2.
struct Ratio {
    double decibels;  ///< of power
    double nepers;
    double power;
    double voltage;
};
enum class RatioUnit : std::uint8_t { Decibel, Neper, Power, Voltage };
Ratio RatioOf(RatioUnit unit, double value, double R1, double R2);

/// Several levels of equal impedance, in dB, taken together.
struct LevelSum {
    double powers;    ///< of sources that do not know each other
    double voltages;  ///< of sources in phase
    double chain;     ///< of gains one after the other
};
LevelSum SumOf(std::span<const double> decibels);

}  // namespace kelvro
