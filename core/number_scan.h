#pragma once

#include <cstddef>
#include <string_view>

namespace kelvro {

struct ScannedNumber {
    double value = 0;
    bool noDigits = true;    ///< no digit was read
    std::size_t length = 0;  ///< characters that were read, blanks before the number included
};

/// What ParseNumber reads, and how far it came.
ScannedNumber ScanNumber(std::string_view text);

}  // namespace kelvro
