#include "design/opened_network.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "design/pages.h"
#include "design/part_ref.h"

namespace kelvro {

namespace {

/// A wire in series, or nothing across: resistors of a pad and parts of a tank may vanish.
bool HasNoEffect(const LadderElement& element) {
    const auto* arm = std::get_if<Arm>(&element.is);
    const auto* part = arm ? std::get_if<Part>(&arm->impedance.is) : nullptr;
    if (!part) return false;
    const bool capacitor = part->kind == PartKind::Capacitor;
    const bool series = arm->place == Place::Series;
    return series == capacitor ? std::isinf(part->value) : part->value == 0;
}

bool IsPossible(const ListedPart& part) {
    const bool resistor = part.kind == PartKind::Resistor && !part.line;
    return std::isfinite(part.value) && (part.value > 0 || (resistor && part.value == 0));
}

}  // namespace

Result<Network> OpenedNetwork(const Design& design) {
    const Page& page = PageOf(design);
    const std::string caption(page.caption);
    if (!page.networks || !page.atFrequency) {
        return Status::Failure(caption + " has no network at a frequency.");
    }
    Network network = ShownNetworks(design).front();
    std::erase_if(network.ladder, HasNoEffect);
    if (!std::ranges::all_of(ListOf(network), IsPossible)) {
        return Status::Failure(caption + " has no component values yet.");
    }
    if (network.source.isNothing() && network.load.isNothing()) {
        network.load = std::get<Arm>(network.ladder.front().is).impedance;
        network.ladder.clear();
        network.source = design.R1;
    } else if (network.source.isNothing()) {
        network.source = impedance(network.load, design.fo);
    }
    network.caption = caption;
    network.sourceNode.clear();
    return network;
}

}  // namespace kelvro
