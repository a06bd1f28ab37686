#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <filesystem>
#include <string_view>

#include "io/atomic_file.h"

// Files by the names that windows have for them. Apart from the functions themselves: a program
// that includes no header of Qt starts in half the time.

namespace kelvro {

/// A path as the system has it.
inline std::filesystem::path NativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

/// WriteAtomically of io/atomic_file.h.
inline Status WriteAtomically(const QString& path, const QByteArray& content,
                              Survives survives = Survives::PowerCut) {
    const auto size = static_cast<std::size_t>(content.size());
    return WriteAtomically(NativePath(path), std::string_view(content.constData(), size), survives);
}

}  // namespace kelvro
