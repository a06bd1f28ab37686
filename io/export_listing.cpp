// Plain listing of a design: what to buy, what to expect.

#include <cmath>

#include "core/number_text.h"
#include "core/series.h"
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

std::string PlaceText(const Circuit& circuit, const Element& element) {
    if (circuit.topology == Topology::Balun) return element.branch == 0 ? "+ output" : "- output";
    return element.place == Place::Series ? "in series" : "across";
}

TextRows ElementRows(const Circuit& circuit, const Circuit& standard, const ExportDesign& design) {
    TextRows rows;
    for (std::size_t i = 0; i < circuit.elements.size(); ++i) {
        const Element& element = circuit.elements[i];
        if (element.kind == ElementKind::Switch) continue;
        std::vector<std::string> row = {element.name, PlaceText(circuit, element)};
        if (std::isinf(element.value)) {
            row.emplace_back(kInfinite);
        } else {
            row.push_back(WithUnit(element.value, element.unit()));
            const double nearest = standard.elements[i].value;
            if (element.value > 0 && element.kind != ElementKind::Line) {
                row.push_back(WithUnit(nearest, element.unit()));
                row.push_back(ErrorText(nearest, element.value));
            }
        }
        rows.push_back(std::move(row));
    }
    if (rows.empty()) return rows;
    const auto series = kSeriesNames[static_cast<std::size_t>(design.series)];
    rows.insert(rows.begin(), {"Name", "Place", "Value", std::string(series) + " value", "Error"});
    return rows;
}

/// The circuit with the standard value of every element beside the shown one.
Circuit Standard(Circuit circuit, Series series) {
    for (Element& element : circuit.elements) {
        if (!(element.value > 0) || std::isinf(element.value)) continue;
        element.value = ParseValue(SeriesNearest(series, element.value));
    }
    return circuit;
}

}  // namespace

std::string ListingOf(const ExportDesign& design, const ExportRange&) {
    const Page& page = design.page();
    const auto elements = [&](const Circuit& circuit) {
        return ElementRows(circuit, Standard(circuit, design.series), design);
    };
    std::string text = "Calculated by Kelvro: page " + std::to_string(page.number) + ", " +
                       std::string(page.caption) + '\n';
    if (page.showsDuals(design.state)) text += "Inductors and capacitors interchanged\n";
    text += Section("Inputs", InputRows(design.state));
    const auto components = [](const Circuit& circuit) {
        return "Components, " +
               std::string(circuit.caption.empty() ? "from source to load" : circuit.caption);
    };
    text += Section(components(design.designed), elements(design.designed));
    text += Section(components(design.alternative), elements(design.alternative));
    const auto title = design.standardValues ? "Outputs with standard values" : "Outputs";
    text += Section(title, OutputRows(design.cycle, page));
    return text + Section("Harmonics of the load current", HarmonicRows(design.cycle));
}

}  // namespace kelvro
