#pragma once

#include <string_view>
#include <vector>

#include "core/result.h"

namespace kelvro {

/// Values that somebody owns, in SI units.
struct OwnedParts {
    std::vector<double> resistors;
    std::vector<double> inductors;
    std::vector<double> capacitors;
    bool operator==(const OwnedParts&) const = default;
};

/// Reads a list of values: words apart by blanks, commas, semicolons or lines; "#" makes the rest
/// of a line a remark. "L=22n" and "22nH" are inductors, "C=18p" and "18pF" capacitors, "R=50" and
/// "50Ω" resistors; a word "L:", "C:" or "R:" says so for the words behind it. Fails with the line
/// of a word that is no value or whose kind nobody knows, and for a list without values.
Result<OwnedParts> ParseOwnedParts(std::string_view text);

}  // namespace kelvro
