#include "synthesis/search_task.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <string>

#include "core/number_text.h"
#include "synthesis/band_grid.h"

namespace kelvro {

namespace {

constexpr int kMostParts = 8;
constexpr std::size_t kScreeningPoints = 31;  ///< per band
/// A harmonic above its limit counts so many times as much as missing gain, both in nepers.
constexpr double kHarmonicWeight = 50;

Status ProblemOf(const SearchOptions& options) {
    if (options.mostParts < 1 || options.mostParts > kMostParts) {
        return Status::Failure("the number of parts has to lie between 1 and " +
                               std::to_string(kMostParts));
    }
    for (const ValueLimits& limits : {options.inductance, options.capacitance,
                                      options.lineImpedance, options.lineDegrees, options.turns}) {
        if (!(limits.low >= 0) || !(limits.high > 0) || !(limits.low < limits.high)) {
            return Status::Failure("a smallest value has to lie below its largest one");
        }
    }
    for (const auto& absorbed : {options.atSource, options.atLoad}) {
        if (absorbed && (!(absorbed->atLeast > 0) || absorbed->kind == PartKind::Resistor)) {
            return Status::Failure("an absorbed part is an inductor or a capacitor above 0");
        }
    }
    for (const HarmonicLimit& harmonic : options.harmonics) {
        if (harmonic.order < 2 || !(harmonic.GTdb < 0)) {
            return Status::Failure("a harmonic limit has an order from 2 on and a gain below 0 dB");
        }
    }
    return {};
}

Status ProblemOf(std::span<const FrequencyBand> bands) {
    if (bands.empty()) return Status::Failure("there is no band");
    for (const FrequencyBand& band : bands) {
        if (!(band.low >= 0) || !(band.high > band.low) || !std::isfinite(band.high)) {
            return Status::Failure("a band has to end above where it begins");
        }
    }
    return {};
}

/// Every frequency of a grid needs terminations that power can pass.
Status ProblemOf(const ModelGrid& grid) {
    for (std::size_t i = 0; i < grid.size(); ++i) {
        const std::string at = " at " + FormatQuantity(3, grid.f[i], "Hz");
        const auto check = [&](double re, double im, const char* which) -> Status {
            if (!std::isfinite(re) || !std::isfinite(im)) {
                return Status::Failure(std::string("the ") + which + " has no impedance" + at);
            }
            if (re > 0) return {};
            return Status::Failure(std::string("the resistance of the ") + which + at +
                                   " is not above 0");
        };
        if (auto problem = check(grid.source.re[i], grid.source.im[i], "source"); !problem) {
            return problem;
        }
        if (auto problem = check(grid.load.re[i], grid.load.im[i], "load"); !problem) {
            return problem;
        }
    }
    return {};
}

/// How far the logarithm of an impedance's size or resistance lies from that of R0, at most.
double FarthestFrom(double R0, const ModelGrid& grid, std::size_t inBands) {
    double farthest = 0;
    for (std::size_t i = 0; i < inBands; ++i) {
        for (const auto& z : {std::complex<double>(grid.source.re[i], grid.source.im[i]),
                              std::complex<double>(grid.load.re[i], grid.load.im[i])}) {
            farthest = std::max({farthest, std::fabs(std::log(std::abs(z) * grid.R0 / R0))});
        }
    }
    return farthest;
}

}  // namespace

ModelGrid SearchTask::gridOf(std::vector<double> f) const {
    const std::size_t inBands = f.size();
    for (const HarmonicLimit& harmonic : options.harmonics) {
        for (const FrequencyBand& band : problem.bands) {
            f.push_back(harmonic.order * MiddleOf({&band, 1}));
        }
    }
    ModelGrid made = GridOf(problem.source, problem.load, options.losses, R0, f0, f);
    for (std::size_t i = inBands; i < f.size(); ++i) {
        const auto& harmonic = options.harmonics[(i - inBands) / problem.bands.size()];
        made.sign[i] = -kHarmonicWeight;
        made.ceiling[i] = harmonic.GTdb * std::log(10) / 10 - kHarmonicReserve;
    }
    return made;
}

Result<SearchTask> PrepareSearch(const Network& problem, const SearchOptions& options) {
    if (Status status = ProblemOf(options); !status) return status;
    if (Status status = ProblemOf(problem.bands); !status) return status;
    SearchTask task{problem, options};
    task.problem.ladder.clear();
    task.f0 = MiddleOf(problem.bands);
    const auto f = FrequenciesIn(problem.bands, kScreeningPoints);
    task.grid = task.gridOf(f);
    if (Status status = ProblemOf(task.grid); !status) return status;
    double sum = 0;
    for (std::size_t i = 0; i < f.size(); ++i) sum += std::log(task.grid.fourRR[i] / 4);
    const double R0 = task.R0 * std::exp(sum / 2 / static_cast<double>(f.size()));
    task.spread += FarthestFrom(R0, task.grid, f.size()) / 2;
    task.R0 = R0;
    task.grid = task.gridOf(f);
    return task;
}

}  // namespace kelvro
