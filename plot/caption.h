#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "io/design_report.h"

namespace kelvro {

/// What a picture on its own says about the design it shows, as lines for its footer: page and
/// inputs, the parts with their values, and who drew it on which day ("2026-11-22").
/// \param page caption of the page in another language; empty: its own
std::vector<std::string> CaptionOf(const DesignRun& run, const std::string& day,
                                   std::string_view page = {});

}  // namespace kelvro
