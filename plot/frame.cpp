#include "plot/frame.h"

#include <algorithm>
#include <cmath>

#include "core/rounding.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kFirstStepDivisor = 30;  ///< grid lines of an autoscaled axis
constexpr double kStepDivisor = 50;       ///< grid lines of an axis scaled by hand
/// Limit of the right axis, which shows seconds as well as ohms.
constexpr double kFarthestRight = 1e12;

bool IsLog(const Axis& axis) {
    return axis.mode == AxisMode::Logarithmic;
}

bool IsSymmetric(const Axis& axis) {
    return axis.mode == AxisMode::Symmetric || axis.mode == AxisMode::SymmetricAlternate;
}

bool Holds(const Axis& axis, double value) {
    return axis.min <= value && value <= axis.max;
}

/// Axis after a change of its range by hand.
Axis Rescaled(Axis axis) {
    axis.step = StepUp125((axis.max - axis.min) / kStepDivisor);
    return Recentred(axis);
}

/// The end of every autoscale.
Axis WithFirstStep(Axis axis) {
    if (axis.max <= axis.min) {
        axis.min -= 1;
        axis.max += 1;
    }
    axis.step = StepUp125((axis.max - axis.min) / kFirstStepDivisor);
    axis.labelEvery = 5;
    return axis;
}

void ScaleSymmetric(Axis& axis) {
    axis.origin = 0;
    axis.min = -RoundUpSig1(1.001 * std::max(std::fabs(axis.min), std::fabs(axis.max)));
    axis.max = -axis.min;
}

void ScaleLogarithmic(Axis& axis) {
    if (axis.min <= 0) axis.min = axis.max / 1000;
    axis.origin = axis.min;
}

void ScaleLinearX(Axis& axis) {
    axis.origin = axis.max >= 0 ? 0 : StepUp125(axis.min / 2);
    axis.min = std::min(StepUp125(axis.min / 2), 0.0);
    axis.max = RoundUpSig1(axis.max);
}

void ScaleLinearY(Axis& axis) {
    axis.min = std::min(RoundUpSig1b(axis.min >= 0 ? axis.min / 2 : axis.min), 0.0);
    if (axis.max >= 0) {
        axis.max = RoundUpSig1(1.001 * axis.max);
    } else {
        axis.max = std::fabs(axis.min) <= 1 ? RoundDownSig1(0.9 * axis.max) : 0;
    }
    axis.origin = axis.max >= 0 && axis.min <= 0 ? 0 : axis.min;
}

Axis Autoscaled(const Axis& axis, std::span<const double> values, void (*scaleLinear)(Axis&)) {
    const auto range = RangeOf(values);
    if (!range || (IsLog(axis) && range->max <= 0)) return axis;
    Axis scaled = axis;
    scaled.min = range->min;
    scaled.max = range->max;
    if (IsLog(axis)) {
        ScaleLogarithmic(scaled);
    } else if (IsSymmetric(axis)) {
        ScaleSymmetric(scaled);
    } else {
        scaleLinear(scaled);
    }
    return WithFirstStep(scaled);
}

/// Takes the other end along when the edited one has passed it.
Axis WithMin(Axis axis, double value) {
    if (IsLog(axis) && value <= 0) return axis;
    if (value >= axis.max) {
        axis.max = IsLog(axis) ? value * (axis.max / axis.min) : value + (axis.max - axis.min);
    }
    axis.min = value;
    return Rescaled(axis);
}

Axis WithMax(Axis axis, double value) {
    if (IsLog(axis) && value <= 0) return axis;
    if (value <= axis.min) {
        const double span = axis.max - axis.min;
        // An axis that starts at or above 0, as frequencies do, is not led below it.
        const double lowest = axis.min >= 0 && value > 0 ? 0 : value - span;
        axis.min = IsLog(axis) ? value / (axis.max / axis.min) : std::max(lowest, value - span);
    }
    axis.max = value;
    return Rescaled(axis);
}

}  // namespace

double Axis::fraction(double world) const {
    if (IsLog(*this)) {
        const double low = std::log10(min);
        return (std::log10(world) - low) / (std::log10(max) - low);
    }
    return (world - min) / (max - min);
}

int Axis::toPixel(double world, int atMin, int atMax) const {
    if (!(world >= min)) return atMin;
    if (world >= max) return atMax;
    const double t = fraction(world);
    if (!std::isfinite(t)) return atMin;
    return atMin + static_cast<int>(std::nearbyint(t * (atMax - atMin)));
}

double Axis::toWorld(double pixel, int atMin, int atMax) const {
    const int inward = atMax > atMin ? 1 : -1;
    const auto [low, high] = std::minmax({atMin + inward, atMax - inward});
    const double t = (Clamp(pixel, low, high) - atMin) / (atMax - atMin);
    if (IsLog(*this)) {
        const double lowLog = std::log10(min);
        return std::pow(10.0, (std::log10(max) - lowLog) * t + lowLog);
    }
    return (max - min) * t + min;
}

