#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "plot/picture.h"

namespace kelvro {

struct IndexedPicture {
    std::vector<Rgb> palette;
    std::vector<std::uint8_t> indices;  ///< one per pixel
};

/// The picture with at most `mostColours` (1..256) colours. Those that suffice are kept as they
/// are; else the colours are divided by median cut (P. Heckbert, "Color Image Quantization for
/// Frame Buffer Display", 1982), which leaves the frequent ones untouched.
IndexedPicture ReduceColours(std::span<const Rgb> pixels, std::size_t mostColours = 256);

}  // namespace kelvro
