#include "analysis/tools/coil_quality.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace kelvro {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kLeastDepths = 6;  ///< of wire; below, the current fills it

constexpr std::array kLengths{0.2, 0.4, 0.6, 0.8, 1.0,
                              2.0, 4.0, 6.0, 8.0, 10.0};  // length/diameter
constexpr std::size_t kSpacings = 11;                     // wire/pitch 0, 0.1, ... 1

/// R. G. Medhurst, "H.F. Resistance and Self-Capacitance of Single-Layer Solenoids", Wireless
/// Engineer 24 (1947), pp. 35-43 and 80-92: measured resistance over that of the same
/// wire stretched out, for many turns and small skin depth.
using Row = std::array<double, kLengths.size()>;
constexpr std::array<Row, kSpacings> kProximity{{
    {1.00, 1.00, 1.00, 1.00, 1.00, 1.00, 1.00, 1.00, 1.00, 1.00},
    {1.02, 1.03, 1.03, 1.03, 1.03, 1.04, 1.04, 1.04, 1.04, 1.04},
    {1.08, 1.08, 1.10, 1.10, 1.10, 1.13, 1.15, 1.16, 1.16, 1.17},
    {1.19, 1.21, 1.22, 1.23, 1.24, 1.28, 1.32, 1.34, 1.34, 1.35},
    {1.29, 1.33, 1.38, 1.42, 1.45, 1.50, 1.54, 1.56, 1.57, 1.58},
    {1.48, 1.54, 1.60, 1.64, 1.67, 1.74, 1.78, 1.80, 1.81, 1.83},
    {1.77, 1.83, 1.89, 1.92, 1.94, 1.98, 2.01, 2.03, 2.08, 2.10},
    {2.20, 2.28, 2.38, 2.44, 2.47, 2.32, 2.27, 2.29, 2.34, 2.37},
    {2.83, 2.97, 3.10, 3.20, 3.17, 2.74, 2.60, 2.60, 2.62, 2.65},
    {3.84, 3.99, 4.11, 4.17, 4.10, 3.36, 3.05, 2.92, 2.90, 2.93},
    {5.45, 5.65, 5.80, 5.80, 5.55, 4.10, 3.54, 3.31, 3.20, 3.23},
}};

double AtLength(const Row& row, double length) {
    const auto above = std::ranges::upper_bound(kLengths, length);
    const auto last = static_cast<std::size_t>(above - kLengths.begin());
    const std::size_t i = std::min(last, kLengths.size() - 1) - 1;
    return std::lerp(row[i], row[i + 1], (length - kLengths[i]) / (kLengths[i + 1] - kLengths[i]));
}

/// Linear between the measured points; NaN outside of them.
double ProximityFactor(double length, double spacing) {
    const bool inside =
        length >= kLengths.front() && length <= kLengths.back() && spacing > 0 && spacing <= 1;
    if (!inside) return kNone;
    const double place = spacing * (kSpacings - 1);
    const std::size_t i = std::min(static_cast<std::size_t>(place), kSpacings - 2);
    return std::lerp(AtLength(kProximity[i], length), AtLength(kProximity[i + 1], length),
                     place - static_cast<double>(i));
}

}  // namespace

double Resistance(const Solenoid& coil, double f, double conductivity) {
    if (!(f > 0) || !(coil.turns >= 1)) return kNone;
    if (coil.wire < kLeastDepths * SkinDepth(f, conductivity)) return kNone;
    return SurfaceResistance(f, conductivity) * coil.wireLength() / (kPi * coil.wire) *
           ProximityFactor(coil.length() / coil.diameter, coil.wire / coil.pitch());
}

/// The same paper: a fit of measured coils.
double SelfCapacitance(const Solenoid& coil) {
    const double ratio = coil.length() / coil.diameter;
    if (!(ratio >= 0.1 && ratio <= 50)) return kNone;
    constexpr double picofaradPerCentimetre = 1e-12 / 1e-2;
    return picofaradPerCentimetre * coil.diameter *
           (0.1126 * ratio + 0.08 + 0.27 / std::sqrt(ratio));
}

double SelfResonance(double inductance, double capacitance) {
    return 1 / (2 * kPi * std::sqrt(inductance * capacitance));
}

}  // namespace kelvro
