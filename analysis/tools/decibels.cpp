#include "analysis/tools/decibels.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace kelvro {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kDecibelsPerNeper = 20 * std::numbers::log10e;
constexpr double kMilliwatt = 1e-3;

double FromDecibels(double decibels) {
    return std::pow(10, decibels / 10);
}

double ToDecibels(double powerRatio) {
    return 10 * std::log10(powerRatio);
}

/// Effective voltage that stands for 0 dB or for a linear value of 1.
double VoltageReference(LevelUnit unit) {
    switch (unit) {
        case LevelUnit::VoltPeak:
            return std::numbers::sqrt2 / 2;
        case LevelUnit::VoltPeakToPeak:
            return std::numbers::sqrt2 / 4;
        case LevelUnit::DbMillivolt:
            return 1e-3;
        case LevelUnit::DbMicrovolt:
            return 1e-6;
        default:
            return 1;
    }
}

}  // namespace

const std::vector<LevelUnitName>& LevelUnits() {
    static const std::vector<LevelUnitName> units{
        {LevelUnit::Dbm, "dBm", true},
        {LevelUnit::Dbw, "dBW", true},
        {LevelUnit::Watt, "W", false},
        {LevelUnit::Volt, "V", false},
        {LevelUnit::VoltPeak, "V peak", false},
        {LevelUnit::VoltPeakToPeak, "V peak-to-peak", false},
        {LevelUnit::DbV, "dBV", true},
        {LevelUnit::DbMillivolt, "dBmV", true},
        {LevelUnit::DbMicrovolt, "dBµV", true},
        {LevelUnit::Neper, "Np over 1 mW", true},
        {LevelUnit::Ampere, "A", false},
    };
    return units;
}

double PowerOf(LevelUnit unit, double level, double resistance) {
    const double voltage = level * VoltageReference(unit);
    switch (unit) {
        case LevelUnit::Dbm:
            return kMilliwatt * FromDecibels(level);
        case LevelUnit::Dbw:
            return FromDecibels(level);
        case LevelUnit::Watt:
            return level;
        case LevelUnit::Neper:
            return kMilliwatt * std::exp(2 * level);
        case LevelUnit::Ampere:
            return level * level * resistance;
        case LevelUnit::Volt:
        case LevelUnit::VoltPeak:
        case LevelUnit::VoltPeakToPeak:
            return voltage * voltage / resistance;
        case LevelUnit::DbV:
        case LevelUnit::DbMillivolt:
        case LevelUnit::DbMicrovolt:
            return std::pow(VoltageReference(unit), 2) * FromDecibels(level) / resistance;
    }
    return kNone;
}

double LevelOf(LevelUnit unit, double power, double resistance) {
    const double voltage = std::sqrt(power * resistance) / VoltageReference(unit);
    switch (unit) {
        case LevelUnit::Dbm:
            return ToDecibels(power / kMilliwatt);
        case LevelUnit::Dbw:
            return ToDecibels(power);
        case LevelUnit::Watt:
            return power;
        case LevelUnit::Neper:
            return std::log(power / kMilliwatt) / 2;
        case LevelUnit::Ampere:
            return std::sqrt(power / resistance);
        case LevelUnit::Volt:
        case LevelUnit::VoltPeak:
        case LevelUnit::VoltPeakToPeak:
            return voltage;
        case LevelUnit::DbV:
        case LevelUnit::DbMillivolt:
        case LevelUnit::DbMicrovolt:
            return 2 * ToDecibels(voltage);
    }
    return kNone;
}

Ratio RatioOf(RatioUnit unit, double value, double R1, double R2) {
    double power = kNone;
    switch (unit) {
        case RatioUnit::Decibel:
            power = FromDecibels(value);
            break;
        case RatioUnit::Neper:
            power = std::exp(2 * value);
            break;
        case RatioUnit::Power:
            power = value;
            break;
        case RatioUnit::Voltage:
            power = value * value * R1 / R2;
            break;
    }
    const double decibels = ToDecibels(power);
    return {decibels, decibels / kDecibelsPerNeper, power, std::sqrt(power * R2 / R1)};
}

LevelSum SumOf(std::span<const double> decibels) {
    double powers = 0;
    double voltages = 0;
    double chain = 0;
    for (const double level : decibels) {
        powers += FromDecibels(level);
        voltages += FromDecibels(level / 2);
        chain += level;
    }
    return {ToDecibels(powers), 2 * ToDecibels(voltages), chain};
}

}  // namespace kelvro
