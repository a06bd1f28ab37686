#include "plot/picture_format.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>

namespace kelvro {

namespace {

struct Suffix {
    const char* text;
    PictureFormat format;
};
constexpr std::array kSuffixes{
    Suffix{"bmp", PictureFormat::Bitmap}, Suffix{"wmf", PictureFormat::Metafile},
    Suffix{"jpg", PictureFormat::Jpeg},   Suffix{"gif", PictureFormat::Gif},
    Suffix{"png", PictureFormat::Png},    Suffix{"svg", PictureFormat::Svg},
    Suffix{"pdf", PictureFormat::Pdf}};

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const QString& fileName) {
    const QString wanted = QFileInfo(fileName).suffix().toLower();
    if (wanted == QLatin1String("jpeg")) return PictureFormat::Jpeg;
    for (const auto& [text, format] : kSuffixes) {
        if (wanted == QLatin1String(text)) return format;
    }
    return {};
}

QString WithEnding(const QString& path, PictureFormat format) {
    const auto named = PictureFormatOf(path);
    if (named == format) return path;
    const auto* const suffix = std::ranges::find(kSuffixes, format, &Suffix::format);
    const QFileInfo file(path);
    return file.dir().filePath((named ? file.completeBaseName() : file.fileName()) + '.' +
                               QLatin1String(suffix->text));
}

QStringList PictureSuffixes() {
    QStringList suffixes;
    for (const Suffix& suffix : kSuffixes) suffixes.append(QLatin1String(suffix.text));
    return suffixes;
}

}  // namespace kelvro
