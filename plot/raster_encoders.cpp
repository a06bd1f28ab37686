#include "plot/raster_encoders.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
// jpeglib.h needs FILE and size_t, and does not include them itself.
#include <jpeglib.h>

#include <string>
#include <vector>

namespace kelvro {

namespace {

// ---------------------------------------------------------------- JPEG

constexpr int kJpegQuality = 90;

/// libjpeg reports a failure by calling error_exit, which must not return.
struct JpegErrors {
    jpeg_error_mgr manager;
    std::jmp_buf back;
    char message[JMSG_LENGTH_MAX];
};

struct JpegJob {
    jpeg_compress_struct info;
    JpegErrors errors;
    unsigned char* buffer;
    unsigned long size;
};

void LeaveJpeg(j_common_ptr info) {
    auto* errors = reinterpret_cast<JpegErrors*>(info->err);
    info->err->format_message(info, errors->message);
    std::longjmp(errors->back, 1);
}

/// Compresses an image of 24-bit pixels; false with a message in the job when libjpeg gives up.
/// Holds nothing that would need a destructor, since libjpeg leaves it by a long jump.
bool CompressJpeg(JpegJob& job, const QImage& image) {
    if (setjmp(job.errors.back) != 0) return false;
    jpeg_create_compress(&job.info);
    jpeg_mem_dest(&job.info, &job.buffer, &job.size);
    job.info.image_width = static_cast<JDIMENSION>(image.width());
    job.info.image_height = static_cast<JDIMENSION>(image.height());
    job.info.input_components = 3;
    job.info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&job.info);
    jpeg_set_quality(&job.info, kJpegQuality, TRUE);
    job.info.comp_info[0].h_samp_factor = 1;
    job.info.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&job.info, TRUE);
    while (job.info.next_scanline < job.info.image_height) {
        auto* row =
            const_cast<JSAMPROW>(image.constScanLine(static_cast<int>(job.info.next_scanline)));
        jpeg_write_scanlines(&job.info, &row, 1);
    }
    jpeg_finish_compress(&job.info);
    return true;
}

// ---------------------------------------------------------------- GIF

constexpr int kLargestGif = 65535;

int AppendGifBytes(GifFileType* gif, const GifByteType* bytes, int count) {
    static_cast<QByteArray*>(gif->UserData)->append(reinterpret_cast<const char*>(bytes), count);
    return count;
}

/// The pixels of a 24-bit image by channel, row by row.
std::array<std::vector<GifByteType>, 3> ChannelsOf(const QImage& image) {
    std::array<std::vector<GifByteType>, 3> channels;
    for (int y = 0; y < image.height(); ++y) {
        const uchar* row = image.constScanLine(y);
        for (int i = 0; i < 3 * image.width(); ++i) {
            channels[static_cast<std::size_t>(i) % 3].push_back(row[i]);
        }
    }
    return channels;
}

/// A 24-bit image in the colours of giflib's median cut. It looks at five bits of a channel, so
/// white comes out grey: each colour becomes the mean of the pixels that have taken it, and those
/// of the plot's background and curves keep theirs. Null when memory is short.
QImage Divided(const QImage& image) {
    auto channels = ChannelsOf(image);
    std::vector<GifByteType> indices(channels[0].size());
    std::array<GifColorType, 256> table{};
    int colours = static_cast<int>(table.size());
    if (GifQuantizeBuffer(static_cast<unsigned>(image.width()),
                          static_cast<unsigned>(image.height()), &colours, channels[0].data(),
                          channels[1].data(), channels[2].data(), indices.data(),
                          table.data()) != GIF_OK) {
        return {};
    }
    std::array<std::array<std::size_t, 256>, 4> sums{};  // of the channels, and of pixels
    for (std::size_t i = 0; i < indices.size(); ++i) {
        for (std::size_t k = 0; k < 3; ++k) sums[k][indices[i]] += channels[k][i];
        ++sums[3][indices[i]];
    }
    QImage divided(image.size(), QImage::Format_Indexed8);
    for (std::size_t c = 0; c < static_cast<std::size_t>(colours); ++c) {
        const std::size_t pixels = std::max<std::size_t>(sums[3][c], 1);
        const auto mean = [&](std::size_t k) {
            return static_cast<int>((sums[k][c] + pixels / 2) / pixels);
        };
        divided.setColor(static_cast<int>(c), qRgb(mean(0), mean(1), mean(2)));
    }
    const GifByteType* row = indices.data();
    for (int y = 0; y < divided.height(); ++y, row += divided.width()) {
        std::copy_n(row, divided.width(), divided.scanLine(y));
    }
    return divided;
}

