#pragma once

#include <string>
#include <string_view>

#include "analysis/response.h"

namespace kelvro {

/// First line of a response as comma-separated values.
inline constexpr std::string_view kResponseCsvHeader = "f_Hz,re,im,V_dB,GT_dB,phase_deg\n";

/// One line of it: numbers that read back exactly.
std::string ResponseCsvRow(const Response& response, double f);

}  // namespace kelvro
