#pragma once

#include <functional>
#include <span>
#include <vector>

#include "optimize/max_min_step.h"

namespace kelvro {

/// Functions of n numbers, the smallest of which is to become as large as possible.
class MaxMinGoal {
  public:
    virtual ~MaxMinGoal() = default;
    /// All functions at x with their gradients.
    virtual void rows(std::span<const double> x, LinearRows& rows) = 0;
    /// Only those with the given numbers, in their order.
    virtual void someRows(std::span<const std::size_t> which, std::span<const double> x,
                          LinearRows& rows) = 0;
};

/// Limits of the numbers.
struct ParameterBox {
    std::vector<double> low;
    std::vector<double> high;
};

/// A point and the smallest function there.
struct MaxMinPoint {
    std::vector<double> x = {};
    double worst = 0;
    double radius = 0.5;   ///< trust radius to go on with
    bool settled = false;  ///< nothing more to gain
};

/// Where a solution is to stop, and who looks on.
struct MaxMinOptions {
    int mostSteps = 200;
    double leastRadius = 1e-7;
    double leastGain = 1e-7;  ///< expected gain that is not worth another step
    /// Told of each point before a step is taken from it, and of the last one, with the gradients
    /// of the functions that hold it down, each by how much it does: 0 where no step helps.
    std::function<void(const MaxMinPoint&, std::span<const double> gradient)> watch = {};
};

/// Maximizes the smallest of some functions by sequential linear programming: steps of the
/// linearized functions inside a trust region, which grows and shrinks with how well they predict,
/// and Newton's steps where their curvature decides. Deterministic. One object per thread: it keeps
/// its memory.
class MaxMinSolver {
  public:
    /// Goes on from a point inside the box; never ends below it.
    void improve(MaxMinGoal& goal, const ParameterBox& box, const MaxMinOptions& options,
                 MaxMinPoint& point);

  private:
    void boxAround(const ParameterBox& box, const MaxMinPoint& point, double radius);
    bool newtonStep(MaxMinGoal& goal, const MaxMinPoint& point);
    bool tryNewton(MaxMinGoal& goal, MaxMinPoint& point);
    bool tryPoint(MaxMinGoal& goal, MaxMinPoint& point);
    void tell(const MaxMinOptions& options, const MaxMinPoint& point);

    MaxMinStep step_;
    LinearRows rows_;
    LinearRows trial_;
    LinearRows active_;
    std::vector<std::size_t> which_;
    std::vector<double> low_;
    std::vector<double> high_;
    std::vector<double> x_;
    std::vector<double> newton_;
    std::vector<double> gradient_;
};

}  // namespace kelvro
