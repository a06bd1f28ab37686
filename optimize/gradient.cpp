#include "optimize/gradient.h"

#include <algorithm>
#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

/// Slope between two points, one of which may not exist.
double Slope(double minus, double f, double plus, double h) {
    if (std::isfinite(plus) && std::isfinite(minus)) return (plus - minus) / (2 * h);
    if (std::isfinite(plus)) return (plus - f) / h;
    return std::isfinite(minus) ? (f - minus) / h : 0;
}

double SecondDerivative(double minus, double f, double plus, double h) {
    const bool exists = std::isfinite(plus) && std::isfinite(minus);
    return exists ? (plus - 2 * f + minus) / (h * h) : 0;
}

/// The parameter whose step changed f least, where that change drowns in rounding; -1 for none.
Eigen::Index DrowningParameter(const Gradient& gradient, double f, const LocalOptions& options) {
    Eigen::Index least = 0;
    const double change = gradient.g.cwiseAbs().minCoeff(&least) * options.differenceStep;
    const double drowned = options.tuning.remark.smallestRelativeChange * std::fabs(f);
    return change > 0 && change < drowned ? least : -1;
}

}  // namespace

Gradient DoubleSidedGradient(Evaluator& objective, const Vector& x, double f, double h,
                             CallKind kind) {
    const Eigen::Index n = x.size();
    Gradient result{Vector(n), 0, true, Vector(n), Vector(n), Vector(n)};
    Vector point = x;
    for (Eigen::Index i = 0; i < n; ++i) {
        point[i] = x[i] + h;
        result.plus[i] = objective(point, kind);
        point[i] = x[i] - h;
        result.minus[i] = objective(point, kind);
        point[i] = x[i];
        result.g[i] = Slope(result.minus[i], f, result.plus[i], h);
        result.curvature[i] = SecondDerivative(result.minus[i], f, result.plus[i], h);
    }
    result.length = result.g.norm();
    return result;
}

Gradient SingleSidedGradient(Evaluator& objective, const Vector& x, double f, double h) {
    Gradient result;
    result.g.resize(x.size());
    Vector point = x;
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        point[i] = x[i] + h;
        const double plus = objective(point, CallKind::Gradient);
        if (std::isfinite(plus)) {
            result.g[i] = (plus - f) / h;
        } else {
            point[i] = x[i] - h;
            result.g[i] = Slope(objective(point, CallKind::Gradient), f, plus, h);
        }
        point[i] = x[i];
    }
    result.length = result.g.norm();
    return result;
}

double DoubleSidedLimit(const LocalOptions& options) {
    return std::max(12 * options.gradientLimit, 1.2e-5);
}

unsigned DoubleSidedReasons(const GradientSituation& situation, const LocalOptions& options) {
    const double h = options.differenceStep;
    unsigned reasons = 0;
    if (situation.closeToEnd) reasons |= kCloseToEnd;
    if (situation.gradientLength < DoubleSidedLimit(options)) reasons |= kGradientSmall;
    if (situation.largestStep < 2 * h) reasons |= kStepsSmall;
    if (situation.gradientLength < 500 * h) reasons |= kGradientBelowDifference;
    return reasons;
}

bool GradientSource::choose(const GradientSituation& situation, std::vector<Note>& notes) {
    if (options_.gradient == GradientChoice::DoubleSided) return true;
    if (options_.gradient == GradientChoice::SingleSided) return false;
    const unsigned reasons = DoubleSidedReasons(situation, options_);
    if (reasons != 0) {
        // The message names a hundred steps although the test is against five hundred.
        notes.push_back({.kind = NoteKind::SwitchedToDoubleSided,
                         .flags = reasons,
                         .value = {DoubleSidedLimit(options_), 100 * options_.differenceStep}});
    } else if (wasDoubleSided_) {
        notes.push_back({.kind = NoteKind::SwitchedToSingleSided});
    }
    return reasons != 0;
}

Gradient GradientSource::compute(const Vector& x, double f, const GradientSituation& situation,
                                 std::vector<Note>& notes) {
    if (choose(situation, notes)) return computeDoubleSided(x, f, notes);
    wasDoubleSided_ = false;
    ++singleSided_;
    Gradient gradient = SingleSidedGradient(objective_, x, f, options_.differenceStep);
    const Eigen::Index drowning = DrowningParameter(gradient, f, options_);
    if (options_.gradientChecks && drowning >= 0) {
        notes.push_back(
            {.kind = NoteKind::SingleSidedInaccurate, .index = static_cast<int>(drowning) + 1});
    } else {
        notes.push_back({.kind = NoteKind::SingleSidedUsed});
    }
    return gradient;
}

Gradient GradientSource::computeDoubleSided(const Vector& x, double f, std::vector<Note>& notes) {
    wasDoubleSided_ = true;
    ++doubleSided_;
    Gradient gradient = DoubleSidedGradient(objective_, x, f, options_.differenceStep);
    if (options_.gradientChecks) {
        checkDoubleSided(gradient, f, notes);
    } else {
        notes.push_back({.kind = NoteKind::DoubleSidedUsed});
    }
    return gradient;
}

void GradientSource::checkDoubleSided(const Gradient& gradient, double f,
                                      std::vector<Note>& notes) const {
    const RemarkTuning& remark = options_.tuning.remark;
    const double h = options_.differenceStep;
    const Vector upper = (f - gradient.plus.array()) / h;
    const Vector lower = (gradient.minus.array() - f) / h;
    Eigen::Index worst = 0;
    const Vector difference = (upper.array().atan() - lower.array().atan()).abs();
    const double angle =
        difference.size() == 0 ? 0 : difference.maxCoeff(&worst) * kDegreesPerRadian;
    if (angle >= remark.kinkedAngle) {
        notes.push_back({.kind = NoteKind::DoubleSidedInaccurate,
                         .index = static_cast<int>(worst) + 1,
                         .value = {angle, 0}});
    } else {
        notes.push_back({.kind = NoteKind::DoubleSidedUsed});
    }
    const double deviation = std::fabs(gradient.length - upper.norm()) / gradient.length;
    if (deviation > remark.singleSidedOff) {
        notes.push_back({.kind = NoteKind::SingleSidedOffBy3Percent});
    } else if (deviation > remark.singleSidedSlightlyOff) {
        notes.push_back({.kind = NoteKind::SingleSidedOffBy1Percent});
    }
}

}  // namespace kelvro
