#include "cli/sweep_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <limits>

#include "cli/network_options.h"
#include "core/number_text.h"
#include "network/coverage.h"

namespace kelvro {

namespace {

constexpr int kMostPoints = 1'000'000;

/// Where a network is to be looked at when nobody says; 0 to 0 where it does not tell.
FrequencyRange UsualRange(const Network& network) {
    if (!network.bands.empty()) {
        FrequencyRange hull{network.bands[0].low, network.bands[0].high};
        for (const FrequencyBand& band : network.bands) {
            hull = {std::min(hull.from, band.low), std::max(hull.to, band.high)};
        }
        return hull;
    }
    const bool around = network.designFrequency > 0;
    if (!around && DataOf(network).empty()) return {};
    const double f0 = network.designFrequency;
    const double root = std::sqrt(10.0);
    const auto covered = around ? CoveredRange(network, f0 / root, f0 * root)
                                : CoveredRange(network, std::numeric_limits<double>::min(),
                                               std::numeric_limits<double>::max());
    return covered ? FrequencyRange{covered->low, covered->high} : FrequencyRange{};
}

std::vector<double> Spaced(const FrequencyRange& range, int points, bool linear) {
    std::vector<double> f(static_cast<std::size_t>(points), range.to);
    for (int i = 0; i + 1 < points; ++i) {
        const double part = static_cast<double>(i) / (points - 1);
        f[static_cast<std::size_t>(i)] = linear
                                             ? range.from + part * (range.to - range.from)
                                             : range.from * std::pow(range.to / range.from, part);
    }
    f.front() = range.from;
    return f;
}

}  // namespace

void AddSweepOptions(CLI::App& command, SweepOptions& options) {
    AddRangeOptions(command, options.range, false);
    command.add_option("--points", options.points, "Number of frequencies")
        ->capture_default_str()
        ->check(CLI::Range(1, kMostPoints));
}

Outcome<std::vector<double>> FrequenciesOf(const SweepOptions& options, const Network& network) {
    const RangeOptions& given = options.range;
    const FrequencyRange usual = UsualRange(network);
    if (!(usual.from > 0) && (given.from.empty() || given.to.empty())) {
        return Problem{ExitCode::Usage, "--from and --to are required"};
    }
    FrequencyRange range{given.from.empty() ? usual.from : ParseValue(given.from),
                         given.to.empty() ? usual.to : ParseValue(given.to)};
    int points = options.points;
    if (range.from == range.to || points == 1) {
        if (range.from != range.to) {
            return Problem{ExitCode::Usage, "--points 1 needs --from and --to alike"};
        }
        points = 1;
    } else {
        const auto checked = RangeOf(given, usual);
        if (!checked) return checked.status();
    }
    if (!(range.from > 0) || !std::isfinite(range.to)) {
        return Problem{ExitCode::Usage, "--from: a network is analysed above 0 Hz"};
    }
    if (const Status covered = CheckRange(network, range.from, range.to); !covered) {
        return Problem{ExitCode::Refused, covered.message()};
    }
    return Spaced(range, points, given.linear);
}

}  // namespace kelvro
