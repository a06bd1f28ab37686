#include "advise/annealing.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr double kCooling = 0.9;
constexpr int kAttemptsPerCity = 100;
constexpr int kAcceptedPerCity = 10;
/// Of five cities three pairs in 25 fit, so that many draws never all fail.
constexpr int kMostDraws = 10000;
constexpr int kLengthDecimals = 4;

/// Equal seeds must not give cities and moves the same numbers.
constexpr std::uint64_t kCityStreams = 0x636974790000'0000;

double Distance(const City& a, const City& b) {
    // Not std::hypot: sqrt of basic operations rounds alike on every machine.
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return std::sqrt(dx * dx + dy * dy);
}

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

AnnealingOptions Clamped(AnnealingOptions options) {
    options.cities = std::clamp(options.cities, kFewestCities, kMostCities);
    return options;
}

AnnealingOptions WithMoveSeed(AnnealingOptions options, int seed) {
    options.moveSeed = static_cast<std::uint64_t>(seed);
    return options;
}

std::string Text(double value) {
    return FormatEngShort(kLengthDecimals, value);
}

}  // namespace

double DecayingExponential(double x) {
    constexpr double ln2 = 0.693147180559945309;
    if (x > 700) return 0;
    const double halvings = std::floor(x / ln2 + 0.5);
    const double rest = -(x - halvings * ln2);
    double sum = 1;
    for (int k = 15; k > 0; --k) sum = 1 + sum * rest / k;
    return std::ldexp(sum, -static_cast<int>(halvings));
}

bool DecaysAbove(double x, double r) {
    constexpr double margin = 1e-9;  // far beyond the errors of both exponentials
    // exp(x) is at least its first terms. Cold runs draw hardly anything else.
    if (r * (1 + x * (1 + x / 2)) > 1 + margin) return false;
    if (x > 700) return false;
    const double estimate = std::exp(-x);
    if (std::fabs(estimate - r) > margin * estimate) return estimate > r;
    return DecayingExponential(x) > r;
}

std::vector<City> PlaceCities(int cities, std::uint64_t seed) {
    UniformStream stream(kCityStreams + seed);
    std::vector<City> places(Index(cities));
    for (City& city : places) {
        city.x = stream.next() * kFieldSize;
        city.y = stream.next() * kFieldSize;
    }
    return places;
}

double TourLength(const std::vector<City>& cities, const std::vector<int>& tour) {
    double length = 0;
    for (std::size_t i = 0; i < tour.size(); ++i) {
        const int next = tour[i + 1 < tour.size() ? i + 1 : 0];
        length += Distance(cities[Index(tour[i])], cities[Index(next)]);
    }
    return length;
}

Annealing::Annealing(const AnnealingOptions& options)
    : acceptance_(options.acceptance), stream_(options.moveSeed) {
    const int n = Clamped(options).cities;
    summary_.cities = PlaceCities(n, options.citySeed);
    summary_.tour.resize(Index(n));
    std::iota(summary_.tour.begin(), summary_.tour.end(), 0);
    summary_.startLength = TourLength(summary_.cities, summary_.tour);
    summary_.length = summary_.startLength;
    summary_.temperature = kStartTemperature;
}

Annealing::Move Annealing::drawMove() {
    const int n = static_cast<int>(summary_.tour.size());
    const auto at = [&](int position) -> const City& {
        return summary_.cities[Index(summary_.tour[Index(position < n ? position : 0)])];
    };
    for (int draw = 0; draw < kMostDraws; ++draw) {
        const int i = stream_.below(n);
        const int j = stream_.below(n);
        if (j - i < 2 || j - i >= n - 2) continue;
        // The edge behind j, which the move removes too, is left out on purpose: it makes the run
        // choosier, and results stay comparable with earlier ones.
        const double removed = Distance(at(i), at(i + 1));
        return {i, j, Distance(at(i), at(j)) + Distance(at(i + 1), at(j + 1)) - removed};
    }
    return {0, 0, 0};
}

bool Annealing::accepts(double delta) {
    const double r = stream_.next();
    switch (acceptance_) {
        case Acceptance::Deterministic:
            return delta < 0;
        case Acceptance::Threshold:
            return delta < summary_.temperature;
        case Acceptance::Random:
            break;
    }
    return delta < 0 || DecaysAbove(delta / summary_.temperature, r);
}

