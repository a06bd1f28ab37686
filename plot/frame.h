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

/// Limits within which zooming keeps an axis.
struct ZoomLimits {
    double min = -1000;
    double max = 1000;
};
/// The frequency axis reaches from 0 (logarithmic: fo/10^6) to 1000·fo.
ZoomLimits FrequencyLimits(const Axis& axis, double fo);

/// Axis whose range is multiplied by `factor` (below 1 zooms in) with the value `fixed` keeping its
/// place; on a logarithmic axis the decades are multiplied. Unchanged when nothing is left to zoom.
Axis Zoomed(Axis axis, double factor, double fixed, ZoomLimits limits);
/// Which axes a zoom changes.
enum class ZoomOf { Both, X, Y };
/// The view zoomed about a place: what lies there keeps its place. The right axis goes with the
/// left one.
View ZoomedView(View view, double factor, WorldPoint centre, ZoomOf axes, double fo);
/// One click of a zoom button or notch of the wheel: two of them double or halve the range.
inline constexpr double kZoomStep = 0.7071067811865476;
/// The value in the middle of the axis as it is drawn.
double Middle(const Axis& axis);

/// View of the box dragged from its upper left to its lower right corner; nothing for any other
/// direction. A logarithmic x axis keeps one decade more below the box.
std::optional<View> DragZoomed(View view, WorldPoint from, WorldPoint to);

/// The view, whose left axis was `before`, with its right axis zoomed alike: what stood at the same
/// height still does.
View WithRightZoomed(View view, const Axis& before);

/// The places outside the plot area where a click edits an end of an axis.
enum class Zone { None, XStart, XEnd, YStart, YEnd, RightStart, RightEnd };
Zone ZoneAt(const PlotRect& plot, double px, double py);
/// The same; None beside a right axis that the view does not have.
Zone ZoneAt(const Frame& frame, double px, double py);

/// One question of the value dialog.
struct ValueEdit {
    std::string caption;
    double start = 0;
    double low = 0;
    double high = 0;
};
/// Question for an end of an axis; fo is the design's centre frequency.
ValueEdit EndEdit(const View& view, Zone zone, double fo);
ValueEdit XOriginEdit(const View& view);
ValueEdit YOriginEdit(const View& view);
/// View with the edited end. An end moved past the other one takes it along, so that the range
/// keeps its extent; a value that a logarithmic axis cannot show changes nothing.
View WithEnd(View view, Zone zone, double value);

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
