#include "optimize/ladder_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/random.h"
#include "network/ladder_response.h"
#include "synthesis/candidates.h"
#include "tests/synthesis/problems.h"

namespace kelvro {
namespace {

constexpr double kR0 = 70;
constexpr double kF0 = 300e6;

SearchOptions Everything() {
    SearchOptions options;
    options.kinds = {.traps = true, .lines = true, .stubs = true, .transformers = true};
    options.losses.inductor = {.law = PartLoss::Law::RootQ, .Q = 40, .f = 100e6};
    options.losses.capacitor = {.law = PartLoss::Law::ConstantQ, .Q = 300};
    return options;
}

std::vector<double> RandomPoint(const Stages& topology, UniformStream& random) {
    std::vector<double> x;
    for (std::size_t i = 0; i < ParametersOf(topology); ++i) x.push_back(2 * random.next() - 1);
    return x;
}

/// Every kind of stage in every place, against the program's one evaluation of circuits.
TEST(LadderModelTest, GainsAreThoseOfTheNetworkAndGradientsTheirSlopes) {
    const Termination source = Impedance::InSeries({Part::R(20), Part::C(12e-12)});
    const Termination load = Impedance::InParallel({Part::R(90), Part::L(60e-9)});
    const std::vector<double> f = {200e6, 250e6, 290e6, 370e6};
    const SearchOptions options = Everything();
    const ModelGrid grid = GridOf(source, load, options.losses, kR0, kF0, f);
    LadderModel model;
    UniformStream random(5);
    std::vector<double> above;
    std::vector<double> below;
    for (const Stages& topology : CandidatesOf(options, 3)) {
        const auto x = RandomPoint(topology, random);
        LinearRows rows;
        model.rows(grid, topology, x, rows);
        const Network network{.source = source,
                              .ladder = ElementsOf({topology, x}, options.losses, kR0, kF0),
                              .load = load};
        const LadderResponse response(network);
        for (std::size_t i = 0; i < f.size(); ++i) {
            ASSERT_NEAR(rows.values[i], std::log(response.GT(f[i])), 1e-9);
        }
        for (std::size_t j = 0; j < x.size(); ++j) {
            constexpr double h = 1e-5;
            auto moved = x;
            moved[j] += h;
            model.values(grid, topology, moved, above);
            moved[j] -= 2 * h;
            model.values(grid, topology, moved, below);
            for (std::size_t i = 0; i < f.size(); ++i) {
                const double slope = (above[i] - below[i]) / (2 * h);
                ASSERT_NEAR(rows.gradient(i)[j], slope, 1e-5 * (1 + std::fabs(slope)));
            }
        }
    }
}

/// Alternating arms of one part or of a pair: the count a(n) = 2·a(n - 1) + a(n - 2), for either
/// place in front.
TEST(CandidatesTest, ThereAreAsManyLaddersAsCountingSays) {
    const std::size_t expected[] = {4, 10, 24, 58, 140, 338};
    for (int parts = 1; parts <= 6; ++parts) {
        EXPECT_EQ(CandidatesOf({}, parts).size(), expected[parts - 1]);
    }
}

TEST(CandidatesTest, OnePartMoreIsTheSameNetworkNearlyAndOnePartLessTheWayBack) {
    const ModelGrid grid =
        GridOf(50.0, 120.0, {}, kR0, kF0, std::vector<double>{200e6, 300e6, 370e6});
    LadderModel model;
    UniformStream random(9);
    std::vector<double> before;
    std::vector<double> after;
    for (const Stages& topology : CandidatesOf({}, 3)) {
        const LadderPoint ladder{topology, RandomPoint(topology, random)};
        model.values(grid, topology, ladder.x, before);
        const auto candidates = CandidatesOf({.kinds = {.traps = true}}, 4);
        for (const LadderPoint& more : OnePartMore(ladder)) {
            EXPECT_EQ(std::ranges::count(candidates, more.topology), 1);
            model.values(grid, more.topology, more.x, after);
            bool back = false;
            for (int part = 0; part < 4; ++part)
                back |= OnePartLess(more.topology, part) == topology;
            EXPECT_TRUE(back);
            for (std::size_t i = 0; i < before.size(); ++i) EXPECT_NEAR(after[i], before[i], 2.5);
        }
    }
}

}  // namespace
}  // namespace kelvro