Annealing::Event Annealing::advance() {
    if (summary_.stop != AnnealingSummary::Stop::Running) return Event::Finished;
    const int n = static_cast<int>(summary_.tour.size());
    while (attempts_ < kAttemptsPerCity * n && accepted_ < kAcceptedPerCity * n) {
        const Move move = drawMove();
        ++attempts_;
        if (move.j == move.i || !accepts(move.delta)) continue;
        ++accepted_;
        ++summary_.moves;
        std::reverse(summary_.tour.begin() + move.i + 1, summary_.tour.begin() + move.j + 1);
        return Event::Moved;
    }
    return endStep();
}

Annealing::Event Annealing::endStep() {
    using Stop = AnnealingSummary::Stop;
    summary_.temperature *= kCooling;
    ++summary_.temperatureSteps;
    summary_.length = TourLength(summary_.cities, summary_.tour);
    if (accepted_ == 0) {
        summary_.stop = Stop::Frozen;
    } else if (summary_.temperatureSteps >= kMostTemperatureSteps) {
        summary_.stop = Stop::StepLimit;
    }
    attempts_ = 0;
    accepted_ = 0;
    return summary_.stop == Stop::Running ? Event::StepEnded : Event::Finished;
}

const AnnealingSummary& Annealing::finish() {
    while (advance() != Event::Finished) {
    }
    return summary_;
}

double MonteCarloSummary::mean() const {
    return runs > 0 ? sum / runs : 0;
}

double MonteCarloSummary::deviation() const {
    if (runs == 0) return 0;
    // Rounding may leave equal lengths a little below zero.
    return std::sqrt(std::max(0.0, sumOfSquares / runs - mean() * mean()));
}

double MonteCarloSummary::relativeDifference() const {
    return runs > 0 ? (maximum - minimum) / minimum * 100 : 0;
}

AnnealingMonteCarlo::AnnealingMonteCarlo(const AnnealingOptions& options)
    : options_(Clamped(options)), run_(WithMoveSeed(options_, 0)) {
    summary_.cities = options_.cities;
    summary_.startLength = run_.summary().startLength;
}

bool AnnealingMonteCarlo::advance() {
    if (finished()) return false;
    Annealing::Event event = run_.advance();
    while (event == Annealing::Event::Moved) event = run_.advance();
    if (event == Annealing::Event::Finished) record();
    return !finished();
}

void AnnealingMonteCarlo::record() {
    const double length = run_.summary().length;
    const int k = summary_.runs;
    if (length < summary_.minimum) {
        summary_.minimum = length;
        summary_.best = k;
    }
    if (length > summary_.maximum) {
        summary_.maximum = length;
        summary_.worst = k;
    }
    summary_.sum += length;
    summary_.sumOfSquares += length * length;
    ++summary_.runs;
    if (!finished()) run_ = Annealing(WithMoveSeed(options_, summary_.runs));
}

MonteCarloSummary RunMonteCarlo(const AnnealingOptions& options,
                                const std::function<bool(int runs)>& goOn) {
    AnnealingMonteCarlo monteCarlo(options);
    int runs = 0;
    bool more = true;
    while (more) {
        more = monteCarlo.advance();
        if (monteCarlo.summary().runs == runs) continue;
        runs = monteCarlo.summary().runs;
        if (goOn && !goOn(runs)) break;
    }
    return monteCarlo.summary();
}

std::vector<std::string> ReportLines(const AnnealingSummary& summary) {
    const auto n = summary.cities.size();
    return {"Number of variables: " + std::to_string(n),
            "Start length : " + Text(summary.startLength),
            "Achieved minimum length : " + Text(summary.length) + ", average length is " +
                Text(summary.length / static_cast<double>(n)),
            "Actually used iterations : " + std::to_string(summary.temperatureSteps),
            "Number of moves : " + std::to_string(summary.moves),
            "Temperature at end : " + Text(summary.temperature) + ", at start it was " +
                Text(kStartTemperature)};
}

std::vector<std::string> ReportLines(const MonteCarloSummary& summary) {
    std::vector<std::string> lines = {"Number of variables: " + std::to_string(summary.cities),
                                      "Start length : " + Text(summary.startLength)};
    if (summary.runs == 0) return lines;
    lines.push_back("Minimum length in MC : " + Text(summary.minimum) +
                    ", minimum average length is " + Text(summary.minimum / summary.cities));
    lines.push_back("Maximum length in MC : " + Text(summary.maximum));
    lines.push_back("Relative difference : " + FormatFixed(0, 2, summary.relativeDifference()) +
                    "%");
    lines.push_back("average length is " + Text(summary.mean()) + ", standard deviation is " +
                    Text(summary.deviation()));
    lines.push_back("Best MC point : " + std::to_string(summary.best));
    return lines;
}

}  // namespace kelvro
