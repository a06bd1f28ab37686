#include "optimize/crease_search.h"

#include <algorithm>
#include <cmath>

#include "optimize/update.h"

namespace kelvro {

namespace {

// Distance of the points that show both faces: beyond the reach of a stalled search, and small
// against the bend of the faces.
constexpr double kStraddle = 1e-3;
constexpr int kMostSteps = 20;
constexpr double kFirstStep = 0.05;
constexpr double kLongestStep = 2;
constexpr int kMostTrials = 10;
constexpr int kMostContractions = 4;
constexpr double kContraction = 0.25;
// A trial point this part of the expected gain above the expected value is off the crease.
constexpr double kOffCrease = 0.1;
constexpr double kStillOffCrease = 0.3;
// Beyond, the linear faces predict nothing.
constexpr double kHighestReturn = 1e3;
// Gains below this part of the gradient limit, relative to f, end the way along the crease.
constexpr double kSmallestGain = 0.1;
// A first step with a gain between these parts of the linear one is at the minimum along.
constexpr double kGoodGainLow = 0.3;
constexpr double kGoodGainHigh = 0.75;

struct Point {
    Vector x;
    double f;
};

/// The gradients of the two faces and what follows from them.
struct Faces {
    Vector first;
    Vector second;
    Vector across;       ///< unit vector, first - second
    double slopeFirst;   ///< along it, > 0 on a crease
    double slopeSecond;  ///< < 0 on a crease
    double weight;       ///< of the first gradient
    Vector along;        ///< weighted gradient: no part across

    bool isCrease() const { return slopeFirst * slopeSecond < 0; }
};

Faces FacesOf(const Vector& first, const Vector& second) {
    Faces faces{first, second, (first - second).normalized(), 0, 0, 0, {}};
    faces.slopeFirst = first.dot(faces.across);
    faces.slopeSecond = second.dot(faces.across);
    faces.weight = -faces.slopeSecond / (faces.slopeFirst - faces.slopeSecond);
    faces.along = second + faces.weight * (first - second);
    return faces;
}

class CreaseSearch {
  public:
    CreaseSearch(SearchRun& run, const Vector& x, double f) : run_(run), at_{x, f} {}

    CreaseOutcome follow();

  private:
    void straddleAxis();
    void straddle(const Vector& across);
    Faces faces();
    void learn(const Faces& faces);
    Vector direction(const Faces& faces, double& t) const;
    bool step(const Faces& faces);
    Point ontoCrease(const Point& trial, double expected, double tolerance, const Faces& faces);
    Point trialPoint(const Vector& d, double t, const Faces& faces, double slope);
    void recordPending(const Faces& faces);
    double smallestGain() const {
        return kSmallestGain * run_.options.gradientLimit * SearchRun::scale(at_.f);
    }
    double value(const Vector& x) {
        ++calls_;
        return run_.objective(x, CallKind::LineSearch);
    }

