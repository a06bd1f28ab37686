#include "plot/frame.h"

#include <algorithm>
#include <cmath>

#include "core/rounding.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kFirstStepDivisor = 30;  ///< grid lines of an autoscaled axis
constexpr double kStepDivisor = 50;       ///< grid lines of an axis scaled by hand

bool IsLog(const Axis& axis) {
    return axis.mode == AxisMode::Logarithmic;
}

bool IsSymmetric(const Axis& axis) {
    return axis.mode == AxisMode::Symmetric || axis.mode == AxisMode::SymmetricAlternate;
}

bool Holds(const Axis& axis, double value) {
    return axis.min <= value && value <= axis.max;
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

Axis Rescaled(Axis axis) {
    axis.step = StepUp125((axis.max - axis.min) / kStepDivisor);
    return Recentred(axis);
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
