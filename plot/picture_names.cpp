#include "plot/picture_names.h"

#include <QDir>
#include <QFileInfo>

namespace kelvro {

std::optional<PictureFormat> PictureFormatOf(const QString& fileName) {
    return PictureFormatOfFile(fileName.toStdString());
}

QString WithEnding(const QString& path, PictureFormat format) {
    const auto named = PictureFormatOf(path);
    if (named == format) return path;
    const QFileInfo file(path);
    const std::string_view suffix = SuffixOf(format);
    return file.dir().filePath((named ? file.completeBaseName() : file.fileName()) + '.' +
                               QLatin1String(suffix.data(), static_cast<qsizetype>(suffix.size())));
}

QStringList PictureSuffixes() {
    return QString::fromStdString(PictureSuffixText(",")).split(',');
}

}  // namespace kelvro
