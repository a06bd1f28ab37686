#include "plot/metafile_writer.h"

#include <algorithm>
#include <array>

namespace kelvro {

namespace {

enum Function : std::uint16_t {
    kEnd = 0x0000,
    kSetBackgroundMode = 0x0102,
    kSetMapMode = 0x0103,
    kSetPolygonFillMode = 0x0106,
    kSelectObject = 0x012D,
    kSetTextAlign = 0x012E,
    kDeleteObject = 0x01F0,
    kSetTextColour = 0x0209,
    kSetWindowOrigin = 0x020B,
    kSetWindowExtent = 0x020C,
    kCreatePen = 0x02FA,
    kCreateFont = 0x02FB,
    kCreateBrush = 0x02FC,
    kPolygon = 0x0324,
    kPolyline = 0x0325,
    kRectangle = 0x041B,
    kTextOut = 0x0521,
};

constexpr std::uint16_t kTransparent = 1;
constexpr std::uint16_t kAnisotropic = 8;
constexpr std::uint16_t kBaselineCentre = 24 | 6;
constexpr std::uint16_t kAlternateFill = 1;
constexpr std::uint16_t kWindingFill = 2;
constexpr std::uint16_t kPenSolid = 0;
constexpr std::uint16_t kPenNone = 5;
constexpr std::uint16_t kFlatCap = 0x0200;
constexpr std::uint16_t kBevelJoin = 0x1000;
constexpr std::uint16_t kBrushSolid = 0;
constexpr std::uint16_t kBrushNone = 1;
constexpr std::uint16_t kNormalWeight = 400;
constexpr std::uint16_t kBoldWeight = 700;

constexpr std::size_t kFaceBytes = 32;
constexpr std::size_t kMostPoints = 16000;      // counts are signed 16-bit numbers
constexpr std::size_t kMostCharacters = 16000;  // likewise

constexpr std::size_t kRecordHead = 3;  // words: size (two), function
constexpr std::uint16_t kHeaderWords = 9;

std::uint16_t Word(int value) {
    return static_cast<std::uint16_t>(value);
}

std::uint16_t Bytes(int low, int high) {
    return static_cast<std::uint16_t>((low & 0xff) | (high & 0xff) << 8);
}

std::array<std::uint16_t, 2> Long(std::size_t value) {
    return {static_cast<std::uint16_t>(value & 0xffff),
            static_cast<std::uint16_t>(value >> 16 & 0xffff)};
}

/// Characters packed into words, padded to a whole word.
std::vector<std::uint16_t> Packed(std::string_view text) {
    std::vector<std::uint16_t> words;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        words.push_back(Bytes(text[i], i + 1 < text.size() ? text[i + 1] : 0));
    }
    return words;
}

/// Hints for players that lack the face: pitch, and roman, swiss or modern style.
std::uint16_t FamilyOf(const MetafileFont& font) {
    constexpr int kRoman = 0x10;
    constexpr int kSwiss = 0x20;
    constexpr int kModern = 0x30;
    if (font.fixedPitch) return Bytes(0, 1 | kModern);
    return Bytes(0, 2 | (font.serif ? kRoman : kSwiss));
}

std::vector<std::uint16_t> PointWords(std::span<const MetafilePoint> points) {
    std::vector<std::uint16_t> words{Word(static_cast<int>(points.size()))};
    for (const MetafilePoint& point : points) {
        words.push_back(Word(point.x));
        words.push_back(Word(point.y));
    }
    return words;
}

/// Ten words of the placeable header and their checksum.
std::array<std::uint16_t, 11> PlaceableHeader() {
    std::array<std::uint16_t, 11> header{
        0xCDD7, 0x9AC6, 0, 0, 0, kPlaceableExtent, kPlaceableExtent, kPlaceableUnitsPerInch, 0, 0};
    for (std::size_t i = 0; i < 10; ++i) header[10] ^= header[i];
    return header;
}

}  // namespace

MetafileWriter::MetafileWriter(std::int16_t extent) {
    const auto set = [this](Function function, std::initializer_list<std::uint16_t> parameters) {
        record(function, std::span(parameters.begin(), parameters.size()));
    };
    set(kSetMapMode, {kAnisotropic});
    set(kSetWindowOrigin, {0, 0});
    set(kSetWindowExtent, {Word(extent), Word(extent)});
    set(kSetBackgroundMode, {kTransparent});
    set(kSetTextAlign, {kBaselineCentre});
    set(kSetPolygonFillMode, {kAlternateFill});
    set(kSetTextColour, {0, 0});
    // Whatever a player starts with, the first objects in use are those remembered here.
    pen_.width = -1;
    usePen({});
    brush_.filled = true;
    useBrush({});
}

void MetafileWriter::usePen(const MetafilePen& pen) {
    if (pen == pen_) return;
    pen_ = pen;
    const int style = pen.visible ? kPenSolid | kFlatCap | kBevelJoin : kPenNone;
    const std::array words{Word(style), Word(pen.width), Word(0),
                           Bytes(pen.colour.red, pen.colour.green), Bytes(pen.colour.blue, 0)};
    replaceObject(penObject_, kCreatePen, words);
}

