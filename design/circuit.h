#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "design/design.h"
#include "network/part.h"

namespace kelvro {

enum class ElementKind : std::uint8_t { Resistor, Inductor, Capacitor, Line, Choke, Switch };

/// Which tolerance varies an element.
enum class ToleranceGroup : std::uint8_t {
    None,
    Capacitance,
    Inductance,
    LineImpedance,
    Resistance
};

/// One part of a network. Values are SI units: ohm, henry, farad; of a line ZL in ohm.
struct Element {
    ElementKind kind;
    Place place;
    std::string name;  ///< as the page's field names it: "L1"
    double value;
    Slot slot;               ///< where the design keeps it; None for parts without a slot
    std::string_view field;  ///< output field that shows it
    int branch = 0;          ///< 0 = main path; 1 = second branch of two-path networks

    ToleranceGroup group() const;
    std::string_view unit() const;
};

/// How the elements hang together. A ladder lists its elements from source to load; the other forms
/// say so where they differ.
enum class Topology : std::uint8_t {
    None,  ///< no network to show
    Ladder,
    CoupledCoils,  ///< C1, L1 across the source side, L2, C2 across the load side, L1-L2 coupled by
                   ///< k
    Balun,         ///< branch 0 to the + output, branch 1 to the - output, R2 at each
    ClassE,        ///< supply choke, switch with C1 across it, then C2, L2, R
    Divider,       ///< resistor string from Vref to ground, and the band-gap resistor (branch 1)
    Tank,          ///< one-port: series branch Ls-Cs (branch 0) across Lp (branch 1)
    OnePort,       ///< one-port: a coil or capacitor with its parasitics
};

struct Circuit {
    Topology topology = Topology::None;
    std::vector<Element> elements;
    double coupling = 0;            ///< k of coupled coils
    double lineAngleFo = 0;         ///< electrical length of the line at fo, rad
    std::string_view caption = {};  ///< "Pi", where a page has two networks
};

/// The circuit with inductors and capacitors interchanged: each value becomes 1/(ω²·value), each
/// name changes its letter. The response is that of the circuit at the mirrored frequency.
Circuit Dual(const Circuit& circuit, double fo);

/// "Inductance L" <-> "Capacitance C"; other texts stay.
std::string DualLabel(std::string_view label);

}  // namespace kelvro
