#include "optimize/restarts.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <vector>

#include "core/random.h"
#include "optimize/line_scan.h"
#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

// What makes a function look treacherous: a valley after more than a few iterations, ...
constexpr double kValleyCurvature = 20;
constexpr int kQuickDescent = 8;
// ... or, as it may be a plateau, some iterations that have not brought f below a fifth, ...
constexpr int kSomeIterations = 4;
constexpr double kPoorReduction = 0.2;
// ... or any that end as far as this many times the good value.
constexpr double kBadValue = 10;
// Values this far below the good one leave nothing to look for.
constexpr double kExcellentValue = 0.2;
// Valleys as narrow as this make descents long.
constexpr double kNarrowCurvature = 100;

// Negative curvature worth a look, the first step along it and its worth.
constexpr double kNegativeCurvature = -0.01;
constexpr double kFirstDownStep = 0.025;
constexpr double kDownGain = 1e-5;

// Probes over a ridge start where the valley's parabola has risen by this and widen by this factor.
constexpr double kFirstRise = 0.1;
constexpr double kProbeFactor = 1.7;
constexpr double kFarthestProbe = 1;
// A wall that is still this near to its parabola, this high, has no ridge.
constexpr double kOnParabola = 0.8;
constexpr double kHighWall = 3;
constexpr int kFewestProbes = 3;

// Dips on lines: those worth a descent, where descents are quick and where they are not.
constexpr std::size_t kMostDips = 5;
constexpr std::size_t kMostDipsOfValleys = 3;

// Points at random: their spread, and the number of which the best is taken.
constexpr double kSpread = 1.5;
constexpr int kSamples = 20;
// The same for points that are moved down along the axes before, in sweeps of these scans.
constexpr double kWideSpread = 2;
constexpr int kRelaxedSamples = 3;
constexpr int kSweeps = 2;
constexpr double kScanReach = 3;
constexpr double kScanStep = 1;
// Descents that end at the known minimum again before the search is over.
constexpr int kConfirmations = 4;
constexpr double kSameValue = 1e-3;
constexpr double kSmallestGain = 1e-3;
constexpr std::uint64_t kSeed = 11;

/// Where candidates for restarts come from, one after the other; points at random follow.
enum class Source : std::uint8_t { LinesThroughBest, LinesThroughOrigin };

class RestartSearch {
  public:
    RestartSearch(SearchRun& run, DescentResult best, const Vector& origin, bool narrow);

    DescentResult seek(bool deep);

  private:
    bool aroundBest();
    bool downNegativeCurvature(const Vector& direction, const Valley& valley);
    bool acrossRidges(const Vector& direction, double curvature);
    std::optional<Vector> probe(const Vector& direction, double curvature) const;
    bool restart();
    Vector candidate();
    std::vector<ValuedPoint> dips(Source source);
    Vector sample();
    ValuedPoint relaxed(ValuedPoint point) const;
    Vector scattered(double spread);
    double gaussian();
    DescentEnd descend(const Vector& x);
    double value(const Vector& x) const { return run_.objective(x, CallKind::LineSearch); }

    SearchRun& run_;
    DescentResult best_;
    const Vector& origin_;
    /// Among narrow valleys descents are long: calls that spare one are worth it.
    const bool narrow_;
    UniformStream random_;
    std::vector<Source> sources_;          ///< the next one last
    std::vector<ValuedPoint> candidates_;  ///< the next one last
    int confirmations_ = 0;
    bool improved_ = false;
};

RestartSearch::RestartSearch(SearchRun& run, DescentResult best, const Vector& origin, bool narrow)
    : run_(run), best_(std::move(best)), origin_(origin), narrow_(narrow), random_(kSeed) {
    // A thorough search tends to begin at a minimum around which another one has ended.
    sources_ = run.options.thorough
                   ? std::vector{Source::LinesThroughBest, Source::LinesThroughOrigin}
                   : std::vector{Source::LinesThroughOrigin, Source::LinesThroughBest};
}

