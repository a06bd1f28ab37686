#include "advise/guide.h"

#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kFewParameters = 4;
constexpr double kManyParameters = 30;

double Parameters(const GuideSituation& situation) {
    return Clamp(situation.parameters, 0, kMostGuideParameters);
}

}  // namespace

long long SimulationPoints(const GuideSituation& situation) {
    const double n = Parameters(situation);
    double k = 1;
    if (!situation.goodStartPoint) k *= 2;
    if (situation.nonlinear) k *= 2;
    if (situation.difficult) k *= 2;
    return std::llround(k * n * n / 2 + 2 * n);
}

std::string GuideAdvice(const GuideSituation& situation) {
    const double n = Parameters(situation);
    std::string advice = situation.goodStartPoint
                             ? "Consider a local optimizer due to higher speed."
                             : "Consider a global optimizer.";
    if (n < kFewParameters) {
        advice += " Check if you give the optimizer enough parameters to improve.";
    }
    if (n > kManyParameters) {
        advice +=
            " Consider to reduce number of parameters and check if you exploit e.g. matchings.";
    }
    advice += " You can expect significant improvements in app. " +
              std::to_string(SimulationPoints(situation)) + " simulation points.";
    advice +=
        " Note if design is already close to optimum we would of course typically top earlier.";
    return advice;
}

}  // namespace kelvro
