#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "core/result.h"
#include "io/design_report.h"
#include "io/exports.h"

namespace kelvro {

/// Switching transient of a class-E stage with a nearly ideal switch, measured in the steady state.
/// The choke has no loss: what it has at fo is nothing to the direct current that it carries. An
/// infinite choke becomes one of a hundred thousand times R.
std::string ClassENetlist(const ExportDesign& design);

/// A number that the program computes and the simulator measures.
struct ComparedValue {
    std::string name;
    std::string unit;  ///< "dB" and "%" are written without prefixes
    double computed = 0;
    double simulated = 0;  ///< NaN where the simulator measured nothing
};

/// The exported netlist of a class-E stage run in ngspice, beside the steady state of the same
/// parts with the same losses. Fails, with one clear message, where either is not to be had.
Result<std::vector<ComparedValue>> CompareWithNgspice(const ExportDesign& design,
                                                      const std::stop_token& stop = {});

/// The comparison as a table with a heading.
TextRows ComparisonRows(const std::vector<ComparedValue>& values);

}  // namespace kelvro
