#include "plot/network_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

#include "core/number_text.h"
#include "core/rounding.h"

namespace kelvro {

namespace {

/// How the axes of traces adapt to their curves.
struct AxisHabit {
    double near;   ///< always in view
    double empty;  ///< the other end without values
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
};

AxisHabit HabitOf(TraceAxis axis) {
    switch (axis) {
        case TraceAxis::Gain:
            return {0, -10, -60};
        case TraceAxis::Match:
            return {0, 30, 0, 60};
        case TraceAxis::Ratio:
            return {1, 5};
        case TraceAxis::Phase:
            return {-180, 180};
        case TraceAxis::Delay:
            return {0, 1e-8};
        case TraceAxis::Impedance:
            return {0, 100};
        case TraceAxis::Part:
            return {0, 1};
    }
    return {0, 1};
}

std::vector<double> Frequencies(const NetworkPlot& plot) {
    std::vector<double> f(kNetworkPlotPoints);
    for (int i = 0; i < kNetworkPlotPoints; ++i) {
        const double part = i / double{kNetworkPlotPoints - 1};
        f[static_cast<std::size_t>(i)] =
            plot.logarithmic ? plot.range.low * std::pow(plot.range.high / plot.range.low, part)
                             : std::lerp(plot.range.low, plot.range.high, part);
    }
    return f;
}

Axis FrequencyAxis(const NetworkPlot& plot) {
    Axis axis;
    axis.mode = plot.logarithmic ? AxisMode::Logarithmic : AxisMode::Linear;
    axis.min = plot.range.low;
    axis.max = plot.range.high;
    axis.origin = axis.min;
    axis.step = StepUp125((axis.max - axis.min) / 20);
    axis.labelEvery = 5;
    return axis;
}

/// A curve and what it is of.
struct TraceCurve {
    const Trace* trace;
    Curve curve;
};

/// The axis of all traces that share that of `first`, with readable ends.
Axis ValueAxis(const Trace& first, std::span<const TraceCurve> curves) {
    const AxisHabit habit = HabitOf(first.axis);
    std::vector<double> all;
    for (const TraceCurve& drawn : curves) {
        if (drawn.trace->axis == first.axis)
            all.insert(all.end(), drawn.curve.y.begin(), drawn.curve.y.end());
    }
    const Range of = RangeOf(all).value_or(Range{habit.near, habit.near});
    // Where all of it is so far out, as for a match at every frequency, it is there to be seen.
    const double most = std::max(habit.most, of.min);
    Range shown{std::min(of.min, habit.near), std::max(of.max, habit.near)};
    if (shown.min == shown.max || first.turn > 0) {
        shown = {std::min(habit.near, habit.empty), std::max(habit.near, habit.empty)};
    }
    shown = {std::max(shown.min, habit.least), std::min(shown.max, most)};
    if (!(shown.max > shown.min)) shown.max = shown.min + 1;
    Axis axis;
    if (first.turn > 0) {
        axis = {.min = shown.min, .max = shown.max, .step = 15, .labelEvery = 3};
    } else {
        axis.step = StepUp125((shown.max - shown.min) / 20);
        axis.labelEvery = 5;
        const double major = axis.step * axis.labelEvery;
        axis.min = major * std::floor(shown.min / major + 1e-9);
        axis.max = major * std::ceil(shown.max / major - 1e-9);
    }
    axis.origin = axis.min;
    return axis;
}

LabelStyle LabelsOf(const Trace& trace) {
    return trace.engineering ? LabelStyle::Engineering : LabelStyle::Plain;
}

/// "GT in dB", "R, X in Ω": what stands at the axis of `first`.
std::string AxisName(const Trace& first, const TraceList& traces) {
    std::string name;
    for (const Trace* trace : traces) {
        if (trace->axis == first.axis)
            name += (name.empty() ? "" : ", ") + std::string(trace->symbol);
    }
    return first.unit.empty() ? name : name + " in " + std::string(first.unit);
}

/// Of the present network's traces behind the leading one. All are cool: the colours of what it is
/// compared with are warm or green.
constexpr std::array kFurtherColours{Rgb{0x50, 0x50, 0x50}, Rgb{0x28, 0x8c, 0xc8},
                                     Rgb{0x70, 0x38, 0xb8}};

std::vector<double> ValuesOf(const TraceSource& source, const Trace& trace,
                             const std::vector<double>& f) {
    std::vector<double> values;
    values.reserve(f.size());
    for (const double at : f)
        values.push_back(std::clamp(trace.value(source, at), -trace.farthest, trace.farthest));
    return values;
}

/// All traces of one network, its legend with them.
void AddNetwork(Picture& picture, std::vector<TraceCurve>& curves, const NetworkPlot& plot,
                const PlottedNetwork& plotted, const std::vector<double>& f) {
    const bool held = plot.held && &plotted != plot.networks.data();
    std::optional<TraceSource> source;
    if (!held) source.emplace(*plotted.network);
    const bool several = plot.traces.size() > 1 && !plotted.dashed;
    for (std::size_t t = 0; t < plot.traces.size(); ++t) {
        const Trace& trace = *plot.traces[t];
        Curve curve{.x = f, .y = {}, .colour = plotted.colour, .width = plotted.dashed ? 1.4 : 2};
        if (t > 0 && !plotted.dashed)
            curve.colour = kFurtherColours[(t - 1) % kFurtherColours.size()];
        curve.style = plotted.dashed ? LineStyle::Alternative : LineStyle::Solid;
        curve.turn = trace.turn;
        curve.onRight = trace.axis != plot.traces.front()->axis;
        curve.y = held ? plot.held->of(*plotted.network, trace, f) : ValuesOf(*source, trace, f);
        std::string name = several ? std::string(trace.symbol) : "";
        if (!plotted.name.empty()) name += (name.empty() ? "" : " ") + plotted.name;
        // One entry is enough for what a network's further traces share: its colour.
        if (!name.empty() && (t == 0 || several))
            picture.legend.push_back({name, curve.colour, curve.style});
        curves.push_back({&trace, std::move(curve)});
    }
}

void AddMarkers(Picture& picture, const NetworkPlot& plot) {
    constexpr Rgb kMarkerColour{0, 110, 0};
    if (plot.markers.empty()) return;
    picture.hairLines.push_back({plot.markers, kMarkerColour});
    const TraceSource source(*plot.networks.front().network);
    for (std::size_t i = 0; i < plot.markers.size(); ++i) {
        for (const Trace* trace : plot.traces) {
            const double y = trace->value(source, plot.markers[i]);
            if (!std::isfinite(y)) continue;
            const bool onRight = trace->axis != plot.traces.front()->axis;
            picture.pointers.push_back(
                {plot.markers[i], y, onRight, std::to_string(i + 1), kMarkerColour});
        }
    }
}

/// As a line across the plot, on whichever axis the gain has.
void AddLimit(Picture& picture, const NetworkPlot& plot) {
    const auto gain = std::ranges::find(plot.traces, &TraceOf("gt"));
    if (!plot.limitDb || gain == plot.traces.end()) return;
    constexpr Rgb kLimitColour{200, 0, 0};
    const std::string text = plot.limitIsEstimate ? "limit of lossless networks, estimated"
                                                  : "no lossless network does better";
    if ((*gain)->axis == plot.traces.front()->axis) {
        picture.marks.push_back({*plot.limitDb, text, kLimitColour, kLimitColour, true});
        return;
    }
    picture.legend.push_back({text, kLimitColour});
    picture.curves.push_back({.x = {plot.range.low, plot.range.high},
                              .y = {*plot.limitDb, *plot.limitDb},
                              .colour = kLimitColour,
                              .onRight = true});
}

}  // namespace

const std::vector<double>& HeldCurves::of(const Network& network, const Trace& trace,
                                          const std::vector<double>& f) {
    const auto held = std::ranges::find_if(all_, [&](const Held& one) {
        return one.trace == &trace && one.network == network && one.f == f;
    });
    if (held != all_.end()) {
        held->used = true;
        return held->y;
    }
    all_.push_back({network, &trace, f, ValuesOf(TraceSource(network), trace, f), true});
    return all_.back().y;
}

void HeldCurves::endPicture() {
    std::erase_if(all_, [](const Held& one) { return !one.used; });
    for (Held& one : all_) one.used = false;
}

Picture NetworkPicture(const NetworkPlot& plot) {
    const Trace& leading = *plot.traces.front();
    Picture picture;
    std::vector<TraceCurve> curves;
    const std::vector<double> f = Frequencies(plot);
    for (const PlottedNetwork& plotted : plot.networks)
        AddNetwork(picture, curves, plot, plotted, f);
    if (plot.held) plot.held->endPicture();
    for (const Trace* trace : plot.traces)
        picture.title += (picture.title.empty() ? "" : ", ") + std::string(trace->title);
    picture.xName = "f in Hz";
    picture.yName = AxisName(leading, plot.traces);
    picture.yLabels = LabelsOf(leading);
    picture.view.x = FrequencyAxis(plot);
    picture.view.y = ValueAxis(leading, curves);
    if (const Trace* right = RightTrace(plot.traces)) {
        picture.rightName = AxisName(*right, plot.traces);
        picture.rightLabels = LabelsOf(*right);
        picture.view.right = ValueAxis(*right, curves);
    }
    AddLimit(picture, plot);
    // The present network lies on top of those it is compared with, its leading trace above all.
    std::ranges::reverse(curves);
    for (TraceCurve& drawn : curves) picture.curves.push_back(std::move(drawn.curve));
    AddMarkers(picture, plot);
    return picture;
}

std::string TraceText(const Trace& trace, double value) {
    if (!std::isfinite(value)) return "no value";
    const std::string unit(trace.unit);
    if (trace.engineering) return FormatQuantity(2, value, unit);
    return FormatFixed(0, 3, value) + (unit.empty() ? "" : " " + unit);
}

}  // namespace kelvro
