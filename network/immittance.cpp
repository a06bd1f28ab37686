#include "network/immittance.h"

#include <algorithm>
#include <cmath>

namespace kelvro {

namespace {

/// What two opens in a row, or two shorts side by side, come to.
bool IsNothing(const Immittance& of) {
    return of.voltage == 0.0 && of.current == 0.0;
}

}  // namespace

Immittance InSeries(const Immittance& a, const Immittance& b) {
    const Immittance both{a.voltage * b.current + b.voltage * a.current, a.current * b.current};
    return IsNothing(both) ? Immittance{1, 0} : both;
}

Immittance InParallel(const Immittance& a, const Immittance& b) {
    const Immittance both{a.voltage * b.voltage, a.voltage * b.current + b.voltage * a.current};
    return IsNothing(both) ? Immittance{0, 1} : both;
}

Immittance Normalized(const Immittance& of) {
    const double size = std::max(std::abs(of.voltage), std::abs(of.current));
    return {of.voltage / size, of.current / size};
}

}  // namespace kelvro
