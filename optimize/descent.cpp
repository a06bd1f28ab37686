#include "optimize/descent.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "optimize/bend_search.h"
#include "optimize/crease_search.h"
#include "optimize/start_matrix.h"
#include "optimize/update.h"
#include "optimize/valley.h"

namespace kelvro {

namespace {

// Limit to the change of a parameter in one iteration: a factor of e at first, doubled while steps
// that reach it pay off. Descents against a rival start from far and with a full Hessian; they may
// take the largest steps at once.
constexpr double kFirstStepLimit = 1;
constexpr double kLargestStepLimit = 3;
constexpr double kLimitGrowth = 2;
// Curvatures above tell of valleys too narrow for the limits on f to be trusted.
constexpr double kStiffCurvature = 300;
// The matrix has to have seen some steps before y·(iH·y) and what it promises mean anything.
constexpr int kFewestUpdates = 3;
constexpr int kMostStalls = 3;
// y·s and y·(iH·y) below this cannot be divided by.
constexpr double kSmallestDivisor = 1e-18;
// A descent loses when three times its last reductions do not take it below the rival, ...
constexpr std::size_t kLookBack = 4;
constexpr double kLookAhead = 3;
constexpr double kHessianLookAhead = 2;
// ... by something worth having, or when it has not got there in this many iterations.
constexpr double kWorthwhileWin = 1e-3;
constexpr int kLongDescent = 25;
// This near to the rival, in place and value, the minimum is the same.
constexpr double kSamePlace = 0.1;
constexpr double kSameValue = 0.05;

}  // namespace

DescentLimits::DescentLimits(double gradientLimit) {
    const double square = gradientLimit * gradientLimit;
    reduction = 10 * square;
    promise = 2 * square;
    modest = 50 * square;
    ys = 3 * square;
    vy = 10 * square;
    stall = 0.1 * square;
}

DescentStart StartFromHessian(SearchRun& run, const Vector& x, double f) {
    HessianResult result = HessianAt(run.objective, x, f, run.options);
    return {{x, f, std::move(result.gradient)}, PositiveInverse(result.hessian)};
}

Descent::Descent(SearchRun& run, Position start, Matrix inverse, const Rival* rival)
    : run_(run),
      rival_(rival),
      limits_(run.options.gradientLimit),
      stepLimit_(rival ? kLargestStepLimit : kFirstStepLimit) {
    curvature_ = start.gradient.curvature;
    result_.at = std::move(start);
    setInverse(std::move(inverse));
    if (run.options.noClampings) stepLimit_ = std::numeric_limits<double>::infinity();
}

DescentResult Descent::finish() {
    if (result_.at.gradient.length < run_.options.gradientLimit || result_.at.x.size() == 0) {
        end(DescentEnd::GradientTooSmall);
        return std::move(result_);
    }
    while (iterate()) {
    }
    return std::move(result_);
}

bool Descent::end(DescentEnd reason) {
    result_.end = reason;
    return false;
}

void Descent::setInverse(Matrix inverse) {
    const double smallest = SmallestEigenvalue(inverse);
    setInverse(std::move(inverse), smallest);
}

void Descent::setInverse(Matrix inverse, double smallestEigenvalue) {
    result_.inverse = std::move(inverse);
    steepestCurvature_ = 1 / smallestEigenvalue;
}

bool Descent::isStiff() const {
    return steepestCurvature_ > kStiffCurvature;
}

Vector Descent::direction() {
    const Vector& g = result_.at.gradient.g;
    if (run_.options.steepestDescent) return -g;
    Vector S = -(result_.inverse * g);
    if (S.dot(g) < 0 && S.allFinite()) return S;
    setInverse(InverseOfDiagonal(curvature_));
    return -(result_.inverse * g);
}

bool Descent::iterate() {
    if (!run_.iterationsLeft()) return end(DescentEnd::MaxIterations);
    const Vector S = direction();
    if (promisesLittle(S)) return end(DescentEnd::StepTooSmall);
    if (!run_.options.steepestDescent) {
        LineOutcome outcome = SearchLine(run_, result_.at, S, stepLimit_, closeToEnd());
        adaptStepLimit(outcome);
        // The first descent of a run tends to be short: only stiff valleys repay a look at bends.
        if (steepestCurvature_ > (rival_ ? kWallCurvature : kStiffCurvature)) {
            outcome =
                FollowBend(run_, result_.inverse, result_.at, std::move(outcome), closeToEnd());
        }
        return take(std::move(outcome));
    }
    // Steepest descent has no scale of its own: the curvature at first, then the last step.
    const double first = lastT_ > 0 ? lastT_ : 1 / std::max(LargestEntry(curvature_), 1e-6);
    LineOutcome outcome = SearchLine(run_, result_.at, S, first, stepLimit_, closeToEnd());
    lastT_ = outcome.step.t;
    return take(std::move(outcome));
}

void Descent::adaptStepLimit(const LineOutcome& outcome) {
    if (run_.options.noClampings) return;
    limitRaised_ = outcome.atStepLimit && stepLimit_ < kLargestStepLimit;
    if (outcome.atStepLimit) {
        stepLimit_ = std::min(stepLimit_ * kLimitGrowth, kLargestStepLimit);
    } else if (outcome.shortened && outcome.moved &&
               LargestEntry(outcome.end.x - result_.at.x) < 0.3 * stepLimit_) {
        stepLimit_ = std::max(stepLimit_ / kLimitGrowth, kFirstStepLimit);
    }
}

bool Descent::take(LineOutcome outcome) {
    if (!outcome.moved) return followCrease() || end(DescentEnd::StepTooSmall);
    const Vector s = outcome.end.x - result_.at.x;
    const Vector y = outcome.end.gradient.g - result_.at.gradient.g;
    const double reduction = result_.at.f - outcome.end.f;
    lastReduction_ = reduction;
    const Position before = std::exchange(result_.at, std::move(outcome.end));
    if (result_.at.gradient.doubleSided) curvature_ = result_.at.gradient.curvature;
    const bool confirmed = confirmGradient();
    bool tooSmall = false;
    if (!confirmed && !run_.options.steepestDescent) {
        tooSmall = changeTooSmall(s, y, reduction);
        if (!tooSmall && std::fabs(y.dot(s)) >= kSmallestDivisor) update(s, y);
    }
    ++result_.iterations;
    run_.record(before, result_.at, outcome.step);
    if (!run_.iterationsLeft()) return end(DescentEnd::MaxIterations);
    if (confirmed) return end(DescentEnd::GradientTooSmall);
    if (tooSmall) return false;
    if (meetsRival()) return false;
    return !stalled(reduction) || followCrease() || end(DescentEnd::StepTooSmall);
}

/// Is |g| below its limit? In narrow valleys the single-sided formula alone cannot tell.
bool Descent::confirmGradient() {
    Position& at = result_.at;
    if (!(at.gradient.length < run_.options.gradientLimit)) return false;
    if (at.gradient.doubleSided || run_.options.gradient == GradientChoice::SingleSided ||
        !isStiff()) {
        return true;
    }
    at.gradient = run_.gradients.computeDoubleSided(at.x, at.f, run_.notes());
    curvature_ = at.gradient.curvature;
    return at.gradient.length < run_.options.gradientLimit;
}

/// Is the step S not worth its calls? The matrix expects half the slope from it.
bool Descent::promisesLittle(const Vector& S) const {
    if (run_.options.steepestDescent || result_.iterations < kFewestUpdates) return false;
    const double scale = SearchRun::scale(result_.at.f);
    return lastReduction_ < limits_.modest * scale &&
           -0.5 * S.dot(result_.at.gradient.g) < limits_.promise * scale && !isStiff();
}

bool Descent::changeTooSmall(const Vector& s, const Vector& y, double reduction) {
    const double ys = y.dot(s);
    const double vy = y.dot(result_.inverse * y);
    if (std::fabs(ys) < kSmallestDivisor) {
        // A straight slope as far as the limit let it see: a longer step may see its end.
        if (limitRaised_) return false;
        end(DescentEnd::YsTooSmall);
        return true;
    }
    if (std::fabs(vy) < kSmallestDivisor) {
        end(DescentEnd::VyTooSmall);
        return true;
    }
    const double scale = SearchRun::scale(result_.at.f);
    if (!(reduction < limits_.reduction * scale)) return false;
    const bool flat = result_.at.gradient.length < DoubleSidedLimit(run_.options);
    const bool ysSmall = flat && ys > 0 && ys < limits_.ys * scale;
    const bool vySmall =
        result_.iterations + 1 >= kFewestUpdates && vy > 0 && vy < limits_.vy * scale;
    if (!(ysSmall || vySmall) || isStiff()) return false;
    end(ysSmall ? DescentEnd::YsTooSmall : DescentEnd::VyTooSmall);
    return true;
}

void Descent::update(const Vector& s, const Vector& y) {
    Matrix updated = UpdatedInverse(result_.inverse, s, y, run_.options.dfp);
    const double smallest = SmallestEigenvalue(updated);
    if (smallest > 0) {
        if (y.dot(s) < 0) {
            run_.notes().push_back({.kind = NoteKind::MatrixStillPositive, .value = {smallest, 0}});
        }
        setInverse(std::move(updated), smallest);
        return;
    }
    run_.notes().push_back({.kind = NoteKind::MatrixReset, .value = {smallest, 0}});
    setInverse(InverseOfDiagonal(curvature_));
}

bool Descent::stalled(double reduction) {
    if (reduction > limits_.stall * SearchRun::scale(result_.at.f)) {
        stalls_ = 0;
        return false;
    }
    return ++stalls_ >= kMostStalls;
}

bool Descent::meetsRival() {
    if (!rival_) return false;
    const Position& at = result_.at;
    const double win = rival_->f - kWorthwhileWin * SearchRun::scale(rival_->f);
    if (at.f > win && at.f < rival_->f + kSameValue &&
        LargestEntry(at.x - rival_->x) < kSamePlace) {
        end(DescentEnd::Known);
        return true;
    }
    history_.push_back(at.f);
    if (history_.size() <= kLookBack) return false;
    const double recent = history_[history_.size() - 1 - kLookBack] - at.f;
    const double expected = 0.5 * at.gradient.g.dot(result_.inverse * at.gradient.g);
    const bool slow = at.f - kLookAhead * recent > win;
    const bool low = at.f - kLookAhead * expected - kHessianLookAhead * recent > win;
    const bool late = result_.iterations >= kLongDescent && at.f > win;
    if (slow || low || late) end(DescentEnd::Beaten);
    return slow || low || late;
}

/// At a stall: along a crease where there is one, then on with a fresh matrix.
bool Descent::followCrease() {
    if (run_.options.steepestDescent || result_.at.x.size() < 2 || !run_.iterationsLeft()) {
        return false;
    }
    CreaseOutcome outcome = FollowCrease(run_, result_.at.x, result_.at.f);
    result_.iterations += outcome.steps;
    if (outcome.steps == 0) return false;
    result_.creased = true;
    result_.at.x = outcome.x;
    result_.at.f = outcome.f;
    result_.at.gradient = run_.gradients.computeDoubleSided(outcome.x, outcome.f, run_.notes());
    curvature_ = result_.at.gradient.curvature;
    setInverse(InverseOfDiagonal(curvature_));
    stalls_ = 0;
    if (outcome.pending) run_.record(outcome.pending->before, result_.at, outcome.pending->step);
    return outcome.progressed;
}

}  // namespace kelvro
