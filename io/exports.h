#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"
#include "core/series.h"
#include "design/cycle.h"
#include "design/design.h"
#include "design/page.h"

// A design in the forms that other tools read: contents as texts. Where they go is the caller's
// business.

namespace kelvro {

/// A calculated design on its way out.
struct ExportDesign {
    Design state;                        ///< with the component values that are exported
    CycleResult cycle;                   ///< the outputs that belong to them
    std::vector<Network> designed;       ///< what there is to build, with the values as shown
    std::vector<Network> networks;       ///< the same with the exported values
    std::optional<Network> alternative;  ///< the other network of the page as shown, if any
    bool standardValues = false;         ///< the exported values are those of the standard series
    Series series = Series::E12;

    const Page& page() const;
    /// One line of plain ASCII: "Pi Section, 50.00 ohm to 200.00 ohm at 10.00 MHz"; resistances
    /// and fo where the page works with them.
    std::string title() const;
};

/// What part of a design is exported.
struct ExportChoice {
    bool standardValues = false;   ///< all elements take the nearest value of the chosen series
    bool componentsGiven = false;  ///< components stand although the page refuses the design
    Series series = Series::E12;
};

/// The design of the state with the components it holds, or why there is nothing to export.
Result<ExportDesign> PrepareExport(const Design& state, ExportChoice choice);

/// The design with the components that its fields show, where these differ from what it keeps: a
/// field rounded to a standard value. A design that the page refuses stays as it is.
Design AsShown(const Design& design);

/// Frequencies and reference of formats that need them.
struct ExportRange {
    double from = 0;  ///< Hz, above 0
    double to = 0;    ///< Hz, above `from`
    int points = 201;
    double z0 = 50;  ///< reference resistance of scattering parameters, ohm

    /// One decade around fo.
    static ExportRange Around(double fo);
    /// i-th of the frequencies in equal ratios; both ends come out exactly.
    double frequency(int i) const;
};

inline constexpr int kMostExportPoints = 100'000;

/// Can the frequencies and the reference be used?
Status CheckRange(const ExportRange& range);

/// One form in which designs leave the program.
struct ExportFormat {
    std::string_view key;      ///< on the command line: "spice"
    std::string_view caption;  ///< "SPICE netlist"
    std::string_view suffix;   ///< of file names: "cir"
    bool reference;            ///< is a reference resistance chosen?
    bool (*available)(const Page&);
    bool (*range)(const Page&);  ///< are frequencies chosen?
    std::string (*content)(const ExportDesign&, const ExportRange&);
};

std::span<const ExportFormat> ExportFormats();
const ExportFormat* FindExportFormat(std::string_view key);

// Contents; see the formats' files for what they promise.

/// Plain text: page, inputs, components with standard values and their errors, outputs.
std::string ListingOf(const ExportDesign& design, const ExportRange&);

/// A netlist that ngspice runs as it is: sweep around fo with source, load and losses; of a
/// class-E stage its switching transient, of a resistor string its operating point.
std::string SpiceNetlist(const ExportDesign& design, const ExportRange& range);

/// Touchstone 1.1 two-port, losses included.
std::string TouchstoneFile(const ExportDesign& design, const ExportRange& range);

/// The response: f, real and imaginary part, and all traces.
std::string ResponseCsv(const ExportDesign& design, const ExportRange& range);

/// The design as JSON, as the command-line program writes it.
std::string DesignJson(const ExportDesign& design, const ExportRange&);

}  // namespace kelvro
