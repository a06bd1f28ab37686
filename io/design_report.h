#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/series.h"
#include "design/cycle.h"
#include "io/json_output.h"
#include "io/text_table.h"

// What there is to say about a calculated design, for people and for other programs.

namespace kelvro {

/// What the optimizer did during a calculation.
struct GoalReport {
    double start = 0;
    double final = 0;
    int iterations = 0;
    int calls = 0;
};

/// A calculated design: the state with its components, and what the cycle had to say.
struct DesignRun {
    Design state;
    CycleResult cycle;
    Series series = Series::E12;     ///< standard series that the components are compared with
    std::optional<GoalReport> goal;  ///< empty where nothing was optimized

    const Page& page() const;
    bool refused() const { return cycle.message.has_value(); }
};

/// The shared outputs as fields, with the names that listings and JSON give them.
std::span<const OutputField> SharedOutputFields();

/// One component of a design as its field shows it: the dual value and unit where L and C are
/// interchanged.
struct ShownComponent {
    std::string name;       ///< of the field, also the name that --take knows; swapping keeps it
    std::string shownName;  ///< the dual's where L and C are interchanged: "C1" for "L1"
    /// "Inductance L", the dual's where L and C are interchanged; empty in rows of tables
    std::string label;
    double value = 0;
    std::string unit;
    std::string text;    ///< without leading spaces
    std::string series;  ///< nearest value of the chosen series, empty where there is none
};

/// The components of a design in the order of their fields, or the rows of the page's table; none
/// for a refused design.
std::vector<ShownComponent> ShownComponents(const DesignRun& run);

/// R1, R2, fo, Q, QB, QBC, k, er and the inputs of the page (by option name) as the design used
/// them.
Json JsonInputs(const Design& state);

/// The whole design: page, caption, inputs, message, components, outputs, texts, goal.
Json JsonDesign(const DesignRun& run);

/// What the design's response really does: loss_db, low, high, width, loaded_q, other_than_b (more
/// than a factor of 1.5 from the page's bandwidth); null where there is no band.
Json JsonAchieved(const CycleResult& cycle);
/// The engineering text of a field with its unit: "530.52p" and "F" read 530.52 pF. The suffix "0"
/// of values without a prefix goes, and "infinite" has no unit.
std::string WithUnit(std::string text, std::string_view unit);
std::string WithUnit(double value, std::string_view unit);

/// Name, value and meaning of the inputs that the page works with: the shared ones where it does,
/// then its own.
TextRows InputRows(const Design& state);

/// "3 Pi Section: R1 50.00 Ω, ...": page and inputs in one line without its end.
/// \param caption of the page in another language; empty: its own
std::string Heading(const Design& state, std::string_view caption = {});

/// Name, value and label of all outputs that are no components, as the calculation wrote them.
TextRows OutputRows(const CycleResult& cycle, const Page& page);

/// Number, frequency, amplitude and decibels of the load current's harmonics, with a heading; none
/// where the calculation has no switched stage.
TextRows HarmonicRows(const CycleResult& cycle);

}  // namespace kelvro
