#include "optimize/bend_search.h"

#include <Eigen/Eigenvalues>

#include "optimize/valley.h"

namespace kelvro {

namespace {

// The walls of a valley are this much steeper than its floor.
constexpr double kWallRatio = 30;
// Shorter steps have no bend worth its calls.
constexpr double kShortestStep = 0.015;

/// How many of the curvatures, steepest first, are walls: those before the first large drop.
Eigen::Index CountWalls(const Vector& curvatures) {
    for (Eigen::Index i = 0; i + 1 < curvatures.size(); ++i) {
        if (!(curvatures[i] > kWallCurvature)) return 0;
        if (curvatures[i] > kWallRatio * curvatures[i + 1]) return i + 1;
    }
    return 0;
}

}  // namespace

LineOutcome FollowBend(SearchRun& run, const Matrix& inverse, const Position& from,
                       LineOutcome outcome, bool closeToEnd) {
    if (!outcome.moved) return outcome;
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(inverse);
    const Vector curvatures = solver.eigenvalues().cwiseInverse();
    const Eigen::Index walls = CountWalls(curvatures);
    if (walls == 0) return outcome;
    const Valley valley(run, solver.eigenvectors().leftCols(walls), curvatures.head(walls),
                        from.f - outcome.end.f);
    const Vector step = outcome.end.x - from.x;
    const Vector along = step - valley.across(step);
    if (along.norm() < kShortestStep) return outcome;

    const int before = run.objective.calls().of(CallKind::LineSearch);
    const ValuedPoint first = valley.onFloor({outcome.end.x, outcome.end.f});
    const ValuedPoint best = valley.farther(from.x, first, along);
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
