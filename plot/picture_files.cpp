#include "plot/picture_files.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <array>
#include <cmath>

#include "io/atomic_file.h"
#include "plot/metafile_device.h"

namespace kelvro {

namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kMetresPerInch = 0.0254;
constexpr int kPointsPerInch = 72;
constexpr int kPdfDotsPerInch = 1200;
/// Sides of pictures, in pixels.
constexpr int kLargestSide = 10000;

struct Suffix {
    const char* text;
    PictureFormat format;
};
constexpr std::array kSuffixes{
    Suffix{"bmp", PictureFormat::Bitmap}, Suffix{"wmf", PictureFormat::Metafile},
    Suffix{"jpg", PictureFormat::Jpeg},   Suffix{"gif", PictureFormat::Gif},
    Suffix{"png", PictureFormat::Png},    Suffix{"svg", PictureFormat::Svg},
    Suffix{"pdf", PictureFormat::Pdf}};

QString TooLarge() {
    return QStringLiteral("A picture has from 1 to %1 pixels a side").arg(kLargestSide);
}

bool IsReasonable(QSize size) {
    return !size.isEmpty() && size.width() <= kLargestSide && size.height() <= kLargestSide;
}

Encoded EncodeByQt(const QImage& image, const char* format) {
    Encoded result;
    QBuffer buffer(&result.bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format)) {
        result.problem = QStringLiteral("The picture cannot be written as %1").arg(format);
    }
    return result;
}

Encoded EncodeImage(PictureFormat format, const QImage& image) {
    if (image.isNull()) return {{}, QStringLiteral("Not enough memory for the picture")};
    switch (format) {
        case PictureFormat::Jpeg:
            return EncodeJpeg(image);
        case PictureFormat::Gif:
            return EncodeGif(image);
        case PictureFormat::Bitmap:
            return EncodeByQt(image.convertToFormat(QImage::Format_RGB888), "BMP");
        default:
            return EncodeByQt(image, "PNG");
    }
}

/// Hands the drawing to a device and says whether it could be painted on.
bool Paint(QPaintDevice& device, const Drawing& drawing, QSize size, double scale = 1) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    painter.scale(scale, scale);
    drawing(painter, size);
    return painter.end();
}

Encoded Vector(QByteArray bytes, bool painted) {
    if (painted) return {std::move(bytes), {}};
    return {{}, QStringLiteral("The picture cannot be drawn")};
}

Encoded EncodeSvg(QSize size, const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setResolution(kPixelsPerInch);
    const bool painted = Paint(generator, drawing, size);
    // Viewers without the plots' font take any sans-serif one instead of their serif default.
    bytes.replace("font-family=\"MS Sans Serif\"",
                  "font-family=\"MS Sans Serif, Arial, Helvetica, sans-serif\"");
    return Vector(std::move(bytes), painted);
}

Encoded EncodePdf(QSize size, const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bool painted = false;
    {
        QPdfWriter writer(&buffer);
        const QSizeF points = QSizeF(size) * kPointsPerInch / kPixelsPerInch;
        writer.setPageSize(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(kPdfDotsPerInch);
        writer.setCreator(QStringLiteral("Kelvro"));
        painted =
            Paint(writer, drawing, size, static_cast<double>(kPdfDotsPerInch) / kPixelsPerInch);
    }
    return Vector(std::move(bytes), painted);
}

Encoded EncodeMetafile(QSize size, const Drawing& drawing) {
    MetafileDevice device(size);
    const bool painted = Paint(device, drawing, size);
    return Vector(device.file(), painted);
}

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const QString& fileName) {
    const QString wanted = QFileInfo(fileName).suffix().toLower();
    if (wanted == QLatin1String("jpeg")) return PictureFormat::Jpeg;
    for (const auto& [text, format] : kSuffixes) {
        if (wanted == QLatin1String(text)) return format;
    }
    return {};
}

QStringList PictureSuffixes() {
    QStringList suffixes;
    for (const Suffix& suffix : kSuffixes) suffixes.append(QLatin1String(suffix.text));
    return suffixes;
}

QImage ImageOf(const Drawing& drawing, QSize size, double scale) {
    const QSize pixels = (QSizeF(size) * scale).toSize();
    if (!IsReasonable(pixels)) return {};
    QImage image(pixels, QImage::Format_RGB32);
    if (image.isNull()) return {};
    image.fill(Qt::white);
    const int dotsPerMetre = qRound(scale * kPixelsPerInch / kMetresPerInch);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return Paint(image, drawing, size, scale) ? image : QImage();
}

Encoded EncodePicture(PictureFormat format, QSize size, const Drawing& drawing, double scale) {
    if (!IsReasonable(size) || !IsReasonable((QSizeF(size) * scale).toSize()))
        return {{}, TooLarge()};
    switch (format) {
        case PictureFormat::Svg:
            return EncodeSvg(size, drawing);
        case PictureFormat::Pdf:
            return EncodePdf(size, drawing);
        case PictureFormat::Metafile:
            return EncodeMetafile(size, drawing);
        default:
            return EncodeImage(format, ImageOf(drawing, size, scale));
    }
}

std::optional<QString> SavePicture(const QString& path, PictureFormat format, QSize size,
                                   const Drawing& drawing, double scale) {
    const Encoded encoded = EncodePicture(format, size, drawing, scale);
    if (!encoded.problem.isEmpty()) {
        return QStringLiteral("Cannot write \"%1\": %2.").arg(path, encoded.problem);
    }
    if (format == PictureFormat::Metafile) {
        return WriteByWayOf(QStringLiteral("TMP"), path, encoded.bytes);
    }
    return WriteAtomically(path, encoded.bytes);
}

}  // namespace kelvro
