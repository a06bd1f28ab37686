#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"
#include "network/port_data.h"

// Touchstone files, versions 1.1 and 2.0, as the EIA/IBIS Open Forum has laid them down (2002 and
// 2009): scattering, impedance and admittance parameters of one-ports and two-ports.

namespace kelvro {

/// What a file holds. The data are scattering parameters whatever the file was written in.
struct TouchstoneContent {
    PortData data;
    int version = 1;
    std::string unit = "GHz";  ///< of its frequencies
    char parameter = 'S';      ///< S, Y or Z
    std::string format = "MA";
    bool noise = false;                 ///< noise data follow, which are not read
    std::vector<std::string> comments;  ///< the first ones, up to twenty lines
    std::vector<std::string> warnings;  ///< "line 4: …"
};

inline constexpr std::uintmax_t kLargestTouchstoneFile = 32 * 1024 * 1024;

/// The content of a text. `name` becomes the name of the data; its ending .s1p or .s2p tells the
/// ports of version 1 files, other names leave it to the first row. A failure reads "name, line 7:
/// expected 9 numbers, found 8".
Result<TouchstoneContent> ParseTouchstone(std::string_view text, std::string_view name);

/// The content of a file, which is refused at once when it is large, not a regular file or binary.
Result<TouchstoneContent> ReadTouchstone(const std::filesystem::path& path, std::string_view name);

/// The data as a file: real and imaginary parts over hertz to all digits, with their reference
/// resistances; version 1.1, and 2.0 where two ports have different ones.
std::string TouchstoneText(const PortData& data, std::span<const std::string> comments);

}  // namespace kelvro
