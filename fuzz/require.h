#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace kelvro {

/// What has to hold for every input; where it does not, the fuzzer keeps the input as a finding.
inline void Require(bool holds, const char* what, const std::string& shown = {}) {
    if (holds) return;
    std::fprintf(stderr, "not so: %s: '%s'\n", what, shown.c_str());
    std::abort();
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace kelvro
