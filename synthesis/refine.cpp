#include "synthesis/refine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "network/ladder_response.h"
#include "optimize/local_optimizer.h"

namespace kelvro {

namespace {

constexpr int kBandPoints = 41;
constexpr double kLowestGain = 1e-12;

/// Sharpness of the smooth minimum: the sum over points of exp(-p·GT in dB) is led by the worst
/// ones. Each stage starts from the one before; the last is within ln(41)/256 = 0.015 dB of the
/// true minimum.
constexpr double kSharpness[] = {2, 16, 128, 256};

std::vector<double> FrequenciesOf(const Network& network) {
    std::vector<double> f;
    for (const FrequencyBand& band : network.bands) {
        for (int i = 0; i < kBandPoints; ++i)
            f.push_back(std::lerp(band.low, band.high, i / double{kBandPoints - 1}));
    }
    if (f.empty() && network.designFrequency > 0) f.push_back(network.designFrequency);
    return f;
}

/// Minus the smooth minimum of the gain in dB over the logarithms of the free numbers, relative to
/// those at the start.
class WorstGainGoal : public Objective {
  public:
    WorstGainGoal(const Network& network, std::vector<Tunable> free)
        : network_(network), free_(std::move(free)), f_(FrequenciesOf(network)) {
        for (const Tunable& at : free_) starts_.push_back(ValueOf(network.ladder, at));
    }

    std::size_t size() const { return free_.size(); }
    bool hasFrequencies() const { return !f_.empty(); }
    void sharpen(double sharpness) { sharpness_ = sharpness; }

    Network at(std::span<const double> x) const {
        Network moved = network_;
        for (std::size_t i = 0; i < free_.size(); ++i) {
            const ValueRange range = RangeOf(moved.ladder, free_[i]);
            SetValue(moved.ladder, free_[i],
                     std::clamp(starts_[i] * std::exp(x[i]), range.low, range.high));
        }
        return moved;
    }

    double value(std::span<const double> x, CallKind) override {
        LadderResponse response(at(x));
        const NetworkSweep& sweep = response.sweep(f_);
        std::vector<double> losses;
        for (const double GT : sweep.GT) {
            if (std::isnan(GT)) return std::numeric_limits<double>::quiet_NaN();
            losses.push_back(-10 * std::log10(std::max(GT, kLowestGain)));
        }
        const double worst = std::ranges::max(losses);
        double sum = 0;
        for (const double loss : losses) sum += std::exp(sharpness_ * (loss - worst));
        return worst + std::log(sum) / sharpness_;
    }

  private:
    const Network network_;
    const std::vector<Tunable> free_;
    const std::vector<double> f_;
    std::vector<double> starts_;
    double sharpness_ = 1;
};

}  // namespace

double WorstGain(const Network& network) {
    const std::vector<double> f = FrequenciesOf(network);
    LadderResponse response(network);
    double worst = std::numeric_limits<double>::infinity();
    for (const double GT : response.sweep(f).GT) {
        if (std::isnan(GT)) return GT;
        worst = std::min(worst, GT);
    }
    return f.empty() ? std::numeric_limits<double>::quiet_NaN() : worst;
}

Result<Network> Refined(const Network& network, std::span<const Tunable> locked) {
    std::vector<Tunable> free = TunablesOf(network.ladder);
    std::erase_if(free, [&](const Tunable& at) {
        return std::ranges::find(locked, at) != locked.end() ||
               !(ValueOf(network.ladder, at) > 0) || at.quantity == Tunable::Quantity::Coupling;
    });
    if (free.empty()) return Status::Failure("Nothing to refine: no value is free");
    WorstGainGoal goal(network, std::move(free));
    if (!goal.hasFrequencies())
        return Status::Failure("Nothing to refine for: give a band or a frequency");
    if (std::isnan(WorstGain(network)))
        return Status::Failure("The measured data do not cover the bands");

    Eigen::VectorXd x = Eigen::VectorXd::Zero(static_cast<Eigen::Index>(goal.size()));
    LocalOptions options;
    options.gradientLimit = 1e-4;
    options.seekOtherMinima = false;
    for (const double sharpness : kSharpness) {
        goal.sharpen(sharpness);
        x = MinimizeLocally(goal, x, options).x;
    }
    Network refined = goal.at({x.data(), static_cast<std::size_t>(x.size())});
    return WorstGain(refined) > WorstGain(network) ? std::move(refined) : network;
}

}  // namespace kelvro
