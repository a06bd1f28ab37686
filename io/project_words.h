#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "network/tunable.h"

// Words of project files that reading and writing share.

namespace kelvro {

inline constexpr std::uintmax_t kLargestProject = 64 * 1024 * 1024;
/// In the order of Tunable::Quantity.
inline constexpr std::array<std::string_view, 6> kQuantityWords{"value",     "angle", "length",
                                                                "impedance", "turns", "coupling"};

/// Is there a project that knows more than this program would write?
bool IsOfLaterVersion(const std::filesystem::path& path);

}  // namespace kelvro
