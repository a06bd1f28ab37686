#include "plot/picture_files.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <array>
#include <cmath>

#include "io/qt_files.h"
#include "plot/metafile_device.h"

namespace kelvro {

namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kMetresPerInch = 0.0254;
constexpr int kPointsPerInch = 72;
constexpr int kPdfDotsPerInch = 1200;
/// Sides of pictures, in pixels.
constexpr int kLargestSide = 10000;

Status TooLarge() {
    return Status::Failure("A picture has from 1 to " + std::to_string(kLargestSide) +
                           " pixels a side");
}

bool IsReasonable(QSize size) {
    return !size.isEmpty() && size.width() <= kLargestSide && size.height() <= kLargestSide;
}

Encoded EncodeByQt(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.save(&buffer, format)) return bytes;
    return Status::Failure(std::string("The picture cannot be written as ") + format);
}

Encoded EncodeImage(PictureFormat format, const QImage& image) {
    if (image.isNull()) return Status::Failure("Not enough memory for the picture");
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
    if (painted) return bytes;
    return Status::Failure("The picture cannot be drawn");
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
    bytes.replace("font-family=\"Sans Serif\"", "font-family=\"MS Sans Serif\"");
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
    if (!IsReasonable(size) || !IsReasonable((QSizeF(size) * scale).toSize())) return TooLarge();
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

Status SavePicture(const QString& path, PictureFormat format, QSize size, const Drawing& drawing,
                   double scale) {
    const Encoded encoded = EncodePicture(format, size, drawing, scale);
    if (!encoded) {
        return Status::Failure("Cannot write \"" + path.toStdString() + "\": " + encoded.message() +
                               '.');
    }
    if (format == PictureFormat::Metafile) {
        return WriteByWayOf("TMP", NativePath(path), encoded->toStdString());
    }
    return WriteAtomically(path, *encoded);
}

}  // namespace kelvro
