#include "core/rounding.h"

#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

/// |v| = mantissa · 10^exponent with the mantissa in [1, 10).
struct Decimal {
    double mantissa;
    int exponent;
};

Decimal Split(double v) {
    const double magnitude = std::fabs(v);
    int exponent = static_cast<int>(std::floor(std::log10(magnitude)));
    auto mantissa = static_cast<double>(magnitude / std::pow(10.0L, exponent));
    if (mantissa >= 10) {
        mantissa /= 10;
        ++exponent;
    } else if (mantissa < 1) {
        mantissa *= 10;
        --exponent;
    }
    return {mantissa, exponent};
}

double Join(double v, double mantissa, int exponent) {
    return static_cast<double>(Sign(v) * mantissa * std::pow(10.0L, exponent));
}

bool IsPlain(double v) {
    return v != 0 && std::isfinite(v);
}

double RoundedMantissa(double v, double offset) {
    if (!IsPlain(v)) return v;
    const auto [mantissa, exponent] = Split(v);
    return Join(v, std::nearbyint(mantissa + offset), exponent);
}

/// The step of a spin button without its noise digits: one significant digit of (f - 1)·|x|.
double RoundStep(double step) {
    const auto [mantissa, exponent] = Split(step);
    return Join(step, std::round(mantissa), exponent);
}

/// The multiple of 10^n next above x (direction 1) or below it (-1), n the decade of the step, so
/// that a value that was typed or computed comes to the round values of its neighbourhood. From one
/// of those on the next multiple of 10^(n + 1), so that nobody steps over 50 from 51 to 48.
double NextRoundValue(double x, double step, int direction) {
    const auto next = [&](double grid, double steps) {
        return grid * (direction > 0 ? std::ceil(steps) : std::floor(steps));
    };
    const auto grid = static_cast<double>(std::pow(10.0L, Split(step).exponent));
    const double steps = x / grid;
    const double nearest = std::nearbyint(steps);
    const bool onGrid = std::fabs(steps - nearest) < 1e-9 * std::fabs(steps);
    return onGrid ? next(10 * grid, nearest / 10) : next(grid, steps);
}

double SpinStep(double x, double f, int direction) {
    if (x == 0) return direction * (f - 1);
    if (!std::isfinite(x)) return x;
    if (!(f > 1 && f < 2)) return direction > 0 ? x * f : x / f;
    const double step = RoundStep((f - 1) * std::fabs(x));
    const double candidate = NextRoundValue(x, step, direction);
    const double moved = std::fabs(candidate - x);
    return moved / std::fabs(x) > 1e-10 && moved < step ? candidate : x + direction * step;
}

}  // namespace

double StepUp125(double v) {
    if (!IsPlain(v)) return v;
    const auto [mantissa, exponent] = Split(v);
    const double step = mantissa <= 1 ? 1 : mantissa <= 2 ? 2 : mantissa <= 5 ? 5 : 10;
    return Join(v, step, exponent);
}

double RoundUpSig1(double v) {
    return RoundedMantissa(v, 0.49999);
}

double RoundUpSig1b(double v) {
    return RoundedMantissa(v, 0.49999);
}

double RoundDownSig1(double v) {
    return RoundedMantissa(v, -0.5001);
}

double SpinStepUp(double x, double f) {
    return SpinStep(x, f, 1);
}

double SpinStepDown(double x, double f) {
    return SpinStep(x, f, -1);
}

double SpinStep(double x, int direction, double f) {
    return direction > 0 ? SpinStepUp(x, f) : SpinStepDown(x, f);
}

}  // namespace kelvro
