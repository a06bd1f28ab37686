#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "plot/picture.h"

namespace kelvro {

/// Places in a metafile: y grows downwards.
struct MetafilePoint {
    std::int16_t x = 0;
    std::int16_t y = 0;
};

struct MetafilePen {
    bool visible = true;
    int width = 1;
    Rgb colour = {};
    bool operator==(const MetafilePen&) const = default;
};

struct MetafileBrush {
    bool filled = false;
    Rgb colour = {};
    bool operator==(const MetafileBrush&) const = default;
};

struct MetafileFont {
    int height = 1;         ///< of the em square
    int tenthsDegrees = 0;  ///< direction of the text, counter-clockwise
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool fixedPitch = false;
    bool serif = false;
    std::string face;  ///< at most 31 bytes are kept
    bool operator==(const MetafileFont&) const = default;
};

/// Writes a 16-bit Windows metafile with the placeable header in front (records as in "Windows
/// Metafile Format", MS-WMF). Pens, brushes and fonts are selected as they change; coordinates are
/// units of the box, `extent` units wide and high.
class MetafileWriter {
  public:
    explicit MetafileWriter(std::int16_t extent);

    void usePen(const MetafilePen& pen);
    void useBrush(const MetafileBrush& brush);
    void useFont(const MetafileFont& font);
    void useTextColour(Rgb colour);

    /// With the present pen. Long lines become several records.
    void polyline(std::span<const MetafilePoint> points);
    /// With the present pen and brush; a polygon longer than a record can hold is thinned out.
    void polygon(std::span<const MetafilePoint> points, bool windingFill);
    void rectangle(MetafilePoint topLeft, MetafilePoint bottomRight);
    /// Single-byte characters on a baseline, their middle at `at`, with the present font and
    /// colour.
    void text(MetafilePoint at, std::string_view characters);

    /// The whole file: placeable header, header, records, end.
    std::vector<std::uint8_t> file() const;

  private:
    void record(std::uint16_t function, std::span<const std::uint16_t> parameters);
    /// A created object takes the lowest free number; the one it replaces is deleted.
    void replaceObject(int& current, std::uint16_t function,
                       std::span<const std::uint16_t> parameters);

    std::vector<std::uint16_t> records_;
    std::size_t largestRecord_ = 0;
    std::vector<bool> objects_;  ///< by number: in use
    int penObject_ = -1;
    int brushObject_ = -1;
    int fontObject_ = -1;
    MetafilePen pen_;
    MetafileBrush brush_;
    MetafileFont font_;
    Rgb textColour_;
    bool windingFill_ = false;
};

/// The box of the placeable header: 7.5 inch wide and high.
inline constexpr int kPlaceableExtent = 750;
inline constexpr int kPlaceableUnitsPerInch = 100;

}  // namespace kelvro
