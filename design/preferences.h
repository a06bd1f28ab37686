#pragma once

#include "core/series.h"

namespace kelvro {

/// What a user prefers, whatever is being designed.
struct Preferences {
    Series ESeries = Series::E12;  ///< standard series that values are rounded to
    double SweepFactor = 1.05;     ///< step of the spin buttons

    bool operator==(const Preferences&) const = default;
};

}  // namespace kelvro
