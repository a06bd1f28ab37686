#include "plot/colour_reduction.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>

namespace kelvro {

namespace {

struct CountedColour {
    std::array<std::uint8_t, 3> channels;
    std::size_t count;
};

/// A range of colours, and the channel in which they differ most.
struct Box {
    std::span<CountedColour> colours;
    std::size_t channel = 0;
    int spread = 0;
    std::size_t count = 0;

    /// The box whose division gains most goes first.
    double weight() const { return static_cast<double>(spread) * static_cast<double>(count); }
};

std::uint32_t Key(Rgb colour) {
    return static_cast<std::uint32_t>(colour.red << 16 | colour.green << 8 | colour.blue);
}

std::uint32_t Key(const CountedColour& colour) {
    return Key(Rgb{colour.channels[0], colour.channels[1], colour.channels[2]});
}

/// Distinct colours in a fixed order, so that the same picture always gives the same file.
std::vector<CountedColour> Counted(std::span<const Rgb> pixels) {
    std::unordered_map<std::uint32_t, std::size_t> counts;
    for (const Rgb pixel : pixels) ++counts[Key(pixel)];
    std::vector<CountedColour> colours;
    for (const auto& [key, count] : counts) {
        const auto channel = [key = key](int shift) {
            return static_cast<std::uint8_t>(key >> shift & 0xff);
        };
        colours.push_back({{channel(16), channel(8), channel(0)}, count});
    }
    std::ranges::sort(colours, {}, [](const CountedColour& colour) { return Key(colour); });
    return colours;
}

Box MakeBox(std::span<CountedColour> colours) {
    Box box{.colours = colours};
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto [low, high] = std::ranges::minmax(
            colours, {}, [channel](const CountedColour& c) { return c.channels[channel]; });
        const int spread = high.channels[channel] - low.channels[channel];
        if (spread <= box.spread) continue;
        box.spread = spread;
        box.channel = channel;
    }
    for (const CountedColour& colour : colours) box.count += colour.count;
    return box;
}

/// Two boxes with about half of the pixels each; both hold at least one colour.
std::array<Box, 2> Divided(const Box& box) {
    const auto channel = box.channel;
    std::ranges::sort(box.colours, {}, [channel](const CountedColour& colour) {
        return std::pair(colour.channels[channel], Key(colour));
    });
    std::size_t below = 0;
    std::size_t cut = 0;
    while (cut + 1 < box.colours.size() && 2 * (below + box.colours[cut].count) <= box.count) {
        below += box.colours[cut].count;
        ++cut;
    }
    cut = std::max<std::size_t>(cut, 1);
    return {MakeBox(box.colours.first(cut)), MakeBox(box.colours.subspan(cut))};
}

Rgb MeanOf(const Box& box) {
    std::array<std::size_t, 3> sums{};
    for (const CountedColour& colour : box.colours) {
        for (std::size_t i = 0; i < 3; ++i) sums[i] += colour.channels[i] * colour.count;
    }
    const auto mean = [&box](std::size_t sum) {
        return static_cast<std::uint8_t>((sum + box.count / 2) / box.count);
    };
    return {mean(sums[0]), mean(sums[1]), mean(sums[2])};
}

}  // namespace

IndexedPicture ReduceColours(std::span<const Rgb> pixels, std::size_t mostColours) {
    if (pixels.empty()) return {};
    std::vector<CountedColour> colours = Counted(pixels);
    const std::size_t wanted = std::clamp<std::size_t>(mostColours, 1, 256);
    std::vector<Box> boxes{MakeBox(colours)};
    while (boxes.size() < std::min(wanted, colours.size())) {
        const auto widest = std::ranges::max_element(boxes, {}, &Box::weight);
        const auto halves = Divided(*widest);
        *widest = halves[0];
        boxes.push_back(halves[1]);
    }

    IndexedPicture picture;
    std::unordered_map<std::uint32_t, std::uint8_t> indexOf;
    for (const Box& box : boxes) {
        const auto index = static_cast<std::uint8_t>(picture.palette.size());
        picture.palette.push_back(MeanOf(box));
        for (const CountedColour& colour : box.colours) indexOf[Key(colour)] = index;
    }
    picture.indices.reserve(pixels.size());
    for (const Rgb pixel : pixels) picture.indices.push_back(indexOf[Key(pixel)]);
    return picture;
}

}  // namespace kelvro