void MetafileWriter::useBrush(const MetafileBrush& brush) {
    if (brush == brush_) return;
    brush_ = brush;
    const std::array words{brush.filled ? kBrushSolid : kBrushNone,
                           Bytes(brush.colour.red, brush.colour.green), Bytes(brush.colour.blue, 0),
                           Word(0)};
    replaceObject(brushObject_, kCreateBrush, words);
}

void MetafileWriter::useFont(const MetafileFont& font) {
    if (font == font_ && fontObject_ >= 0) return;
    font_ = font;
    // A negative height is that of the em square; strike-out and character set stay 0, the output,
    // clip precision and quality are left to the player.
    std::vector<std::uint16_t> words{Word(-font.height),
                                     0,
                                     Word(font.tenthsDegrees),
                                     Word(font.tenthsDegrees),
                                     font.bold ? kBoldWeight : kNormalWeight,
                                     Bytes(font.italic, font.underlined),
                                     0,
                                     0,
                                     FamilyOf(font)};
    std::string face = font.face.substr(0, kFaceBytes - 1);
    face.resize(kFaceBytes);
    const auto packed = Packed(face);
    words.insert(words.end(), packed.begin(), packed.end());
    replaceObject(fontObject_, kCreateFont, words);
}

void MetafileWriter::useTextColour(Rgb colour) {
    if (colour == textColour_) return;
    textColour_ = colour;
    record(kSetTextColour, std::array{Bytes(colour.red, colour.green), Bytes(colour.blue, 0)});
}

void MetafileWriter::polyline(std::span<const MetafilePoint> points) {
    while (points.size() > 1) {
        const std::size_t count = std::min(points.size(), kMostPoints);
        record(kPolyline, PointWords(points.first(count)));
        points = points.subspan(count - 1);  // the next record starts where this one ended
    }
}

void MetafileWriter::polygon(std::span<const MetafilePoint> points, bool windingFill) {
    if (points.size() < 2) return;
    if (windingFill != windingFill_) {
        windingFill_ = windingFill;
        record(kSetPolygonFillMode, std::array{windingFill ? kWindingFill : kAlternateFill});
    }
    const std::size_t every = (points.size() + kMostPoints - 1) / kMostPoints;
    std::vector<MetafilePoint> kept;
    for (std::size_t i = 0; i < points.size(); i += every) kept.push_back(points[i]);
    record(kPolygon, PointWords(kept));
}

void MetafileWriter::rectangle(MetafilePoint topLeft, MetafilePoint bottomRight) {
    record(kRectangle,
           std::array{Word(bottomRight.y), Word(bottomRight.x), Word(topLeft.y), Word(topLeft.x)});
}

void MetafileWriter::text(MetafilePoint at, std::string_view characters) {
    characters = characters.substr(0, kMostCharacters);
    if (characters.empty()) return;
    std::vector<std::uint16_t> words{Word(static_cast<int>(characters.size()))};
    const auto packed = Packed(characters);
    words.insert(words.end(), packed.begin(), packed.end());
    words.push_back(Word(at.y));
    words.push_back(Word(at.x));
    record(kTextOut, words);
}

std::vector<std::uint8_t> MetafileWriter::file() const {
    std::vector<std::uint16_t> words;
    const auto append = [&words](const auto& more) {
        words.insert(words.end(), more.begin(), more.end());
    };
    append(PlaceableHeader());
    const std::size_t total = kHeaderWords + records_.size() + kRecordHead;
    append(std::array<std::uint16_t, 3>{1, kHeaderWords, 0x0300});
    append(Long(total));
    words.push_back(Word(static_cast<int>(objects_.size())));
    append(Long(std::max(largestRecord_, kRecordHead)));
    words.push_back(0);
    append(records_);
    append(Long(kRecordHead));
    words.push_back(kEnd);

    std::vector<std::uint8_t> bytes;
    bytes.reserve(2 * words.size());
    for (const std::uint16_t word : words) {
        bytes.push_back(static_cast<std::uint8_t>(word & 0xff));
        bytes.push_back(static_cast<std::uint8_t>(word >> 8));
    }
    return bytes;
}

void MetafileWriter::record(std::uint16_t function, std::span<const std::uint16_t> parameters) {
    const std::size_t size = kRecordHead + parameters.size();
    const auto words = Long(size);
    records_.insert(records_.end(), words.begin(), words.end());
    records_.push_back(function);
    records_.insert(records_.end(), parameters.begin(), parameters.end());
    largestRecord_ = std::max(largestRecord_, size);
}

void MetafileWriter::replaceObject(int& current, std::uint16_t function,
                                   std::span<const std::uint16_t> parameters) {
    const auto free = std::find(objects_.begin(), objects_.end(), false);
    const int number = static_cast<int>(free - objects_.begin());
    if (free == objects_.end()) {
        objects_.push_back(true);
    } else {
        *free = true;
    }
    record(function, parameters);
    record(kSelectObject, std::array{Word(number)});
    if (current >= 0) {
        record(kDeleteObject, std::array{Word(current)});
        objects_[static_cast<std::size_t>(current)] = false;
    }
    current = number;
}

}  // namespace kelvro
