#pragma once

#include <string>
#include <vector>

namespace kelvro {

using TextRows = std::vector<std::vector<std::string>>;

/// Rows of texts as lines with aligned columns, two spaces between them; no line ends in spaces.
/// Columns are as wide as their longest text, counted in characters of UTF-8.
std::string AlignedTable(const TextRows& rows);

}  // namespace kelvro
