#include "plot/history_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "core/rounding.h"

namespace kelvro {

namespace {

constexpr std::array<Rgb, 8> kColours = {{{0x00, 0x60, 0x00},
                                          {0x00, 0x40, 0xC0},
                                          {0xC0, 0x20, 0x20},
                                          {0x90, 0x60, 0x00},
                                          {0x80, 0x00, 0x80},
                                          {0x00, 0x80, 0x80},
                                          {0x60, 0x60, 0x60},
                                          {0x40, 0x00, 0xFF}}};
constexpr int kIterationLabels = 8;

std::vector<double> Values(const Eigen::VectorXd& v) {
    return {v.data(), v.data() + v.size()};
}

Axis IterationAxis(std::size_t points) {
    Axis axis;
    axis.max = std::max<double>(1, static_cast<double>(points) - 1);
    axis.step = std::max(1.0, StepUp125(axis.max / kIterationLabels));
    axis.labelEvery = 1;
    return axis;
}

using Value = std::function<double(const HistoryPoint&)>;

Curve CurveOf(const std::vector<HistoryPoint>& history, const Value& value, Rgb colour) {
    Curve curve;
    curve.colour = curve.dotColour = colour;
    curve.dotSize = 3;
    for (const HistoryPoint& point : history) {
        curve.x.push_back(point.iteration);
        curve.y.push_back(value(point));
    }
    return curve;
}

/// One curve per parameter, named x1, x2, ... in the legend.
void AddParameters(Picture& picture, const std::vector<HistoryPoint>& history,
                   const std::function<double(const HistoryPoint&, std::size_t)>& value) {
    const std::size_t count = history.empty() ? 0 : history.front().x.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Rgb colour = kColours[i % kColours.size()];
        picture.curves.push_back(CurveOf(
            history, [&](const HistoryPoint& p) { return value(p, i); }, colour));
        picture.legend.push_back({std::string("x").append(std::to_string(i + 1)), colour});
    }
}

/// A readable range with some room for curves that may be constant; none below zero where all is
/// above, as calls and steps are never negative.
Axis ValueAxis(const std::vector<Curve>& curves, AxisMode mode) {
    std::vector<double> all;
    for (const Curve& curve : curves) {
        std::ranges::copy_if(curve.y, std::back_inserter(all), [&](double y) {
            return std::isfinite(y) && (mode != AxisMode::Logarithmic || y > 0);
        });
    }
    Axis axis;
    axis.mode = mode;
    const auto range = RangeOf(all);
    if (!range) return axis;
    if (mode == AxisMode::Logarithmic) {
        axis.min = std::pow(10, std::floor(std::log10(range->min)));
        axis.max = std::pow(10, std::floor(std::log10(range->max)) + 1);
        axis.origin = axis.min;
        return axis;
    }
    const double room = std::max((range->max - range->min) / 20, 1e-6);
    axis.step = StepUp125((range->max - range->min + 2 * room) / 8);
    axis.labelEvery = 1;
    const double lowest = range->min < 0 ? range->min - room : std::max(range->min - room, 0.0);
    axis.min = std::floor(lowest / axis.step) * axis.step;
    axis.max = std::ceil((range->max + room) / axis.step) * axis.step;
    axis.origin = std::clamp(0.0, axis.min, axis.max);
    return axis;
}

struct Texts {
    const char* title;
    const char* yName;
    bool logarithmic = false;
};

Texts TextsOf(HistoryPlot plot, const HistoryStyle& style) {
    switch (plot) {
        case HistoryPlot::Gradient:
            return {"Gradient vs Iteration", "|g|", true};
        case HistoryPlot::Function:
            return {"Function f-fmin vs Iteration", "f-fmin", true};
        case HistoryPlot::ParameterChanges:
            return {style.successive ? "Parameter changes xi-xi+1 vs Iteration"
                                     : "Parameter changes x-xfinal vs Iteration",
                    "dx"};
        case HistoryPlot::FunctionCalls:
            return {"Function Calls vs Iteration", "calls"};
        case HistoryPlot::StepSize:
            return {"Stepsize t vs Iteration", "t", style.logarithmicStep};
        case HistoryPlot::Parameters:
            break;
    }
    return {"Normalized Parameters vs Iteration", "value/start"};
}

void AddCurves(Picture& picture, HistoryPlot plot, const std::vector<HistoryPoint>& history,
               bool successive) {
    const auto single = [&](const Value& value) {
        picture.curves.push_back(CurveOf(history, value, kColours[0]));
    };
    using Point = const HistoryPoint&;
    switch (plot) {
        case HistoryPlot::Gradient:
            return single([](Point p) { return p.gradient; });
        case HistoryPlot::Function:
            return single([](Point p) { return p.excess; });
        case HistoryPlot::FunctionCalls:
            return single([](Point p) { return p.calls; });
        case HistoryPlot::StepSize:
            return single([](Point p) { return p.t; });
        case HistoryPlot::ParameterChanges:
            return AddParameters(picture, history, [successive](Point p, std::size_t i) {
                return successive ? p.toNext[i] : p.toFinal[i];
            });
        case HistoryPlot::Parameters:
            return AddParameters(picture, history,
                                 [](Point p, std::size_t i) { return std::exp(p.x[i]); });
    }
}

}  // namespace

std::vector<HistoryPoint> JoinedHistory(const PageOptimization& optimization) {
    std::vector<HistoryPoint> history;
    if (optimization.runs.empty()) return history;
    const Eigen::VectorXd& end = optimization.runs.back().x;
    int callsBefore = 0;
    for (const Summary& run : optimization.runs) {
        for (const IterationRecord& record : run.history) {
            HistoryPoint point;
            point.iteration = static_cast<int>(history.size());
            point.gradient = record.gradientLength;
            point.calls = callsBefore + record.calls.total();
            point.excess = record.f - optimization.achievedGoal;
            point.t = record.t;
            point.x = Values(record.x);
            point.toFinal = Values(record.x - end);
            point.toNext.assign(point.x.size(), 0);
            if (!history.empty()) {
                HistoryPoint& before = history.back();
                std::ranges::transform(before.x, point.x, before.toNext.begin(), std::minus());
            }
            history.push_back(std::move(point));
        }
        callsBefore += run.calls.total();
    }
    return history;
}

Picture HistoryPicture(HistoryPlot plot, const std::vector<HistoryPoint>& history,
                       const HistoryStyle& style) {
    const Texts texts = TextsOf(plot, style);
    Picture picture;
    picture.title = texts.title;
    AddCurves(picture, plot, history, style.successive);
    if (style.axisNames) {
        picture.xName = "Iteration";
        picture.yName = texts.yName;
    }
    picture.xLabels = LabelStyle::Plain;
    picture.yLabels = texts.logarithmic ? LabelStyle::Engineering : LabelStyle::Plain;
    picture.view.x = IterationAxis(history.size());
    picture.view.y =
        ValueAxis(picture.curves, texts.logarithmic ? AxisMode::Logarithmic : AxisMode::Linear);
    return picture;
}

}  // namespace kelvro
