#include "analysis/passband.h"

#include <cmath>
#include <limits>

namespace kelvro {

namespace {

constexpr double kFirstOffset = 1e-6;  // of f0
constexpr double kGrowth = 1.05;       // of the offset, per step
constexpr double kSearchedDecades = 1e3;
constexpr double kNextToDc =
    1e-9;  // of f0: the response itself has no value at f = 0 on some pages
constexpr int kBisections = 60;

/// The frequency between two, one inside and one outside of the band, where its end lies.
template <typename Inside>
double EndBetween(double in, double out, Inside&& inside) {
    for (int i = 0; i < kBisections; ++i) {
        const double middle = (in + out) / 2;
        (inside(middle) ? in : out) = middle;
    }
    return in;
}

}  // namespace

Passband PassbandAround(const Response& response, double f0, double drop) {
    return PassbandAround([&](double f) { return response.relativeDb(f); }, f0, drop);
}

Passband PassbandAround(const std::function<double(double f)>& gainDb, double f0, double drop) {
    const double least = gainDb(f0) - drop;
    const auto inside = [&](double f) { return gainDb(f) >= least; };
    Passband band{0, std::numeric_limits<double>::infinity()};

    double last = f0;
    for (double offset = kFirstOffset; last > kNextToDc * f0; offset *= kGrowth) {
        const double f = std::max(f0 * (1 - offset), kNextToDc * f0);
        if (!inside(f)) {
            band.low = EndBetween(last, f, inside);
            break;
        }
        last = f;
    }
    last = f0;
    for (double offset = kFirstOffset; last < kSearchedDecades * f0; offset *= kGrowth) {
        const double f = f0 * (1 + offset);
        if (!inside(f)) {
            band.high = EndBetween(last, f, inside);
            break;
        }
        last = f;
    }
    return band;
}

}  // namespace kelvro
