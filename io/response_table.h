#pragma once

#include <string>

#include "analysis/trace.h"

namespace kelvro {

/// First line of a response as comma-separated values: "f_Hz,re,im", then the columns of all
/// traces.
std::string ResponseCsvHeader();

/// One line of it: numbers that read back exactly; nothing where a trace has no value.
std::string ResponseCsvRow(const TraceSource& source, double f);

}  // namespace kelvro
