#include "optimize/bend_search.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>

namespace kelvro {

namespace {

// A valley: its walls this steep, and this much steeper than its floor.
constexpr double kValleyCurvature = 300;
constexpr double kValleyRatio = 30;
// Shorter steps have no bend worth its calls.
constexpr double kShortestStep = 0.03;
constexpr double kLongestStep = 1.5;
constexpr int kMostDoublings = 5;
// The probes across stand where the wall is higher than the floor by a fifth of the last gain.
constexpr double kProbeHeight = 0.2;
constexpr double kLowestProbe = 1e-4;
// A way back to the floor beyond this many probe distances is not what the parabola has seen.
constexpr double kFarthestReturn = 8;
constexpr double kWorthwhileReturn = 0.05;

struct Point {
    Vector x;
    double f;
};

class Valley {
  public:
    Valley(SearchRun& run, const Vector& across, double curvature, double gain)
        : run_(run),
          across_(across),
          probe_(std::sqrt(2 * std::max(kLowestProbe, kProbeHeight * gain) / curvature)),
          gain_(gain) {}

    /// The point moved to the floor: the minimum of a parabola across the valley.
    Point onFloor(Point p) const;
    double value(const Vector& x) const { return run_.objective(x, CallKind::LineSearch); }

  private:
    SearchRun& run_;
    const Vector& across_;
    double probe_;
    double gain_;
};

Point Valley::onFloor(Point p) const {
    const Vector right = p.x + probe_ * across_;
    const Vector left = p.x - probe_ * across_;
    const double fRight = value(right);
    const double fLeft = value(left);
    const double slope = (fRight - fLeft) / (2 * probe_);
    const double half = (fRight + fLeft - 2 * p.f) / (2 * probe_ * probe_);
    if (!(half > 0) || !std::isfinite(half)) {
        if (fRight < p.f) return {right, fRight};
        return fLeft < p.f ? Point{left, fLeft} : p;
    }
    if (slope * slope / (4 * half) < kWorthwhileReturn * gain_) return p;
    const double reach = kFarthestReturn * probe_;
    const Vector x = p.x + std::clamp(-slope / (2 * half), -reach, reach) * across_;
    const double f = value(x);
    return f < p.f ? Point{x, f} : p;
}

/// From the floor at `from` over the floor at `first`: along the tangent, bent by the square.
Point Extrapolate(const Valley& valley, const Vector& from, const Point& first, const Vector& along,
                  const Vector& across) {
    Point best = first;
    double bend = (first.x - from).dot(across);
    double t = 1;
    for (int i = 0; i < kMostDoublings; ++i) {
        t *= 2;
        if (t * LargestEntry(along) > kLongestStep) break;
        const Vector x = from + t * along + bend * t * t * across;
        Point next{x, valley.value(x)};
        if (!(next.f < best.f)) {
            if (!std::isfinite(next.f)) break;
            next = valley.onFloor(next);
            if (!(next.f < best.f)) break;
            bend = (next.x - from).dot(across) / (t * t);
        }
        best = next;
    }
    return best;
}

}  // namespace

LineOutcome FollowBend(SearchRun& run, const Matrix& inverse, const Position& from,
                       LineOutcome outcome, bool closeToEnd) {
    if (from.x.size() < 2 || !outcome.moved) return outcome;
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(inverse);
    const double curvature = 1 / solver.eigenvalues()[0];
    const double next = 1 / solver.eigenvalues()[1];
    if (!(curvature > kValleyCurvature) || !(curvature > kValleyRatio * next)) return outcome;
    const Vector across = solver.eigenvectors().col(0);
    const Vector step = outcome.end.x - from.x;
    const Vector along = step - across * across.dot(step);
    if (along.norm() < kShortestStep) return outcome;

    const int before = run.objective.calls().of(CallKind::LineSearch);
    const Valley valley(run, across, curvature, from.f - outcome.end.f);
    const Point first = valley.onFloor({outcome.end.x, outcome.end.f});
    const Point best = Extrapolate(valley, from.x, first, along, across);
    outcome.step.lineSteps += run.objective.calls().of(CallKind::LineSearch) - before;
    if (!(best.f < outcome.end.f)) return outcome;
    outcome.end.x = best.x;
    outcome.end.f = best.f;
    const double largest = LargestEntry(best.x - from.x);
    outcome.end.gradient = run.gradients.compute(
        best.x, best.f, {from.gradient.length, largest, closeToEnd}, run.notes());
    return outcome;
}

}  // namespace kelvro
