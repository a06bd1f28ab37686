// Plain listing of a design: what to buy, what to expect.

#include <algorithm>
#include <cmath>
#include <span>

#include "core/number_text.h"
#include "core/series.h"
#include "design/page_network.h"
#include "design/part_ref.h"
#include "io/design_report.h"
#include "io/exports.h"
#include "io/text_table.h"

namespace kelvro {

namespace {

constexpr std::string_view kSeriesNames[] = {"none", "E6", "E12", "E24", "E48", "E96"};

std::string Section(std::string_view title, const TextRows& rows) {
    return rows.empty() ? "" : '\n' + std::string(title) + '\n' + AlignedTable(rows);
}

std::string ErrorText(double standard, double value) {
    constexpr double percent = 100;
    const std::string text = FormatFixed(0, 2, percent * (standard / value - 1));
    return (text.starts_with('-') ? "" : "+") + text + " %";
}

std::string PlaceText(const ListedPart& part, bool branched) {
    if (branched) return part.branch ? "- output" : "+ output";
    return part.place == Place::Series ? "in series" : "across";
}

/// The label beside the part's field in the window, as it stands there; empty where it has none.
std::string LabelOf(const Network& network, std::string_view name, const ExportDesign& design) {
    const bool duals = design.page().showsDuals(design.state);
    const auto part = PartOf(design.page(), network, name, duals);
    if (!part || !part->field) return {};
    return duals ? DualLabel(part->field->label) : std::string(part->field->label);
}

void AddPart(TextRows& rows, const ListedPart& part, bool branched, Series series,
             const std::string& label) {
    std::vector<std::string> row = {part.name, PlaceText(part, branched)};
    if (std::isinf(part.value)) {
        row.emplace_back(kInfinite);
    } else {
        row.push_back(WithUnit(part.value, part.unit()));
        if (part.value > 0 && !part.line) {
            const double nearest = ParseValue(SeriesNearest(series, part.value));
            row.push_back(WithUnit(nearest, part.unit()));
            row.push_back(ErrorText(nearest, part.value));
        }
    }
    if (!label.empty()) {
        row.resize(5);
        row.push_back(label);
    }
    rows.push_back(std::move(row));
}

/// What a page computes of its parts beside their values: the length to cut of a line.
void AddLengths(TextRows& rows, const ExportDesign& design) {
    for (const PartRef& part : PartsOf(design.state)) {
        if (!part.field || part.slot != Slot::Length) continue;
        rows.push_back({std::string(part.field->name), "",
                        WithUnit(part.built(design.state), part.field->unit), "", "",
                        std::string(part.field->label)});
    }
}

/// The parts with the standard value of each beside the shown one.
TextRows PartRows(std::span<const Network> networks, const ExportDesign& design) {
    TextRows rows;
    for (const Network& network : networks) {
        const std::vector<ListedPart> parts = ListOf(network);
        const bool branched = std::ranges::any_of(parts, &ListedPart::branch);
        for (const ListedPart& part : parts)
            AddPart(rows, part, branched, design.series, LabelOf(network, part.name, design));
    }
    if (rows.empty()) return rows;
    AddLengths(rows, design);
    const auto series = kSeriesNames[static_cast<std::size_t>(design.series)];
    rows.insert(rows.begin(), {"Name", "Place", "Value", std::string(series) + " value", "Error",
                               "In the window"});
    return rows;
}

}  // namespace

std::string ListingOf(const ExportDesign& design, const ExportRange&) {
    const Page& page = design.page();
    std::string text = "Calculated by Kelvro: page " + std::to_string(page.number) + ", " +
                       std::string(page.caption) + '\n';
    if (page.showsDuals(design.state)) text += "Inductors and capacitors interchanged\n";
    text += Section("Inputs", InputRows(design.state));
    const auto components = [&](std::span<const Network> networks) {
        const std::string& caption = networks.front().caption;
        return Section("Components, " + (caption.empty() ? "from source to load" : caption),
                       PartRows(networks, design));
    };
    if (!design.designed.empty()) text += components(design.designed);
    if (design.alternative) text += components({&*design.alternative, 1});
    const auto title = design.standardValues ? "Outputs with standard values" : "Outputs";
    text += Section(title, OutputRows(design.cycle, page));
    return text + Section("Harmonics of the load current", HarmonicRows(design.cycle));
}

}  // namespace kelvro
