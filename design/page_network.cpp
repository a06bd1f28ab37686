#include "design/page_network.h"

#include <utility>

namespace kelvro {

ToleranceGroup GroupOf(const ListedPart& part) {
    // What a choke has makes no difference within its tolerance.
    if (part.atSupply) return ToleranceGroup::None;
    if (part.line) return ToleranceGroup::LineImpedance;
    return part.kind == PartKind::Capacitor  ? ToleranceGroup::Capacitance
           : part.kind == PartKind::Inductor ? ToleranceGroup::Inductance
                                             : ToleranceGroup::Resistance;
}

double LossTangent(const Design& design) {
    return (1 / design.QBC + 1 / design.QB) / 2;
}

Part PagePart(PartKind kind, std::string_view name, const Design& design, double value) {
    Part part{kind, value, {}, std::string(name)};
    if (kind != PartKind::Resistor) part.loss = {PartLoss::Law::Page, 1 / LossTangent(design)};
    return part;
}

Part PagePart(PartKind kind, std::string_view name, const Design& design, Slot slot) {
    return PagePart(kind, name, design, design.components[slot]);
}

Network PageNetwork(const Design& design, std::vector<LadderElement> ladder) {
    return {.source = design.R1,
            .ladder = std::move(ladder),
            .load = design.R2,
            .designFrequency = design.fo};
}

std::string DualLabel(std::string_view label) {
    constexpr std::string_view inductance = "Inductance ";
    constexpr std::string_view capacitance = "Capacitance ";
    if (label.starts_with(inductance)) {
        return std::string(capacitance) + DualName(label.substr(inductance.size()));
    }
    if (label.starts_with(capacitance)) {
        return std::string(inductance) + DualName(label.substr(capacitance.size()));
    }
    return std::string(label);
}

}  // namespace kelvro
