#pragma once

#include <functional>
#include <string>
#include <vector>

#include "plot/frame.h"

// Where the grid lines and labels of an axis stand.

namespace kelvro {

enum class LabelStyle {
    Engineering,  ///< with prefix letters: 500k, 1M, 2.5M
    Degrees,      ///< fixed-point, in steps of 45, 90, 180 where the labels are that far apart
    Plain,        ///< fixed-point, all with the same decimals; powers of ten where that grows long
};

struct Tick {
    double value = 0;
    std::string label;
};

struct Ticks {
    std::vector<double> minor;  ///< grid lines without a label
    std::vector<Tick> major;
};

/// Pixels that a label needs along the axis, the gap to its neighbour included.
using LabelExtent = std::function<double(const std::string&)>;

/// Grid and labels of an axis `pixels` long. Labels never overlap: they grow sparser until each has
/// its extent, and grid lines never lie closer than a few pixels. None for an axis without extent.
Ticks TicksOf(const Axis& axis, double pixels, LabelStyle style, const LabelExtent& extent);

/// "2.5M", "500k", "0"; powers of ten outside the prefixes. At most ten significant digits.
std::string EngineeringLabel(double value);

}  // namespace kelvro
