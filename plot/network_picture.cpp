#include "plot/network_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kLowestRatio = 1e-12;  // -120 dB: what lies below scales no axis

double Decibels(double ratio) {
    return 10 * std::log10(std::max(ratio, kLowestRatio));
}

double ReturnLoss(double re, double im) {
    return -Decibels(re * re + im * im);
}

constexpr std::array kNetworkTraces{
    NetworkTrace{.key = "gt",
                 .title = "Power Gain GT",
                 .symbol = "GT",
                 .unit = "dB",
                 .axis = NetworkAxis::Gain,
                 .value = [](const NetworkSweep& s, std::size_t i) { return Decibels(s.GT[i]); },
                 .top = 0,
                 .bottom = -10,
                 .gain = true},
    NetworkTrace{.key = "rl",
                 .title = "Return Loss at the Source",
                 .symbol = "RL",
                 .unit = "dB",
                 .axis = NetworkAxis::Match,
                 .value = [](const NetworkSweep& s,
                             std::size_t i) { return ReturnLoss(s.gammaInRe[i], s.gammaInIm[i]); },
                 .top = 30,
                 .bottom = 0,
                 .farthest = 60},
    NetworkTrace{
        .key = "rlout",
        .title = "Return Loss at the Load",
        .symbol = "RLout",
        .unit = "dB",
        .axis = NetworkAxis::Match,
        .value = [](const NetworkSweep& s,
                    std::size_t i) { return ReturnLoss(s.gammaOutRe[i], s.gammaOutIm[i]); },
        .top = 30,
        .bottom = 0},
    NetworkTrace{
        .key = "vswr",
        .title = "VSWR at the Source",
        .symbol = "VSWR",
        .unit = "",
        .axis = NetworkAxis::Ratio,
        .value = [](const NetworkSweep& s, std::size_t i) { return std::min(s.VSWR[i], 1e3); },
        .top = 5,
        .bottom = 1},
    NetworkTrace{.key = "phi",
                 .title = "Phase",
                 .symbol = "phi",
                 .unit = "°",
                 .axis = NetworkAxis::Phase,
                 .value = [](const NetworkSweep& s,
                             std::size_t i) { return s.phase[i] * kDegreesPerRadian; },
                 .top = 180,
                 .bottom = -180,
                 .turn = 360},
    NetworkTrace{.key = "delay",
                 .title = "Group Delay",
                 .symbol = "tau",
                 .unit = "s",
                 .axis = NetworkAxis::Delay,
                 .value = [](const NetworkSweep& s, std::size_t i) { return s.groupDelay[i]; },
                 .top = 1e-8,
                 .bottom = 0},
    NetworkTrace{.key = "r",
                 .title = "Input Resistance",
                 .symbol = "R",
                 .unit = "Ω",
                 .axis = NetworkAxis::Impedance,
                 .value = [](const NetworkSweep& s, std::size_t i) { return s.ZinRe[i]; },
                 .top = 100,
                 .bottom = 0},
    NetworkTrace{.key = "x",
                 .title = "Input Reactance",
                 .symbol = "X",
                 .unit = "Ω",
                 .axis = NetworkAxis::Impedance,
                 .value = [](const NetworkSweep& s, std::size_t i) { return s.ZinIm[i]; },
                 .top = 100,
                 .bottom = -100},
    NetworkTrace{.key = "loss",
                 .title = "Dissipated Part",
                 .symbol = "Pd/Pav",
                 .unit = "",
                 .axis = NetworkAxis::Part,
                 .value = [](const NetworkSweep& s,
                             std::size_t i) { return std::max(s.dissipated[i], 0.0); },
                 .top = 1,
                 .bottom = 0},
};

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
    const NetworkTrace* trace;
    Curve curve;
};

/// What the axis of a trace has to show of its curves; the top of a passive gain stays at 0 dB.
Range ShownRange(const NetworkTrace& trace, std::span<const TraceCurve> curves) {
    if (trace.turn > 0) return {trace.bottom, trace.top};
    std::vector<double> all;
    for (const TraceCurve& drawn : curves) {
        if (drawn.trace == &trace)
            all.insert(all.end(), drawn.curve.y.begin(), drawn.curve.y.end());
    }
    Range shown{trace.bottom, trace.top};
    if (const auto range = RangeOf(all)) {
        shown.min = std::min(range->min, trace.top == 0 ? 0.0 : trace.bottom);
        shown.max = std::max(range->max, trace.gain ? 0.0 : trace.bottom);
    }
    if (trace.gain) shown.min = std::max(shown.min, -60.0);
    shown.max = std::min(shown.max, trace.farthest);
    return shown;
}

