#pragma once

#include <array>
#include <optional>

#include "network/network.h"

namespace kelvro {

/// The network function of a page with the present component values, in the form that is cheapest
/// to evaluate at many frequencies. s is the lossy complex frequency.
struct Transfer {
    enum class Form : std::uint8_t {
        Ideal,       ///< no formula: sqrt(R2/R1) at every frequency
        Polynomial,  ///< numerator·s^power / (a0 + a1·s + ... + a4·s⁴)
        Line,        ///< line of impedance ZL, a quarter wave long at fo, between R1 and R2
        Ladder,      ///< of the network itself
    };

    Form form = Form::Ideal;
    double numerator = 0;
    int power = 0;
    std::array<double, 5> a{};
    double ZL = 0;
    std::optional<Network> ladder;

    static Transfer Polynomial(long double numerator, int power, std::array<long double, 5> a);
    static Transfer Line(double ZL);
    static Transfer Ladder(Network network);
};

}  // namespace kelvro
