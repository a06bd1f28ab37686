#pragma once

#include <string>
#include <string_view>

namespace kelvro {

/// The SHA-256 digest of a text (FIPS 180-4) as 64 hexadecimal digits.
std::string Sha256(std::string_view text);

}  // namespace kelvro
