#pragma once

#include <string>
#include <vector>

namespace kelvro {

/// Rows of texts as lines with aligned columns, two spaces between them; no line ends in spaces.
/// Columns are as wide as their longest text, counted in characters of UTF-8.
std::string AlignedTable(const std::vector<std::vector<std::string>>& rows);

}  // namespace kelvro
