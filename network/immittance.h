#pragma once

#include <complex>

// One-ports as pairs of voltage and current: opens, shorts and resonances are ordinary values.

namespace kelvro {

/// A one-port as the ratio voltage/current. Neither combination divides.
struct Immittance {
    std::complex<double> voltage;
    std::complex<double> current{1};

    std::complex<double> impedance() const { return voltage / current; }
    std::complex<double> admittance() const { return current / voltage; }
};

Immittance InSeries(const Immittance& a, const Immittance& b);
Immittance InParallel(const Immittance& a, const Immittance& b);

/// The same one-port with its larger number of magnitude about 1: long chains of combinations would
/// leave the range of a double otherwise.
Immittance Normalized(const Immittance& of);

}  // namespace kelvro
