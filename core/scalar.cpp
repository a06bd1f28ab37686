#include "core/scalar.h"

#include <cmath>

namespace kelvro {

namespace {

constexpr long double kTruncatedLn10 = 2.302585093L;
constexpr long double kLogOfZero = -1e300L;

}  // namespace

long double DecimalLog(long double x) {
    return x == 0 ? kLogOfZero : std::log(std::fabs(x)) / kTruncatedLn10;
}

long double GuardedDecimalLog(long double x) {
    return std::fabs(x) <= 2e-308L ? kLogOfZero : DecimalLog(x);
}

double Power(double base, double exponent) {
    if (base == 0) return 0;
    return static_cast<double>(
        std::exp(exponent * std::log(std::fabs(static_cast<long double>(base)))));
}

int Sign(double x) {
    return (x > 0) - (x < 0);
}

double Clamp(double x, double lo, double hi) {
    if (!(x > lo)) return lo;
    return x >= hi ? hi : x;
}

double SymmetricClamp(double x, double lo, double hi) {
    return x < 0 ? -Clamp(-x, lo, hi) : Clamp(x, lo, hi);
}

int ClampInteger(int x, int lo, int hi) {
    if (x >= hi) return hi;
    return x <= lo ? lo : x;
}

double HyperbolicTangent(double x) {
    if (std::fabs(x) >= 110) return Sign(x);
    return static_cast<double>(1 - 2 / (1 + std::exp(2 * static_cast<long double>(x))));
}

double InverseHyperbolicSine(double x) {
    const long double wide = x;
    return static_cast<double>(std::log(std::fabs(wide + std::sqrt(wide * wide + 1))));
}

double ArcTangentDegrees(double x) {
    return std::atan(x) * kDegreesPerRadian;
}

}  // namespace kelvro