    SearchRun& run_;
    Point at_;
    Point sideFirst_;
    Point sideSecond_;
    Matrix inverse_;  ///< of the curvature along; empty until learned
    std::optional<Faces> old_;
    Vector lastMove_;
    double lastStep_ = kFirstStep;
    double bend_ = 0;
    double gain_ = 0;
    int calls_ = 0;
    std::optional<PendingStep> pending_;
};

/// Points on both sides along the parameter whose differences show the strongest kink.
void CreaseSearch::straddleAxis() {
    const Gradient wide = DoubleSidedGradient(run_.objective, at_.x, at_.f, kStraddle);
    Eigen::Index axis = 0;
    wide.curvature.cwiseAbs().maxCoeff(&axis);
    sideFirst_ = {at_.x, wide.plus[axis]};
    sideSecond_ = {at_.x, wide.minus[axis]};
    sideFirst_.x[axis] += kStraddle;
    sideSecond_.x[axis] -= kStraddle;
}

void CreaseSearch::straddle(const Vector& across) {
    const Vector right = at_.x + kStraddle * across;
    const Vector left = at_.x - kStraddle * across;
    sideFirst_ = {right, value(right)};
    sideSecond_ = {left, value(left)};
}

Faces CreaseSearch::faces() {
    const double h = run_.options.differenceStep;
    const auto gradient = [&](const Point& side) {
        return SingleSidedGradient(run_.objective, side.x, side.f, h).g;
    };
    const Vector first = gradient(sideFirst_);
    const Vector second = gradient(sideSecond_);
    const Faces faces = FacesOf(first, second);
    // The faces keep their order, so that differences of gradients are of one face.
    return old_ && faces.across.dot(old_->across) < 0 ? FacesOf(second, first) : faces;
}

void CreaseSearch::learn(const Faces& faces) {
    if (!old_) return;
    const Vector y = faces.weight * (faces.first - old_->first) +
                     (1 - faces.weight) * (faces.second - old_->second);
    const double ys = y.dot(lastMove_);
    if (!(ys > 1e-12) || !std::isfinite(ys)) return;
    if (inverse_.size() == 0) {
        inverse_ = Matrix::Identity(y.size(), y.size()) * (ys / y.squaredNorm());
    }
    inverse_ = UpdatedInverse(inverse_, lastMove_, y, false);
}

/// Unit direction along the crease; t becomes the first step length.
Vector CreaseSearch::direction(const Faces& faces, double& t) const {
    t = lastStep_;
    if (inverse_.size() > 0) {
        Vector d = -(inverse_ * faces.along);
        d -= faces.across * faces.across.dot(d);
        if (d.dot(faces.along) < 0) {
            t = std::min(d.norm(), 1.0);
            return d.normalized();
        }
    }
    return -faces.along.normalized();
}

/// Sets a point back to where the falling face should have the expected value; both faces are
/// tried, as it is not known which one the point is on.
Point CreaseSearch::ontoCrease(const Point& trial, double expected, double tolerance,
                               const Faces& faces) {
    const double excess = trial.f - expected;
    if (!(excess > kOffCrease * tolerance) || !(excess < kHighestReturn)) return trial;
    Point best = trial;
    double move = 0;
    for (const double slope : {faces.slopeFirst, faces.slopeSecond}) {
        move = -excess / slope;
        const Vector x = trial.x + move * faces.across;
        const double f = value(x);
        if (!(f < best.f)) continue;
        best = {x, f};
        break;
    }
    if (!(best.f < trial.f) || best.f - expected <= kStillOffCrease * tolerance) return best;
    for (const double part : {0.5, -0.5}) {
        const Vector x = best.x + part * move * faces.across;
        const double f = value(x);
        if (f < best.f) return {x, f};
    }
    return best;
}

Point CreaseSearch::trialPoint(const Vector& d, double t, const Faces& faces, double slope) {
    const Vector x = at_.x + t * d + bend_ * t * t * faces.across;
    const Point trial{x, value(x)};
    Point back = ontoCrease(trial, at_.f - t * slope, t * slope, faces);
    if (back.f < trial.f) bend_ = (back.x - at_.x).dot(faces.across) / (t * t);
    return back;
}

/// One step along the crease by doubling; true when it lowered f.
bool CreaseSearch::step(const Faces& faces) {
    double t = 0;
    const Vector d = direction(faces, t);
    const double slope = -d.dot(faces.along);
    Point best = at_;
    double bestT = 0;
    bend_ = 0;
    int contractions = 0;
    for (int i = 0; i < kMostTrials && t <= kLongestStep; ++i) {
        const Point trial = trialPoint(d, t, faces, slope);
        if (trial.f < best.f) {
            const double gain = at_.f - trial.f;
            best = trial;
            bestT = t;
            const bool minimal = inverse_.size() > 0 && i == 0 && gain > kGoodGainLow * t * slope &&
                                 gain < kGoodGainHigh * t * slope;
            if (contractions > 0 || minimal) break;
            t *= 2;
        } else {
            if (bestT > 0 || ++contractions > kMostContractions) break;
            t *= kContraction;
        }
    }
    if (!(bestT > 0)) return false;
    pending_ =
        PendingStep{{at_.x, at_.f, {faces.along, faces.along.norm()}}, {d, bestT, calls_, 0}};
    calls_ = 0;
    gain_ = at_.f - best.f;
    lastMove_ = best.x - at_.x;
    lastStep_ = bestT;
    old_ = faces;
    at_ = best;
    return true;
}

void CreaseSearch::recordPending(const Faces& faces) {
    if (!pending_) return;
    run_.record(pending_->before, {at_.x, at_.f, {faces.along, faces.along.norm()}},
                pending_->step);
    pending_.reset();
}

CreaseOutcome CreaseSearch::follow() {
    const double start = at_.f;
    int steps = 0;
    straddleAxis();
    while (steps < kMostSteps && run_.iterationsLeft()) {
        const Faces now = faces();
        if (!now.isCrease() || !now.along.allFinite()) break;
        recordPending(now);
        if (now.along.norm() < run_.options.gradientLimit || !run_.iterationsLeft()) break;
        learn(now);
        if (!step(now)) break;
        ++steps;
        if (gain_ < smallestGain()) break;
        straddle(now.across);
    }
    CreaseOutcome outcome{false, at_.x, at_.f, steps, std::move(pending_)};
    outcome.progressed = start - at_.f >= smallestGain();
    return outcome;
}

}  // namespace

CreaseOutcome FollowCrease(SearchRun& run, const Vector& x, double f) {
    return CreaseSearch(run, x, f).follow();
}

}  // namespace kelvro
