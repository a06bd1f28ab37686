#pragma once

#include <vector>

#include "optimize/max_min.h"
#include "synthesis/tuned_network.h"

namespace kelvro {

/// The gain of a network in nepers, ln GT, at each frequency over the logarithms of some of its
/// tunable numbers; gradients by differences.
class TunedGoal : public MaxMinGoal {
  public:
    /// `free`: which of the network's tunables vary; `values`: of all of them, above 0.
    TunedGoal(TunedNetwork& network, std::vector<std::size_t> free, std::vector<double> values);

    void rows(std::span<const double> x, LinearRows& rows) override;
    void someRows(std::span<const std::size_t> which, std::span<const double> x,
                  LinearRows& some) override;

    /// The point of the values given.
    std::vector<double> start() const;
    /// Within what can exist, and what the values given are.
    ParameterBox box() const;
    /// The values of all tunables at a point.
    std::vector<double> valuesAt(std::span<const double> x) const;

  private:
    void gains(std::span<const double> x, std::vector<double>& result);

    TunedNetwork& network_;
    std::vector<std::size_t> free_;
    std::vector<double> given_;
    std::vector<double> values_;
    std::vector<double> moved_;
    std::vector<double> there_;
    LinearRows all_;
};

}  // namespace kelvro
