#pragma once

#include <optional>

#include "optimize/search_run.h"

namespace kelvro {

/// A step that still lacks the gradient at its end before it can be recorded.
struct PendingStep {
    Position before;
    StepData step;
};

struct CreaseOutcome {
    bool progressed = false;
    Vector x;
    double f = 0;
    int steps = 0;
    std::optional<PendingStep> pending;
};

/// Follows a crease: functions like max(f1, f2) have floors of valleys with a kink, on which a
/// quasi-Newton search stalls, as no gradient points along the floor. The gradients of both faces,
/// each weighted so that the part across the crease vanishes, do (the idea of bundle methods;
/// Lemaréchal, "Nondifferentiable optimization", 1989). Steps go along that direction with doubling
/// length and are set back onto the crease across it; the curvature along is learned by updates.
/// `x` has to be at a stalled point; each step is recorded as an iteration.
CreaseOutcome FollowCrease(SearchRun& run, const Vector& x, double f);

}  // namespace kelvro
