#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvro {

enum class PictureFormat { Bitmap, Metafile, Jpeg, Gif, Png, Svg, Pdf };

/// The format that a file name asks for by its ending (.bmp .wmf .jpg .jpeg .gif .png .svg .pdf),
/// case ignored; nothing for any other.
std::optional<PictureFormat> PictureFormatOfFile(std::string_view name);

/// The usual ending of a format: "png".
std::string_view SuffixOf(PictureFormat format);

/// Those of all formats with something in between.
std::string PictureSuffixText(std::string_view separator);

}  // namespace kelvro
