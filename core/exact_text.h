#pragma once

#include <string>

namespace kelvro {

/// What FormatExact writes, at the end of a text: for tables, whose texts would cost more than
/// their digits.
void AppendExact(std::string& to, double value);

}  // namespace kelvro
