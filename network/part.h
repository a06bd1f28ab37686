#pragma once

#include <complex>
#include <cstdint>
#include <string>
#include <string_view>

#include "network/immittance.h"

// One part of a network and its loss model. SI units throughout: ohm, henry, farad, hertz.

namespace kelvro {

/// How an element stands to the main path: in it, or from it to ground.
enum class Place : std::uint8_t { Series, Shunt };

enum class PartKind : std::uint8_t { Resistor, Inductor, Capacitor };

/// Loss of an inductor or a capacitor; none by default. The laws of constant, proportional and root
/// Q put |X|/Q in series with the part; self-resonance and series resistance add to whatever law
/// the Q follows. A Q that is not above 0 counts as infinite.
struct PartLoss {
    enum class Law : std::uint8_t {
        Lossless,
        ConstantQ,      ///< Q at every frequency
        ProportionalQ,  ///< Q at `f`, proportional to frequency (a coil of constant resistance)
        RootQ,          ///< Q at `f`, proportional to its root (skin effect)
        Page,          ///< as the pages reckon: s = ω(1/Q + j) in place of jω; parallel loss in C
        PageMirrored,  ///< the same at the mirrored frequency, where L and C are interchanged
    };

    Law law = Law::Lossless;
    double Q = 0;
    double f = 0;    ///< where Q holds; laws with a constant Q ignore it
    double ESR = 0;  ///< in series, ohm
    /// Self-resonance, 0 for none: an inductor gets C = 1/((2π·SRF)²·L) across, a capacitor
    /// L = 1/((2π·SRF)²·C) in series.
    double SRF = 0;

    bool operator==(const PartLoss&) const = default;
};

struct Part {
    PartKind kind = PartKind::Resistor;
    double value = 0;
    PartLoss loss = {};
    std::string name = {};  ///< as fields and pictures call it: "L1"; empty where nobody named it
    double tolerance = 0;   ///< ± percent of the value; 0: that of all parts of its kind

    bool operator==(const Part&) const = default;

    static Part R(double ohm, std::string name = {}) {
        return {PartKind::Resistor, ohm, {}, std::move(name)};
    }
    static Part L(double henry, std::string name = {}) {
        return {PartKind::Inductor, henry, {}, std::move(name)};
    }
    static Part C(double farad, std::string name = {}) {
        return {PartKind::Capacitor, farad, {}, std::move(name)};
    }
};

/// A part at f > 0, its losses included; never 0/0. The one place in the program that knows what a
/// part is.
Immittance immittance(const Part& part, double f);
/// The same as an impedance, ohm. An infinite capacitance is a short; a vanishing one has an
/// infinite impedance.
std::complex<double> impedance(const Part& part, double f);

/// "H", "F", "Ω".
std::string_view UnitOf(PartKind kind);
/// 'R', 'L', 'C'.
char LetterOf(PartKind kind);

/// "L1" <-> "C1", "H" <-> "F"; other texts stay.
std::string DualName(std::string_view name);
std::string_view DualUnit(std::string_view unit);

}  // namespace kelvro
