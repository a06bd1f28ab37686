#pragma once

#include <string>

#include "network/ladder_response.h"

// What a network does over frequency, as texts for people and programs.

namespace kelvro {

/// An array of records, one per frequency:
/// {"f", "gt_db", "gamma_in": [re, im], "vswr", "zin": [re, im], "gamma_out", "zout", "phase_deg",
/// "group_delay_s", "dissipated"}; infinite values as the texts of JsonNumber.
std::string SweepJson(const NetworkSweep& sweep);

/// The same columns with a heading line, apart by commas.
std::string SweepCsv(const NetworkSweep& sweep);

/// A table for reading, with rounded values.
std::string SweepTable(const NetworkSweep& sweep);

}  // namespace kelvro
