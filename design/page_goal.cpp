#include "design/page_goal.h"

#include <algorithm>
#include <cmath>

#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

double TransformationTerm(const Design& s) {
    return std::sqrt(std::max(s.R2 / s.R1, s.R1 / s.R2)) - 1;
}

Band FivePointBand(const Design& s, double width) {
    const double d = width / (TransformationTerm(s) + 1);
    return {.points = {{{s.fo * (1 - d)},
                        {s.fo * (1 - d / 2)},
                        {s.fo},
                        {s.fo / (1 - d / 2)},
                        {s.fo / (1 - d)}}},
            .count = 5,
            .scale = 0.2};
}

double Imbalance(double a, double b) {
    return (a - b) / (a + b);
}

std::optional<FrequencyBand> WorstGainBand(const Design& design) {
    const PageGoal& goal = PageOf(design).goal;
    return goal.worstIn ? goal.worstIn(design) : std::nullopt;
}

std::vector<double> WorstGainFrequencies(const FrequencyBand& band) {
    // Four ripples of eight elements lie so dense that a sample misses 1 % of one at most.
    constexpr int points = 41;
    const double middle = std::sqrt(band.low * band.high);
    const double half = std::log(band.high / band.low) / 2;
    std::vector<double> f(points);
    for (int i = 0; i < points; ++i) {
        const double place = -std::cos(kTwoPi / 2 * i / (points - 1));
        f[static_cast<std::size_t>(i)] = middle * std::exp(half * place);
    }
    f.front() = band.low;
    f.back() = band.high;
    return f;
}

PageGoal PageGoal::Nothing() {
    return {};
}

PageGoal PageGoal::Components(std::vector<Slot> (*moved)(const Design&)) {
    constexpr double usualWidth = 0.25;
    PageGoal goal;
    goal.moved = moved;
    goal.band = [](const Design& design) { return FivePointBand(design, usualWidth); };
    return goal;
}

PageGoal PageGoal::Test(std::size_t parameters, double (*function)(std::span<const double>)) {
    PageGoal goal;
    goal.testParameters = parameters;
    goal.test = function;
    return goal;
}

}  // namespace kelvro
