#include "synthesis/refine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "network/ladder_response.h"
#include "synthesis/tuned_goal.h"

namespace kelvro {

namespace {

constexpr int kBandPoints = 41;
constexpr double kFirstRadius = 0.1;  ///< of the first step, nepers: no jump to another design

std::vector<double> FrequenciesOf(const Network& network) {
    std::vector<double> f;
    for (const FrequencyBand& band : network.bands) {
        for (int i = 0; i < kBandPoints; ++i)
            f.push_back(std::lerp(band.low, band.high, i / double{kBandPoints - 1}));
    }
    if (f.empty() && network.designFrequency > 0) f.push_back(network.designFrequency);
    return f;
}

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
    const std::vector<double> f = FrequenciesOf(network);
    if (f.empty()) return Status::Failure("Nothing to refine for: give a band or a frequency");
    const double before = WorstGain(network);
    if (std::isnan(before)) return Status::Failure("The measured data do not cover the bands");

    TunedNetwork tuned(network, free, f);
    std::vector<std::size_t> all(free.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    TunedGoal goal(tuned, all, tuned.nominal());
    MaxMinPoint point{.x = goal.start(), .radius = kFirstRadius};
    MaxMinSolver().improve(goal, goal.box(), {}, point);
    Network refined = tuned.with(goal.valuesAt(point.x));
    if (WorstGain(refined) > before) return refined;
    return network;
}

}  // namespace kelvro
