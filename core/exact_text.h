#pragma once

#include <cstddef>

namespace kelvro {

/// Room that WriteExact wants: the longest number, and what it may touch behind a shorter one.
constexpr std::size_t kLongestExact = 64;

/// What FormatExact writes, at `to`, where kLongestExact characters have room; its end. For tables,
/// whose texts would cost more than their digits.
char* WriteExact(char* to, double value);

}  // namespace kelvro
