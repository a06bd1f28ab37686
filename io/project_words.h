#pragma once

#include <QCryptographicHash>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "network/tunable.h"

// Words of project files that reading and writing share.

namespace kelvro {

inline constexpr std::uintmax_t kLargestProject = 64 * 1024 * 1024;
/// In the order of Tunable::Quantity.
inline constexpr std::array<std::string_view, 6> kQuantityWords{"value",     "angle", "length",
                                                                "impedance", "turns", "coupling"};

/// By which data that a project names by their file are known again.
inline std::string Checksum(std::string_view content) {
    const QByteArrayView bytes(content.data(), static_cast<qsizetype>(content.size()));
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    return "sha256:" + hash.toHex().toStdString();
}

/// Nothing where there is no file that can be read.
inline std::optional<std::string> ContentOf(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream) return std::nullopt;
    return text.str();
}

/// Is there a project that knows more than this program would write?
bool IsOfLaterVersion(const std::filesystem::path& path);

}  // namespace kelvro
