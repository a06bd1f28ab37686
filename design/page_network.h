#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "design/design.h"
#include "network/network.h"

// What pages make their networks of.

namespace kelvro {

/// Which tolerance varies a part.
enum class ToleranceGroup : std::uint8_t {
    None,
    Capacitance,
    Inductance,
    LineImpedance,
    Resistance
};
ToleranceGroup GroupOf(const ListedPart& part);

/// A row of a page's record for parts that have no component field of their own name.
struct PartRow {
    std::string name;               ///< in the networks: "C01"
    Slot slot = Slot::None;         ///< None for parts that are inputs
    std::string_view field = {};    ///< object of its component field or input
    std::string_view network = {};  ///< caption of the network, where two have parts so named
};

/// 1/Q of every inductor and capacitor as the pages reckon: the mean of both element Q's losses.
double LossTangent(const Design& design);
/// A part with the page's loss.
Part PagePart(PartKind kind, std::string_view name, const Design& design, double value);
/// The same with its value from a slot.
Part PagePart(PartKind kind, std::string_view name, const Design& design, Slot slot);
/// A ladder between R1 and R2, at fo.
Network PageNetwork(const Design& design, std::vector<LadderElement> ladder);

/// "Inductance L" <-> "Capacitance C"; other texts stay.
std::string DualLabel(std::string_view label);

}  // namespace kelvro