/// The axis of all traces that share that of `first`, with readable ends.
Axis ValueAxis(const NetworkTrace& first, const NetworkTraceList& traces,
               std::span<const TraceCurve> curves) {
    Range shown = ShownRange(first, curves);
    for (const NetworkTrace* trace : traces) {
        if (trace->axis != first.axis) continue;
        const Range own = ShownRange(*trace, curves);
        shown = {std::min(shown.min, own.min), std::max(shown.max, own.max)};
    }
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

bool IsEngineering(const NetworkTrace& trace) {
    return trace.unit == "s" || trace.unit == "Ω";
}

LabelStyle LabelsOf(const NetworkTrace& trace) {
    return IsEngineering(trace) ? LabelStyle::Engineering : LabelStyle::Plain;
}

/// "GT in dB", "R, X in Ω": what stands at the axis of `first`.
std::string AxisName(const NetworkTrace& first, const NetworkTraceList& traces) {
    std::string name;
    for (const NetworkTrace* trace : traces) {
        if (trace->axis == first.axis)
            name += (name.empty() ? "" : ", ") + std::string(trace->symbol);
    }
    return first.unit.empty() ? name : name + " in " + std::string(first.unit);
}

/// Of the present network's traces behind the leading one. All are cool: the colours of what it is
/// compared with are warm or green.
constexpr std::array kFurtherColours{Rgb{0x50, 0x50, 0x50}, Rgb{0x28, 0x8c, 0xc8},
                                     Rgb{0x70, 0x38, 0xb8}};

/// All traces of one network, its legend with them.
void AddNetwork(Picture& picture, std::vector<TraceCurve>& curves, const NetworkPlot& plot,
                const PlottedNetwork& plotted, const std::vector<double>& f) {
    LadderResponse response(*plotted.network);
    const NetworkSweep& sweep = response.sweep(f);
    const bool several = plot.traces.size() > 1 && !plotted.dashed;
    for (std::size_t t = 0; t < plot.traces.size(); ++t) {
        const NetworkTrace& trace = *plot.traces[t];
        Curve curve{.x = f, .y = {}, .colour = plotted.colour, .width = plotted.dashed ? 1.4 : 2};
        if (t > 0 && !plotted.dashed)
            curve.colour = kFurtherColours[(t - 1) % kFurtherColours.size()];
        curve.style = plotted.dashed ? LineStyle::Alternative : LineStyle::Solid;
        curve.turn = trace.turn;
        curve.onRight = trace.axis != plot.traces.front()->axis;
        curve.y.reserve(sweep.size());
        for (std::size_t i = 0; i < sweep.size(); ++i) curve.y.push_back(trace.value(sweep, i));
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
    LadderResponse response(*plot.networks.front().network);
    for (std::size_t i = 0; i < plot.markers.size(); ++i) {
        for (const NetworkTrace* trace : plot.traces) {
            const double y = TraceValue(*trace, response, plot.markers[i]);
            if (!std::isfinite(y)) continue;
            const bool onRight = trace->axis != plot.traces.front()->axis;
            picture.pointers.push_back(
                {plot.markers[i], y, onRight, std::to_string(i + 1), kMarkerColour});
        }
    }
}

/// As a line across the plot, on whichever axis the gain has.
void AddLimit(Picture& picture, const NetworkPlot& plot) {
    const auto gain = std::ranges::find(plot.traces, true, &NetworkTrace::gain);
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

std::span<const NetworkTrace> NetworkTraces() {
    return kNetworkTraces;
}

const NetworkTrace* FindNetworkTrace(std::string_view key) {
    const auto found = std::ranges::find(kNetworkTraces, key, &NetworkTrace::key);
    return found == kNetworkTraces.end() ? nullptr : &*found;
}

const NetworkTrace* RightTrace(const NetworkTraceList& traces) {
    const auto found = std::ranges::find_if(
        traces, [&](const NetworkTrace* trace) { return trace->axis != traces.front()->axis; });
    return found == traces.end() ? nullptr : *found;
}

NetworkTraceList WithTrace(NetworkTraceList traces, const NetworkTrace& more) {
    const NetworkAxis left = traces.front()->axis;
    std::erase_if(traces, [&](const NetworkTrace* other) {
        const bool inItsPlace =
            more.axis != left && other->axis != left && other->axis != more.axis;
        return other == &more || inItsPlace;
    });
    traces.push_back(&more);
    return traces;
}

Picture NetworkPicture(const NetworkPlot& plot) {
    const NetworkTrace& leading = *plot.traces.front();
    Picture picture;
    std::vector<TraceCurve> curves;
    const std::vector<double> f = Frequencies(plot);
    for (const PlottedNetwork& plotted : plot.networks)
        AddNetwork(picture, curves, plot, plotted, f);
    for (const NetworkTrace* trace : plot.traces)
        picture.title += (picture.title.empty() ? "" : ", ") + std::string(trace->title);
    picture.xName = "f in Hz";
    picture.yName = AxisName(leading, plot.traces);
    picture.yLabels = LabelsOf(leading);
    picture.view.x = FrequencyAxis(plot);
    picture.view.y = ValueAxis(leading, plot.traces, curves);
    if (const NetworkTrace* right = RightTrace(plot.traces)) {
        picture.rightName = AxisName(*right, plot.traces);
        picture.rightLabels = LabelsOf(*right);
        picture.view.right = ValueAxis(*right, plot.traces, curves);
    }
    AddLimit(picture, plot);
    // The present network lies on top of those it is compared with, its leading trace above all.
    std::ranges::reverse(curves);
    for (TraceCurve& drawn : curves) picture.curves.push_back(std::move(drawn.curve));
    AddMarkers(picture, plot);
    return picture;
}

double TraceValue(const NetworkTrace& trace, LadderResponse& response, double f) {
    return trace.value(response.sweep(std::span(&f, 1)), 0);
}

std::string TraceText(const NetworkTrace& trace, double value) {
    if (!std::isfinite(value)) return "no value";
    const std::string unit(trace.unit);
    if (IsEngineering(trace)) return FormatQuantity(2, value, unit);
    return FormatFixed(0, 3, value) + (unit.empty() ? "" : " " + unit);
}

}  // namespace kelvro
