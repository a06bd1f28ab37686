#include "analysis/goal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

#include "analysis/passband.h"
#include "design/pages.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

using nlohmann::json;

Design StateOf(const json& design) {
    Design state;
    state.page = design["page"];
    state.R1 = design["r1"];
    state.R2 = design["r2"];
    state.fo = design["fo"];
    state.Q = design["q"];
    state.k = design["k"];
    state.QB = design["qb"];
    state.QBC = design["qbc"];
    state.matchBand = false;
    state = Calculated(state);
    state.Q = design["q"];  // the page derives its own, the values are for the rounded one
    return state;
}

/// Golden values from an independent implementation of the goal.
TEST(GoalTest, AtTheCalculatedDesignAgreesWithIndependentValues) {
    const json designs = json::parse(std::ifstream(TEST_DATA "/optimizer.json"));
    ASSERT_GT(designs.size(), 20U);
    for (const json& design : designs) {
        Design state = StateOf(design);
        Goal goal(state, {});
        const std::vector<double> x(goal.size(), 0.0);
        const double expected = design["goal_at_start"];
        EXPECT_NEAR(goal.value(x, CallKind::Evaluation), expected, 1e-9 * std::fabs(expected))
            << design.dump();
    }
}

struct MeasureCase {
    const char* name;
    int page;
    bool byGain;
    /// Penalty of a single resonance of a loaded Q when `wanted` times that Q is asked for.
    double (*penalty)(double Q, double wanted);
};

/// 10·log10(1 + (2·Q·δ)²) at δ = 1/(8·wanted·Q) should be 0.25.
double ByGain(double Q, double wanted) {
    const double drop = 10 * std::log10(1 + 1 / (16 * wanted * wanted));
    return 5 * (std::pow(wanted * Q, 1.5) + 1) * std::pow(drop - 0.25, 2);
}

double ByPhase(double Q, double wanted) {
    return 0.2 * (std::pow(wanted * Q, 1.5) + 1) * std::pow((wanted - 1) * Q, 2);
}

class LoadedQ : public testing::TestWithParam<MeasureCase> {};

/// A parallel tank of Q 10 has hardly any other phase at fo than its resonance; the capacitive tap
/// of a series tank turns it by 60°.
TEST_P(LoadedQ, IsMissedByWhatASingleResonanceTells) {
    Design design;
    design.page = GetParam().page;
    if (design.page == 2) std::swap(design.R1, design.R2);
    design.Q = 10;
    design = Calculated(design);
    const Response response(design);
    const double Q = design.fo / PassbandAround(response, design.fo).width();
    for (const double wanted : {1.0, 1.3, 0.7}) {
        Design asked = design;
        asked.Q = wanted * Q;
        asked.QByBandwidth = GetParam().byGain;
        Goal goal(asked, {});
        const std::vector<double> x(goal.size(), 0.0);
        const double penalty = goal.value(x, CallKind::Evaluation) + response.relativeDb(design.fo);
        // 0.3 is a Q that is off by two percent.
        const double expected = GetParam().penalty(Q, wanted);
        EXPECT_NEAR(penalty, expected, 0.15 * expected + 0.3) << wanted << " of " << Q;
    }
}

INSTANTIATE_TEST_SUITE_P(Measures, LoadedQ,
                         testing::Values(MeasureCase{"byGain", 2, true, ByGain},
                                         MeasureCase{"byPhase", 2, false, ByPhase},
                                         MeasureCase{"byTurnedPhase", 1, false, ByPhase}),
                         [](const auto& test) { return test.param.name; });

struct Minimum {
    int page;
    std::vector<double> x;
    double f;
};

class TestFunctionHas : public testing::TestWithParam<Minimum> {};

TEST_P(TestFunctionHas, ItsKnownMinimum) {
    const auto& [page, x, f] = GetParam();
    EXPECT_NEAR(TestFunction(page, x), f, 1e-12);
    for (std::size_t i = 0; i < x.size(); ++i) {
        auto beside = x;
        beside[i] += 0.01;
        EXPECT_GE(TestFunction(page, beside), f) << "parameter " << i;
    }
}

// The valley of page 6: x4 = 1, x1 = -1, x3 = 2, x2 = 2·2 + 1, each square 0.
INSTANTIATE_TEST_SUITE_P(Pages, TestFunctionHas,
                         testing::Values(Minimum{6, {-1, 5, 2, 1}, 0}, Minimum{7, {1, -4}, 0},
                                         Minimum{10, {1, 1}, 0}));

TEST(GoalTest, ParametersAreLogarithmsOfTheComponents) {
    Design state;
    EnterPage(state, 16);
    state.eightElements = true;
    state = Calculated(state);
    const auto before = ListOf(PageOf(state).builtNetworks(state).front());
    Goal goal(state, {});
    ASSERT_EQ(goal.size(), 8U);
    // The first capacitor scales its whole group, the others stay in proportion to it.
    state.components = goal.components(std::vector<double>{std::log(2.0), 0, 0, 0, 0, 0, 0, 0});
    const auto after = ListOf(PageOf(state).builtNetworks(state).front());
    for (std::size_t i = 0; i < before.size(); ++i) {
        const double factor = before[i].kind == PartKind::Capacitor ? 2 : 1;
        EXPECT_NEAR(after[i].value / before[i].value, factor, 1e-12) << before[i].name;
    }
}

TEST(GoalTest, OfTheResistorStringVanishesAtTheDesignAndSeesAWrongTap) {
    Design state;
    EnterPage(state, 19);
    state = Calculated(state);
    Goal goal(state, {});
    std::vector<double> x(8, 0.0);
    EXPECT_NEAR(goal.value(x, CallKind::Evaluation), 0, 1e-24);
    // RD8 10 % too large: only the bandgap residual, 0.1².
    x[7] = std::log(1.1);
    EXPECT_NEAR(goal.value(x, CallKind::Evaluation), 0.01, 1e-12);
}

TEST(GoalTest, NoiseRoundsToTenDigits) {
    Design state = Calculated({.page = 3});
    Goal exact(state, {});
    Goal noisy(state, {.noise = true});
    const std::vector<double> x = {0.01, 0.02, 0.03};
    const double f = exact.value(x, CallKind::Evaluation);
    const double rounded = noisy.value(x, CallKind::Evaluation);
    EXPECT_NE(f, rounded);
    EXPECT_NEAR(f, rounded, 1e-9 * std::fabs(f));
    // (1 - 0.3)² + 100·(1/3 - 0.3²)² = 6.41111..., on the page of Rosenbrock's valley.
    state.page = 10;
    Goal valley(state, {.noise = true});
    EXPECT_EQ(valley.value(std::vector{0.3, 1.0 / 3}, CallKind::Evaluation), 6.411111111);
}

}  // namespace
}  // namespace kelvro
