#include "optimize/search.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "optimize/further_starts.h"
#include "optimize/refinement.h"
#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

Search::Search(SearchRun& run, Summary& summary, const Vector& origin)
    : run_(run),
      tuning_(run.options.tuning.search),
      summary_(summary),
      box_(origin, run.options.thorough ? kInfinity : run.options.reach) {}

void Search::find(Position start, Matrix inverse) {
    start_ = start.x;
    startValue_ = run_.plain(start).f;
    // A second run may begin where the first one has left the box.
    const Box everywhere(box_.centre(), kInfinity);
    const Box& first = box_.contains(start_) ? box_ : everywhere;
    const bool good = descend(first, std::move(start), std::move(inverse), kInfinity);
    const LocalOptions& options = run_.options;
    if (!options.furtherStarts || options.steepestDescent || start_.size() == 0) return;
    if (options.thorough) {
        descendFromFurther(box_, 1);
    } else if (!good && !descendFromFurther(box_, tuning_.insidePart)) {
        searchAround(tuning_.wider, tuning_.widerPart);
        searchAround(tuning_.widest, tuning_.widestPart);
    }
    dropUnfinished();
}

/// Beyond the reach, in a box wider by a factor in the logarithms: from the start, on from the best
/// minimum, and from further starts.
void Search::searchAround(double factor, double partOfIterations) {
    if (!mayGoLower()) return;
    const Box box(box_.centre(), factor * box_.reach());
    const Vector best = chosen().result.at.x;
    if (descendFrom(box, box.nearest(start_))) return;
    if (mayGoLower() && descendFrom(box, box.nearest(best))) return;
    if (mayGoLower()) descendFromFurther(box, partOfIterations);
}

bool Search::startsLeft() const {
    return summary_.descents < tuning_.mostStarts;
}

/// Is the lowest minimum so high that a run looks beyond the box for a better one?
bool Search::mayGoLower() const {
    return run_.iterationsLeft() && lowest(false) > run_.lowerBound() + tuning_.lookBeyond;
}

/// True where the minimum is a good one.
bool Search::descend(const Box& box, Position start, Matrix inverse, double rival) {
    const int descent = summary_.descents;
    const int before = summary_.iterations;
    run_.recordStart(start);
    DescentResult result = Descent(run_, box, std::move(start), std::move(inverse), rival).finish();
    if (result.end == DescentEnd::Beaten) return false;
    const bool arrived =
        result.end == DescentEnd::GradientTooSmall && summary_.iterations == before;
    if (run_.objective.nearness() && !arrived)
        result = Refinement(run_, box, std::move(result), rival).finish();
    if (result.end == DescentEnd::Beaten) return false;
    result.at = run_.plain(std::move(result.at));
    const bool isFlat = result.at.gradient.length < run_.options.gradientLimit;
    if (result.end == DescentEnd::GradientTooSmall && !isFlat)
        result.end = DescentEnd::NotWorthTheWay;
    const bool good = run_.isGood(result.at.x);
    const double distance = box_.distance(result.at.x);
    minima_.push_back({std::move(result), descent, distance, good});
    return good;
}

bool Search::descendFrom(const Box& box, const Vector& x) {
    const double f = run_.objective(x, CallKind::Evaluation);
    if (!std::isfinite(f)) return false;
    Position start{x, f, run_.gradients.computeDoubleSided(x, f, run_.notes())};
    const Matrix hessian = HessianAt(run_.objective, x, f, run_.options);
    if (!hessian.allFinite()) return false;
    return descend(box, std::move(start), PositiveInverse(hessian, run_.options.tuning.matrix),
                   lowest(false) + run_.options.asGood);
}

bool Search::descendFromFurther(const Box& box, double partOfIterations) {
    const bool thorough = run_.options.thorough;
    const int last = static_cast<int>(std::lround(partOfIterations * run_.options.maxIterations));
    const int mostVain = thorough ? tuning_.mostVainThorough : tuning_.mostVain;
    FurtherStarts starts(run_, box);
    for (int vain = 0; vain < mostVain && summary_.iterations < last && startsLeft(); ++vain) {
        const double before = lowest(false);
        if (descendFrom(box, starts.next()) && !thorough) return true;
        if (lowest(false) < before - run_.options.asGood) vain = -1;
    }
    return false;
}

double Search::lowest(bool withinOnly) const {
    double f = kInfinity;
    for (const Minimum& minimum : minima_) {
        if (!withinOnly || within(minimum)) f = std::min(f, minimum.f());
    }
    return f;
}

/// A descent that the limit on iterations has cut short is somewhere on its way: it is no minimum
/// where there is one that comes near to it.
void Search::dropUnfinished() {
    double arrived = kInfinity;
    for (const Minimum& minimum : minima_) {
        if (minimum.result.end != DescentEnd::MaxIterations)
            arrived = std::min(arrived, minimum.f());
    }
    std::erase_if(minima_, [&](const Minimum& minimum) {
        return minimum.result.end == DescentEnd::MaxIterations &&
               arrived <= std::min(minimum.f() + run_.options.farGain, startValue_);
    });
}

const Minimum& Search::chosen() const {
    const LocalOptions& options = run_.options;
    const bool withinOnly = lowest(true) <= lowest(false) + options.farGain;
    const double asGood = options.thorough ? 0 : options.asGood;
    const double limit = std::min(lowest(withinOnly) + asGood, startValue_);
    const Minimum* best = nullptr;
    for (const Minimum& minimum : minima_) {
        if (minimum.f() > limit || (withinOnly && !within(minimum))) continue;
        const bool isBetter =
            !best || (minimum.good == best->good ? minimum.distance < best->distance
                                                 : minimum.good && !options.thorough);
        if (isBetter) best = &minimum;
    }
    return best ? *best : minima_.front();
}

}  // namespace kelvro
