#pragma once

#include <limits>
#include <vector>

#include "optimize/box.h"
#include "optimize/line_search.h"
#include "optimize/search_run.h"

namespace kelvro {

/// Why a descent ended.
enum class DescentEnd : std::uint8_t {
    MaxIterations,
    GradientTooSmall,
    YsTooSmall,
    VyTooSmall,
    StepTooSmall,
    NotWorthTheWay,  ///< the goal still falls, by less than a change of the parameters counts
    Narrow,          ///< refinement gets on better in this valley
    Beaten,          ///< it will not get down to the value that it has to reach
};

struct DescentResult {
    Position at;
    Matrix inverse;  ///< approximation of the inverse Hessian
    DescentEnd end = DescentEnd::MaxIterations;
    bool onCrease = false;  ///< the last step went along one
};

/// Will a descent with these values, in order, not get below the rival? It will when some times the
/// reduction of its last iterations takes it there.
bool IsBeaten(const std::vector<double>& values, double rival, const DescentTuning& tuning);

/// A quasi-Newton descent from a point to a minimum near by.
class Descent {
  public:
    /// Stays in the box, where the start has to lie. Gives up when it will not get below `rival`.
    Descent(SearchRun& run, const Box& box, Position start, Matrix inverse,
            double rival = std::numeric_limits<double>::infinity());

    DescentResult finish();

  private:
    bool iterate();
    Vector direction();
    LineOutcome search(const Vector& S);
    bool take(LineOutcome outcome);
    bool closeToEnd() const { return stalls_ > 0; }
    bool confirmGradient();
    bool promisesLittle(const Vector& S) const;
    bool changeTooSmall(const Vector& s, const Vector& y, double reduction);
    bool stalled(double reduction);
    bool isBeaten();
    void learn(const Vector& s, const Vector& y);
    void adaptStepLimit(const LineOutcome& outcome);
    void setInverse(Matrix inverse);
    void setInverse(Matrix inverse, double smallestEigenvalue);
    bool isNarrow() const;
    double gradientLimit() const;
    /// A limit on f in units of the square of the gradient limit, at the scale of f.
    double limit(double squares) const;
    bool end(DescentEnd reason);

    SearchRun& run_;
    const Box& box_;
    const DescentTuning& tuning_;
    const double rival_;
    DescentResult result_;
    double steepestCurvature_ = 0;
    double stepLimit_;
    bool hasToBeOnePlace_ = false;
    bool limitRaised_ = false;  ///< by the last step
    int iterations_ = 0;
    int stalls_ = 0;
    double lastReduction_ = 0;
    double lastT_ = 0;             ///< of steepest descent
    std::vector<double> history_;  ///< f after each iteration
};

}  // namespace kelvro
