#include "optimize/max_min_step.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvro {

namespace {

constexpr int kMostExchanges = 400;
constexpr double kNegligible = 1e-11;

}  // namespace

double MaxMinStep::solve(const LinearRows& rows, std::span<const double> low,
                         std::span<const double> high) {
    start(rows, low, high);
    for (exchanges_ = 0; exchanges_ < kMostExchanges; ++exchanges_) {
        const std::size_t leave = leaving();
        if (leave > n_ || !moveAlong(rows, leave, low, high)) break;
    }
    return point_[n_];
}

/// The corner of the box that the smallest row points to, and the row that is smallest there.
void MaxMinStep::start(const LinearRows& rows, std::span<const double> low,
                       std::span<const double> high) {
    n_ = rows.variables;
    active_.assign(n_ + 1, {});
    inverse_.assign((n_ + 1) * (n_ + 1), 0);
    point_.assign(n_ + 1, 0);
    edge_.assign(n_ + 1, 0);
    products_.assign(n_ + 1, 0);
    slack_.resize(rows.size());
    rate_.resize(rows.size());
    const auto worst =
        static_cast<std::size_t>(std::ranges::min_element(rows.values) - rows.values.begin());
    const auto towards = rows.gradient(worst);
    for (std::size_t j = 0; j < n_; ++j) {
        const bool up = towards[j] > 0;
        point_[j] = up ? high[j] : low[j];
        active_[j] = {false, j, up ? 1.0 : -1.0};
        inverse(j, j) = active_[j].side;
    }
    std::size_t smallest = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        double value = rows.values[i];
        const auto gradient = rows.gradient(i);
        for (std::size_t j = 0; j < n_; ++j) value += gradient[j] * point_[j];
        slack_[i] = value;
        if (value < slack_[smallest]) smallest = i;
    }
    point_[n_] = slack_[smallest];
    for (double& slack : slack_) slack -= point_[n_];
    // t <= value + gradient·d: the normal is (-gradient, 1).
    active_[n_] = {true, smallest, 0};
    const auto gradient = rows.gradient(smallest);
    for (std::size_t j = 0; j < n_; ++j) inverse(n_, j) = gradient[j] * inverse(j, j);
    inverse(n_, n_) = 1;
}

std::vector<MaxMinStep::Weight> MaxMinStep::weights() const {
    std::vector<Weight> weights;
    for (std::size_t k = 0; k <= n_; ++k) {
        if (active_[k].isRow && inverse(n_, k) > kNegligible) {
            weights.push_back({active_[k].index, inverse(n_, k)});
        }
    }
    return weights;
}

/// The active constraint whose multiplier is most negative: leaving it raises t fastest. Beyond the
/// last where there is none.
std::size_t MaxMinStep::leaving() const {
    std::size_t leave = n_ + 1;
    double most = -kNegligible;
    for (std::size_t k = 0; k <= n_; ++k) {
        const double multiplier = inverse(n_, k);
        if (multiplier >= most) continue;
        most = multiplier;
        leave = k;
    }
    return leave;
}

/// Goes along the edge that leaves one constraint until the next one stops it, which takes its
/// place. False where nothing stops it, which the box prevents.
bool MaxMinStep::moveAlong(const LinearRows& rows, std::size_t leave, std::span<const double> low,
                           std::span<const double> high) {
    for (std::size_t j = 0; j <= n_; ++j) edge_[j] = -inverse(j, leave);
    double length = std::numeric_limits<double>::infinity();
    Constraint enter{};
    for (std::size_t j = 0; j < n_; ++j) {
        if (std::fabs(edge_[j]) < kNegligible) continue;
        const bool up = edge_[j] > 0;
        const double reach = std::max(0.0, ((up ? high[j] : low[j]) - point_[j]) / edge_[j]);
        if (reach >= length) continue;
        length = reach;
        enter = {false, j, up ? 1.0 : -1.0};
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double* gradient = rows.gradients.data() + i * n_;
        double rate = -edge_[n_];
        for (std::size_t j = 0; j < n_; ++j) rate += gradient[j] * edge_[j];
        rate_[i] = rate;
        if (rate > -kNegligible) continue;
        const double reach = std::max(0.0, -slack_[i] / rate);
        if (reach >= length) continue;
        length = reach;
        enter = {true, i, 0};
    }
    if (!std::isfinite(length)) return false;
    for (std::size_t j = 0; j <= n_; ++j) point_[j] += length * edge_[j];
    for (std::size_t i = 0; i < rows.size(); ++i) slack_[i] += length * rate_[i];
    exchange(rows, leave, enter);
    return true;
}

/// Puts a constraint in the place of another; the inverse follows by a rank-one update.
void MaxMinStep::exchange(const LinearRows& rows, std::size_t leave, const Constraint& enter) {
    if (enter.isRow) {
        const auto gradient = rows.gradient(enter.index);
        for (std::size_t k = 0; k <= n_; ++k) {
            double product = inverse(n_, k);
            for (std::size_t j = 0; j < n_; ++j) product -= gradient[j] * inverse(j, k);
            products_[k] = product;
        }
        slack_[enter.index] = 0;
    } else {
        for (std::size_t k = 0; k <= n_; ++k) {
            products_[k] = enter.side * inverse(enter.index, k);
        }
    }
    const double pivot = products_[leave];
    for (std::size_t j = 0; j <= n_; ++j) {
        const double scaled = inverse(j, leave) / pivot;
        for (std::size_t k = 0; k <= n_; ++k) inverse(j, k) -= products_[k] * scaled;
        inverse(j, leave) = scaled;
    }
    active_[leave] = enter;
}

}  // namespace kelvro
