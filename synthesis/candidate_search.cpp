#include "synthesis/candidate_search.h"

#include <algorithm>
#include <cmath>

#include "core/random.h"
#include "network/ladder_response.h"
#include "synthesis/band_grid.h"

namespace kelvro {

namespace {

constexpr std::size_t kFinalPoints = 61;   ///< per band
constexpr std::size_t kCheckPoints = 601;  ///< likewise
constexpr int kMostRefinements = 5;

constexpr std::size_t kSolutions = 2;  ///< per candidate
constexpr double kSamePlace = 0.02;    ///< nepers

constexpr double kLastRadius = 0.3;  ///< of the trust region, the last time, nepers

// Starts of pairs, nepers.
constexpr double kFartherInPairs = 1.5;  ///< than single parts are spread
constexpr double kOffResonance = 0.6;    ///< the product of L and C, at most

/// Random starts of a ladder with so many numbers. Half as many came within 4e-4 of what 80 full
/// searches per ladder find, but not with every seed: one of four lost 0.024 of the gain of five
/// parts for an antenna of R and L.
std::size_t RandomStarts(std::size_t parameters) {
    constexpr std::size_t starts[] = {0, 8, 24, 60, 150, 300, 400};
    return starts[std::min<std::size_t>(parameters, 6)];
}

bool SamePlace(const std::vector<double>& a, const std::vector<double>& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::fabs(a[i] - b[i]) > kSamePlace) return false;
    }
    return true;
}

/// A number at random around 0 as far as it is allowed.
double NumberIn(double low, double high, double spread, UniformStream& random) {
    const double from = std::clamp(-spread, low, high);
    const double to = std::clamp(spread, low, high);
    if (to - from > 0.1) return from + (to - from) * random.next();
    // Where the usual values are not allowed: among those that are, the nearer ones.
    const double room = std::min(2 * spread, high - low);
    const double nearest = from >= high ? from - room : from;
    return nearest + room * random.next();
}

/// Lets the pairs of a point resonate near the middle of the bands, at any impedance: where bands
/// are narrow, or a pair of small impedance is to steady a load, numbers apart from each other
/// hardly ever meet so.
void Resonate(std::vector<double>& x, const Stages& topology, double spread,
              UniformStream& random) {
    std::size_t at = 0;
    for (const Stage& stage : topology) {
        if (stage.kind == StageKind::LC || stage.kind == StageKind::Trap) {
            x[at] = (spread + kFartherInPairs) * (2 * random.next() - 1);
            x[at + 1] = -x[at] + kOffResonance * (2 * random.next() - 1);
        }
        at += stage.parameters();
    }
}

std::vector<MaxMinPoint> PointsOf(const Stages& topology,
                                  const std::vector<std::vector<double>>& starts,
                                  const ParameterBox& box, double spread, std::uint64_t seed) {
    const std::size_t n = box.low.size();
    std::vector<MaxMinPoint> points;
    points.reserve(starts.size() + RandomStarts(n));
    for (const auto& x : starts) points.push_back({.x = x});
    UniformStream random(seed);
    for (std::size_t i = RandomStarts(n); i > 0; --i) {
        MaxMinPoint point;
        for (std::size_t j = 0; j < n; ++j) {
            point.x.push_back(NumberIn(box.low[j], box.high[j], spread, random));
        }
        if (i % 2 == 0) Resonate(point.x, topology, spread, random);
        points.push_back(std::move(point));
    }
    for (MaxMinPoint& point : points) {
        for (std::size_t j = 0; j < n; ++j) {
            point.x[j] = std::clamp(point.x[j], box.low[j], box.high[j]);
        }
    }
    return points;
}

/// Frequencies at which rows on a fine grid dip below a level, one for each dip.
std::vector<double> DipsBelow(double level, const std::vector<double>& rows,
                              const std::vector<double>& f) {
    std::vector<double> dips;
    for (std::size_t i = 0; i < f.size(); ++i) {
        const bool left = i == 0 || rows[i] <= rows[i - 1];
        const bool right = i + 1 == f.size() || rows[i] < rows[i + 1];
        if (rows[i] < level && left && right) dips.push_back(f[i]);
    }
    return dips;
}

}  // namespace

