#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Numbers of files and of texts with a grammar: exact both ways, strict where ParseNumber forgives.
// A number and its prefix are read as one decimal number, so that "20.8n" is the double 20.8e-9.

namespace kelvro {

struct ExactNumber {
    double value = 0;
    std::size_t length = 0;  ///< of its text, bytes
};

/// The unsigned decimal number at the start of a text, digits with point or comma and an exponent,
/// or "inf"; nothing where none stands there. `shift` powers of ten are added to it. Beyond
/// the range of a double it is infinite or 0.
std::optional<ExactNumber> ReadExactNumber(std::string_view text, int shift = 0);

struct PrefixLetter {
    int exponent = 0;        ///< of ten
    std::size_t length = 0;  ///< bytes; "µ" has two
};

/// The engineering prefix at the start of a text, the letters of ParseNumber and "µ".
std::optional<PrefixLetter> ReadPrefix(std::string_view text);

/// The shortest text with a prefix that ReadExactNumber and ReadPrefix read back as the same
/// double: "20.8n", "4.7k"; without one from 0.1 to 999, in powers of ten beyond the prefixes.
/// With `digits` above 0 rounded to so many digits.
std::string FormatPrefixed(double value, int digits = 0);

}  // namespace kelvro
