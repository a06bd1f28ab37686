#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace kelvro {

/// Replaces the file `path` by `content` as a whole: it keeps its old content until the new one
/// stands complete on the disk, and no temporary file stays behind, whatever fails. A device
/// ("/dev/stdout") is written to directly. Returns the message for the user when it failed.
std::optional<QString> WriteAtomically(const QString& path, const QByteArray& content);

/// The same, by way of a complete file "name.<suffix>" in the same folder (with a number where that
/// name is taken) which then takes the name `path`.
std::optional<QString> WriteByWayOf(const QString& suffix, const QString& path,
                                    const QByteArray& content);

}  // namespace kelvro
