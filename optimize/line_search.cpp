#include "optimize/line_search.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvro {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class LineSearch {
  public:
    LineSearch(SearchRun& run, const Position& from, const Vector& S, double largestStep,
               bool closeToEnd)
        : run_(run),
          from_(from),
          S_(S),
          slope_(S.dot(from.gradient.g)),
          reach_(LargestEntry(S)),
          limit_(largestStep / reach_),
          tuning_(run.options.tuning.line),
          closeToEnd_(closeToEnd) {}

    LineOutcome search(double firstStep);

  private:
    double valueAt(double t);
    double limited(double t);
    bool decreases(double t, double f) const;
    void noteStart(double t, double f);
    void noteTrouble();
    void refine(double& t, double& f);
    void expand(double& t, double& f, double target);
    void accept(double t, double f);
    bool isLevel(double t) const;
    double next() const;
    bool exhausted() const;

    SearchRun& run_;
    const Position& from_;
    const Vector& S_;
    const double slope_;
    const double reach_;
    const double limit_;  ///< largest t
    const LineSearchTuning& tuning_;
    const bool closeToEnd_;

    LineOutcome outcome_;
    double low_ = 0;   ///< the slope still leads down here
    double high_ = 0;  ///< too far; 0: none known
    double fHigh_ = 0;
    double lastValue_ = 0;
    int direction_ = 0;
    int turns_ = 0;
    double largestRatio_ = 0;
    double smallestRatio_ = 0;
    int gradients_ = 0;
};

double LineSearch::valueAt(double t) {
    const double f = run_.objective(from_.x + t * S_, CallKind::LineSearch);
    ++outcome_.step.lineSteps;
    if (std::isfinite(f)) {
        const int direction = f > lastValue_ ? 1 : -1;
        if (direction_ != 0 && direction != direction_) ++turns_;
        direction_ = direction;
        lastValue_ = f;
        const double ratio = (f - from_.f) / (t * slope_);
        largestRatio_ = std::max(largestRatio_, ratio);
        smallestRatio_ = std::min(smallestRatio_, ratio);
    }
    return f;
}

/// The step held to the limit of parameter changes; counts where it is.
double LineSearch::limited(double t) {
    if (t <= limit_) return t;
    ++outcome_.step.clampings;
    return limit_;
}

bool LineSearch::decreases(double t, double f) const {
    return std::isfinite(f) && f <= from_.f + tuning_.sufficientDecrease * slope_ * t;
}

void LineSearch::noteStart(double t, double f) {
    if (!std::isfinite(f)) return;
    const double ratio = ParabolaMinimum(from_.f, slope_, t, f) / t;
    if (ratio > tuning_.badStartStep || ratio < 1 / tuning_.badStartStep) {
        run_.notes().push_back({.kind = NoteKind::StartStepBad});
    } else if (ratio < tuning_.goodStartStep && ratio > 1 / tuning_.goodStartStep) {
        run_.notes().push_back({.kind = NoteKind::StartStepGood});
    }
}

void LineSearch::noteTrouble() {
    if (outcome_.moved && outcome_.step.lineSteps < tuning_.troubledSteps) return;
    unsigned reasons = 0;
    if (turns_ >= tuning_.manyTurns) reasons |= kOscillation;
    if (largestRatio_ > tuning_.largeChange) reasons |= kLargeDecrease;
    if (-smallestRatio_ > tuning_.largeChange) reasons |= kLargeIncrease;
    if (reasons == 0) return;
    run_.notes().push_back({.kind = NoteKind::LineSearchTrouble, .flags = reasons});
    if (!from_.gradient.doubleSided) {
        run_.notes().push_back({.kind = NoteKind::LineSearchSingleSided});
    }
}

