#pragma once

#include <array>
#include <complex>
#include <optional>
#include <string>
#include <vector>

// Measured one-ports and two-ports: scattering parameters over frequency.

namespace kelvro {

/// How values between two samples are found; the linear form shortens |Γ| by 1 - cos(δ/2) where
/// neighbouring samples turn by δ.
enum class Interpolation : std::uint8_t { Linear, Polar, MonotoneCubic };

struct PortData {
    std::string name;                                    ///< as the user wrote it: "antenna.s1p"
    int ports = 1;                                       ///< 1 or 2
    std::vector<double> f;                               ///< Hz, rising
    std::vector<std::array<std::complex<double>, 4>> s;  ///< S11 S12 S21 S22; one-ports: S11 only
    std::array<double, 2> reference{50, 50};  ///< real reference resistance of each port, ohm
    Interpolation interpolation = Interpolation::Linear;

    bool operator==(const PortData&) const = default;

    bool covers(double frequency) const {
        return !f.empty() && frequency >= f.front() && frequency <= f.back();
    }
    /// Scattering parameters at a frequency; nothing outside the samples: the last value is never
    /// held.
    std::optional<std::array<std::complex<double>, 4>> at(double frequency) const;
    /// Largest turn of S11 (of one-ports) or of any parameter between neighbouring samples that
    /// touch [low, high], degrees.
    double largestTurn(double low, double high) const;
    /// Samples whose reflection of `port` (1 or 2) is not that of a passive device, |Γ| >= 1.
    std::vector<double> activeSamples(int port = 1) const;
};

}  // namespace kelvro
