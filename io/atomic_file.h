#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/result.h"

namespace kelvro {

/// What a new file stands through from the moment it is written: with PowerCut it is on the disk
/// then, which takes 10 ms; with Kill the system brings it there as it sees fit.
enum class Survives { PowerCut, Kill };

/// Replaces the file `path` by `content` as a whole: it keeps its old content until the new one
/// stands complete on the disk, and no temporary file stays behind, whatever fails. A device
/// ("/dev/stdout") is written to directly. A failure's message is for the user.
Status WriteAtomically(const std::filesystem::path& path, std::string_view content,
                       Survives survives = Survives::PowerCut);

/// The same, by way of a complete file "name.<suffix>" in the same folder (with a number where that
/// name is taken) which then takes the name `path`.
Status WriteByWayOf(const std::string& suffix, const std::filesystem::path& path,
                    std::string_view content);

}  // namespace kelvro
