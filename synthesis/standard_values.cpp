#include "synthesis/standard_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

#include "core/number_text.h"
#include "network/ladder_response.h"
#include "synthesis/band_grid.h"
#include "synthesis/tuned_goal.h"

namespace kelvro {

namespace {

constexpr std::size_t kPointsPerBand = 61;
constexpr std::size_t kCheckPoints = 401;

/// Neighbours of a part in its series: as many as keep all combinations within a limit.
constexpr std::size_t kMostNeighbours = 9;
constexpr std::size_t kLeastNeighbours = 3;
constexpr double kMostCombinations = 120'000;  ///< about 1 µs each
constexpr double kMostOptimizations = 500;     ///< combinations with something left free

std::size_t NeighboursFor(std::size_t parts, double combinations) {
    std::size_t count = kMostNeighbours;
    while (count > kLeastNeighbours &&
           std::pow(static_cast<double>(count), static_cast<double>(parts)) > combinations) {
        --count;
    }
    return count;
}

double Distance(double a, double b) {
    return std::fabs(std::log(a / b));
}

std::vector<double> Nearest(std::vector<double> values, double to, std::size_t count) {
    std::ranges::stable_sort(values, {}, [&](double value) { return Distance(value, to); });
    values.erase(std::unique(values.begin(), values.end()), values.end());
    if (values.size() > count) values.resize(count);
    return values;
}

/// Values of a series in the decades around a value.
std::vector<double> SeriesAround(Series series, double value) {
    const double decade = std::floor(std::log10(value));
    std::vector<double> values;
    for (double exponent = decade - 2; exponent <= decade + 2; ++exponent) {
        for (const double mantissa : SeriesMantissas(series)) {
            // 2.2e-8 as it is written, to the last bit.
            const std::string text =
                FormatShortest(mantissa) + "e" + std::to_string(static_cast<int>(exponent));
            std::from_chars(text.data(), text.data() + text.size(), values.emplace_back());
        }
    }
    return values;
}

/// A part that has to be chosen, with its values to choose from, nearest first.
struct Choice {
    std::size_t tunable;
    std::vector<double> values;
};

/// The joint choice of all parts.
class Selection {
  public:
    Selection(const Network& network, const StandardOptions& options)
        : network_(network),
          options_(options),
          tuned_(network, TunablesOf(network.ladder),
                 FrequenciesIn(network.bands, kPointsPerBand)) {}

    Status prepare();
    StandardNetwork run();

  private:
    Result<std::vector<double>> valuesFor(const Part& part) const;
    double worstOf(std::span<const std::size_t> picks);
    void tryAll();
    void tryNeighbours();
    bool tryPick(std::vector<std::size_t> picks);
    void optimizeFree(std::vector<double>& values, int steps);
    double checked(const std::vector<double>& values) const;

