#pragma once

#include <limits>

namespace kelvro {

/// Range of a value in SI units.
struct ValueLimits {
    double low = 0;
    double high = std::numeric_limits<double>::infinity();
    bool operator==(const ValueLimits&) const = default;

    bool contains(double value) const { return value >= low && value <= high; }
};

}  // namespace kelvro