/// Moves all points on, best first afterwards, and keeps so many different ones.
void CandidateSearch::advance(std::vector<MaxMinPoint>& points, const Stages& topology,
                              const ParameterBox& box, int steps, double leastGain,
                              std::size_t keep) {
    const MaxMinOptions options{.mostSteps = steps, .leastGain = leastGain};
    LadderGoal goal(model_, task_.grid, topology);
    for (MaxMinPoint& point : points) {
        if (!point.settled) solver_.improve(goal, box, options, point);
    }
    std::ranges::stable_sort(points, std::greater{}, &MaxMinPoint::worst);
    std::vector<MaxMinPoint> kept;
    for (MaxMinPoint& point : points) {
        if (kept.size() == keep) break;
        const bool known = std::ranges::any_of(
            kept, [&](const MaxMinPoint& other) { return SamePlace(other.x, point.x); });
        if (!known) kept.push_back(std::move(point));
    }
    points = std::move(kept);
}

std::vector<ScreenedLadder> CandidateSearch::screen(const Stages& topology,
                                                    const std::vector<std::vector<double>>& starts,
                                                    std::uint64_t seed) {
    const auto box = BoxOf(topology, task_.options, task_.R0, task_.f0, task_.widest());
    if (!box) return {};
    auto points = PointsOf(topology, starts, *box, task_.spread, seed);
    const std::size_t third = std::max<std::size_t>(6, points.size() / 3);
    advance(points, topology, *box, 8, 1e-4, third);
    advance(points, topology, *box, 16, 1e-5, std::max<std::size_t>(4, third / 3));
    for (MaxMinPoint& point : points) {
        point.settled = false;
        point.radius = kLastRadius;
    }
    advance(points, topology, *box, 200, 1e-6, kSolutions);
    std::vector<ScreenedLadder> solved;
    solved.reserve(points.size());
    for (MaxMinPoint& point : points) {
        solved.push_back({{topology, std::move(point.x)}, point.worst});
    }
    return solved;
}

ScreenedLadder CandidateSearch::straight() {
    std::vector<double> rows;
    model_.values(task_.grid, {}, {}, rows);
    return {{}, std::ranges::min(rows)};
}

std::optional<FoundNetwork> CandidateSearch::refine(const ScreenedLadder& screened) {
    const Stages& topology = screened.ladder.topology;
    const auto box = BoxOf(topology, task_.options, task_.R0, task_.f0, task_.widest());
    const auto& bands = task_.problem.bands;
    const ModelGrid check = GridOf(task_.problem.source, task_.problem.load, task_.options.losses,
                                   task_.R0, task_.f0, FrequenciesIn(bands, kCheckPoints));
    std::vector<double> f = FrequenciesIn(bands, kFinalPoints);
    MaxMinPoint point{.x = screened.ladder.x};
    std::vector<double> rows;
    ModelGrid grid;
    for (int i = 0; i < kMostRefinements; ++i) {
        grid = task_.gridOf(f);
        point.radius = 0.1;
        point.settled = false;
        LadderGoal goal(model_, grid, topology);
        solver_.improve(goal, *box, {.mostSteps = 300, .leastGain = 1e-7}, point);
        model_.values(check, topology, point.x, rows);
        const auto dips = DipsBelow(point.worst - 1e-5, rows, check.f);
        if (dips.empty()) break;
        f.insert(f.end(), dips.begin(), dips.end());
    }
    model_.values(grid, topology, point.x, rows);
    for (std::size_t i = 0; i < grid.size(); ++i) {
        // The reserve of a harmonic may be used up, not more.
        if (grid.sign[i] < 0 && rows[i] / grid.sign[i] > kHarmonicReserve) return {};
    }
    FoundNetwork found;
    found.parts = PartsIn(topology);
    found.network = task_.problem;
    found.network.designFrequency = task_.f0;
    found.network.ladder =
        ElementsOf({topology, point.x}, task_.options.losses, task_.R0, task_.f0);
    // What is said about a network comes from the one evaluation of circuits.
    LadderResponse response(found.network);
    const std::vector<double>& GT = response.sweep(check.f).GT;
    found.worstGT = std::ranges::min(GT);
    for (const double each : GT) found.meanGT += each / static_cast<double>(GT.size());
    return found;
}

}  // namespace kelvro
