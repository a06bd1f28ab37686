#include "optimize/local_optimizer.h"

#include <algorithm>
#include <cmath>

#include "optimize/evaluator.h"
#include "optimize/search.h"
#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

/// A parameter is without influence where steps to both sides leave f exactly as it is.
std::vector<bool> FindActive(const Gradient& gradient, double f) {
    std::vector<bool> active;
    for (Eigen::Index i = 0; i < gradient.g.size(); ++i) {
        active.push_back(gradient.plus[i] != f || gradient.minus[i] != f);
    }
    return active;
}

void NoteStartMatrix(SearchRun& run, const Vector& curvature) {
    run.notes().push_back({.kind = NoteKind::StartMatrixFromFxx});
    for (Eigen::Index i = 0; i < curvature.size(); ++i) {
        if (curvature[i] > 0) continue;
        run.notes().push_back(
            {.kind = NoteKind::CurvatureNotPositive, .index = static_cast<int>(i) + 1});
    }
}

Matrix FirstInverse(SearchRun& run, const Position& start, Summary& summary) {
    const Vector curvature =
        SecondDerivatives(run.objective, start.x, start.f, run.options.secondDifferenceStep);
    const MatrixTuning& tuning = run.options.tuning.matrix;
    NoteStartMatrix(run, curvature);
    summary.startDiagonal = run.objective.fullDirection(curvature);
    if (!run.options.enhancedStartMatrix) return InverseOfDiagonal(curvature, tuning);
    Matrix hessian = HessianAt(run.objective, start.x, start.f, run.options);
    if (!hessian.allFinite()) return InverseOfDiagonal(curvature, tuning);
    run.notes().push_back({.kind = NoteKind::StartMatrixFromFxy});
    summary.startSingularValues = SingularValues(hessian);
    if (MayBeRankDeficient(summary.startSingularValues, tuning)) {
        run.notes().push_back({.kind = NoteKind::HessianRankDeficient});
    }
    Matrix inverse = PositiveInverse(hessian, tuning);
    summary.startHessian = std::move(hessian);
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

/// Which of all parameters would leave the box on the way down.
std::vector<bool> OnLimit(const Evaluator& objective, const Box& box, const Position& at) {
    Vector blocked = Vector::Zero(at.x.size());
    for (Eigen::Index i = 0; i < at.x.size(); ++i) {
        blocked[i] = box.blocks(at.x, -at.gradient.g, i) ? 1 : 0;
    }
    const Vector all = objective.fullDirection(blocked);
    return {all.begin(), all.end()};
}

void TakeResult(const SearchRun& run, const Minimum& minimum, const Box& box, Summary& summary) {
    const DescentResult& result = minimum.result;
    summary.stop = StopOf(result.end);
    summary.notWorthTheWay = result.end == DescentEnd::NotWorthTheWay;
    summary.x = run.objective.fullPoint(result.at.x);
    summary.f = result.at.f;
    summary.g = run.objective.fullDirection(result.at.gradient.g);
    summary.gradientLength = result.at.gradient.length;
    summary.inverseHessian = run.objective.fullMatrix(result.inverse);
    summary.distance = minimum.distance;
    summary.outOfReach = !run.options.thorough && !box.contains(result.at.x);
    summary.onLimit = OnLimit(run.objective, box, result.at);
    summary.good = minimum.good;
    summary.delivered = minimum.descent;
    if (!run.options.finalHessian) return;
    summary.finalHessian =
        run.objective.fullMatrix(HessianAt(run.objective, result.at.x, result.at.f, run.options));
}

void Minimize(SearchRun& run, const Gradient& full, const Vector& origin, Summary& summary) {
    run.objective.setActive(summary.active);
    Position start{run.objective.start(), summary.f, full};
    start.gradient.g = run.objective.activeDirection(full.g);
    if (run.options.nearness > 0 && !run.options.thorough) {
        run.objective.setNearness(
            Nearness(run.objective.activeDirection(origin), run.options.nearness, run.options.reach,
                     run.options.tuning.search.nearWidth, run.options.tuning.search.tilt));
        start = run.counted(std::move(start));
    }
    Matrix inverse = FirstInverse(run, start, summary);
    const Vector centre = run.objective.activeDirection(origin);
    Search search(run, summary, centre);
    search.find(std::move(start), std::move(inverse));
    run.objective.setNearness({});
    TakeResult(run, search.chosen(), Box(centre, run.options.reach), summary);
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
    record.isStart = true;
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
    SearchRun run(function, objective, options, summary);
    const double f = objective(start, CallKind::Evaluation);
    if (!std::isfinite(f)) {
        EndAtOnce(start, f, summary);
    } else {
        const Gradient gradient = run.gradients.computeDoubleSided(start, f, run.notes());
        summary.f = f;
        summary.active = FindActive(gradient, f);
        Minimize(run, gradient, origin.value_or(start), summary);
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
