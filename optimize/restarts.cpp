#include "optimize/restarts.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "core/random.h"
#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

// What makes a function look treacherous: narrow valleys after more than a few iterations, ...
constexpr double kNarrowCurvature = 50;
constexpr int kQuickDescent = 6;
// ... an end far away from the start ...
constexpr double kFar = 3;
// ... or, as it may be a plateau, one that has not brought f below a fifth.
constexpr double kPoorReduction = 0.2;

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

// Restarts: spread of the points, of which the best of a few is taken; every third one is beside
// the best minimum instead of the start.
constexpr double kSpread = 0.5;
constexpr int kSpreads = 3;
constexpr double kHopSpread = 0.3;
constexpr int kHopEvery = 3;
constexpr int kSamples = 5;
// Descents that end at the known minimum again before the search is over.
constexpr int kConfirmations = 4;
constexpr double kSameValue = 1e-3;
constexpr double kSmallestGain = 1e-4;
constexpr std::uint64_t kSeed = 11;

class RestartSearch {
  public:
    RestartSearch(SearchRun& run, DescentResult best, const Vector& start)
        : run_(run), best_(std::move(best)), start_(start), random_(kSeed) {}

    DescentResult seek(bool deep);

  private:
    bool aroundBest();
    bool downNegativeCurvature(const Vector& direction);
    bool acrossRidges(const Vector& direction, double curvature);
    std::optional<Vector> probe(const Vector& direction, double curvature) const;
    bool restart();
    Vector sample();
    double gaussian();
    DescentEnd descend(const Vector& x);
    double value(const Vector& x) const { return run_.objective(x, CallKind::LineSearch); }

    SearchRun& run_;
    DescentResult best_;
    const Vector& start_;
    UniformStream random_;
    int restarts_ = 0;
    int confirmations_ = 0;
    bool improved_ = false;
};

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
    improved_ = result.at.f < best_.at.f - kSmallestGain;
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
    return run_.iterationsLeft() && steepest > kNarrowCurvature &&
           acrossRidges(solver.eigenvectors().col(last), steepest);
}

Vector RestartSearch::sample() {
    const bool hop = restarts_ % kHopEvery == 0;
    const Vector& centre = hop ? best_.at.x : start_;
    const double spread = hop ? kHopSpread : kSpread * (1 + restarts_ % kSpreads);
    Vector lowest = centre;
    double lowestValue = std::numeric_limits<double>::infinity();
    for (int i = 0; i < kSamples; ++i) {
        Vector x = centre;
        for (double& xi : x) xi += spread * gaussian();
        const double f = value(x);
        if (!(f < lowestValue)) continue;
        lowestValue = f;
        lowest = x;
    }
    return lowest;
}

/// Descents from points drawn at random, until one wins.
bool RestartSearch::restart() {
    while (run_.iterationsLeft() && confirmations_ < kConfirmations) {
        ++restarts_;
        const DescentEnd end = descend(sample());
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

DescentResult SeekOtherMinima(SearchRun& run, DescentResult best, const Vector& start,
                              double startValue) {
    const bool narrow = SmallestEigenvalue(best.inverse) < 1 / kNarrowCurvature;
    const bool far = LargestEntry(best.at.x - start) > kFar;
    const double good = run.options.goodValue;
    const bool poor = best.at.f > good && best.at.f > kPoorReduction * startValue;
    const bool deep = run.options.thorough || best.creased || poor ||
                      (narrow && best.iterations > kQuickDescent) ||
                      (far && (narrow || best.at.f > good));
    const bool hardlyMoved = best.iterations <= 1;
    if (!deep && !hardlyMoved) return best;
    return RestartSearch(run, std::move(best), start).seek(deep);
}

}  // namespace kelvro
