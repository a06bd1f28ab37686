#pragma once

#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "analysis/objective.h"
#include "optimize/linear.h"
#include "optimize/local_optimizer.h"
#include "optimize/nearness.h"

namespace kelvro {

/// The objective as the search sees it: a function of the parameters that have influence, with the
/// bookkeeping of its calls.
class Evaluator {
  public:
    Evaluator(Objective& objective, const Vector& start, bool recordCalls);

    /// Value at a point of the active parameters, with what its distance and the wishes of the
    /// objective count; +infinity where the objective is not finite.
    double operator()(const Vector& x, CallKind kind);
    /// Has the objective wishes of its own, as far as it has been asked?
    bool hasWishes() const { return hasWishes_; }

    /// The same with both sides of a crease, see Objective.
    Sides sides(const Vector& x, CallKind kind);

    /// From here on points have the active parameters only; the others stay at the start.
    void setActive(const std::vector<bool>& active);

    /// From here on values are those of the objective, of its wishes, and of this, over the active
    /// parameters; without one those of the objective alone.
    /// Returns the one before.
    std::optional<Nearness> setNearness(std::optional<Nearness> nearness) {
        return std::exchange(nearness_, std::move(nearness));
    }
    const std::optional<Nearness>& nearness() const { return nearness_; }

    /// Points and directions of all parameters from those of the active ones.
    Vector fullPoint(const Vector& x) const;
    Vector fullDirection(const Vector& direction) const;
    Matrix fullMatrix(const Matrix& matrix) const;
    /// A direction of the active parameters from one of all.
    Vector activeDirection(const Vector& full) const;
    /// The active parameters of the start.
    Vector start() const { return activeDirection(start_); }

    const CallCounts& calls() const { return calls_; }
    std::vector<CallRecord> takeTable() { return std::move(table_); }

  private:
    std::span<const double> place(const Vector& x);
    void note(CallKind kind, double f);

    Objective& objective_;
    Vector start_;
    std::vector<Eigen::Index> active_;
    Vector scratch_;
    std::optional<Nearness> nearness_;
    bool hasWishes_ = false;
    CallCounts calls_;
    bool record_;
    std::vector<CallRecord> table_;
};

}  // namespace kelvro
