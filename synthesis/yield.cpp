#include "synthesis/yield.h"

#include <algorithm>
#include <cmath>

#include "core/random.h"
#include "synthesis/band_grid.h"
#include "synthesis/tuned_network.h"

namespace kelvro {

namespace {

constexpr double kQuantile = 0.1;
/// Draws of one build: the first parts of all networks share them.
constexpr std::size_t kDrawsPerBuild = 24;

/// Percent that all parts of a kind may be off; 0 for what has no tolerance.
double UsualTolerance(const Network& network, const Tunable& tunable,
                      const Tolerances& tolerances) {
    if (tunable.quantity == Tunable::Quantity::LineImpedance) return tolerances.lineImpedance;
    const Part* part = PartAt(network.ladder, tunable);
    if (!part || tunable.quantity != Tunable::Quantity::PartValue) return 0;
    switch (part->kind) {
        case PartKind::Inductor:
            return tolerances.inductance;
        case PartKind::Capacitor:
            return tolerances.capacitance;
        case PartKind::Resistor:
            break;
    }
    return tolerances.resistance;
}

/// Tolerance of what a tunable stands for: its own before that of its kind.
double AppliedTolerance(const Network& network, const Tunable& tunable,
                        const Tolerances& tolerances) {
    const double own = ToleranceOf(network.ladder, tunable);
    return own > 0 ? own : UsualTolerance(network, tunable, tolerances);
}

/// A network with everything that can be off, and how far.
struct Builds {
    std::vector<double> percent;
    TunedNetwork network;
    std::vector<double> values = {};
    std::vector<double> worst = {};

    static Result<Builds> Of(const Network& network, const YieldOptions& options) {
        if (network.bands.empty()) return Status::Failure("there is no band to build for");
        std::vector<Tunable> parts;
        std::vector<double> percent;
        for (const Tunable& tunable : TunablesOf(network.ladder)) {
            const double applied = AppliedTolerance(network, tunable, options.tolerances);
            if (!(applied > 0)) continue;
            parts.push_back(tunable);
            percent.push_back(applied);
        }
        if (parts.empty()) return Status::Failure("the network has no part with a tolerance");
        TunedNetwork tuned(network, parts, FrequenciesIn(network.bands, options.pointsPerBand));
        return Builds{std::move(percent), std::move(tuned)};
    }

    /// Worst gains of many builds around nominal values.
    const std::vector<double>& draw(std::span<const double> nominal, std::uint64_t seed,
                                    int builds) {
        UniformStream random(seed);
        values.resize(nominal.size());
        worst.clear();
        for (int build = 0; build < builds; ++build) {
            const std::size_t draws = std::max(kDrawsPerBuild, nominal.size());
            for (std::size_t i = 0; i < draws; ++i) {
                const double off = 2 * random.next() - 1;
                if (i < nominal.size()) values[i] = nominal[i] * (1 + off * (percent[i] / 100));
            }
            worst.push_back(network.worstGT(values));
        }
        return worst;
    }

    double quantile(std::span<const double> nominal, std::uint64_t seed, int builds) {
        draw(nominal, seed, builds);
        const auto at = worst.begin() + static_cast<long>(kQuantile * builds);
        std::ranges::nth_element(worst, at);
        return *at;
    }

    YieldReport report(std::span<const double> nominal, const YieldOptions& options) {
        YieldReport report;
        report.quantile10 = quantile(nominal, options.seed, options.builds);
        const auto kept = std::ranges::count_if(
            worst, [&](double worstGT) { return worstGT >= options.leastGT; });
        report.yield = static_cast<double>(kept) / options.builds;
        const double half = 1.96 * std::sqrt(report.yield * (1 - report.yield) / options.builds);
        report.low = std::max(0.0, report.yield - half);
        report.high = std::min(1.0, report.yield + half);
        report.nominalGT = network.worstGT(nominal);
        values.assign(nominal.begin(), nominal.end());
        for (std::size_t i = 0; i < values.size(); ++i) {
            double least = report.nominalGT;
            for (const double sign : {1.0, -1.0}) {
                values[i] = nominal[i] * (1 + sign * (percent[i] / 100));
                least = std::min(least, network.worstGT(values));
            }
            values[i] = nominal[i];
            report.parts.push_back(
                {network.tunables()[i], percent[i], 10 * std::log10(report.nominalGT / least)});
        }
        return report;
    }
};

/// Pattern search (R. Hooke, T. A. Jeeves, "Direct search solution of numerical and statistical
/// problems", J. ACM 8, 1961) on the logarithms of the values: a quantile of fixed draws has bends.
class Centring {
  public:
    Centring(Builds& builds, std::uint64_t seed, const CentringOptions& options)
        : builds_(builds), seed_(seed), options_(options) {}

    std::vector<double> run(std::vector<double> values) {
        double best = quantile(values);
        double step = kFirstStep;
        while (step > kLeastStep && calls_ < kMostCalls && goesOn()) {
            std::vector<double> trial = values;
            const double found = explore(trial, best, step);
            if (!(found > best)) {
                step /= 2;
                continue;
            }
            // On in the same direction while that helps.
            std::vector<double> further = trial;
            for (std::size_t i = 0; i < further.size(); ++i) {
                further[i] = trial[i] * trial[i] / values[i];
            }
            values = trial;
            best = found;
            const double beyond = quantile(further);
            if (beyond > best) {
                values = further;
                best = beyond;
            }
        }
        return values;
    }

  private:
    static constexpr double kFirstStep = 0.04;
    static constexpr double kLeastStep = 5e-4;
    static constexpr int kMostCalls = 1500;
    static constexpr int kBuilds = 1000;

    double quantile(const std::vector<double>& values) {
        ++calls_;
        return builds_.quantile(values, seed_, kBuilds);
    }

    bool goesOn() const { return !options_.goesOn || options_.goesOn(); }

    double explore(std::vector<double>& values, double best, double step) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (std::ranges::count(options_.locked, builds_.network.tunables()[i]) > 0) continue;
            double& value = values[i];
            const double before = value;
            for (const double factor : {1 + step, 1 / (1 + step)}) {
                value = before * factor;
                const double found = quantile(values);
                if (found > best) {
                    best = found;
                    break;
                }
                value = before;
            }
        }
        return best;
    }

    Builds& builds_;
    std::uint64_t seed_;
    const CentringOptions& options_;
    int calls_ = 0;
};

}  // namespace

Result<YieldReport> YieldOf(const Network& network, const YieldOptions& options) {
    auto builds = Builds::Of(network, options);
    if (!builds) return builds.status();
    const std::vector<double> nominal = builds->network.nominal();
    return builds->report(nominal, options);
}

Result<CentredNetwork> Centred(const Network& network, const YieldOptions& options,
                               const CentringOptions& centring) {
    auto builds = Builds::Of(network, options);
    if (!builds) return builds.status();
    const std::vector<double> nominal = builds->network.nominal();
    CentredNetwork centred{network, builds->report(nominal, options), {}};
    centred.after = centred.before;
    const auto values = Centring(*builds, options.seed + 1, centring).run(nominal);
    const YieldReport after = builds->report(values, options);
    if (after.quantile10 > centred.before.quantile10) {
        centred.network = builds->network.with(values);
        centred.after = after;
    }
    return centred;
}

}  // namespace kelvro