PlotSettings Published(const View& view) {
    const auto flag = [](const Axis& axis) { return static_cast<std::uint16_t>(IsLog(axis)); };
    return {static_cast<std::uint16_t>(view.sampleCount),
            flag(view.x),
            flag(view.y),
            static_cast<std::uint16_t>(view.x.labelEvery),
            static_cast<std::uint16_t>(view.y.labelEvery),
            view.x.max,
            view.x.min,
            view.y.min,
            view.y.max,
            view.x.origin,
            view.y.origin,
            view.x.step,
            view.y.step};
}

WorldPoint Frame::toWorld(double px, double py) const {
    return {view.x.toWorld(px, plot.left, plot.right), view.y.toWorld(py, plot.bottom, plot.top)};
}

bool Frame::contains(double px, double py) const {
    return plot.left < px && px < plot.right && plot.top < py && py < plot.bottom;
}

WorldPoint Frame::place(double x, double y) const {
    return {plot.left + view.x.fraction(x) * (plot.right - plot.left),
            plot.bottom + view.y.fraction(y) * (plot.top - plot.bottom)};
}

Frame Frame::ofRightAxis() const {
    Frame frame = *this;
    if (view.right) frame.view.y = *view.right;
    return frame;
}

View WithModes(View view, AxisMode x, AxisMode y) {
    for (const AxisMode both : {AxisMode::Symmetric, AxisMode::SymmetricAlternate}) {
        if (x == both || y == both) x = y = both;
    }
    view.x.mode = x;
    view.y.mode = y;
    return view;
}

std::optional<Range> RangeOf(std::span<const double> values) {
    std::optional<Range> range;
    for (const double value : values) {
        if (!std::isfinite(value)) continue;
        if (!range) range = {value, value};
        range = {std::min(range->min, value), std::max(range->max, value)};
    }
    return range;
}

Axis Recentred(Axis axis) {
    if (Holds(axis, axis.origin)) return axis;
    axis.origin = RoundUpSig1(axis.min + axis.max) / 2;
    if (!Holds(axis, axis.origin)) axis.origin = RoundUpSig1b(axis.min + axis.max) / 2;
    if (!Holds(axis, axis.origin)) axis.origin = axis.min;
    return axis;
}

Axis AutoscaledX(Axis axis, std::span<const double> frequencies) {
    return Autoscaled(axis, frequencies, ScaleLinearX);
}

Axis AutoscaledY(Axis axis, std::span<const double> values) {
    return Autoscaled(axis, values, ScaleLinearY);
}

ZoomLimits FrequencyLimits(const Axis& axis, double fo) {
    return {IsLog(axis) ? 1e-6 * fo : 0, 1000 * fo};
}

double Middle(const Axis& axis) {
    return IsLog(axis) ? std::sqrt(axis.min) * std::sqrt(axis.max) : (axis.min + axis.max) / 2;
}

Axis Zoomed(Axis axis, double factor, double fixed, ZoomLimits limits) {
    const bool log = IsLog(axis);
    const auto moved = [=](double end) {
        return log ? fixed * std::pow(end / fixed, factor) : fixed + (end - fixed) * factor;
    };
    // A view that was set beyond the limits by hand is not pulled back by zooming in.
    const double min = std::max(moved(axis.min), std::min(limits.min, axis.min));
    const double max = std::min(moved(axis.max), std::max(limits.max, axis.max));
    // Closer ends could not be told apart in the labels, and soon not in the arithmetic either.
    if (!(max - min > 1e-9 * std::max(std::fabs(min), std::fabs(max)))) return axis;
    if (min == axis.min && max == axis.max) return axis;
    axis.min = min;
    axis.max = max;
    return Rescaled(axis);
}

View ZoomedView(View view, double factor, WorldPoint centre, ZoomOf axes, double fo) {
    const Axis before = view.y;
    if (axes != ZoomOf::Y) {
        view.x = Zoomed(view.x, factor, centre.x, FrequencyLimits(view.x, fo));
    }
    if (axes != ZoomOf::X) view.y = Zoomed(view.y, factor, centre.y, {});
    return WithRightZoomed(view, before);
}

std::optional<View> DragZoomed(View view, WorldPoint from, WorldPoint to) {
    if (!(to.x > from.x && to.y < from.y)) return std::nullopt;
    view.x.min = IsLog(view.x) ? from.x / 10 : from.x;
    view.x.max = to.x;
    const Axis before = view.y;
    view.y.min = to.y;
    view.y.max = from.y;
    view.x = Rescaled(view.x);
    view.y = Rescaled(view.y);
    return WithRightZoomed(view, before);
}

View WithRightZoomed(View view, const Axis& before) {
    if (!view.right || view.y == before || !(before.max > before.min)) return view;
    Axis& right = *view.right;
    const double start = right.min;
    const double scale = (right.max - right.min) / (before.max - before.min);
    right.min = start + (view.y.min - before.min) * scale;
    right.max = start + (view.y.max - before.min) * scale;
    right = Rescaled(right);
    return view;
}

