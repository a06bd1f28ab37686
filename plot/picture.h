#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "plot/frame.h"
#include "plot/ticks.h"

namespace kelvro {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Rgb&) const = default;
};

enum class LineStyle { Solid, Alternative };

/// Samples that belong together. Those that are not finite leave a gap; those outside the view are
/// cut at the border of the plot.
struct Curve {
    std::vector<double> x;
    std::vector<double> y;
    Rgb colour;
    LineStyle style = LineStyle::Solid;
    double width = 1;    ///< pixels; 0 draws no line, which leaves the dots
    double dotSize = 0;  ///< pixels; 0 draws no dots
    Rgb dotColour{0, 0, 255};
    std::vector<std::size_t> dots = {};  ///< indices of the points that have them; none: all
    /// Values that come round again after so much (360 for degrees): a jump of more than half of it
    /// is drawn as leaving at one end and coming in at the other. 0: they do not.
    double turn = 0;
    bool onRight = false;  ///< values of the view's right axis
    bool behind = false;   ///< drawn below all that are not
};

/// Thin vertical lines through the whole plot.
struct HairLines {
    std::vector<double> x;
    Rgb colour;
};

/// A horizontal line through the whole plot with a label at its right end.
struct LevelMark {
    double y = 0;
    std::string label;
    Rgb lineColour;
    Rgb labelColour;
    bool sentence = false;  ///< the label is as wide as it needs; others fit beside the border
};

/// A numbered pointer to a place on a curve.
struct Pointer {
    double x = 0;
    double y = 0;
    bool onRight = false;
    std::string label;
    Rgb colour;
};

struct LegendEntry {
    std::string text;
    Rgb colour;
    LineStyle style = LineStyle::Solid;
};

/// Everything one plot shows, as data; FramePainter draws it. What is left empty takes no room.
/// Texts are UTF-8.
struct Picture {
    View view;
    std::string title;
    std::string xName;
    std::string yName;
    std::string rightName;  ///< of the view's right axis
    LabelStyle xLabels = LabelStyle::Engineering;
    LabelStyle yLabels = LabelStyle::Plain;
    LabelStyle rightLabels = LabelStyle::Plain;
    std::vector<LegendEntry> legend;
    std::vector<HairLines> hairLines;  ///< drawn below the curves
    std::vector<Curve> curves;         ///< in drawing order
    std::vector<LevelMark> marks;
    std::vector<Pointer> pointers;
    std::string note;                 ///< large in the middle of the plot: why it shows nothing
    std::vector<std::string> footer;  ///< lines below the plot
    double dpi = 96;                  ///< of bitmaps: texts and lines have their usual size there
    bool dark = false;                ///< on a dark ground
    bool paper = false;               ///< what is light on a screen is darker, to be read on paper
};

}  // namespace kelvro
