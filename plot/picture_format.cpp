#include "plot/picture_format.h"

#include <algorithm>
#include <array>

namespace kelvro {

namespace {

struct Suffix {
    std::string_view text;
    PictureFormat format;
};
constexpr std::array kSuffixes{
    Suffix{"bmp", PictureFormat::Bitmap}, Suffix{"wmf", PictureFormat::Metafile},
    Suffix{"jpg", PictureFormat::Jpeg},   Suffix{"gif", PictureFormat::Gif},
    Suffix{"png", PictureFormat::Png},    Suffix{"svg", PictureFormat::Svg},
    Suffix{"pdf", PictureFormat::Pdf}};

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::optional<PictureFormat> PictureFormatOfFile(std::string_view name) {
    name.remove_prefix(name.rfind('/') + 1);  // of a name without folders, nothing
    const auto point = name.rfind('.');
    if (point == std::string_view::npos) return {};
    std::string wanted(name.substr(point + 1));
    std::ranges::transform(wanted, wanted.begin(), Lower);
    if (wanted == "jpeg") return PictureFormat::Jpeg;
    for (const auto& [text, format] : kSuffixes) {
        if (wanted == text) return format;
    }
    return {};
}

std::string_view SuffixOf(PictureFormat format) {
    return std::ranges::find(kSuffixes, format, &Suffix::format)->text;
}

std::string PictureSuffixText(std::string_view separator) {
    std::string text;
    for (const Suffix& suffix : kSuffixes) {
        if (!text.empty()) text += separator;
        text += suffix.text;
    }
    return text;
}

}  // namespace kelvro
