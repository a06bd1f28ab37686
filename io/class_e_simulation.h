#pragma once

#include <stop_token>
#include <vector>

#include "core/result.h"
#include "io/class_e_comparison.h"
#include "io/exports.h"

namespace kelvro {

/// The exported netlist of a class-E stage run in ngspice, beside the steady state of the same
/// parts with the same losses. Fails, with one clear message, where either is not to be had.
Result<std::vector<ComparedValue>> CompareWithNgspice(const ExportDesign& design,
                                                      const std::stop_token& stop = {});

}  // namespace kelvro
