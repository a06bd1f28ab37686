#include "network/port_data.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "core/scalar.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

/// Angle from a to b, radians in (-π, π]; 0 where either vanishes.
double Turn(Cx a, Cx b) {
    return std::arg(b * std::conj(a));
}

Cx Linear(Cx a, Cx b, double t) {
    return a + t * (b - a);
}

/// Magnitude and angle, the angle the shorter way round.
Cx Polar(Cx a, Cx b, double t) {
    const double size = std::abs(a) + t * (std::abs(b) - std::abs(a));
    const Cx start = a == 0.0 ? b : a;
    return std::polar(size, std::arg(start) + t * Turn(a, b));
}

/// Slopes of a cubic that rises and falls with its samples: F. N. Fritsch, J. Butland, "A Method
/// for Constructing Local Monotone Piecewise Cubic Interpolants", SIAM J. Sci. Stat. Comput. 5
/// (1984).
double InnerSlope(double h1, double d1, double h2, double d2) {
    if (d1 * d2 <= 0) return 0;
    const double w1 = 2 * h2 + h1;
    const double w2 = h2 + 2 * h1;
    return (w1 + w2) / (w1 / d1 + w2 / d2);
}

/// At an end: of the parabola through three samples, held to the sign and thrice the slope of the
/// outer interval.
double EndSlope(double h1, double d1, double h2, double d2) {
    const double slope = ((2 * h1 + h2) * d1 - h1 * d2) / (h1 + h2);
    if (slope * d1 <= 0) return 0;
    if (d1 * d2 <= 0 && std::fabs(slope) > std::fabs(3 * d1)) return 3 * d1;
    return slope;
}

/// The interpolant of a real series between samples i and i+1.
template <typename Value>
double MonotoneCubic(const std::vector<double>& x, std::size_t i, double at, const Value& y) {
    const auto h = [&](std::size_t k) { return x[k + 1] - x[k]; };
    const auto d = [&](std::size_t k) { return (y(k + 1) - y(k)) / h(k); };
    const std::size_t last = x.size() - 2;  // of the intervals
    const auto slope = [&](std::size_t k) {
        if (last == 0) return d(0);
        if (k == 0) return EndSlope(h(0), d(0), h(1), d(1));
        if (k > last) return EndSlope(h(last), d(last), h(last - 1), d(last - 1));
        return InnerSlope(h(k - 1), d(k - 1), h(k), d(k));
    };
    const double t = (at - x[i]) / h(i);
    const double u = 1 - t;
    return y(i) * u * u * (1 + 2 * t) + y(i + 1) * t * t * (3 - 2 * t) +
           h(i) * t * u * (u * slope(i) - t * slope(i + 1));
}

}  // namespace

std::optional<std::array<Cx, 4>> PortData::at(double frequency) const {
    if (!covers(frequency)) return std::nullopt;
    const auto above = std::ranges::upper_bound(f, frequency);
    const auto i = static_cast<std::size_t>(above - f.begin()) - 1;
    if (f[i] == frequency || i + 1 == f.size()) return s[i];
    const double t = (frequency - f[i]) / (f[i + 1] - f[i]);
    std::array<Cx, 4> found{};
    for (std::size_t k = 0; k < (ports == 2 ? 4U : 1U); ++k) {
        switch (interpolation) {
            case Interpolation::Linear:
                found[k] = Linear(s[i][k], s[i + 1][k], t);
                break;
            case Interpolation::Polar:
                found[k] = Polar(s[i][k], s[i + 1][k], t);
                break;
            case Interpolation::MonotoneCubic:
                found[k] = {MonotoneCubic(f, i, frequency, [&](auto n) { return s[n][k].real(); }),
                            MonotoneCubic(f, i, frequency, [&](auto n) { return s[n][k].imag(); })};
                break;
        }
    }
    return found;
}

double PortData::largestTurn(double low, double high) const {
    double largest = 0;
    for (std::size_t i = 0; i + 1 < f.size(); ++i) {
        if (f[i + 1] < low || f[i] > high) continue;
        for (std::size_t k = 0; k < (ports == 2 ? 4U : 1U); ++k) {
            largest = std::max(largest, std::fabs(Turn(s[i][k], s[i + 1][k])));
        }
    }
    return largest * kDegreesPerRadian;
}

std::vector<double> PortData::activeSamples(int port) const {
    std::vector<double> active;
    for (std::size_t i = 0; i < f.size(); ++i) {
        if (std::abs(s[i][port == 2 ? 3 : 0]) >= 1) active.push_back(f[i]);
    }
    return active;
}

}  // namespace kelvro
