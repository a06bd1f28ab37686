#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// The arithmetic of a plot: axes, their scaling, the way between pixels and world values, and the
// rules by which a view is edited. No window and no drawing; FramePainter draws what stands here.

namespace kelvro {

/// The symmetric modes scale like Linear; they differ in autoscale, which centres them on 0.
enum class AxisMode : std::uint8_t {
    Linear = 0,
    Logarithmic = 1,
    Symmetric = 2,
    SymmetricAlternate = 3
};

struct Axis {
    AxisMode mode = AxisMode::Linear;
    double min = 0;
    double max = 1;
    double origin = 0;   ///< where the other axis crosses this one
    double step = 0.1;   ///< distance of the grid lines on a linear axis
    int labelEvery = 5;  ///< each so many grid lines carry a label

    bool operator==(const Axis&) const = default;
    /// Where the value lies between min (0) and max (1), not clamped; NaN where a logarithmic axis
    /// has no place for it.
    double fraction(double world) const;
    /// Pixel between `atMin` and `atMax`, rounded to nearest even; values outside stop at the ends.
    int toPixel(double world, int atMin, int atMax) const;
    /// World value of a pixel strictly between the ends; pixels beyond count as the first inside.
    double toWorld(double pixel, int atMin, int atMax) const;
};

/// What a plot window shows; the curve is sampled at sampleCount + 1 points.
struct View {
    int sampleCount = 254;
    Axis x;
    Axis y;
    std::optional<Axis> right = {};  ///< a second y axis, for values of another kind

    bool operator==(const View&) const = default;
};

/// The view as windows publish it after every change, in this order of fields.
struct PlotSettings {
    std::uint16_t sampleCount = 0;
    std::uint16_t xLog = 0;
    std::uint16_t yLog = 0;
    std::uint16_t xLabelEvery = 0;
    std::uint16_t yLabelEvery = 0;
    double xmax = 0;
    double xmin = 0;
    double ymin = 0;
    double ymax = 0;
    double xo = 0;
    double yo = 0;
    double xStep = 0;
    double yStep = 0;

    bool operator==(const PlotSettings&) const = default;
};
PlotSettings Published(const View& view);

/// Plot area in pixels; y grows downwards.
struct PlotRect {
    int left = 0;
    int top = 0;
    int right = 1;
    int bottom = 1;

    bool operator==(const PlotRect&) const = default;
};

struct WorldPoint {
    double x = 0;
    double y = 0;
};

/// A view at its place in the image.
struct Frame {
    PlotRect plot;
    View view;

    int xPixel(double x) const { return view.x.toPixel(x, plot.left, plot.right); }
    int yPixel(double y) const { return view.y.toPixel(y, plot.bottom, plot.top); }
    WorldPoint toWorld(double px, double py) const;
    /// Strictly inside the plot area.
    bool contains(double px, double py) const;
    /// Unclamped position with fractions of a pixel, for drawing finer than the pixel grid.
    WorldPoint place(double x, double y) const;
    /// The frame whose y is the right axis, where the view has one.
    Frame ofRightAxis() const;
};

/// Sets both modes; a symmetric mode of one axis holds for both, Symmetric first.
View WithModes(View view, AxisMode x, AxisMode y);

struct Range {
    double min = 0;
    double max = 0;
};
/// Smallest and largest finite value; nothing when there is none.
std::optional<Range> RangeOf(std::span<const double> values);

/// Axis with its origin moved into the range when it lies outside: the rounded middle, or min.
Axis Recentred(Axis axis);

/// Axis scaled to the values, with readable ends. Without finite values, or without positive ones
/// on a logarithmic axis, it stays as it is. A range without extent is widened by 1 to each side.
Axis AutoscaledX(Axis axis, std::span<const double> frequencies);
Axis AutoscaledY(Axis axis, std::span<const double> values);

/// Axis after a change of its range by hand: fifty grid lines, the origin within it.
Axis Rescaled(Axis axis);

/// Frequency axis a window opens with: three decades, the uppermost one above fo.
Axis DefaultFrequencyAxis(double fo);

/// The sampleCount + 1 frequencies at which a view's curve is sampled, in equal ratios when x is
/// logarithmic, else in equal steps.
std::vector<double> SampleFrequencies(const View& view);

/// Multiples of fo below xmax, at most 50.
std::vector<double> Harmonics(double fo, double xmax);

struct PixelSize {
    int width = 0;
    int height = 0;

    bool operator==(const PixelSize&) const = default;
};
PixelSize StandardSize(int screenWidth);
PixelSize Enlarged(PixelSize size);
PixelSize Reduced(PixelSize size);

}  // namespace kelvro
