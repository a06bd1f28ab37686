#include "design/page_goal.h"

#include <algorithm>
#include <cmath>

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
