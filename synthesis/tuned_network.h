#pragma once

#include <span>
#include <vector>

#include "network/network.h"
#include "network/tunable.h"
#include "optimize/complex_row.h"

namespace kelvro {

/// A network whose tunable numbers change and whose gain at fixed frequencies is wanted each time:
/// thousands of builds, of combinations of standard values, of trial steps. An arm whose parts'
/// impedances are proportional to their values is only scaled, any other element evaluated when its
/// numbers change, what cannot change once.
class TunedNetwork {
  public:
    /// `tunables` of the network's ladder, each at most once.
    TunedNetwork(const Network& network, std::vector<Tunable> tunables, std::span<const double> f);

    const std::vector<Tunable>& tunables() const { return tunables_; }
    /// Values that the network came with.
    const std::vector<double>& nominal() const { return nominal_; }

    /// Limits of a tunable.
    ValueRange rangeOf(std::size_t tunable) const {
        return RangeOf(network_.ladder, tunables_[tunable]);
    }

    /// Transducer gain at each frequency for these values; valid until the next call.
    std::span<const double> GT(std::span<const double> values);
    /// The smallest of them.
    double worstGT(std::span<const double> values);
    /// The network with these values.
    Network with(std::span<const double> values) const;

  private:
    /// One part of an arm that is only scaled: immittance of the kind that adds up in it.
    struct Scaled {
        ComplexRow nominal;
        int tunable;      ///< -1: none, never changes
        double exponent;  ///< of value over nominal value
    };
    /// An element of the ladder: an arm of scaled parts, or a chain matrix.
    struct Stage {
        bool scaled = false;
        Place place = Place::Series;
        bool inverted = false;  ///< what adds up is the inverse of what the place needs
        std::vector<Scaled> parts;
        ComplexRow arm;                     ///< impedance in series, admittance across
        ComplexRow A, B, C, D;              ///< otherwise
        std::vector<std::size_t> tunables;  ///< those in it
    };

    bool prepareScaled(Stage& stage, std::size_t element);
    void update(std::size_t element, std::span<const double> values);
    void evaluateChain(std::size_t element);

    Network network_;  ///< with the values of the chain matrices
    std::vector<Tunable> tunables_;
    std::vector<double> nominal_;
    std::vector<double> values_;  ///< that the stages stand for
    std::vector<double> f_;
    std::vector<double> fourRR_;
    ComplexRow source_, load_;
    std::vector<Stage> stages_;
    ComplexRow voltage_, current_, scratch_;
    std::vector<double> GT_;
};

}  // namespace kelvro