double RestartSearch::gaussian() {
    const double radius = std::sqrt(-2 * std::log(1 - random_.next()));
    return radius * std::cos(2 * std::numbers::pi * random_.next());
}

/// A descent from x against the best minimum; sets improved_ when it wins.
DescentEnd RestartSearch::descend(const Vector& x) {
    improved_ = false;
    const double f = value(x);
    if (!std::isfinite(f)) return DescentEnd::Beaten;
    DescentStart start = StartFromHessian(run_, x, f);
    run_.notes().push_back({.kind = NoteKind::Restarted, .value = {f, 0}});
    const Rival rival{best_.at.x, best_.at.f};
    DescentResult result =
        Descent(run_, std::move(start.at), std::move(start.inverse), &rival).finish();
    improved_ = result.at.f < best_.at.f - kSmallestGain * SearchRun::scale(best_.at.f);
    const bool same = result.at.f < best_.at.f + kSameValue * SearchRun::scale(best_.at.f);
    const DescentEnd end = same && !improved_ ? DescentEnd::Known : result.end;
    if (improved_) best_ = std::move(result);
    return end;
}

/// Along the floor, as such a direction tends to lie in a bent valley.
bool RestartSearch::downNegativeCurvature(const Vector& direction, const Valley& valley) {
    for (const double sign : {1.0, -1.0}) {
        const Vector along = sign * kFirstDownStep * direction;
        const Vector x = best_.at.x + along;
        const ValuedPoint first = valley.onFloor({x, value(x)});
        if (!(first.f < best_.at.f)) continue;
        descend(valley.farther(best_.at.x, first, along).x);
        if (improved_ || !run_.iterationsLeft()) return improved_;
    }
    return false;
}

/// Beyond a ridge: where f falls again after it has risen. Empty where there is none.
std::optional<Vector> RestartSearch::probe(const Vector& direction, double curvature) const {
    const double floor = best_.at.f;
    double previous = floor;
    std::optional<Vector> lowest;
    int probes = 0;
    for (double t = std::sqrt(2 * kFirstRise / curvature); t < kFarthestProbe; t *= kProbeFactor) {
        const Vector x = best_.at.x + t * direction;
        const double f = value(x);
        ++probes;
        if (!std::isfinite(f)) break;
        const bool highWall = probes >= kFewestProbes && f > floor + kHighWall &&
                              f > kOnParabola * (floor + 0.5 * curvature * t * t);
        if (f < previous) {
            lowest = x;
            if (f < floor) break;
        } else if (lowest || highWall) {
            break;
        }
        previous = f;
    }
    return lowest;
}

bool RestartSearch::acrossRidges(const Vector& direction, double curvature) {
    for (const double sign : {1.0, -1.0}) {
        const std::optional<Vector> beyond = probe(sign * direction, curvature);
        if (!beyond) continue;
        descend(*beyond);
        if (improved_ || !run_.iterationsLeft()) return improved_;
    }
    return false;
}

/// What the curvatures at the best point suggest.
bool RestartSearch::aroundBest() {
    const Matrix hessian =
        BothSidedHessianAt(run_.objective, best_.at.x, best_.at.f, run_.options).hessian;
    if (!hessian.allFinite()) return false;
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(hessian);
    const Vector& curvatures = solver.eigenvalues();
    const Matrix& directions = solver.eigenvectors();
    const Eigen::Index last = curvatures.size() - 1;
    if (curvatures[0] < kNegativeCurvature) {
        const Eigen::Index walls = (curvatures.array() > kWallCurvature).count();
        const Valley valley(run_, directions.rightCols(walls), curvatures.tail(walls), kDownGain);
        if (downNegativeCurvature(directions.col(0), valley)) return true;
    }
    return run_.iterationsLeft() && curvatures[last] > kWallCurvature &&
           acrossRidges(directions.col(last), curvatures[last]);
}

