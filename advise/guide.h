#pragma once

#include <string>

namespace kelvro {

/// The designer's situation, as the optimization guide asks for it.
struct GuideSituation {
    double parameters = 10;      ///< 0..kMostGuideParameters, clamped
    bool goodStartPoint = true;  ///< else the starting point is probably bad
    bool nonlinear = false;      ///< goal to parameter variation highly nonlinear
    bool difficult = false;      ///< difficult correlations, many trade-offs
};

inline constexpr double kMostGuideParameters = 1e6;

/// Simulations until an optimizer improves a design markedly: a quadratic model of n parameters has
/// about n²/2 coefficients, a gradient and a line search add 2·n; each difficulty doubles the
/// first part.
long long SimulationPoints(const GuideSituation& situation);

/// Which optimizer to use and what it will cost, in words.
std::string GuideAdvice(const GuideSituation& situation);

}  // namespace kelvro
