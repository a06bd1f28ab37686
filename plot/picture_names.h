#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "plot/picture_format.h"

namespace kelvro {

/// PictureFormatOfFile.
std::optional<PictureFormat> PictureFormatOf(const QString& fileName);

/// The name with the usual ending of the format: in place of another format's, else behind it. A
/// name of that format stays.
QString WithEnding(const QString& path, PictureFormat format);

/// The endings as a list for messages and dialogs, the usual one of each format.
QStringList PictureSuffixes();

}  // namespace kelvro
