#pragma once

#include <functional>

#include "analysis/response.h"

namespace kelvro {

/// Where the transducer gain around a frequency stays within a limit. low = 0: down to DC;
/// high = infinity: no upper end within three decades.
struct Passband {
    double low = 0;
    double high = 0;

    double width() const { return high - low; }
    bool contains(double f) const { return low <= f && f <= high; }
};

/// The band around f0 in which the gain is at most `drop` dB below that at f0. The ends are exact
/// to 1e-12 relative; structure narrower than 1e-6·f0 next to f0 is not seen.
Passband PassbandAround(const Response& response, double f0, double drop = 3.0102999566398120);

/// The same of any gain in dB over frequency; where it is no number the band ends.
Passband PassbandAround(const std::function<double(double f)>& gainDb, double f0, double drop);

}  // namespace kelvro
