#include "plot/raster_encoders.h"

#include <gif_lib.h>

#include <bit>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
// jpeglib.h needs FILE and size_t, and does not include them itself.
#include <jpeglib.h>

#include "plot/colour_reduction.h"

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

std::vector<Rgb> PixelsOf(const QImage& image) {
    std::vector<Rgb> pixels;
    pixels.reserve(static_cast<std::size_t>(image.width()) *
                   static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const uchar* row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x, row += 3) {
            pixels.push_back({row[0], row[1], row[2]});
        }
    }
    return pixels;
}

/// Colour tables hold a power of two of entries, two at least.
ColorMapObject* MakeColourTable(const std::vector<Rgb>& palette) {
    const std::size_t entries = std::max<std::size_t>(2, std::bit_ceil(palette.size()));
    std::vector<GifColorType> colours(entries);
    for (std::size_t i = 0; i < palette.size(); ++i) {
        colours[i] = {palette[i].red, palette[i].green, palette[i].blue};
    }
    return GifMakeMapObject(static_cast<int>(entries), colours.data());
}

bool WriteGif(GifFileType* gif, IndexedPicture& picture, QSize size, ColorMapObject* table) {
    if (table == nullptr ||
        EGifPutScreenDesc(gif, size.width(), size.height(), table->BitsPerPixel, 0, table) !=
            GIF_OK ||
        EGifPutImageDesc(gif, 0, 0, size.width(), size.height(), false, nullptr) != GIF_OK) {
        return false;
    }
    GifPixelType* row = picture.indices.data();
    for (int y = 0; y < size.height(); ++y, row += size.width()) {
        if (EGifPutLine(gif, row, size.width()) != GIF_OK) return false;
    }
    return true;
}

}  // namespace

Encoded EncodeJpeg(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_RGB888);
    JpegJob job{};
    job.info.err = jpeg_std_error(&job.errors.manager);
    job.errors.manager.error_exit = LeaveJpeg;
    const bool done = CompressJpeg(job, pixels);
    Encoded result;
    if (done) {
        result.bytes =
            QByteArray(reinterpret_cast<const char*>(job.buffer), static_cast<qsizetype>(job.size));
    } else {
        result.problem = QString::fromLocal8Bit(job.errors.message);
    }
    jpeg_destroy_compress(&job.info);
    std::free(job.buffer);
    return result;
}

Encoded EncodeGif(const QImage& image) {
    if (image.width() > kLargestGif || image.height() > kLargestGif) {
        return {{}, QStringLiteral("GIF pictures have at most %1 pixels a side").arg(kLargestGif)};
    }
    IndexedPicture picture = ReduceColours(PixelsOf(image.convertToFormat(QImage::Format_RGB888)));
    QByteArray bytes;
    int error = 0;
    GifFileType* gif = EGifOpen(&bytes, AppendGifBytes, &error);
    if (gif == nullptr) return {{}, QString::fromLocal8Bit(GifErrorString(error))};
    ColorMapObject* table = MakeColourTable(picture.palette);
    const bool written = WriteGif(gif, picture, image.size(), table);
    if (!written) error = gif->Error;
    GifFreeMapObject(table);
    const bool closed = EGifCloseFile(gif, written ? &error : nullptr) == GIF_OK;
    if (written && closed) return {bytes, {}};
    return {{}, QString::fromLocal8Bit(GifErrorString(error))};
}

}  // namespace kelvro
