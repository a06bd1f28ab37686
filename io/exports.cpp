#include "io/exports.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/response.h"
#include "core/number_text.h"
#include "core/series.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "io/design_report.h"

namespace kelvro {

namespace {

constexpr std::string_view kNothingYet = "There are no component values to export yet.";

void UseStandardValues(Design& state, const Page& page, const Network& network, Series series) {
    for (const ListedPart& part : ListOf(network)) {
        if (part.line || !(part.value > 0) || std::isinf(part.value)) continue;
        const std::string nearest = SeriesNearest(series, part.value);
        const auto ref = PartOf(page, network, part.name, page.showsDuals(state));
        if (ref) ref->build(state, ParseValue(nearest));
    }
}

/// Is it a series part that is a mere wire? The series tank needs no C1 at the Q where its
/// reactance vanishes.
bool IsWire(const LadderElement& element) {
    const auto* arm = std::get_if<Arm>(&element.is);
    const auto* part = arm ? std::get_if<Part>(&arm->impedance.is) : nullptr;
    if (!part || arm->place != Place::Series) return false;
    return part->kind == PartKind::Capacitor  ? std::isinf(part->value)
           : part->kind == PartKind::Inductor ? part->value == 0
                                              : false;
}

std::vector<Network> WithoutWires(std::vector<Network> networks) {
    for (Network& network : networks) std::erase_if(network.ladder, IsWire);
    return networks;
}

/// Resistors may vanish (0 in series, infinite across); nothing else may.
bool CanBeBuilt(const std::vector<Network>& networks) {
    const auto possible = [](const ListedPart& part) {
        if (part.atSupply) return part.value > 0;  // infinite, if chosen
        if (part.kind != PartKind::Resistor || part.line) {
            return part.value > 0 && std::isfinite(part.value);
        }
        return part.place == Place::Series ? part.value >= 0 && std::isfinite(part.value)
                                           : part.value > 0;
    };
    return std::ranges::all_of(networks, [&](const Network& network) {
        return std::ranges::all_of(ListOf(network), possible);
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
    if (page().atFrequency) text += " at " + WithUnit(state.fo, "Hz");
    return text;
}

Result<ExportDesign> PrepareExport(const Design& state, ExportChoice choice) {
    const Page& page = PageOf(state);
    ExportDesign design;
    design.state = state;
    design.standardValues = choice.standardValues;
    design.series = choice.series;
    design.cycle = OutputsOf(state, !choice.componentsGiven);
    if (design.cycle.message) return Status::Failure(*design.cycle.message);
    design.state = design.cycle.design;
    design.designed = WithoutWires(page.builtNetworks(state));
    if (page.alternative) design.alternative = page.alternative(state);
    if (!CanBeBuilt(design.designed)) return Status::Failure(std::string(kNothingYet));
    if (choice.standardValues) {
        const auto rounded = [&](const Network& network) {
            UseStandardValues(design.state, page, network, choice.series);
        };
        std::ranges::for_each(design.designed, rounded);
        if (design.alternative) rounded(*design.alternative);
        design.cycle = OutputsOf(design.state, false);
        design.state = design.cycle.design;
    }
    design.networks = WithoutWires(page.builtNetworks(design.state));
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

Status CheckRange(const ExportRange& range) {
    if (!(range.from > 0) || !std::isfinite(range.to)) {
        return Status::Failure("The lower frequency must be above 0 and the upper one finite.");
    }
    if (!(range.to > range.from))
        return Status::Failure("The upper frequency must be above the lower one.");
    if (range.points < 2 || range.points > kMostExportPoints) {
        return Status::Failure("The number of points must be 2 to " +
                               std::to_string(kMostExportPoints) + ".");
    }
    if (!(range.z0 > 0) || !std::isfinite(range.z0)) {
        return Status::Failure("The reference resistance must be above 0.");
    }
    return {};
}

std::span<const ExportFormat> ExportFormats() {
    static constexpr auto always = [](const Page&) { return true; };
    static constexpr auto never = [](const Page&) { return false; };
    static constexpr auto hasNetwork = [](const Page& page) { return page.networks != nullptr; };
    static constexpr auto hasPorts = [](const Page& page) {
        return page.networks && page.atFrequency;
    };
    static constexpr auto isSwept = [](const Page& page) {
        return hasPorts(page) && !page.switched;
    };
    static constexpr auto hasResponse = [](const Page& page) { return page.transfer != nullptr; };
    static constexpr std::array<ExportFormat, 5> formats = {
        {{"listing", "Listing", "txt", false, always, never, ListingOf},
         {"spice", "SPICE netlist", "cir", false, hasNetwork, isSwept, SpiceNetlist},
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
