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

// What makes a function look treacherous: narrow valleys after more than a few iterations, ...
constexpr double kNarrowCurvature = 100;
constexpr int kQuickDescent = 7;
// ... or, as it may be a plateau, some iterations that have not brought f below a fifth.
constexpr int kSomeIterations = 4;
constexpr double kPoorReduction = 0.2;
// Walls as steep as this may have ridges beside them.
constexpr double kRidgeCurvature = 50;

// Negative curvature worth a look, and the steps along it.
constexpr double kNegativeCurvature = -0.01;
constexpr double kFirstDownStep = 0.05;
constexpr int kMostDownSteps = 6;

// Probes over a ridge start where the valley's parabola has risen by this and widen by this factor.
constexpr double kFirstRise = 0.1;
constexpr double kProbeFactor = 1.7;
constexpr double kFarthestProbe = 1;
// A wall that is still this near to its parabola, this high, has no ridge.
constexpr double kOnParabola = 0.8;
constexpr double kHighWall = 3;
constexpr int kFewestProbes = 3;

// Points at random: their spread, and the number of which the best is taken.
constexpr double kSpread = 1.5;
constexpr int kSamples = 20;
// Descents that end at the known minimum again before the search is over.
constexpr int kConfirmations = 5;
constexpr double kSameValue = 1e-3;
constexpr double kSmallestGain = 1e-3;
constexpr std::uint64_t kSeed = 11;

/// Where candidates for restarts come from, one after the other; points at random follow.
enum class Source : std::uint8_t { LinesThroughBest, LinesThroughOrigin };

class RestartSearch {
  public:
    RestartSearch(SearchRun& run, DescentResult best, const Vector& origin);

    DescentResult seek(bool deep);

  private:
    bool aroundBest();
    bool downNegativeCurvature(const Vector& direction);
    bool acrossRidges(const Vector& direction, double curvature);
    std::optional<Vector> probe(const Vector& direction, double curvature) const;
    bool restart();
    Vector candidate();
    std::vector<Dip> dips(Source source);
    Vector sample();
    double gaussian();
    DescentEnd descend(const Vector& x);
    double value(const Vector& x) const { return run_.objective(x, CallKind::LineSearch); }

    SearchRun& run_;
    DescentResult best_;
    const Vector& origin_;
    UniformStream random_;
    std::vector<Source> sources_;  ///< the next one last
    std::vector<Dip> candidates_;  ///< the next one last
    int confirmations_ = 0;
    bool improved_ = false;
};

RestartSearch::RestartSearch(SearchRun& run, DescentResult best, const Vector& origin)
    : run_(run), best_(std::move(best)), origin_(origin), random_(kSeed) {
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

bool RestartSearch::downNegativeCurvature(const Vector& direction) {
    for (const double sign : {1.0, -1.0}) {
        double lowest = best_.at.f;
        std::optional<Vector> point;
        double t = kFirstDownStep;
        for (int i = 0; i < kMostDownSteps; ++i, t *= 2) {
            const Vector x = best_.at.x + sign * t * direction;
            const double f = value(x);
            if (!(f < lowest)) break;
            lowest = f;
            point = x;
        }
        if (!point) continue;
        descend(*point);
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
    const HessianResult result = HessianAt(run_.objective, best_.at.x, best_.at.f, run_.options);
    if (!result.hessian.allFinite()) return false;
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(result.hessian);
    const Eigen::Index last = solver.eigenvalues().size() - 1;
    if (solver.eigenvalues()[0] < kNegativeCurvature &&
        downNegativeCurvature(solver.eigenvectors().col(0))) {
        return true;
    }
    const double steepest = solver.eigenvalues()[last];
    return run_.iterationsLeft() && steepest > kRidgeCurvature &&
           acrossRidges(solver.eigenvectors().col(last), steepest);
}

std::vector<Dip> RestartSearch::dips(Source source) {
    const std::vector<Vector> lines = Diagonals(origin_.size());
    if (source == Source::LinesThroughBest) {
        return DipsAlongLines(run_, best_.at.x, best_.at.f, lines);
    }
    return DipsAlongLines(run_, origin_, value(origin_), lines);
}

/// The best of a few points at random.
Vector RestartSearch::sample() {
    Vector lowest = origin_;
    double lowestValue = std::numeric_limits<double>::infinity();
    for (int i = 0; i < kSamples; ++i) {
        Vector x = origin_;
        for (double& xi : x) xi += kSpread * gaussian();
        const double f = value(x);
        if (!(f < lowestValue)) continue;
        lowestValue = f;
        lowest = x;
    }
    return lowest;
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

}  // namespace

DescentResult SeekOtherMinima(SearchRun& run, DescentResult best, const Vector& origin,
                              double startValue) {
    const bool narrow = SmallestEigenvalue(best.inverse) < 1 / kNarrowCurvature;
    const bool poor = best.iterations > kSomeIterations && best.at.f > run.options.goodValue &&
                      best.at.f > kPoorReduction * startValue;
    const bool deep =
        run.options.thorough || best.creased || poor || (narrow && best.iterations > kQuickDescent);
    const bool hardlyMoved = best.iterations <= 1;
    if (!deep && !hardlyMoved) return best;
    return RestartSearch(run, std::move(best), origin).seek(deep);
}

}  // namespace kelvro
