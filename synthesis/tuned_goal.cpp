#include "synthesis/tuned_goal.h"

#include <algorithm>
#include <cmath>

namespace kelvro {

namespace {

constexpr double kDifference = 1e-6;
constexpr double kLeastValue = 1e-30;  ///< of what can exist: its logarithm is a number

}  // namespace

TunedGoal::TunedGoal(TunedNetwork& network, std::vector<std::size_t> free,
                     std::vector<double> values)
    : network_(network), free_(std::move(free)), given_(std::move(values)), values_(given_) {}

void TunedGoal::gains(std::span<const double> x, std::vector<double>& result) {
    for (std::size_t j = 0; j < x.size(); ++j) values_[free_[j]] = std::exp(x[j]);
    const auto GT = network_.GT(values_);
    result.resize(GT.size());
    for (std::size_t i = 0; i < GT.size(); ++i) result[i] = std::log(GT[i]);
}

void TunedGoal::rows(std::span<const double> x, LinearRows& rows) {
    gains(x, rows.values);
    rows.variables = x.size();
    rows.gradients.resize(rows.values.size() * x.size());
    moved_.assign(x.begin(), x.end());
    for (std::size_t j = 0; j < x.size(); ++j) {
        moved_[j] += kDifference;
        gains(moved_, there_);
        moved_[j] = x[j];
        for (std::size_t i = 0; i < there_.size(); ++i) {
            rows.gradients[i * x.size() + j] = (there_[i] - rows.values[i]) / kDifference;
        }
    }
}

void TunedGoal::someRows(std::span<const std::size_t> which, std::span<const double> x,
                         LinearRows& some) {
    rows(x, all_);
    some.variables = x.size();
    some.values.clear();
    some.gradients.clear();
    for (const std::size_t i : which) {
        some.values.push_back(all_.values[i]);
        const auto gradient = all_.gradient(i);
        some.gradients.insert(some.gradients.end(), gradient.begin(), gradient.end());
    }
}

std::vector<double> TunedGoal::start() const {
    std::vector<double> x;
    for (const std::size_t i : free_) x.push_back(std::log(given_[i]));
    return x;
}

ParameterBox TunedGoal::box() const {
    ParameterBox box;
    for (const std::size_t i : free_) {
        const ValueRange range = network_.rangeOf(i);
        const double x = std::log(given_[i]);
        box.low.push_back(std::min(x, std::log(std::max(range.low, kLeastValue))));
        box.high.push_back(std::max(x, std::log(range.high)));
    }
    return box;
}

std::vector<double> TunedGoal::valuesAt(std::span<const double> x) const {
    std::vector<double> values = given_;
    for (std::size_t j = 0; j < x.size(); ++j) values[free_[j]] = std::exp(x[j]);
    return values;
}

}  // namespace kelvro
