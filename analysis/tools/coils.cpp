#include "analysis/tools/coils.h"

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "analysis/tools/inverse.h"
#include "analysis/tools/physics.h"

namespace kelvro {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kMostTurns = 1e6;

bool Positive(double x) {
    return x > 0 && std::isfinite(x);
}

/// Circular current sheet. R. Lundin, "A Handbook Formula for the Inductance of a Single-Layer
/// Circular Coil", Proc. IEEE 73 (1985), pp. 1428-1429: for every ratio of length to diameter
/// within 3e-6 of the exact elliptic integrals of Lorenz.
double CurrentSheet(double diameter, double length, double turns) {
    const auto f1 = [](double x) {
        return (1 + x * (0.383901 + 0.017108 * x)) / (1 + 0.258952 * x);
    };
    const auto f2 = [](double x) { return x * (0.093842 + x * (0.002029 - 0.000801 * x)); };
    const double radius = diameter / 2;
    const double scale = kVacuumPermeability * turns * turns * radius;
    const double ratio = diameter / length;
    if (ratio <= 1) return scale * kPi / 2 * ratio * (f1(ratio * ratio) - 4 / (3 * kPi) * ratio);
    const double x = 1 / (ratio * ratio);
    return scale * ((std::log(4 * ratio) - 0.5) * f1(x) + f2(x));
}

/// What round wire takes from the current sheet's inductance, as a factor on µ0·radius·turns.
/// E. B. Rosa, "Calculation of the Self-Inductance of Single-Layer Coils", Bull. Bureau of
/// Standards 2 (1906), pp. 161-187: a part for one turn's self-inductance and one for the mutual
/// inductances, tabulated there. The series for the second part is the asymptotic expansion of its
/// defining sum (D. W. Knight, "The self-resonance and self-inductance of solenoid coils", 2016),
/// within 1e-6 of that sum from two turns on and 5e-4 at one.
double RoundWireCorrection(double wire, double pitch, double turns) {
    const double self = 1.25 - std::log(2 * pitch / wire);
    const double n = turns;
    const double mutual = std::log(2 * kPi) - 1.5 - std::log(n) / (6 * n) - 0.33084236 / n -
                          1 / (120 * n * n * n) + 1 / (504 * std::pow(n, 5)) -
                          0.0011925 / std::pow(n, 7);
    return self + mutual;
}

/// Coefficients of the current-sheet expression per shape.
struct SheetCoefficients {
    double c1, c2, c3, c4;
    double perimeter;  ///< of a shape 1 wide across its flats
};

const SheetCoefficients& CoefficientsOf(Spiral::Shape shape) {
    static const std::array<SheetCoefficients, 4> table{{
        {1.27, 2.07, 0.18, 0.13, 4},
        {1.09, 2.23, 0.00, 0.17, 3.464101615137755},
        {1.07, 2.29, 0.00, 0.19, 3.313708498984761},
        {1.00, 2.46, 0.00, 0.20, kPi},
    }};
    return table[static_cast<std::size_t>(shape)];
}

}  // namespace

double Solenoid::wireLength() const {
    return std::hypot(kPi * diameter * turns, length());
}

double Inductance(const Solenoid& coil) {
    if (!Positive(coil.diameter) || !Positive(coil.length()) || !Positive(coil.turns)) return kNone;
    const double sheet = CurrentSheet(coil.diameter, coil.length(), coil.turns);
    if (!Positive(coil.wire) || coil.turns < 1) return sheet;
    const double correction = RoundWireCorrection(coil.wire, coil.pitch(), coil.turns);
    const double result = sheet - kVacuumPermeability * coil.diameter / 2 * coil.turns * correction;
    return result > 0 ? result : kNone;
}

double Turns(Solenoid coil, double inductance) {
    const auto inductanceOf = [&](double turns) {
        coil.turns = turns;
        return Inductance(coil);
    };
    return InverseOf(inductanceOf, inductance, 1, kMostTurns);
}

std::string_view Caution(const Solenoid& coil) {
    if (coil.wire > coil.pitch()) return "The turns overlap: the wire is thicker than the pitch.";
    if (coil.wire >= coil.diameter) return "The wire is thicker than the coil.";
    if (coil.turns < 1) return "Less than one turn: the formula holds for whole turns.";
    if (coil.pitch() > coil.diameter) return "The pitch is wider than the coil: a rough value.";
    return {};
}

double Spiral::wireLength() const {
    return CoefficientsOf(shape).perimeter * mean() * turns;
}

/// S. S. Mohan, M. Hershenson, S. P. Boyd, T. H. Lee, "Simple Accurate Expressions for Planar
/// Spiral Inductances", IEEE J. Solid-State Circuits 34 (1999), pp. 1419-1424, current-sheet
/// expression: typically within 2 to 3 % while the gap is not wider than the conductor, 8 % at
/// three times.
double Inductance(const Spiral& coil) {
    const bool sound = coil.inner >= 0 && Positive(coil.width) && coil.gap >= 0 &&
                       Positive(coil.turns) && Positive(coil.fill());
    if (!sound) return kNone;
    const auto& [c1, c2, c3, c4, perimeter] = CoefficientsOf(coil.shape);
    const double fill = coil.fill();
    return kVacuumPermeability * coil.turns * coil.turns * coil.mean() * c1 / 2 *
           (std::log(c2 / fill) + fill * (c3 + c4 * fill));
}

double Turns(Spiral coil, double inductance) {
    const auto inductanceOf = [&](double turns) {
        coil.turns = turns;
        return Inductance(coil);
    };
    return InverseOf(inductanceOf, inductance, 1, kMostTurns);
}

std::string_view Caution(const Spiral& coil) {
    if (coil.turns < 1) return "Less than one turn: the formula holds for whole turns.";
    if (coil.gap > 3 * coil.width)
        return "The gap exceeds three conductor widths: off by over 8 %.";
    if (coil.fill() > 0.9) return "The winding fills the centre: the innermost turns add little.";
    return {};
}

/// Flux of a straight line's field through the rectangular section (E. C. Snelling, "Soft
/// Ferrites", 2nd ed. 1988, section 2.2); exact for an ideal winding all around.
double InductanceFactor(const Toroid& core) {
    const bool sound = Positive(core.permeability) && Positive(core.height) &&
                       Positive(core.inner) && core.outer > core.inner;
    if (!sound) return kNone;
    return kVacuumPermeability * core.permeability * core.height *
           std::log(core.outer / core.inner) / (2 * kPi);
}

double ToroidTurns(double inductanceFactor, double inductance) {
    return Positive(inductanceFactor) && Positive(inductance)
               ? std::sqrt(inductance / inductanceFactor)
               : kNone;
}

}  // namespace kelvro
