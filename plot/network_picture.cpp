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
                 .value = [](const NetworkSweep& s, std::size_t i) { return Decibels(s.GT[i]); },
                 .top = 0,
                 .bottom = -10,
                 .gain = true},
    NetworkTrace{.key = "rl",
                 .title = "Return Loss at the Source",
                 .symbol = "RL",
                 .unit = "dB",
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
        .value = [](const NetworkSweep& s,
                    std::size_t i) { return ReturnLoss(s.gammaOutRe[i], s.gammaOutIm[i]); },
        .top = 30,
        .bottom = 0},
    NetworkTrace{
        .key = "vswr",
        .title = "VSWR at the Source",
        .symbol = "VSWR",
        .unit = "",
        .value = [](const NetworkSweep& s, std::size_t i) { return std::min(s.VSWR[i], 1e3); },
        .top = 5,
        .bottom = 1},
    NetworkTrace{.key = "phi",
                 .title = "Phase",
                 .symbol = "phi",
                 .unit = "°",
                 .value = [](const NetworkSweep& s,
                             std::size_t i) { return s.phase[i] * kDegreesPerRadian; },
                 .top = 180,
                 .bottom = -180,
                 .turn = 360},
    NetworkTrace{.key = "delay",
                 .title = "Group Delay",
                 .symbol = "tau",
                 .unit = "s",
                 .value = [](const NetworkSweep& s, std::size_t i) { return s.groupDelay[i]; },
                 .top = 1e-8,
                 .bottom = 0},
    NetworkTrace{.key = "r",
                 .title = "Input Resistance",
                 .symbol = "R",
                 .unit = "Ω",
                 .value = [](const NetworkSweep& s, std::size_t i) { return s.ZinRe[i]; },
                 .top = 100,
                 .bottom = 0},
    NetworkTrace{.key = "x",
                 .title = "Input Reactance",
                 .symbol = "X",
                 .unit = "Ω",
                 .value = [](const NetworkSweep& s, std::size_t i) { return s.ZinIm[i]; },
                 .top = 100,
                 .bottom = -100},
    NetworkTrace{.key = "loss",
                 .title = "Dissipated Part",
                 .symbol = "Pd/Pav",
                 .unit = "",
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

/// From the curves, with readable ends; the top of a passive gain stays at 0 dB.
Axis ValueAxis(const NetworkTrace& trace, std::span<const Curve> curves) {
    double low = trace.bottom;
    double high = trace.top;
    if (trace.turn == 0) {
        std::vector<double> all;
        for (const Curve& curve : curves) {
            std::ranges::copy_if(curve.y, std::back_inserter(all),
                                 [](double y) { return std::isfinite(y); });
        }
        if (!all.empty()) {
            low = std::min(std::ranges::min(all), trace.top == 0 ? 0.0 : trace.bottom);
            high = trace.gain ? std::max(0.0, std::ranges::max(all))
                              : std::max(std::ranges::max(all), trace.bottom);
        }
        if (trace.gain) low = std::max(low, -60.0);
        high = std::min(high, trace.farthest);
        if (!(high > low)) high = low + 1;
    }
    Axis axis;
    axis.step = StepUp125((high - low) / 20);
    axis.labelEvery = 5;
    const double major = axis.step * axis.labelEvery;
    axis.min = trace.turn > 0 ? low : major * std::floor(low / major + 1e-9);
    axis.max = trace.turn > 0 ? high : major * std::ceil(high / major - 1e-9);
    if (trace.turn > 0) {
        axis.step = 15;
        axis.labelEvery = 3;
    }
    axis.origin = axis.min;
    return axis;
}

}  // namespace

std::span<const NetworkTrace> NetworkTraces() {
    return kNetworkTraces;
}

const NetworkTrace* FindNetworkTrace(std::string_view key) {
    const auto found = std::ranges::find(kNetworkTraces, key, &NetworkTrace::key);
    return found == kNetworkTraces.end() ? nullptr : &*found;
}

Picture NetworkPicture(const NetworkPlot& plot) {
    const NetworkTrace& trace = *plot.trace;
    Picture picture;
    const std::vector<double> f = Frequencies(plot);
    for (const PlottedNetwork& plotted : plot.networks) {
        LadderResponse response(*plotted.network);
        const NetworkSweep& sweep = response.sweep(f);
        Curve curve{.x = f, .y = {}, .colour = plotted.colour, .width = plotted.dashed ? 1.4 : 2};
        curve.style = plotted.dashed ? LineStyle::Alternative : LineStyle::Solid;
        curve.turn = trace.turn;
        for (std::size_t i = 0; i < sweep.size(); ++i) curve.y.push_back(trace.value(sweep, i));
        if (!plotted.name.empty())
            picture.legend.push_back({plotted.name, plotted.colour, curve.style});
        picture.curves.push_back(std::move(curve));
    }
    // The present network lies on top of those it is compared with.
    std::ranges::reverse(picture.curves);
    picture.title = trace.title;
    picture.xName = "f in Hz";
    picture.yName =
        std::string(trace.symbol) + (trace.unit.empty() ? "" : " in " + std::string(trace.unit));
    const bool engineering = trace.unit == "s" || trace.unit == "Ω";
    picture.yLabels = engineering ? LabelStyle::Engineering : LabelStyle::Plain;
    picture.view.x = FrequencyAxis(plot);
    picture.view.y = ValueAxis(trace, picture.curves);
    if (!plot.markers.empty()) picture.hairLines.push_back({plot.markers, {0, 110, 0}});
    if (plot.limitDb && trace.gain)
        picture.marks.push_back({*plot.limitDb,
                                 plot.limitIsEstimate ? "limit of lossless networks, estimated"
                                                      : "no lossless network does better",
                                 {200, 0, 0},
                                 {200, 0, 0},
                                 true});
    return picture;
}

double TraceValue(const NetworkTrace& trace, LadderResponse& response, double f) {
    return trace.value(response.sweep(std::span(&f, 1)), 0);
}

}  // namespace kelvro
