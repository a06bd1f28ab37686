#include "io/exports.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/response.h"
#include "core/number_text.h"
#include "core/series.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "io/circuit_two_port.h"
#include "io/design_report.h"

namespace kelvro {

namespace {

constexpr std::string_view kNothingYet = "There are no component values to export yet.";

void UseStandardValues(Design& state, const Page& page, const Circuit& circuit, Series series) {
    for (const Element& element : circuit.elements) {
        const bool sold = element.kind != ElementKind::Line && element.kind != ElementKind::Switch;
        if (!sold || !(element.value > 0) || std::isinf(element.value)) continue;
        const std::string nearest = SeriesNearest(series, element.value);
        if (const auto part = PartOf(page, element)) part->build(state, ParseValue(nearest));
    }
}

/// The circuit without series parts that are mere wires: the series tank needs no C1 at the Q where
/// its reactance vanishes.
Circuit WithoutWires(Circuit circuit) {
    if (circuit.topology != Topology::Ladder) return circuit;
    std::erase_if(circuit.elements, [](const Element& element) {
        const bool wire = element.kind == ElementKind::Capacitor  ? std::isinf(element.value)
                          : element.kind == ElementKind::Inductor ? element.value == 0
                                                                  : false;
        return wire && element.place == Place::Series;
    });
    return circuit;
}

/// Resistors may vanish (0 in series, infinite across); nothing else may.
bool CanBeBuilt(const Circuit& circuit) {
    return std::ranges::all_of(circuit.elements, [](const Element& element) {
        if (element.kind == ElementKind::Switch) return true;
        if (element.kind == ElementKind::Choke) return element.value > 0;  // infinite, if chosen
        if (element.kind != ElementKind::Resistor) {
            return element.value > 0 && std::isfinite(element.value);
        }
        return element.place == Place::Series ? element.value >= 0 && std::isfinite(element.value)
                                              : element.value > 0;
    });
}

CycleResult OutputsOf(const Design& state, bool judged) {
    ResponseServices services;
    CycleResult cycle = Calculate(state, false, services);
    return cycle.message && !judged ? ShowComponents(state, services) : cycle;
}

}  // namespace

const Page& ExportDesign::page() const {
    return PageOf(state);
}

std::string ExportDesign::title() const {
    std::string text(page().caption);
    if (page().shared == SharedOutputs::All) {
        text += ", " + WithUnit(state.R1, "ohm") + " to " + WithUnit(state.R2, "ohm");
    }
    if (circuit.topology != Topology::Divider) text += " at " + WithUnit(state.fo, "Hz");
    return text;
}

std::variant<ExportDesign, std::string> PrepareExport(const Design& state, ExportChoice choice) {
    const Page& page = PageOf(state);
    ExportDesign design;
    design.state = state;
    design.standardValues = choice.standardValues;
    design.series = choice.series;
    design.cycle = OutputsOf(state, !choice.componentsGiven);
    if (design.cycle.message) return *design.cycle.message;
    design.state = design.cycle.design;
    design.designed = WithoutWires(page.builtCircuit(state));
    if (page.alternative) design.alternative = page.alternative(state);
    if (!CanBeBuilt(design.designed)) return std::string(kNothingYet);
    if (choice.standardValues) {
        UseStandardValues(design.state, page, design.designed, choice.series);
        UseStandardValues(design.state, page, design.alternative, choice.series);
        design.cycle = OutputsOf(design.state, false);
        design.state = design.cycle.design;
    }
    design.circuit = WithoutWires(page.builtCircuit(design.state));
    return design;
}

Design AsShown(const Design& design) {
    const CycleResult written = OutputsOf(design, true);
    if (written.message) return design;
    Design shown = design;
    for (const PartRef& part : PartsOf(design)) {
        // A field that shows what was written there keeps the digits that its text leaves out.
        const double value = ParseValue(part.shownText(design));
        if (!(value > 0) || value == ParseValue(part.shownText(written.design))) continue;
        part.build(shown, value);
    }
    return shown;
}

ExportRange ExportRange::Around(double fo) {
    const double half = std::sqrt(10.0);
    ExportRange range;
    range.from = fo / half;
    range.to = fo * half;
    return range;
}

double ExportRange::frequency(int i) const {
    if (i == points - 1) return to;
    return i == 0 ? from : from * std::pow(to / from, static_cast<double>(i) / (points - 1));
}

std::optional<std::string> RangeProblem(const ExportRange& range) {
    if (!(range.from > 0) || !std::isfinite(range.to)) {
        return "The lower frequency must be above 0 and the upper one finite.";
    }
    if (!(range.to > range.from)) return "The upper frequency must be above the lower one.";
    if (range.points < 2 || range.points > kMostExportPoints) {
        return "The number of points must be 2 to " + std::to_string(kMostExportPoints) + ".";
    }
    if (!(range.z0 > 0) || !std::isfinite(range.z0)) {
        return "The reference resistance must be above 0.";
    }
    return std::nullopt;
}

std::span<const ExportFormat> ExportFormats() {
    static constexpr auto always = [](const Page&) { return true; };
    static constexpr auto never = [](const Page&) { return false; };
    static constexpr auto topology = [](const Page& page) {
        return page.circuit ? page.circuit(Design{}).topology : Topology::None;
    };
    static constexpr auto hasCircuit = [](const Page& page) {
        return topology(page) != Topology::None;
    };
    static constexpr auto isSwept = [](const Page& page) {
        return topology(page) != Topology::ClassE && topology(page) != Topology::Divider;
    };
    static constexpr auto hasPorts = [](const Page& page) {
        return CircuitTwoPort::Exists(topology(page));
    };
    static constexpr auto hasResponse = [](const Page& page) { return page.transfer != nullptr; };
    static constexpr std::array<ExportFormat, 5> formats = {
        {{"listing", "Listing", "txt", false, always, never, ListingOf},
         {"spice", "SPICE netlist", "cir", false, hasCircuit, isSwept, SpiceNetlist},
         {"touchstone", "Touchstone two-port", "s2p", true, hasPorts, always, TouchstoneFile},
         {"csv", "Response table (CSV)", "csv", false, hasResponse, always, ResponseCsv},
         {"json", "Design (JSON)", "json", false, always, never, DesignJson}}};
    return formats;
}

const ExportFormat* FindExportFormat(std::string_view key) {
    const auto formats = ExportFormats();
    const auto found = std::ranges::find(formats, key, &ExportFormat::key);
    return found == formats.end() ? nullptr : &*found;
}

}  // namespace kelvro
