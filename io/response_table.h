#pragma once

#include <functional>
#include <iosfwd>

#include "analysis/trace.h"

namespace kelvro {

/// A response as comma-separated values: "f_Hz,re,im" and the columns of the traces, then a line
/// for each of `rows` frequencies, in Hz: numbers that read back exactly, nothing where a trace has
/// no value. Many lines are worked out on all cores. Ends early where `out` fails.
void WriteResponseCsv(const TraceSource& source, const TraceList& traces, std::size_t rows,
                      const std::function<double(std::size_t)>& frequency, std::ostream& out);

}  // namespace kelvro
