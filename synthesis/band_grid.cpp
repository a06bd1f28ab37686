#include "synthesis/band_grid.h"

#include <algorithm>
#include <cmath>

namespace kelvro {

namespace {

constexpr double kLogarithmicFrom = 4;
/// A capacitor has no impedance at 0; nothing else happens so far below the end of a band.
constexpr double kAboveZero = 1e-6;

}  // namespace

std::vector<double> FrequenciesIn(const FrequencyBand& band, std::size_t points) {
    const double low = std::max(band.low, kAboveZero * band.high);
    const bool logarithmic = band.low > 0 && band.high > kLogarithmicFrom * band.low;
    std::vector<double> f(points);
    for (std::size_t i = 0; i < points; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(points - 1);
        f[i] = logarithmic ? low * std::pow(band.high / low, part) : low + (band.high - low) * part;
    }
    f.front() = low;
    f.back() = band.high;
    return f;
}

std::vector<double> FrequenciesIn(std::span<const FrequencyBand> bands, std::size_t pointsPerBand) {
    std::vector<double> all;
    for (const FrequencyBand& band : bands) {
        const auto f = FrequenciesIn(band, pointsPerBand);
        all.insert(all.end(), f.begin(), f.end());
    }
    return all;
}

double MiddleOf(std::span<const FrequencyBand> bands) {
    double low = bands.front().low;
    double high = bands.front().high;
    for (const FrequencyBand& band : bands) {
        low = std::min(low, band.low);
        high = std::max(high, band.high);
    }
    return low > high / 100 ? std::sqrt(low * high) : high;
}

}  // namespace kelvro
