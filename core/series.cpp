#include "core/series.h"

#include <cmath>
#include <numbers>
#include <span>

#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr double kE6[] = {1.0, 1.5, 2.2, 3.3, 4.7, 6.8, 10.0};
constexpr double kE12[] = {1.0, 1.2, 1.5, 1.8, 2.2, 2.7, 3.3, 3.9, 4.7, 5.6, 6.8, 8.2, 10.0};
constexpr double kE24[] = {1.0, 1.1, 1.2, 1.3, 1.5, 1.6, 1.8, 2.0, 2.2, 2.4, 2.7, 3.0, 3.3,
                           3.6, 3.9, 4.3, 4.7, 5.1, 5.6, 6.2, 6.8, 7.5, 8.2, 9.1, 10.0};
constexpr double kE48[] = {1.00, 1.05, 1.10, 1.15, 1.21, 1.27, 1.33, 1.40, 1.47, 1.54,
                           1.62, 1.69, 1.78, 1.87, 1.96, 2.05, 2.15, 2.26, 2.37, 2.49,
                           2.61, 2.74, 2.87, 3.01, 3.16, 3.32, 3.48, 3.65, 3.83, 4.02,
                           4.22, 4.42, 4.64, 4.87, 5.11, 5.36, 5.62, 5.90, 6.19, 6.49,
                           6.81, 7.15, 7.50, 7.87, 8.25, 8.66, 9.09, 9.53, 10.0};
constexpr double kE96[] = {
    1.00, 1.02, 1.05, 1.07, 1.10, 1.13, 1.15, 1.18, 1.21, 1.24, 1.27, 1.30, 1.33, 1.37,
    1.40, 1.43, 1.47, 1.50, 1.54, 1.58, 1.62, 1.65, 1.69, 1.74, 1.78, 1.82, 1.87, 1.91,
    1.96, 2.00, 2.05, 2.10, 2.15, 2.21, 2.26, 2.32, 2.37, 2.43, 2.49, 2.55, 2.61, 2.67,
    2.74, 2.80, 2.87, 2.94, 3.01, 3.09, 3.16, 3.24, 3.32, 3.40, 3.48, 3.57, 3.65, 3.74,
    3.83, 3.92, 4.02, 4.12, 4.22, 4.32, 4.42, 4.53, 4.64, 4.75, 4.87, 4.99, 5.11, 5.23,
    5.36, 5.49, 5.62, 5.76, 5.90, 6.04, 6.19, 6.34, 6.49, 6.65, 6.81, 6.98, 7.15, 7.32,
    7.50, 7.68, 7.87, 8.06, 8.25, 8.45, 8.66, 8.87, 9.09, 9.31, 9.53, 9.76, 10.0};

/// "3.3p" as a double may lie a last bit above 3.3 of its decade and is that value all the same.
constexpr double kSameValue = 1 + 1e-12;

std::span<const double> Table(Series series) {
    switch (series) {
        case Series::E6:
            return kE6;
        case Series::E12:
            return kE12;
        case Series::E24:
            return kE24;
        case Series::E48:
            return kE48;
        case Series::E96:
            return kE96;
        case Series::None:
            break;
    }
    return {};
}

/// Text of the table value at or above the decade mantissa of x (offset 0) or the one before (-1).
std::string TableText(Series series, double x, int offset) {
    const auto table = Table(series);
    if (table.empty() || !(x > 0) || std::isinf(x)) return FormatEng(6, 2, x);
    // The divisor lies slightly above ln 10, so an exact power of ten falls into the decade below.
    const long double decade =
        std::nearbyint(std::log(static_cast<long double>(x)) / 2.3025851L - 0.5L);
    const long double power = std::exp(decade * std::numbers::ln10_v<long double>);
    const auto mantissa = static_cast<double>(x / power);
    std::size_t i = 1;
    while (i + 1 < table.size() && mantissa > kSameValue * table[i]) ++i;
    const double value = table[i - (offset < 0 ? 1 : 0)];
    return FormatEng(6, 2, static_cast<double>(value * power));
}

}  // namespace

std::optional<Series> SeriesByName(std::string_view name) {
    if (name.empty() || (name[0] != 'E' && name[0] != 'e')) return std::nullopt;
    const std::string_view digits = name.substr(1);
    if (digits == "6") return Series::E6;
    if (digits == "12") return Series::E12;
    if (digits == "24") return Series::E24;
    if (digits == "48") return Series::E48;
    if (digits == "96") return Series::E96;
    return std::nullopt;
}

std::span<const double> SeriesMantissas(Series series) {
    const auto table = Table(series);
    return table.empty() ? table : table.first(table.size() - 1);
}

std::string SeriesBelow(Series series, double x) {
    return TableText(series, x, -1);
}

std::string SeriesAbove(Series series, double x) {
    return TableText(series, x, 0);
}

std::string SeriesNearest(Series series, double x) {
    std::string below = SeriesBelow(series, x);
    std::string above = SeriesAbove(series, x);
    return std::fabs(x - ParseValue(below)) < std::fabs(x - ParseValue(above)) ? below : above;
}

}  // namespace kelvro