std::vector<ValuedPoint> RestartSearch::dips(Source source) {
    const std::vector<Vector> lines = Diagonals(origin_.size());
    const std::size_t most = narrow_ && run_.options.thorough ? kMostDipsOfValleys : kMostDips;
    if (source == Source::LinesThroughBest) {
        return DipsAlongLines(run_, best_.at.x, best_.at.f, lines, most);
    }
    return DipsAlongLines(run_, origin_, value(origin_), lines, most);
}

/// A point at random around the origin.
Vector RestartSearch::scattered(double spread) {
    Vector x = origin_;
    for (double& xi : x) xi += spread * gaussian();
    return x;
}

/// The best of a few points at random, which among narrow valleys have been moved down first.
Vector RestartSearch::sample() {
    ValuedPoint lowest{origin_, std::numeric_limits<double>::infinity()};
    const int count = narrow_ ? kRelaxedSamples : kSamples;
    for (int i = 0; i < count; ++i) {
        const Vector x = scattered(narrow_ ? kWideSpread : kSpread);
        ValuedPoint point{x, value(x)};
        if (narrow_) point = relaxed(std::move(point));
        if (point.f < lowest.f) lowest = std::move(point);
    }
    return lowest.x;
}

/// The point moved to where f is lowest along one axis after the other.
ValuedPoint RestartSearch::relaxed(ValuedPoint point) const {
    double scale = 1;
    for (int sweep = 0; sweep < kSweeps; ++sweep, scale /= 2) {
        for (Eigen::Index i = 0; i < point.x.size(); ++i) {
            const Vector axis = Vector::Unit(point.x.size(), i);
            point = LowestOnLine(run_, point, axis, scale * kScanReach, scale * kScanStep);
        }
    }
    return point;
}

Vector RestartSearch::candidate() {
    while (candidates_.empty() && !sources_.empty()) {
        candidates_ = dips(sources_.back());
        std::reverse(candidates_.begin(), candidates_.end());
        sources_.pop_back();
    }
    if (candidates_.empty()) return sample();
    Vector x = std::move(candidates_.back().x);
    candidates_.pop_back();
    return x;
}

/// Descents from one candidate after the other, until one wins.
bool RestartSearch::restart() {
    while (run_.iterationsLeft() && confirmations_ < kConfirmations) {
        const DescentEnd end = descend(candidate());
        if (improved_) return true;
        if (end == DescentEnd::Known) ++confirmations_;
    }
    return false;
}

DescentResult RestartSearch::seek(bool deep) {
    while (run_.iterationsLeft()) {
        const bool better = aroundBest() || (deep && restart());
        if (!better) break;
        confirmations_ = 0;
    }
    return std::move(best_);
}

/// Does the function seem to have better minima than the one that a descent has found?
bool IsTreacherous(const DescentResult& result, double curvature, double startValue,
                   double goodValue) {
    const double f = result.at.f;
    const bool reduced = f < kPoorReduction * startValue;
    const bool bad = f > kBadValue * goodValue;
    const bool poor = !reduced && ((f > goodValue && result.iterations > kSomeIterations) ||
                                   (bad && result.iterations > 1));
    // Much reduced and yet as high as a bad one, the value is of another scale.
    const bool satisfying = f < kExcellentValue * goodValue || (reduced && bad);
    const bool valley = curvature > kValleyCurvature && result.iterations > kQuickDescent;
    return result.creased || poor || (valley && !satisfying);
}

}  // namespace

DescentResult SeekOtherMinima(SearchRun& run, DescentResult best, const Vector& origin,
                              double startValue) {
    const double curvature = 1 / SmallestEigenvalue(best.inverse);
    const bool deep =
        run.options.thorough || IsTreacherous(best, curvature, startValue, run.options.goodValue);
    const bool hardlyMoved = best.iterations <= 1;
    if (!deep && !hardlyMoved) return best;
    const bool narrow = curvature > kNarrowCurvature;
    return RestartSearch(run, std::move(best), origin, narrow).seek(deep);
}

}  // namespace kelvro
