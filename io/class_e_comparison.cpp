#include "io/class_e_comparison.h"

#include <cmath>

#include "core/number_text.h"

namespace kelvro {

namespace {

std::string ValueText(double value, const std::string& unit) {
    if (!std::isfinite(value)) return "-";
    if (unit == "%" || unit == "dB") return FormatFixed(0, 2, value) + ' ' + unit;
    // What is left of a perfect zero needs no digits behind the third.
    constexpr double nothing = 1e-6;
    return FormatQuantity(3, std::fabs(value) < nothing ? 0 : value, unit);
}

}  // namespace

TextRows ComparisonRows(const std::vector<ComparedValue>& values) {
    TextRows rows{{"", "Computed", "ngspice"}};
    for (const ComparedValue& value : values) {
        rows.push_back({value.name, ValueText(value.computed, value.unit),
                        ValueText(value.simulated, value.unit)});
    }
    return rows;
}

}  // namespace kelvro