/// The picture with at most 256 colours; where these suffice, they are kept as they are.
QImage WithFewColours(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_RGB888);
    const QImage exact = pixels.convertToFormat(QImage::Format_Indexed8);
    return exact.convertToFormat(QImage::Format_RGB888) == pixels ? exact : Divided(pixels);
}

/// Colour tables hold a power of two of entries, two at least.
ColorMapObject* MakeColourTable(const QList<QRgb>& palette) {
    std::vector<GifColorType> colours;
    for (const QRgb colour : palette) {
        colours.push_back({static_cast<GifByteType>(qRed(colour)),
                           static_cast<GifByteType>(qGreen(colour)),
                           static_cast<GifByteType>(qBlue(colour))});
    }
    colours.resize(std::max<std::size_t>(2, std::bit_ceil(colours.size())));
    return GifMakeMapObject(static_cast<int>(colours.size()), colours.data());
}

bool WriteGif(GifFileType* gif, QImage& picture, ColorMapObject* table) {
    if (table == nullptr ||
        EGifPutScreenDesc(gif, picture.width(), picture.height(), table->BitsPerPixel, 0, table) !=
            GIF_OK ||
        EGifPutImageDesc(gif, 0, 0, picture.width(), picture.height(), false, nullptr) != GIF_OK) {
        return false;
    }
    for (int y = 0; y < picture.height(); ++y) {
        if (EGifPutLine(gif, picture.scanLine(y), picture.width()) != GIF_OK) return false;
    }
    return true;
}

Status GifFailure(int error) {
    const char* text = GifErrorString(error);  // null for an unknown error
    return Status::Failure(text ? text : "The GIF picture cannot be written");
}

}  // namespace

Encoded EncodeJpeg(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_RGB888);
    JpegJob job{};
    job.info.err = jpeg_std_error(&job.errors.manager);
    job.errors.manager.error_exit = LeaveJpeg;
    const bool done = CompressJpeg(job, pixels);
    Encoded result = Status::Failure(job.errors.message);
    if (done) {
        result =
            QByteArray(reinterpret_cast<const char*>(job.buffer), static_cast<qsizetype>(job.size));
    }
    jpeg_destroy_compress(&job.info);
    std::free(job.buffer);
    return result;
}

Encoded EncodeGif(const QImage& image) {
    if (image.width() > kLargestGif || image.height() > kLargestGif) {
        return Status::Failure("GIF pictures have at most " + std::to_string(kLargestGif) +
                               " pixels a side");
    }
    QImage picture = WithFewColours(image);
    if (picture.isNull()) return Status::Failure("Not enough memory for the picture");
    QByteArray bytes;
    int error = 0;
    GifFileType* gif = EGifOpen(&bytes, AppendGifBytes, &error);
    if (gif == nullptr) return GifFailure(error);
    ColorMapObject* table = MakeColourTable(picture.colorTable());
    const bool written = WriteGif(gif, picture, table);
    if (!written) error = gif->Error;
    GifFreeMapObject(table);
    const bool closed = EGifCloseFile(gif, written ? &error : nullptr) == GIF_OK;
    if (written && closed) return bytes;
    return GifFailure(error);
}

}  // namespace kelvro
