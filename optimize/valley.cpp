#include "optimize/valley.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvro {

namespace {

// The probes across stand where the wall is higher than the floor by a fifth of the gain.
constexpr double kProbeHeight = 0.2;
constexpr double kLowestProbe = 1e-4;
// A way back to the floor beyond this many probe distances is not what the parabola has seen.
constexpr double kFarthestReturn = 8;
constexpr double kWorthwhileReturn = 0.05;
// Ways along the floor: longer ones are no matter of bends.
constexpr double kLongestStep = 1.5;
constexpr int kMostDoublings = 5;

}  // namespace

Valley::Valley(SearchRun& run, Matrix across, const Vector& curvatures, double gain)
    : run_(run),
      across_(std::move(across)),
      probes_((2 * std::max(kLowestProbe, kProbeHeight * gain) * curvatures.cwiseInverse())
                  .cwiseSqrt()),
      gain_(gain) {}

ValuedPoint Valley::onFloor(ValuedPoint point) const {
    for (Eigen::Index wall = 0; wall < across_.cols(); ++wall) {
        point = onFloor(std::move(point), wall);
    }
    return point;
}

ValuedPoint Valley::farther(const Vector& from, const ValuedPoint& first,
                            const Vector& along) const {
    ValuedPoint best = first;
    Vector bend = across(first.x - from);
    double t = 1;
    for (int i = 0; i < kMostDoublings; ++i) {
        t *= 2;
        if (t * LargestEntry(along) > kLongestStep) break;
        const Vector x = from + t * along + t * t * bend;
        ValuedPoint next{x, value(x)};
        if (!(next.f < best.f)) {
            if (!std::isfinite(next.f)) break;
            next = onFloor(next);
            if (!(next.f < best.f)) break;
            bend = across(next.x - from) / (t * t);
        }
        best = next;
    }
    return best;
}

ValuedPoint Valley::onFloor(ValuedPoint point, Eigen::Index wall) const {
    const double probe = probes_[wall];
    const Vector right = point.x + probe * across_.col(wall);
    const Vector left = point.x - probe * across_.col(wall);
    const double fRight = value(right);
    const double fLeft = value(left);
    const double slope = (fRight - fLeft) / (2 * probe);
    const double half = (fRight + fLeft - 2 * point.f) / (2 * probe * probe);
    if (!(half > 0) || !std::isfinite(half)) {
        if (fRight < point.f) return {right, fRight};
        return fLeft < point.f ? ValuedPoint{left, fLeft} : point;
    }
    if (slope * slope / (4 * half) < kWorthwhileReturn * gain_) return point;
    const double reach = kFarthestReturn * probe;
    const Vector x = point.x + std::clamp(-slope / (2 * half), -reach, reach) * across_.col(wall);
    const double f = value(x);
    return f < point.f ? ValuedPoint{x, f} : point;
}

}  // namespace kelvro
