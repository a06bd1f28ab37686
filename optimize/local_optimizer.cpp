#include "optimize/local_optimizer.h"

#include <algorithm>
#include <cmath>

#include "optimize/descent.h"
#include "optimize/evaluator.h"
#include "optimize/restarts.h"
#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

// While a thorough search explores, its gradient limit is this much wider, and this part of its
// iterations is kept back to finish the best minimum that it finds.
constexpr double kExploringLimit = 5;
constexpr double kFinishingPart = 0.15;

/// A parameter is without influence where steps to both sides leave f exactly as it is.
std::vector<bool> FindActive(const Gradient& gradient, double f) {
    std::vector<bool> active;
    for (Eigen::Index i = 0; i < gradient.g.size(); ++i) {
        active.push_back(gradient.plus[i] != f || gradient.minus[i] != f);
    }
    return active;
}

Gradient ActivePart(const Evaluator& objective, const Gradient& full) {
    return {objective.activeDirection(full.g),
            full.length,
            full.doubleSided,
            objective.activeDirection(full.plus),
            objective.activeDirection(full.minus),
            objective.activeDirection(full.curvature)};
}

void NoteStartMatrix(SearchRun& run, const Gradient& full) {
    run.notes().push_back({.kind = NoteKind::StartMatrixFromFxx});
    for (Eigen::Index i = 0; i < full.curvature.size(); ++i) {
        if (full.curvature[i] > 0) continue;
        run.notes().push_back(
            {.kind = NoteKind::CurvatureNotPositive, .index = static_cast<int>(i) + 1});
    }
}

Matrix FirstInverse(SearchRun& run, const Position& start, Summary& summary) {
    if (!run.options.enhancedStartMatrix) return InverseOfDiagonal(start.gradient.curvature);
    HessianResult result = HessianAt(run.objective, start.x, start.f, run.options);
    run.notes().push_back({.kind = NoteKind::StartMatrixFromFxy});
    summary.startSingularValues = SingularValues(result.hessian);
    if (MayBeRankDeficient(summary.startSingularValues)) {
        run.notes().push_back({.kind = NoteKind::HessianRankDeficient});
    }
    Matrix inverse = PositiveInverse(result.hessian);
    summary.startHessian = std::move(result.hessian);
    return inverse;
}

StopReason StopOf(DescentEnd end) {
    switch (end) {
        case DescentEnd::GradientTooSmall:
            return StopReason::GradientTooSmall;
        case DescentEnd::YsTooSmall:
            return StopReason::YsTooSmall;
        case DescentEnd::VyTooSmall:
            return StopReason::VyTooSmall;
        case DescentEnd::MaxIterations:
            return StopReason::MaxIterations;
        default:
            return StopReason::StepTooSmall;
    }
}

void TakeResult(const SearchRun& run, const DescentResult& result, Summary& summary) {
    const Evaluator& objective = run.objective;
    // The search for other minima may have used up the iterations behind a descent that had ended.
    summary.stop = run.iterationsLeft() ? StopOf(result.end) : StopReason::MaxIterations;
    summary.x = objective.bestPoint();
    summary.f = objective.bestValue();
    summary.g = objective.fullDirection(result.at.gradient.g);
    summary.gradientLength = result.at.gradient.length;
    summary.inverseHessian = objective.fullMatrix(result.inverse);
}

void TakeFinalHessian(SearchRun& run, Summary& summary) {
    if (!run.options.finalHessian) return;
    const Vector x = run.objective.activeDirection(summary.x);
    summary.finalHessian =
        run.objective.fullMatrix(HessianAt(run.objective, x, summary.f, run.options).hessian);
}

LocalOptions Exploring(LocalOptions options) {
    options.gradientLimit *= kExploringLimit;
    options.maxIterations -= static_cast<int>(kFinishingPart * options.maxIterations);
    return options;
}

/// The best minimum to the full gradient limit.
DescentResult Finished(SearchRun& run, DescentResult best) {
    if (!run.iterationsLeft() || best.at.gradient.length < run.options.gradientLimit) return best;
    run.notes().push_back({.kind = NoteKind::Restarted, .value = {best.at.f, 0}});
    DescentStart start = StartFromHessian(run, best.at.x, best.at.f);
    return Descent(run, std::move(start.at), std::move(start.inverse)).finish();
}

/// A descent from the start and, where the function calls for it, a search for better minima.
DescentResult Minimum(SearchRun& run, Position start, Matrix inverse, const Vector& origin) {
    const LocalOptions wanted = run.options;
    const bool seek = wanted.seekOtherMinima && !wanted.steepestDescent && start.x.size() > 0;
    const bool explore = seek && wanted.thorough;
    const double f = start.f;
    if (explore) run.options = Exploring(wanted);
    DescentResult result = Descent(run, std::move(start), std::move(inverse)).finish();
    if (seek) result = SeekOtherMinima(run, std::move(result), origin, f);
    run.options = wanted;
    return explore ? Finished(run, std::move(result)) : result;
}

void Search(SearchRun& run, const Gradient& full, const Vector& origin, Summary& summary) {
    run.objective.setActive(summary.active);
    Position start{run.objective.start(), summary.f, ActivePart(run.objective, full)};
    NoteStartMatrix(run, full);
    Matrix inverse = FirstInverse(run, start, summary);
    run.recordStart(start);
    const DescentResult result =
        Minimum(run, std::move(start), std::move(inverse), run.objective.activeDirection(origin));
    TakeResult(run, result, summary);
    TakeFinalHessian(run, summary);
}

/// A start without a value: there is nowhere to go from.
void EndAtOnce(const Vector& start, double f, Summary& summary) {
    summary.stop = StopReason::StepTooSmall;
    summary.x = start;
    summary.f = f;
    summary.g = Vector::Zero(start.size());
    summary.active.assign(static_cast<std::size_t>(start.size()), false);
    summary.startDiagonal = summary.g;
    IterationRecord record;
    record.f = f;
    record.x = start;
    record.g = record.direction = record.step = summary.g;
    summary.history.push_back(std::move(record));
}

int CountWarnings(const Summary& summary) {
    int warnings = 0;
    for (const IterationRecord& record : summary.history) {
        warnings += static_cast<int>(std::ranges::count_if(record.notes, IsWarning));
    }
    return warnings + static_cast<int>(std::ranges::count_if(summary.closingNotes, IsWarning));
}

}  // namespace

Summary MinimizeLocally(Objective& function, const Eigen::VectorXd& start,
                        const LocalOptions& options, const std::optional<Eigen::VectorXd>& origin) {
    Summary summary;
    Evaluator objective(function, start, options.recordCalls);
    SearchRun run(objective, options, summary);
    const double f = objective(start, CallKind::Evaluation);
    if (!std::isfinite(f)) {
        EndAtOnce(start, f, summary);
    } else {
        const Gradient gradient = run.gradients.computeDoubleSided(start, f, run.notes());
        summary.f = f;
        summary.active = FindActive(gradient, f);
        summary.startDiagonal = gradient.curvature;
        Search(run, gradient, origin.value_or(start), summary);
        summary.closingNotes = std::move(run.notes());
    }
    summary.calls = objective.calls();
    summary.singleSidedGradients = run.gradients.singleSided();
    summary.doubleSidedGradients = run.gradients.doubleSided();
    summary.warnings = CountWarnings(summary);
    if (summary.history.size() > 1) summary.initialStep = summary.history[1].t;
    summary.table = objective.takeTable();
    return summary;
}

}  // namespace kelvro
