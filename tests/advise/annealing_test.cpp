#include "advise/annealing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kelvro {
namespace {

using Stop = AnnealingSummary::Stop;
using Event = Annealing::Event;

double Distance(const City& a, const City& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Length of the shortest tour by trying all orders.
double ShortestTour(const std::vector<City>& cities) {
    std::vector<int> order(cities.size());
    std::iota(order.begin(), order.end(), 0);
    double shortest = TourLength(cities, order);
    while (std::next_permutation(order.begin() + 1, order.end())) {
        shortest = std::min(shortest, TourLength(cities, order));
    }
    return shortest;
}

struct Run {
    const char* name;
    AnnealingOptions options;
};

class AnnealingRunTest : public testing::TestWithParam<Run> {};

TEST_P(AnnealingRunTest, EndsFrozenWithATourOfTheReportedLength) {
    Annealing run(GetParam().options);
    long long moves = 0;
    long long movesOfStep = 0;
    int steps = 0;
    for (Event event = run.advance();; event = run.advance()) {
        if (event == Event::Moved) {
            ++moves;
            ++movesOfStep;
            continue;
        }
        ++steps;
        // The last temperature step is the first without a move, and no other is.
        ASSERT_EQ(event == Event::Finished, movesOfStep == 0);
        if (event == Event::Finished) break;
        movesOfStep = 0;
    }
    const AnnealingSummary end = run.summary();
    EXPECT_EQ(end.stop, Stop::Frozen);
    EXPECT_EQ(end.moves, moves);
    EXPECT_EQ(end.temperatureSteps, steps);
    EXPECT_NEAR(end.temperature, kStartTemperature * std::pow(0.9, steps), 1e-9);
    EXPECT_DOUBLE_EQ(end.length, TourLength(end.cities, end.tour));

    std::vector<int> sorted = end.tour;
    std::ranges::sort(sorted);
    for (std::size_t i = 0; i < sorted.size(); ++i) EXPECT_EQ(sorted[i], static_cast<int>(i));

    EXPECT_EQ(run.advance(), Event::Finished);
    EXPECT_EQ(run.summary().tour, end.tour);
    EXPECT_EQ(run.summary().temperatureSteps, end.temperatureSteps);
    EXPECT_EQ(Annealing(GetParam().options).finish().tour, end.tour) << "not repeatable";
}

INSTANTIATE_TEST_SUITE_P(
    Runs, AnnealingRunTest,
    testing::Values(Run{"FewestCities", {5, 3, 1}}, Run{"SixCities", {6, 0, 0}},
                    Run{"StartValues", {15, 0, 0}}, Run{"ManyCities", {120, 7, 80}},
                    Run{"Deterministic", {30, 2, 2, Acceptance::Deterministic}},
                    Run{"Threshold", {30, 2, 2, Acceptance::Threshold}}),
    [](const auto& run) { return run.param.name; });

TEST(AnnealingTest, TooFewCitiesAreRaisedToWhereAMoveExists) {
    for (const int cities : {-3, 0, 1, 4}) {
        EXPECT_EQ(Annealing({cities, 0, 0}).finish().tour.size(), 5U) << cities;
    }
}

TEST(AnnealingTest, SeedsOfCitiesAndMovesActIndependently) {
    const AnnealingSummary base = Annealing({15, 0, 0}).finish();
    const AnnealingSummary otherMoves = Annealing({15, 0, 1}).finish();
    const AnnealingSummary otherCities = Annealing({15, 1, 0}).finish();
    EXPECT_EQ(otherMoves.startLength, base.startLength);
    EXPECT_NE(otherMoves.moves, base.moves);
    EXPECT_NE(otherCities.startLength, base.startLength);
    for (const City& city : PlaceCities(1000, 5)) {
        ASSERT_TRUE(city.x >= 0 && city.x < kFieldSize && city.y >= 0 && city.y < kFieldSize);
    }
}

/// The length change that decides leaves out the second removed edge: a frozen deterministic run
/// has no move left by that measure, though plain segment reversal would still shorten the tour.
TEST(AnnealingTest, DeterministicRunsStopWhereTheChosenLengthChangeFindsNothingMore) {
    const AnnealingSummary end = Annealing({30, 2, 2, Acceptance::Deterministic}).finish();
    const int n = static_cast<int>(end.tour.size());
    const auto city = [&](int position) {
        return end
            .cities[static_cast<std::size_t>(end.tour[static_cast<std::size_t>(position % n)])];
    };
    double leastChosen = 1e9;
    double leastReal = 1e9;
    for (int i = 0; i < n; ++i) {
        for (int j = i + 2; j < n && j - i < n - 2; ++j) {
            const double added = Distance(city(i), city(j)) + Distance(city(i + 1), city(j + 1));
            const double chosen = added - Distance(city(i), city(i + 1));
            leastChosen = std::min(leastChosen, chosen);
            leastReal = std::min(leastReal, chosen - Distance(city(j), city(j + 1)));
        }
    }
    EXPECT_GE(leastChosen, 0);
    EXPECT_LT(leastReal, 0);
}

TEST(AnnealingTest, ManyRunsFindTheShortestOfAllTours) {
    for (const std::uint64_t seed : {0U, 1U, 2U, 3U}) {
        EXPECT_NEAR(RunMonteCarlo({8, seed}).minimum, ShortestTour(PlaceCities(8, seed)), 1e-9)
            << "cities of seed " << seed;
    }
}

TEST(AnnealingTest, MonteCarloStatisticsAreThoseOfItsRuns) {
    const AnnealingOptions options{12, 4, 99};
    const MonteCarloSummary summary = RunMonteCarlo(options);
    ASSERT_EQ(summary.runs, 81);
    std::vector<double> lengths;
    for (std::uint64_t k = 0; k <= 80; ++k) {
        lengths.push_back(Annealing({12, 4, k}).finish().length);
    }
    const double mean = std::accumulate(lengths.begin(), lengths.end(), 0.0) / 81;
    double squares = 0;
    for (const double length : lengths) squares += (length - mean) * (length - mean);
    EXPECT_NEAR(summary.mean(), mean, 1e-9);
    EXPECT_NEAR(summary.deviation(), std::sqrt(squares / 81), 1e-6);
    EXPECT_EQ(summary.best, std::ranges::min_element(lengths) - lengths.begin());
    EXPECT_EQ(summary.worst, std::ranges::max_element(lengths) - lengths.begin());
    EXPECT_EQ(summary.minimum, std::ranges::min(lengths));
    EXPECT_EQ(summary.maximum, std::ranges::max(lengths));
}

TEST(AnnealingTest, MonteCarloEndsEarlyWhenItsOwnerSaysSo) {
    const MonteCarloSummary summary = RunMonteCarlo({15}, [](int runs) { return runs < 7; });
    EXPECT_EQ(summary.runs, 7);
    EXPECT_GT(summary.mean(), 0);
    EXPECT_EQ(RunMonteCarlo({15}, [](int) { return true; }).runs, 81);
}

TEST(AnnealingTest, ReportsNameTheirNumbers) {
    const AnnealingSummary run{.cities = std::vector<City>(20),
                               .tour = {},
                               .startLength = 4200,
                               .length = 1500,
                               .temperature = 12.5,
                               .temperatureSteps = 27,
                               .moves = 1234};
    EXPECT_THAT(ReportLines(run),
                testing::ElementsAre("Number of variables: 20", "Start length : 4.2000k",
                                     "Achieved minimum length : 1.5000k, average length is 75.0000",
                                     "Actually used iterations : 27", "Number of moves : 1234",
                                     "Temperature at end : 12.5000, at start it was 250.0000"));
    const MonteCarloSummary runs{.cities = 20,
                                 .startLength = 4200,
                                 .runs = 2,
                                 .minimum = 1500,
                                 .maximum = 1800,
                                 .best = 1,
                                 .worst = 0,
                                 .sum = 3300,
                                 .sumOfSquares = 1500.0 * 1500 + 1800.0 * 1800};
    EXPECT_THAT(
        ReportLines(runs),
        testing::ElementsAre("Number of variables: 20", "Start length : 4.2000k",
                             "Minimum length in MC : 1.5000k, minimum average length is 75.0000",
                             "Maximum length in MC : 1.8000k", "Relative difference : 20.00%",
                             "average length is 1.6500k, standard deviation is 150.0000",
                             "Best MC point : 1"));
}

TEST(DecayingExponentialTest, IsThatOfTheLibraryWithinRounding) {
    for (double x = 0; x < 699; x = x * 1.07 + 0.001) {
        EXPECT_NEAR(DecayingExponential(x), std::exp(-x), 4e-16 * (1 + x) * std::exp(-x)) << x;
    }
    EXPECT_EQ(DecayingExponential(0), 1);
    EXPECT_EQ(DecayingExponential(1e6), 0);
}

/// Also in the last bit around the exponential, and at its very ends.
TEST(DecayingExponentialTest, IsComparedAsIfItHadBeenSummed) {
    UniformStream stream(3);
    const auto same = [](double x, double r) {
        EXPECT_EQ(DecaysAbove(x, r), DecayingExponential(x) > r) << x << ' ' << r;
    };
    for (double x = 0; x < 710; x = x * 1.03 + 1e-4) {
        const double e = DecayingExponential(x);
        for (const double r : {0.0, e, std::nextafter(e, 0), std::nextafter(e, 1), e * (1 + 1e-9),
                               e * (1 - 1e-9), stream.next()}) {
            if (r < 1) same(x, r);
        }
    }
}

}  // namespace
}  // namespace kelvro
