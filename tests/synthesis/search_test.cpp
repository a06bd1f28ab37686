#include "synthesis/search.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/random.h"
#include "network/ladder_response.h"
#include "synthesis/exact_match.h"
#include "synthesis/limit.h"
#include "tests/synthesis/problems.h"

namespace kelvro {
namespace {

SearchResult Found(const Network& problem, const SearchOptions& options) {
    auto found = SearchNetworks(problem, options);
    EXPECT_TRUE(found) << found.message();
    return found ? *std::move(found) : SearchResult{};
}

/// Best worst gain with at most so many parts.
double BestGT(const SearchResult& result, int parts) {
    double best = 0;
    for (const FoundNetwork& found : result.networks) {
        if (found.parts <= parts) best = std::max(best, found.worstGT);
    }
    return best;
}

/// The worst gain by the program's one evaluation of circuits, on a grid of its own.
double WorstOf(const Network& network, int points) {
    double worst = 1e9;
    const LadderResponse response(network);
    for (const FrequencyBand& band : network.bands) {
        for (int i = 0; i < points; ++i) {
            const double f = band.low + (band.high - band.low) * i / (points - 1);
            worst = std::min(worst, response.GT(f));
        }
    }
    return worst;
}

struct Published {
    const char* name;
    Network problem;
    LadderShape shape;
    int parts;
    double worstDb;
};

class PublishedMatch : public testing::TestWithParam<Published> {};

TEST_P(PublishedMatch, IsReached) {
    const auto& [name, problem, shape, parts, worstDb] = GetParam();
    const SearchResult result = Found(problem, {.mostParts = parts, .shape = shape});
    EXPECT_GT(BestGT(result, parts), std::pow(10, worstDb / 10) * (1 - 1e-3)) << name;
}

// The closed forms of the first two are those of low-pass ladders; that of Γ is -10·log(1 - |Γ|²).
INSTANTIATE_TEST_SUITE_P(
    Problems, PublishedMatch,
    testing::Values(Published{"10:1, 2", TenToOne(), LadderShape::LowPass, 2, -2.078},
                    Published{"10:1, 4", TenToOne(), LadderShape::LowPass, 4, -0.2717},
                    Published{"10:1, 4, any", TenToOne(), LadderShape::Any, 4, -0.1561},
                    Published{"5:1, 2", FiveToOne(), LadderShape::LowPass, 2, -0.943},
                    Published{"5:1, 4", FiveToOne(), LadderShape::LowPass, 4, -0.1094},
                    Published{"5:1, 6", FiveToOne(), LadderShape::LowPass, 6, -0.0101},
                    Published{"R + L, 2", InductiveLoad(), LadderShape::Any, 2, -2.655},
                    Published{"R + L, 3", InductiveLoad(), LadderShape::Any, 3, -1.215},
                    Published{"R + L, 4", InductiveLoad(), LadderShape::Any, 4, -0.7154},
                    Published{"Carlin, 3", CarlinsLoad(), LadderShape::Any, 3,
                              10 * std::log10(0.85396)},
                    Published{"complex, 2", ComplexPair(), LadderShape::Any, 2, -0.14889},
                    Published{"complex, 3", ComplexPair(), LadderShape::Any, 3, -0.09324},
                    Published{"complex, 4", ComplexPair(), LadderShape::Any, 4, -0.04604}),
    [](const auto& row) { return "row" + std::to_string(row.index); });

TEST(SearchTest, WhatItSaysHoldsBetweenThePointsAndByTheProgramsOwnResponse) {
    for (const Network& problem : {TenToOne(), InductiveLoad(), ComplexPair()}) {
        for (const FoundNetwork& found : Found(problem, {.mostParts = 3}).networks) {
            EXPECT_GT(Decibels(WorstOf(found.network, 4 * 601) / found.worstGT), -0.01);
            EXPECT_NEAR(WorstOf(found.network, 601), found.worstGT, 1e-9);
            EXPECT_GE(found.meanGT, found.worstGT);
            EXPECT_EQ(PartsOf(found.network.ladder).size(), static_cast<std::size_t>(found.parts));
        }
    }
}

TEST(SearchTest, TheFrontComesFirstAndLosesWithEveryPartLess) {
    const SearchResult result = Found(InductiveLoad(), {.mostParts = 4});
    bool front = true;
    for (std::size_t i = 0; i < result.networks.size(); ++i) {
        const FoundNetwork& found = result.networks[i];
        EXPECT_TRUE(front || !found.front) << "the front is not in one piece";
        front = found.front;
        if (i == 0) continue;
        const FoundNetwork& before = result.networks[i - 1];
        if (found.front) {
            EXPECT_LT(found.parts, before.parts);
        }
        if (found.front == before.front) {
            EXPECT_LE(found.worstGT, before.worstGT);
        }
    }
    EXPECT_TRUE(result.networks.front().front);
    EXPECT_EQ(result.networks.front().parts, 4);
}

/// A part that vanishes would be a network with fewer parts under another name.
TEST(SearchTest, EveryPartOfANetworkMatters) {
    for (const Network& problem : {TenToOne(), InductiveLoad(), ComplexPair()}) {
        for (const FoundNetwork& found : Found(problem, {.mostParts = 4}).networks) {
            for (std::size_t i = 0; i < found.network.ladder.size(); ++i) {
                Network without = found.network;
                without.ladder.erase(without.ladder.begin() + static_cast<long>(i));
                EXPECT_LT(WorstOf(without, 101), found.worstGT * (1 - 4e-4));
            }
        }
    }
}

TEST(SearchTest, TheAnswerDoesNotDependOnTheNumberOfThreads) {
    SearchOptions options{.mostParts = 3};
    options.threads = 1;
    const SearchResult one = Found(InductiveLoad(), options);
    options.threads = 5;
    EXPECT_EQ(Found(InductiveLoad(), options).networks, one.networks);
    options.seed = 2;
    EXPECT_NEAR(Found(InductiveLoad(), options).networks.front().worstGT,
                one.networks.front().worstGT, 1e-5);
}

/// What an element is made of: "sL" a coil in series, "pLC" both across.
std::string KindOf(const LadderElement& element) {
    if (const auto* line = std::get_if<Line>(&element.is)) {
        return line->form == Line::Form::Through ? "line" : "stub";
    }
    if (std::holds_alternative<Transformer>(element.is)) return "transformer";
    std::string kind = std::get<Arm>(element.is).place == Place::Series ? "s" : "p";
    const std::vector<LadderElement> alone{element};
    for (const Part* part : PartsOf(alone)) kind += LetterOf(part->kind);
    return kind;
}

std::vector<std::string> KindsOf(const Network& network) {
    std::vector<std::string> kinds;
    for (const LadderElement& element : network.ladder) kinds.push_back(KindOf(element));
    return kinds;
}

bool AllOf(const Network& network, const std::vector<std::string>& allowed) {
    return std::ranges::all_of(KindsOf(network), [&](const std::string& kind) {
        return std::ranges::count(allowed, kind) > 0;
    });
}

bool ValuesWithin(const Network& network, PartKind kind, double low, double high) {
    return std::ranges::all_of(PartsOf(network.ladder), [&](const Part* part) {
        return part->kind != kind || (part->value >= low * 0.999 && part->value <= high * 1.001);
    });
}

struct Wish {
    const char* name;
    SearchOptions options;
    bool (*kept)(const Network&);
};

TEST(SearchTest, EveryNetworkKeepsTheWishes) {
    const auto with = [](auto set) {
        SearchOptions options{.mostParts = 3};
        set(options);
        return options;
    };
    const Wish wishes[] = {
        {"block", with([](auto& o) { o.dc = DcWish::Block; }),
         [](const Network& n) { return DcPathOf(n.ladder) == DcPath::Blocked; }},
        {"pass", with([](auto& o) { o.dc = DcWish::Pass; }),
         [](const Network& n) { return DcPathOf(n.ladder) == DcPath::Passed; }},
        {"low-pass", with([](auto& o) { o.shape = LadderShape::LowPass; }),
         [](const Network& n) {
             return AllOf(n, {"sL", "pC"});
         }},
        {"high-pass", with([](auto& o) { o.shape = LadderShape::HighPass; }),
         [](const Network& n) {
             return AllOf(n, {"sC", "pL"});
         }},
        {"only capacitors", with([](auto& o) { o.kinds.inductors = false; }),
         [](const Network& n) {
             return AllOf(n, {"sC", "pC"});
         }},
        {"lines and stubs", with([](auto& o) {
             o.kinds = {.inductors = false, .capacitors = false, .lines = true, .stubs = true};
             o.mostParts = 2;
         }),
         [](const Network& n) {
             return AllOf(n, {"line", "stub"});
         }},
        {"small coils", with([](auto& o) {
             o.inductance = {2e-9, 15e-9};
         }),
         [](const Network& n) { return ValuesWithin(n, PartKind::Inductor, 2e-9, 15e-9); }},
        {"large capacitors", with([](auto& o) { o.capacitance.low = 5e-12; }),
         [](const Network& n) { return ValuesWithin(n, PartKind::Capacitor, 5e-12, 1); }},
        {"absorbed", with([](auto& o) {
             o.atLoad = AbsorbedPart{PartKind::Capacitor, 3e-12};
         }),
         [](const Network& n) {
             const std::string last = KindOf(n.ladder.back());
             return (last == "pC" || last == "pLC") &&
                    PartsOf(n.ladder).back()->value >= 3e-12 * 0.999;
         }},
    };
    for (const Wish& wish : wishes) {
        const SearchResult result = Found(InductiveLoad(), wish.options);
        EXPECT_FALSE(result.networks.empty()) << wish.name;
        for (const FoundNetwork& found : result.networks) {
            EXPECT_TRUE(wish.kept(found.network)) << wish.name;
        }
    }
}

TEST(SearchTest, ATransformerMatchesResistancesPerfectly) {
    SearchOptions options{.mostParts = 1};
    options.kinds.transformers = true;
    const SearchResult result = Found(TenToOne(), options);
    EXPECT_NEAR(result.networks.front().worstGT, 1, 1e-9);
    // 500 ohm to 50 ohm: √(1/10) turns on the source side.
    EXPECT_NEAR(std::get<Transformer>(result.networks.front().network.ladder[0].is).n,
                std::sqrt(0.1), 1e-4);
}

/// A quarter-wave line between 50 and 100 ohm: √(50·100) ohm, and at the edges of a band of 40 %
/// cos(θ) = cos(72°) in GT = 1/(1 + (100 - 50)²/(4·100·50)·cos²θ).
TEST(SearchTest, AQuarterWaveLineIsFound) {
    SearchOptions options{.mostParts = 1};
    options.kinds = {.inductors = false, .capacitors = false, .lines = true};
    const Network problem = MatchingProblem(50.0, 100.0, {0.8e9, 1.2e9});
    const FoundNetwork found = Found(problem, options).networks.front();
    const auto& line = std::get<Line>(found.network.ladder[0].is);
    EXPECT_NEAR(line.Z0, std::sqrt(5000.0), 0.05);
    EXPECT_NEAR(line.length.degrees / line.length.atHertz * 1e9, 90, 0.1);
    EXPECT_NEAR(found.worstGT, 1 / (1 + 0.125 * std::pow(std::cos(kTwoPi / 5), 2)), 1e-5);
}

TEST(SearchTest, LossesAreCountedAndCostGain) {
    SearchOptions options{.mostParts = 2};
    const double lossless = Found(TenToOne(), options).networks.front().worstGT;
    options.losses.inductor = {.law = PartLoss::Law::RootQ, .Q = 40, .f = 100e6};
    options.losses.capacitor = {.law = PartLoss::Law::ConstantQ, .Q = 300};
    const FoundNetwork lossy = Found(TenToOne(), options).networks.front();
    EXPECT_LT(lossy.worstGT, lossless * 0.98);
    EXPECT_NEAR(WorstOf(lossy.network, 601), lossy.worstGT, 1e-9);
    EXPECT_EQ(PartsOf(lossy.network.ladder)[0]->loss.Q > 0, true);
}

TEST(SearchTest, AHarmonicStaysBelowItsLimitAtSomeCostOfGain) {
    const Network problem = MatchingProblem(50.0, 10.0, {95e6, 105e6});
    SearchOptions options{.mostParts = 4};
    const double free = Found(problem, options).networks.front().worstGT;
    options.harmonics = {{2, -30}, {3, -40}};
    const SearchResult result = Found(problem, options);
    const double f0 = std::sqrt(95e6 * 105e6);
    for (const FoundNetwork& found : result.networks) {
        const LadderResponse response(found.network);
        EXPECT_LT(Decibels(response.GT(2 * f0)), -30 + 1e-3);
        EXPECT_LT(Decibels(response.GT(3 * f0)), -40 + 1e-3);
    }
    EXPECT_LT(result.networks.front().worstGT, free);
    EXPECT_GT(result.networks.front().worstGT, 0.9);
}

/// A termination at random: some resistance with some reactance around the band.
Termination RandomLoad(UniformStream& random, double f0) {
    const double R = 5 * std::pow(100, random.next());
    const double L = (0.2 + 3 * random.next()) * R / (kTwoPi * f0);
    const double C = 1 / (kTwoPi * f0 * R * (0.3 + 3 * random.next()));
    switch (random.below(4)) {
        case 0:
            return Impedance::InSeries({Part::R(R), Part::L(L)});
        case 1:
            return Impedance::InParallel({Part::R(R), Part::C(C)});
        case 2:
            return Impedance::InSeries({Part::R(R), Part::L(L), Part::C(C)});
        default:
            return Impedance::InSeries(
                {Part::L(L / 2), Impedance::InParallel({Part::R(R), Part::C(C)})});
    }
}

TEST(SearchTest, NothingFoundSurpassesTheLimit) {
    UniformStream random(7);
    for (int i = 0; i < 12; ++i) {
        const double f0 = 1e7 * std::pow(100, random.next());
        const double width = 0.75 * std::pow(0.003, random.next());
        Network problem = MatchingProblem(20 + 100 * random.next(), RandomLoad(random, f0),
                                          {f0 * (1 - width / 2), f0 * (1 + width / 2)});
        if (i % 4 == 3) problem.source = RandomLoad(random, f0);
        if (i % 5 == 4) problem.bands.push_back({f0 * 1.8, f0 * 1.9});
        const auto limit = GainLimitOf(problem.source, problem.load, problem.bands);
        ASSERT_TRUE(limit) << limit.message();
        SearchOptions options{.mostParts = 3};
        options.kinds.transformers = true;
        const double best = Found(problem, options).networks.front().worstGT;
        EXPECT_LT(best, limit->GT + 1e-6) << "problem " << i;
        EXPECT_GT(best, 0.1 * limit->GT) << "problem " << i;
    }
}

/// A band that is not narrow: another L section than the best at its centre may win.
TEST(SearchTest, IsNeverBelowTheExactMatchesOfOneFrequency) {
    UniformStream random(11);
    const auto termination = [&random] {
        const double R = 5 * std::pow(40, random.next());
        return std::complex<double>(R, R * (4 * random.next() - 2));
    };
    for (int i = 0; i < 10; ++i) {
        Network problem;
        problem.source = termination();
        problem.load = termination();
        problem.bands = {{90e6, 110e6}};
        const auto exact = ExactMatches(problem.source, problem.load, 100e6);
        ASSERT_TRUE(exact) << exact.message();
        const double best = BestGT(Found(problem, {.mostParts = 2}), 2);
        for (const ExactMatch& match : *exact) {
            Network network = match.network;
            network.bands = problem.bands;
            EXPECT_GE(best, WorstOf(network, 101) * (1 - 1e-6)) << "problem " << i;
        }
    }
}

TEST(SearchTest, ItEndsWhenAskedToAndKeepsWhatItHas) {
    std::size_t networks = 0;
    const auto stopAfterTwo = [&](const SearchProgress& progress) {
        if (progress.networks) networks = progress.networks->size();
        return progress.parts <= 2;
    };
    const auto result = SearchNetworks(InductiveLoad(), {.mostParts = 6}, stopAfterTwo);
    ASSERT_TRUE(result);
    EXPECT_TRUE(result->cancelled);
    EXPECT_GT(networks, 0U);
    EXPECT_GE(BestGT(*result, 2), std::pow(10, -0.2655) * (1 - 1e-3));
}

struct Refused {
    const char* says;
    Network problem;
    SearchOptions options;
};

TEST(SearchTest, WhatCannotBeSearchedIsRefusedWithTheReason) {
    Network noBand = TenToOne();
    noBand.bands.clear();
    const auto loaded = [](Termination load) { return MatchingProblem(50.0, load, {1e6, 2e6}); };
    const Refused cases[] = {
        {"band", noBand, {}},
        {"band", MatchingProblem(50.0, 500.0, {2e6, 1e6}), {}},
        {"load at 1.000 MHz is not above 0", loaded(std::complex<double>(0, 50)), {}},
        {"load has no impedance", loaded(Impedance::Measured{}), {}},
        {"parts", TenToOne(), {.mostParts = 9}},
        {"parts", TenToOne(), {.mostParts = 0}},
        {"value", TenToOne(), {.inductance = {2e-9, 1e-9}}},
        {"no ladder", TenToOne(), {.dc = DcWish::Block, .shape = LadderShape::LowPass}},
        {"no ladder", TenToOne(), {.mostParts = 1, .harmonics = {{2, -60}}}},
        {"harmonic", TenToOne(), {.harmonics = {{1, -20}}}},
    };
    for (const Refused& refused : cases) {
        const auto result = SearchNetworks(refused.problem, refused.options);
        ASSERT_FALSE(result) << refused.says;
        EXPECT_NE(result.message().find(refused.says), std::string::npos) << result.message();
    }
}

TEST(SearchTest, WhatIsMatchedAlreadyNeedsNothing) {
    const SearchResult result = Found(MatchingProblem(50.0, 50.0, {1e6, 2e6}), {.mostParts = 3});
    ASSERT_EQ(result.networks.size(), 1U);
    EXPECT_EQ(result.networks[0].parts, 0);
    EXPECT_TRUE(result.networks[0].network.ladder.empty());
}

}  // namespace
}  // namespace kelvro
