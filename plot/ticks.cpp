#include "plot/ticks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "core/number_text.h"
#include "core/rounding.h"

namespace kelvro {

namespace {

constexpr double kLeastGridPixels = 4;

/// Fewest decimals that show the value to ten significant digits.
int DecimalsOf(double value) {
    double scaled = std::fabs(value);
    for (int decimals = 0; decimals < 12; ++decimals, scaled *= 10) {
        if (std::fabs(scaled - std::nearbyint(scaled)) <= 1e-10 * scaled) return decimals;
    }
    return 12;
}

int DecadeOf(double value) {
    return static_cast<int>(std::floor(std::log10(std::fabs(value)) + 1e-10));
}

std::string PowerLabel(double value) {
    const int decade = DecadeOf(value);
    const double mantissa = value / std::pow(10.0, decade);
    return FormatFixed(0, DecimalsOf(mantissa), mantissa) + "e" + std::to_string(decade);
}

std::string PlainLabel(double value, int decimals) {
    const double magnitude = std::fabs(value);
    if (magnitude != 0 && (magnitude >= 1e6 || magnitude < 1e-4)) return PowerLabel(value);
    return FormatFixed(0, decimals, value);
}

/// The next sparser step of labels: the next of 1-2-5, or twice a step that is none of these.
double SparserStep(double step) {
    const double readable = StepUp125(step);
    return std::fabs(readable - step) < 1e-9 * step ? StepUp125(1.5 * step) : 2 * step;
}

/// Parts of a turn near the given steps of grid and labels, where these are more than a few
/// degrees.
void TakeTurns(double& step, double& labelStep) {
    constexpr double kFew = 15;
    if (!(labelStep > kFew)) return;
    double part = 45;
    while (2 * part <= 1.2 * labelStep) part *= 2;
    step = part <= 90 ? 15 : part / 4;
    labelStep = part;
}

/// Multiples of the step within the axis, free of rounding noise around 0.
std::vector<double> Multiples(const Axis& axis, double step) {
    const double slack = 1e-9 * (axis.max - axis.min);
    std::vector<double> values;
    const double first = std::ceil((axis.min - slack) / step);
    for (double k = first; k * step <= axis.max + slack; ++k) {
        const double value = std::clamp(k * step, axis.min, axis.max);
        values.push_back(k == 0 ? 0 : value);
    }
    return values;
}

double PixelOf(const Axis& axis, double pixels, double value) {
    return axis.fraction(value) * pixels;
}

bool LabelsFit(const Axis& axis, double pixels, const std::vector<Tick>& ticks,
               const LabelExtent& extent) {
    for (std::size_t i = 1; i < ticks.size(); ++i) {
        const double distance =
            PixelOf(axis, pixels, ticks[i].value) - PixelOf(axis, pixels, ticks[i - 1].value);
        if (distance < (extent(ticks[i].label) + extent(ticks[i - 1].label)) / 2) return false;
    }
    return true;
}

std::vector<Tick> Labelled(const std::vector<double>& values, LabelStyle style, double step) {
    std::vector<Tick> ticks;
    ticks.reserve(values.size());
    for (const double value : values) {
        const int decimals = DecimalsOf(step > 0 ? step : value);
        ticks.push_back({value, style == LabelStyle::Engineering ? EngineeringLabel(value)
                                                                 : PlainLabel(value, decimals)});
    }
    return ticks;
}

/// The values that carry no label.
std::vector<double> Without(std::vector<double> values, const std::vector<Tick>& major,
                            double slack) {
    std::erase_if(values, [&](double value) {
        return std::any_of(major.begin(), major.end(), [&](const Tick& tick) {
            return std::fabs(tick.value - value) <= slack;
        });
    });
    return values;
}

Ticks LinearTicks(const Axis& axis, double pixels, LabelStyle style, const LabelExtent& extent) {
    const double span = axis.max - axis.min;
    double step = axis.step > 0 && std::isfinite(axis.step) ? axis.step : StepUp125(span / 50);
    double labelStep = step * std::max(axis.labelEvery, 1);
    if (style == LabelStyle::Degrees) TakeTurns(step, labelStep);
    while (step / span * pixels < kLeastGridPixels) step = SparserStep(step);
    while (labelStep < step) labelStep = SparserStep(labelStep);
    std::vector<Tick> major;
    // Every round at least makes the labels sparser by a fifth of a decade, so that few are needed;
    // before one that leaves a single label there is nothing left to overlap.
    for (int attempt = 0; attempt < 40; ++attempt) {
        if (span / labelStep * kLeastGridPixels <= pixels) {
            major = Labelled(Multiples(axis, labelStep), style, labelStep);
            if (LabelsFit(axis, pixels, major, extent)) break;
            major.clear();
        }
        labelStep = SparserStep(labelStep);
    }
    return {Without(Multiples(axis, step), major, 1e-6 * step), major};
}

/// The given digits of every decade (or of every `skip`-th) within the axis.
std::vector<double> DecadeValues(const Axis& axis, const std::vector<int>& digits, int skip) {
    std::vector<double> values;
    const int last = DecadeOf(axis.max);
    for (int decade = DecadeOf(axis.min); decade <= last; ++decade) {
        if (decade % skip != 0) continue;
        for (const int digit : digits) {
            const double value = digit * std::pow(10.0, decade);
            if (value >= axis.min * (1 - 1e-9) && value <= axis.max * (1 + 1e-9)) {
                values.push_back(std::clamp(value, axis.min, axis.max));
            }
        }
    }
    return values;
}

/// Labels in equal steps, for an axis too short for digits of decades.
Ticks ShortLogTicks(const Axis& axis, double pixels, LabelStyle style, const LabelExtent& extent) {
    double step = StepUp125((axis.max - axis.min) / 10);
    for (int attempt = 0; attempt < 6; ++attempt, step = SparserStep(step)) {
        auto major = Labelled(Multiples(axis, step), style, step);
        if (major.size() < 2) break;
        if (!LabelsFit(axis, pixels, major, extent)) continue;
        return {Without(Multiples(axis, step / 5), major, 1e-6 * step), major};
    }
    return {};
}

Ticks LogTicks(const Axis& axis, double pixels, LabelStyle style, const LabelExtent& extent) {
    static const std::vector<int> kAll{1, 2, 3, 4, 5, 6, 7, 8, 9};
    if (axis.max < 12 * axis.min) {
        Ticks ticks = ShortLogTicks(axis, pixels, style, extent);
        if (!ticks.major.empty()) return ticks;
    }
    std::vector<Tick> major;
    const auto attempt = [&](const std::vector<int>& digits, int skip) {
        major = Labelled(DecadeValues(axis, digits, skip), style, 0);
        return LabelsFit(axis, pixels, major, extent);
    };
    if (!attempt(kAll, 1) && !attempt({1, 2, 5}, 1)) {
        int skip = 1;
        while (!attempt({1}, skip) && skip < 1000) ++skip;
    }
    const double decadePixels = pixels / std::log10(axis.max / axis.min);
    const bool roomForDigits = decadePixels * std::log10(10.0 / 9) >= kLeastGridPixels / 2;
    auto grid = roomForDigits ? DecadeValues(axis, kAll, 1) : DecadeValues(axis, {1}, 1);
    if (decadePixels < kLeastGridPixels) grid.clear();
    std::vector<double> minor;
    std::copy_if(grid.begin(), grid.end(), std::back_inserter(minor), [&](double value) {
        return std::none_of(major.begin(), major.end(), [&](const Tick& tick) {
            return std::fabs(tick.value - value) <= 1e-9 * value;
        });
    });
    return {minor, major};
}

bool HasExtent(const Axis& axis) {
    const bool log = axis.mode == AxisMode::Logarithmic;
    // Ends closer than their own rounding leave no place for a step between them.
    const double resolution = 1e-12 * std::max(std::fabs(axis.min), std::fabs(axis.max));
    return std::isfinite(axis.min) && std::isfinite(axis.max) && axis.max - axis.min > resolution &&
           std::isfinite(axis.max - axis.min) && (!log || axis.min > 0);
}

}  // namespace

std::string EngineeringLabel(double value) {
    static constexpr std::array<const char*, 11> kPrefixes{"a", "f", "p", "n", "u", "m",
                                                           "",  "k", "M", "G", "T"};
    if (value == 0) return "0";
    const int group = static_cast<int>(std::floor(DecadeOf(value) / 3.0)) + 6;
    if (group < 0 || group >= static_cast<int>(kPrefixes.size())) return PowerLabel(value);
    const double mantissa = value / std::pow(10.0, 3 * (group - 6));
    return FormatFixed(0, DecimalsOf(mantissa), mantissa) +
           kPrefixes[static_cast<std::size_t>(group)];
}

Ticks TicksOf(const Axis& axis, double pixels, LabelStyle style, const LabelExtent& extent) {
    if (!HasExtent(axis) || !(pixels > 2 * kLeastGridPixels)) return {};
    return axis.mode == AxisMode::Logarithmic ? LogTicks(axis, pixels, style, extent)
                                              : LinearTicks(axis, pixels, style, extent);
}

}  // namespace kelvro