/// A first good point: where the parabola sees the minimum elsewhere, it is sought there. How far
/// off it may be follows from the line accuracy, three quarters of the step at the default: a trial
/// step costs one call, another iteration a whole gradient.
void LineSearch::refine(double& t, double& f) {
    const double accuracy = run_.options.lineAccuracy * (2 - run_.options.lineAccuracy);
    const double minimum = ParabolaMinimum(from_.f, slope_, t, f);
    if (minimum * accuracy > t) {
        if (t < limit_) expand(t, f, minimum);
        return;
    }
    if (minimum >= accuracy * t) return;
    const double between = valueAt(minimum);
    if (between < f) {
        t = minimum;
        f = between;
    }
}

void LineSearch::expand(double& t, double& f, double target) {
    double trial = limited(std::min(target, tuning_.firstExpansion * t));
    for (int i = 0; i < tuning_.mostExpansions; ++i) {
        const double value = valueAt(trial);
        if (!(value < f)) {
            high_ = trial;
            fHigh_ = value;
            return;
        }
        low_ = t;
        t = trial;
        f = value;
        if (trial >= limit_) return;
        trial = limited(tuning_.furtherExpansion * trial);
    }
}

void LineSearch::accept(double t, double f) {
    outcome_.moved = true;
    outcome_.step.t = t;
    outcome_.end.x = from_.x + t * S_;
    outcome_.end.f = f;
    const GradientSituation situation{from_.gradient.length, t * reach_, closeToEnd_};
    outcome_.end.gradient = run_.gradients.compute(outcome_.end.x, f, situation, run_.notes());
    ++gradients_;
}

bool LineSearch::isLevel(double t) const {
    if (gradients_ >= tuning_.mostGradients || (high_ == 0 && t >= limit_)) return true;
    return outcome_.end.gradient.g.dot(S_) >= tuning_.sufficientLevelling * slope_;
}

double LineSearch::next() const {
    if (high_ == 0) return std::min(2 * low_, limit_);
    if (low_ > 0 || !std::isfinite(fHigh_))
        return low_ + tuning_.weakestContraction * (high_ - low_);
    const double minimum = ParabolaMinimum(from_.f, slope_, high_, fHigh_);
    return std::clamp(minimum, tuning_.strongestContraction * high_,
                      tuning_.weakestContraction * high_);
}

bool LineSearch::exhausted() const {
    return outcome_.step.lineSteps >= kLineSearchLimit ||
           (high_ > 0 && (high_ - low_) * reach_ < tuning_.smallestBracket);
}

LineOutcome LineSearch::search(double firstStep) {
    outcome_.step.direction = S_;
    lastValue_ = from_.f;
    double t = limited(firstStep);
    if (t < firstStep) {
        run_.notes().push_back({.kind = NoteKind::StepReduced, .value = {t, 0}});
    }
    while (true) {
        double f = valueAt(t);
        if (outcome_.step.lineSteps == 1) noteStart(t, f);
        if (decreases(t, f)) {
            if (high_ == 0 && low_ == 0) refine(t, f);
            accept(t, f);
            if (isLevel(t)) break;
            low_ = t;
        } else {
            high_ = t;
            fHigh_ = f;
        }
        if (exhausted()) break;
        t = next();
    }
    outcome_.shortened = high_ > 0;
    outcome_.atStepLimit = outcome_.moved && outcome_.step.t >= 0.95 * limit_;
    noteTrouble();
    return std::move(outcome_);
}

}  // namespace

double ParabolaMinimum(double f0, double slope, double t, double ft) {
    const double curvature = (ft - f0 - slope * t) / (t * t);
    return curvature > 0 ? -slope / (2 * curvature) : kInfinity;
}

LineOutcome SearchLine(SearchRun& run, const Position& from, const Vector& S, double largestStep,
                       bool closeToEnd) {
    // Half the way is on the expected minimum; a tenth at least keeps the search moving.
    const double firstStep = 0.1 + 1.8 * run.options.lineCentre;
    return SearchLine(run, from, S, firstStep, largestStep, closeToEnd);
}

LineOutcome SearchLine(SearchRun& run, const Position& from, const Vector& S, double firstStep,
                       double largestStep, bool closeToEnd) {
    return LineSearch(run, from, S, largestStep, closeToEnd).search(firstStep);
}

}  // namespace kelvro
