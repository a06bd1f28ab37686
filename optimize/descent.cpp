#include "optimize/descent.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "optimize/start_matrix.h"
#include "optimize/update.h"

namespace kelvro {

Descent::Descent(SearchRun& run, const Box& box, Position start, Matrix inverse, double rival)
    : run_(run),
      box_(box),
      tuning_(run.options.tuning.descent),
      rival_(rival),
      stepLimit_(run.options.noClampings ? std::numeric_limits<double>::infinity()
                                         : tuning_.firstStepLimit) {
    result_.at = std::move(start);
    setInverse(std::move(inverse));
}

DescentResult Descent::finish() {
    if (result_.at.gradient.length < gradientLimit()) {
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

bool Descent::isNarrow() const {
    return steepestCurvature_ > tuning_.narrowCurvature;
}

double Descent::gradientLimit() const {
    return run_.options.gradientLimit * (hasToBeOnePlace_ ? tuning_.nearLimitPart : 1);
}

double Descent::limit(double squares) const {
    return squares * gradientLimit() * gradientLimit() * SearchRun::scale(result_.at.f);
}

Vector Descent::direction() {
    const Position& at = result_.at;
    if (run_.options.steepestDescent) return -box_.freeGradient(at.x, at.gradient.g);
    Vector S = box_.direction(result_.inverse, at.x, at.gradient.g);
    if (S.dot(at.gradient.g) < 0 && S.allFinite()) return S;
    setInverse(run_.diagonalInverseAt(at.x, at.f));
    return box_.direction(result_.inverse, at.x, at.gradient.g);
}

LineOutcome Descent::search(const Vector& S) {
    const double longest = std::min(stepLimit_, box_.room(result_.at.x, S) * LargestEntry(S));
    if (!run_.options.steepestDescent) {
        LineOutcome outcome = SearchLine(run_, result_.at, S, longest, closeToEnd());
        adaptStepLimit(outcome);
        return outcome;
    }
    // Steepest descent has no scale of its own: the curvature at first, then the last step.
    const double first = lastT_ > 0 ? lastT_ : 1 / steepestCurvature_;
    LineOutcome outcome = SearchLine(run_, result_.at, S, first, longest, closeToEnd());
    lastT_ = outcome.step.t;
    return outcome;
}

bool Descent::iterate() {
    if (!run_.iterationsLeft()) return end(DescentEnd::MaxIterations);
    const Vector S = direction();
    const bool leadsDown = S.dot(result_.at.gradient.g) < 0;
    if (!leadsDown || promisesLittle(S)) return end(DescentEnd::StepTooSmall);
    return take(search(S));
}

void Descent::adaptStepLimit(const LineOutcome& outcome) {
    if (run_.options.noClampings) return;
    limitRaised_ = outcome.atStepLimit && stepLimit_ < tuning_.largestStepLimit;
    if (outcome.atStepLimit) {
        stepLimit_ = std::min(stepLimit_ * tuning_.stepLimitGrowth, tuning_.largestStepLimit);
    } else if (outcome.shortened && outcome.moved &&
               LargestEntry(outcome.end.x - result_.at.x) < 0.3 * stepLimit_) {
        stepLimit_ = std::max(stepLimit_ / tuning_.stepLimitGrowth, tuning_.firstStepLimit);
    }
}

bool Descent::take(LineOutcome outcome) {
    if (!outcome.moved) return end(DescentEnd::StepTooSmall);
    const Vector s = outcome.end.x - result_.at.x;
    const Vector y = outcome.end.gradient.g - result_.at.gradient.g;
    const double reduction = result_.at.f - outcome.end.f;
    lastReduction_ = reduction;
    const Position before = std::exchange(result_.at, std::move(outcome.end));
    ++iterations_;
    hasToBeOnePlace_ = run_.objective.nearness() && run_.isGood(result_.at.x);
    const bool confirmed = confirmGradient();
    bool tooSmall = false;
    if (!confirmed && !run_.options.steepestDescent) {
        tooSmall = changeTooSmall(s, y, reduction);
        if (!tooSmall) learn(s, y);
    }
    run_.record(before, result_.at, outcome.step);
    if (confirmed) return end(DescentEnd::GradientTooSmall);
    if (tooSmall) return false;
    const bool unnoticed = !run_.options.thorough && reduction < limit(tuning_.littleReduction) &&
                           LargestEntry(s) < tuning_.unnoticedStep;
    if (stalled(reduction) || (unnoticed && run_.isGood(result_.at.x))) {
        return end(DescentEnd::StepTooSmall);
    }
    if (run_.objective.nearness() && isNarrow() && iterations_ >= tuning_.fewestUpdates) {
        return end(DescentEnd::Narrow);
    }
    return !isBeaten() || end(DescentEnd::Beaten);
}

/// Is |g| below its limit? In narrow valleys the single-sided formula alone cannot tell.
bool Descent::confirmGradient() {
    Position& at = result_.at;
    if (!(at.gradient.length < gradientLimit())) return false;
    if (at.gradient.doubleSided || run_.options.gradient == GradientChoice::SingleSided ||
        !isNarrow()) {
        return true;
    }
    at.gradient = run_.gradients.computeDoubleSided(at.x, at.f, run_.notes());
    return at.gradient.length < gradientLimit();
}

/// Is the step S not worth its calls? The matrix expects half the slope from it.
bool Descent::promisesLittle(const Vector& S) const {
    if (run_.options.steepestDescent || iterations_ < tuning_.fewestUpdates) return false;
    return lastReduction_ < limit(tuning_.modestReduction) &&
           -0.5 * S.dot(result_.at.gradient.g) < limit(tuning_.littlePromise) && !isNarrow();
}

bool Descent::changeTooSmall(const Vector& s, const Vector& y, double reduction) {
    const double ys = y.dot(s);
    const double vy = y.dot(result_.inverse * y);
    if (std::fabs(ys) < tuning_.smallestDivisor) {
        // A straight slope as far as the limit let it see: a longer step may see its end.
        if (limitRaised_) return false;
        end(DescentEnd::YsTooSmall);
        return true;
    }
    if (std::fabs(vy) < tuning_.smallestDivisor) {
        end(DescentEnd::VyTooSmall);
        return true;
    }
    if (!(reduction < limit(tuning_.littleReduction)) || isNarrow()) return false;
    const bool flat = result_.at.gradient.length < DoubleSidedLimit(run_.options);
    const bool ysSmall = flat && ys > 0 && ys < limit(tuning_.smallYs);
    const bool vySmall =
        iterations_ >= tuning_.fewestUpdates && vy > 0 && vy < limit(tuning_.smallVy);
    if (!ysSmall && !vySmall) return false;
    end(ysSmall ? DescentEnd::YsTooSmall : DescentEnd::VyTooSmall);
    return true;
}

void Descent::learn(const Vector& s, const Vector& y) {
    if (isNarrow()) {
        const Matrix hessian = HessianAt(run_.objective, result_.at.x, result_.at.f, run_.options);
        if (hessian.allFinite()) {
            run_.notes().push_back({.kind = NoteKind::MatrixFromHessian});
            return setInverse(PositiveInverse(hessian, run_.options.tuning.matrix));
        }
    }
    if (std::fabs(y.dot(s)) < tuning_.smallestDivisor) return;
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
    setInverse(run_.diagonalInverseAt(result_.at.x, result_.at.f));
}

bool Descent::stalled(double reduction) {
    if (reduction > limit(tuning_.stall)) {
        stalls_ = 0;
        return false;
    }
    return ++stalls_ >= tuning_.mostStalls;
}

bool Descent::isBeaten() {
    history_.push_back(result_.at.f);
    return IsBeaten(history_, rival_, tuning_);
}

bool IsBeaten(const std::vector<double>& values, double rival, const DescentTuning& tuning) {
    const auto lookBack = static_cast<std::size_t>(tuning.lookBack);
    if (values.size() <= lookBack) return false;
    const double recent = values[values.size() - 1 - lookBack] - values.back();
    return values.back() - tuning.lookAhead * recent > rival;
}

}  // namespace kelvro
