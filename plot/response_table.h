#pragma once

#include <string>

#include "design/design.h"

namespace kelvro {

/// The response of a design as a text file in UTF-8, lines ended by CR LF: a header, then 513 lines
/// of f in Hz (with prefix letters), GT in dB, V in dB and the phase in degrees. In equal ratios
/// the frequencies run from xmin to xmax (both above 0); in equal steps of 1/512 of the range they
/// start one step above xmin and end one step above xmax.
std::string ResponseTable(const Design& state, double xmin, double xmax, bool logarithmic);

}  // namespace kelvro
