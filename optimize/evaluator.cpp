#include "optimize/evaluator.h"

#include <cmath>
#include <limits>

namespace kelvro {

Evaluator::Evaluator(Objective& objective, const Vector& start, bool recordCalls)
    : objective_(objective), start_(start), scratch_(start), record_(recordCalls) {
    setActive(std::vector<bool>(static_cast<std::size_t>(start.size()), true));
}

void Evaluator::setActive(const std::vector<bool>& active) {
    active_.clear();
    for (std::size_t i = 0; i < active.size(); ++i) {
        if (active[i]) active_.push_back(static_cast<Eigen::Index>(i));
    }
    scratch_ = start_;
}

/// All parameters at a point of the active ones.
std::span<const double> Evaluator::place(const Vector& x) {
    for (std::size_t i = 0; i < active_.size(); ++i) {
        scratch_[active_[i]] = x[static_cast<Eigen::Index>(i)];
    }
    return {scratch_.data(), static_cast<std::size_t>(scratch_.size())};
}

void Evaluator::note(CallKind kind, double f) {
    calls_.add(kind);
    if (record_) table_.push_back({kind, f, scratch_});
}

double Evaluator::operator()(const Vector& x, CallKind kind) {
    double f = 0;
    if (nearness_) {
        f = sides(x, kind).value();
    } else {
        f = objective_.value(place(x), kind);
        note(kind, f);
    }
    return std::isfinite(f) ? f : std::numeric_limits<double>::infinity();
}

Sides Evaluator::sides(const Vector& x, CallKind kind) {
    Sides sides = objective_.sides(place(x), kind);
    note(kind, sides.value());
    if (!nearness_) return sides;
    const double counted = nearness_->value(x);
    hasWishes_ = hasWishes_ || sides.wish() != 0;
    sides.below += counted + sides.wishBelow;
    sides.above += counted + sides.wishAbove;
    return sides;
}

Vector Evaluator::fullPoint(const Vector& x) const {
    Vector full = start_;
    for (std::size_t i = 0; i < active_.size(); ++i) {
        full[active_[i]] = x[static_cast<Eigen::Index>(i)];
    }
    return full;
}

Vector Evaluator::fullDirection(const Vector& direction) const {
    Vector full = Vector::Zero(start_.size());
    for (std::size_t i = 0; i < active_.size(); ++i) {
        full[active_[i]] = direction[static_cast<Eigen::Index>(i)];
    }
    return full;
}

Matrix Evaluator::fullMatrix(const Matrix& matrix) const {
    Matrix full = Matrix::Zero(start_.size(), start_.size());
    for (std::size_t i = 0; i < active_.size(); ++i) {
        for (std::size_t j = 0; j < active_.size(); ++j) {
            full(active_[i], active_[j]) =
                matrix(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j));
        }
    }
    return full;
}

Vector Evaluator::activeDirection(const Vector& full) const {
    Vector direction(static_cast<Eigen::Index>(active_.size()));
    for (std::size_t i = 0; i < active_.size(); ++i) {
        direction[static_cast<Eigen::Index>(i)] = full[active_[i]];
    }
    return direction;
}

}  // namespace kelvro