    const Network& network_;
    const StandardOptions& options_;
    TunedNetwork tuned_;
    std::vector<Choice> choices_;
    std::vector<std::size_t> free_;
    MaxMinSolver solver_;
    std::size_t neighbours_ = kMostNeighbours;  ///< for all combinations; the lists hold more
    std::vector<double> values_;
    std::vector<std::size_t> best_;
    double bestWorst_ = -1;
    std::vector<double> bestValues_;
};

/// All values that a part may have near the one it has; empty where it stays free.
Result<std::vector<double>> Selection::valuesFor(const Part& part) const {
    const bool inductor = part.kind == PartKind::Inductor;
    const bool capacitor = part.kind == PartKind::Capacitor;
    const Series series = inductor    ? options_.inductors
                          : capacitor ? options_.capacitors
                                      : options_.resistors;
    const auto& owned = inductor    ? options_.owned.inductors
                        : capacitor ? options_.owned.capacitors
                                    : options_.owned.resistors;
    if (owned.empty() && series == Series::None) return std::vector<double>();
    std::vector<double> values = owned.empty() ? SeriesAround(series, part.value) : owned;
    const ValueLimits limits = inductor    ? options_.inductance
                               : capacitor ? options_.capacitance
                                           : ValueLimits();
    std::erase_if(values, [&](double value) { return !limits.contains(value); });
    if (values.empty()) return Status::Failure("no value on sale lies within the limits");
    return values;
}

Status Selection::prepare() {
    const auto& tunables = tuned_.tunables();
    for (std::size_t i = 0; i < tunables.size(); ++i) {
        if (std::ranges::count(options_.locked, tunables[i]) > 0) continue;
        const Part* part = PartAt(network_.ladder, tunables[i]);
        const bool value = part && tunables[i].quantity == Tunable::Quantity::PartValue;
        if (value && part->value > 0) {
            auto values = valuesFor(*part);
            if (!values) return values.status();
            if (!values->empty()) {
                choices_.push_back(
                    {i, Nearest(*std::move(values), part->value, 2 * kMostNeighbours)});
                continue;
            }
            if (part->kind == PartKind::Resistor) continue;  // a resistance is no means of matching
        }
        if (tunables[i].quantity != Tunable::Quantity::Coupling) free_.push_back(i);
    }
    if (choices_.empty()) return Status::Failure("the network has no part to choose from a series");
    neighbours_ =
        NeighboursFor(choices_.size(), free_.empty() ? kMostCombinations : kMostOptimizations);
    return {};
}

void Selection::optimizeFree(std::vector<double>& values, int steps) {
    for (const std::size_t i : free_) values[i] = tuned_.nominal()[i];
    TunedGoal goal(tuned_, free_, values);
    MaxMinPoint point{.x = goal.start(), .radius = 0.1};
    solver_.improve(goal, goal.box(), {.mostSteps = steps, .leastGain = 1e-6}, point);
    values = goal.valuesAt(point.x);
}

/// Worst gain of a choice of values, free numbers optimized for it; leaves it in values_.
double Selection::worstOf(std::span<const std::size_t> picks) {
    constexpr int kFewSteps = 12;
    values_ = tuned_.nominal();
    for (std::size_t i = 0; i < picks.size(); ++i) {
        values_[choices_[i].tunable] = choices_[i].values[picks[i]];
    }
    if (!free_.empty()) optimizeFree(values_, kFewSteps);
    return tuned_.worstGT(values_);
}

bool Selection::tryPick(std::vector<std::size_t> picks) {
    const double worst = worstOf(picks);
    if (!(worst > bestWorst_)) return false;
    bestWorst_ = worst;
    best_ = std::move(picks);
    bestValues_ = values_;
    return true;
}

/// Every combination of the nearest values.
void Selection::tryAll() {
    std::vector<std::size_t> picks(choices_.size(), 0);
    tryPick(picks);
    const double most = free_.empty() ? kMostCombinations : kMostOptimizations;
    for (double tried = 1; tried < most; ++tried) {
        std::size_t digit = 0;
        for (; digit < picks.size(); ++digit) {
            if (++picks[digit] < std::min(neighbours_, choices_[digit].values.size())) break;
            picks[digit] = 0;
        }
        if (digit == picks.size()) return;
        tryPick(picks);
    }
}

/// From the best so far to values beyond the nearest: one part, and two parts at a time.
void Selection::tryNeighbours() {
    constexpr std::size_t kReach = 5;
    constexpr int kMostRounds = 4;
    const auto reach = [&](std::size_t i) { return std::min(choices_[i].values.size(), kReach); };
    for (int round = 0; round < kMostRounds; ++round) {
        bool better = false;
        for (std::size_t i = 0; i < choices_.size(); ++i) {
            for (std::size_t value = 0; value < choices_[i].values.size(); ++value) {
                auto picks = best_;
                picks[i] = value;
                better |= tryPick(picks);
            }
            for (std::size_t j = 0; j < i && free_.empty(); ++j) {
                for (std::size_t v = 0; v < reach(i) * reach(j); ++v) {
                    auto picks = best_;
                    picks[i] = v % reach(i);
                    picks[j] = v / reach(i);
                    better |= tryPick(picks);
                }
            }
        }
        if (!better) return;
    }
}

double Selection::checked(const std::vector<double>& values) const {
    LadderResponse response(tuned_.with(values));
    return std::ranges::min(response.sweep(FrequenciesIn(network_.bands, kCheckPoints)).GT);
}

StandardNetwork Selection::run() {
    // The nearest value of each part comes first.
    worstOf(std::vector<std::size_t>(choices_.size(), 0));
    const std::vector<double> rounded = values_;
    tryAll();
    tryNeighbours();
    if (!free_.empty()) optimizeFree(bestValues_, 100);
    StandardNetwork standard{{}, checked(bestValues_), checked(rounded)};
    if (standard.worstGT < standard.roundedGT) {  // between the points of the coarser grid
        standard.worstGT = standard.roundedGT;
        bestValues_ = rounded;
    }
    standard.network = tuned_.with(bestValues_);
    return standard;
}

}  // namespace

Result<StandardNetwork> WithStandardValues(const Network& network, const StandardOptions& options) {
    if (network.bands.empty()) return Status::Failure("there is no band to choose values for");
    Selection selection(network, options);
    if (Status problem = selection.prepare(); !problem) return problem;
    return selection.run();
}

}  // namespace kelvro
