#include "network/immittance.h"

#include <algorithm>
#include <cmath>

namespace kelvro {

Immittance InSeries(const Immittance& a, const Immittance& b) {
    return {a.voltage * b.current + b.voltage * a.current, a.current * b.current};
}

Immittance InParallel(const Immittance& a, const Immittance& b) {
    return {a.voltage * b.voltage, a.voltage * b.current + b.voltage * a.current};
}

Immittance Normalized(const Immittance& of) {
    const double size = std::max(std::abs(of.voltage), std::abs(of.current));
    return {of.voltage / size, of.current / size};
}

}  // namespace kelvro