Zone ZoneAt(const PlotRect& plot, double px, double py) {
    // As deep as the labels beside an axis, and a fifth of it long: easily hit, never in the plot.
    constexpr double kDepth = 36;
    constexpr double kSide = 12;
    const double xLength = (plot.right - plot.left) / 5.0;
    const double yLength = (plot.bottom - plot.top) / 5.0;
    if (py >= plot.bottom && py <= plot.bottom + kDepth) {
        if (px > plot.right - xLength && px <= plot.right + kSide) return Zone::XEnd;
        if (px >= plot.left && px < plot.left + xLength) return Zone::XStart;
    }
    if (px <= plot.left && px >= plot.left - kDepth) {
        if (py >= plot.top - kSide && py < plot.top + yLength) return Zone::YEnd;
        if (py > plot.bottom - yLength && py <= plot.bottom + kSide) return Zone::YStart;
    }
    if (px >= plot.right && px <= plot.right + kDepth) {
        if (py >= plot.top - kSide && py < plot.top + yLength) return Zone::RightEnd;
        if (py > plot.bottom - yLength && py < plot.bottom) return Zone::RightStart;
    }
    return Zone::None;
}

Zone ZoneAt(const Frame& frame, double px, double py) {
    const Zone zone = ZoneAt(frame.plot, px, py);
    const bool onRight = zone == Zone::RightStart || zone == Zone::RightEnd;
    return onRight && !frame.view.right ? Zone::None : zone;
}

ValueEdit EndEdit(const View& view, Zone zone, double fo) {
    const Axis right = view.right.value_or(Axis{});
    const ZoomLimits frequencies = FrequencyLimits(view.x, fo);
    switch (zone) {
        case Zone::XStart:
            return {"xmin=", view.x.min, frequencies.min, frequencies.max};
        case Zone::XEnd:
            return {"xmax=", view.x.max, 0, frequencies.max};
        case Zone::YStart:
            return {"ymin=", view.y.min, -1000, 1000};
        case Zone::YEnd:
            return {"ymax=", view.y.max, -1000, 1000};
        case Zone::RightStart:
            return {"ymin=", right.min, -kFarthestRight, kFarthestRight};
        case Zone::RightEnd:
            return {"ymax=", right.max, -kFarthestRight, kFarthestRight};
        case Zone::None:
            break;
    }
    return {};
}

ValueEdit XOriginEdit(const View& view) {
    return {"xo=", view.x.origin, view.x.min, view.x.max};
}

ValueEdit YOriginEdit(const View& view) {
    return {"yo=", view.y.origin, view.y.min, view.y.max};
}

View WithEnd(View view, Zone zone, double value) {
    if (!std::isfinite(value)) return view;
    if (zone == Zone::XStart) view.x = WithMin(view.x, value);
    if (zone == Zone::XEnd && value > 0) view.x = WithMax(view.x, value);
    if (zone == Zone::YStart) view.y = WithMin(view.y, value);
    if (zone == Zone::YEnd) view.y = WithMax(view.y, value);
    if (!view.right) return view;
    if (zone == Zone::RightStart) view.right = WithMin(*view.right, value);
    if (zone == Zone::RightEnd) view.right = WithMax(*view.right, value);
    return view;
}

Axis DefaultFrequencyAxis(double fo) {
    Axis x{.mode = AxisMode::Logarithmic};
    x.max = StepUp125(30 * fo);
    x.min = x.max / 1000;
    x.origin = x.min;
    x.step = StepUp125(x.max / kStepDivisor);
    return x;
}

std::vector<double> SampleFrequencies(const View& view) {
    const Axis& x = view.x;
    const int n = std::max(view.sampleCount, 1);
    std::vector<double> frequencies{x.min};
    frequencies.reserve(static_cast<std::size_t>(n) + 1);
    const double ratio = Power(x.max / x.min, 1.0 / n);
    const double step = (x.max - x.min) / n;
    for (int i = 0; i < n; ++i) {
        const double last = frequencies.back();
        frequencies.push_back(IsLog(x) ? last * ratio : last + step);
    }
    return frequencies;
}

std::vector<double> Harmonics(double fo, double xmax) {
    constexpr int kMost = 50;
    std::vector<double> multiples;
    if (!(fo > 0)) return multiples;
    for (int k = 1; k <= kMost && k * fo < xmax; ++k) multiples.push_back(k * fo);
    return multiples;
}

PixelSize StandardSize(int screenWidth) {
    if (screenWidth >= 999) return {768, 576};
    if (screenWidth < 799) return {533, 400};
    return {640, 480};
}

PixelSize Enlarged(PixelSize size) {
    return {static_cast<int>(std::nearbyint(size.width / 0.75)),
            static_cast<int>(std::nearbyint(size.height / 0.75))};
}

PixelSize Reduced(PixelSize size) {
    return {static_cast<int>(std::nearbyint(size.width * 0.75)),
            static_cast<int>(std::nearbyint(size.height * 0.75))};
}

}  // namespace kelvro
