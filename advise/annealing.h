#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/random.h"

// Global optimization shown on the travelling-salesman problem: a closed tour through n cities is
// shortened by reversing segments, and a falling temperature decides which moves are accepted
// (Kirkpatrick, Gelatt, Vecchi, "Optimization by simulated annealing", Science 220, 1983; the
// moves are those of Lin, "Computer solutions of the traveling salesman problem", 1965).

namespace kelvro {

struct City {
    double x;
    double y;
};

/// Cities are spread over a square of this size; the unit of all lengths is a picture element.
inline constexpr double kFieldSize = 500;
/// Half the field: nearly every move is accepted at first, so the start order is forgotten.
inline constexpr double kStartTemperature = kFieldSize / 2;
/// With four cities or fewer no segment can be reversed.
inline constexpr int kFewestCities = 5;
/// Limits time only: one run of so many takes seconds, the 81 runs of a Monte Carlo minutes.
inline constexpr int kMostCities = 2000;
/// A run freezes after 20 to 180 temperature steps; at 1000 the temperature has lost 45 decades.
inline constexpr int kMostTemperatureSteps = 1000;

enum class Acceptance : std::uint8_t {
    Random,         ///< shorter, or with probability exp(-Δ/T)
    Deterministic,  ///< shorter only
    Threshold,      ///< Δ below T
};

struct AnnealingOptions {
    int cities = 15;  ///< clamped to kFewestCities..kMostCities
    std::uint64_t citySeed = 0;
    std::uint64_t moveSeed = 0;
    Acceptance acceptance = Acceptance::Random;
};

/// A run as it stands, during and after.
struct AnnealingSummary {
    enum class Stop : std::uint8_t { Running, Frozen, StepLimit };

    std::vector<City> cities;
    std::vector<int> tour;  ///< cities in the order of the visit; the last leads back to the first
    double startLength = 0;
    double length = 0;       ///< at the end of the last temperature step
    double temperature = 0;  ///< at the end of the last temperature step
    int temperatureSteps = 0;
    long long moves = 0;  ///< accepted moves
    Stop stop = Stop::Running;
};

/// exp(-x) for x >= 0 from basic operations: libraries differ in the last bit of exp, and one bit
/// is enough to send a run another way. A Taylor series about the nearest power of two.
double DecayingExponential(double x);

/// Whether DecayingExponential(x) > r, for r in [0, 1). The same answer, but the series is summed
/// only where the library's exponential is too close to r to tell.
bool DecaysAbove(double x, double r);

/// Positions from the stream of a seed.
std::vector<City> PlaceCities(int cities, std::uint64_t seed);

/// Length of the closed tour.
double TourLength(const std::vector<City>& cities, const std::vector<int>& tour);

/// One annealing run that its owner drives, so that a window stays alive meanwhile.
class Annealing {
  public:
    explicit Annealing(const AnnealingOptions& options);

    enum class Event : std::uint8_t { Moved, StepEnded, Finished };
    /// Tries moves until one is accepted or the temperature step ends. A step that accepts no move
    /// ends the run; behind that nothing changes any more.
    Event advance();
    /// To the end.
    const AnnealingSummary& finish();

    const AnnealingSummary& summary() const { return summary_; }

  private:
    struct Move {
        int i;
        int j;
        double delta;
    };
    /// A segment that may be reversed, and how the tour length is taken to change.
    Move drawMove();
    bool accepts(double delta);
    Event endStep();

    AnnealingSummary summary_;
    Acceptance acceptance_;
    UniformStream stream_;
    int attempts_ = 0;  ///< in the current temperature step
    int accepted_ = 0;
};

/// Spread of the achieved length over many runs with the same cities.
struct MonteCarloSummary {
    int cities = 0;
    double startLength = 0;
    int runs = 0;  ///< finished runs; fewer than kMonteCarloRuns when it was ended early
    double minimum = 1e12;
    double maximum = 0;
    int best = 0;  ///< move seed of the shortest tour
    int worst = 0;
    double sum = 0;
    double sumOfSquares = 0;

    double mean() const;
    double deviation() const;
    double relativeDifference() const;  ///< of maximum and minimum, percent of the minimum
};

inline constexpr int kMonteCarloRuns = 81;

/// The annealing repeated with the move streams 0..80, driven run by run.
class AnnealingMonteCarlo {
  public:
    explicit AnnealingMonteCarlo(const AnnealingOptions& options);

    bool finished() const { return summary_.runs >= kMonteCarloRuns; }
    /// Works on the present run until its temperature step ends; false when all runs are done.
    bool advance();
    const MonteCarloSummary& summary() const { return summary_; }
    /// The run at work.
    const AnnealingSummary& current() const { return run_.summary(); }

  private:
    void record();

    AnnealingOptions options_;
    Annealing run_;
    MonteCarloSummary summary_;
};

/// All runs at once. `goOn` hears of the number of finished runs after each one; false ends it.
MonteCarloSummary RunMonteCarlo(const AnnealingOptions& options,
                                const std::function<bool(int runs)>& goOn = {});

/// Report texts, a line each.
std::vector<std::string> ReportLines(const AnnealingSummary& summary);
std::vector<std::string> ReportLines(const MonteCarloSummary& summary);

}  // namespace kelvro
