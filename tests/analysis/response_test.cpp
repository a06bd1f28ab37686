#include "analysis/response.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

#include "design/pages.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

using nlohmann::json;

Design StateOf(const json& design) {
    Design state;
    state.page = design["page"];
    state.LCSwapped = design["swapped"];
    state.R1 = design["r1"];
    state.R2 = design["r2"];
    state.fo = design["fo"];
    state.QB = design["qb"];
    state.QBC = design["qbc"];
    state.k = design["k"];
    const char* names[] = {"X1", "X2", "X3", "X4"};
    for (int i = 0; i < 4; ++i) {
        state.components[SlotBehind(Slot::C1, i)] = design["components"].value(names[i], 0.0);
    }
    state.components[Slot::ZL] = design["zl"];
    return state;
}

/// Golden values from an independent ladder calculation.
TEST(ResponseTest, AgreesWithIndependentLadderAlgebra) {
    const json designs = json::parse(std::ifstream(TEST_DATA "/response.json"));
    ASSERT_GT(designs.size(), 10U);
    for (const json& design : designs) {
        const Response response(StateOf(design));
        for (const json& point : design["points"]) {
            const std::complex<double> expected(point["re"], point["im"]);
            const auto actual = response.transfer(point["f"]);
            EXPECT_LE(std::abs(actual - expected), 1e-9 * std::abs(expected))
                << "page " << design["page"] << " swapped " << design["swapped"] << " at "
                << point["f"] << ": " << actual << " instead of " << expected;
        }
    }
}

Design DesignedState(int page) {
    Design state;
    EnterPage(state, page);
    return CalculatedEitherWay(state);
}

TEST(ResponseTest, IsFiniteAtEveryFrequency) {
    for (const Page& page : Pages()) {
        for (const bool swapped : {false, true}) {
            Design state = DesignedState(page.number);
            state.LCSwapped = swapped;
            const Response response(state);
            for (const double f : {0.0, -0.0, 5e-324, 1e-30, 1.0, -2e9, 1e13, 1e25}) {
                EXPECT_TRUE(std::isfinite(response.magnitude(f))) << page.number << " at " << f;
                EXPECT_TRUE(std::isfinite(response.relativeDb(f))) << page.number << " at " << f;
                EXPECT_TRUE(std::isfinite(response.phase(f))) << page.number << " at " << f;
            }
        }
    }
}

TEST(ResponseTest, ZeroFrequencyOfAMirroredPageCountsAsAMillionthOfFo) {
    Design state = DesignedState(3);
    state.LCSwapped = true;
    const Response response(state);
    EXPECT_EQ(response.transfer(0), response.transfer(1e-6 * state.fo));
}

/// 10 to 20 ohm at Q = 0.5: XC1 = 2·0.5·10 - sqrt(10·10) = 0, so C1 is a short and what remains is
/// the L section of q = sqrt(20/10 - 1) = 1 with XL = 10, XC2 = 20, which matches.
TEST(ResponseTest, TheSeriesTankWithoutReactanceOfC1IsAnLSection) {
    const CycleResult result = CycleOf({.R1 = 10, .R2 = 20, .Q = 0.5, .QB = 1e9, .QBC = 1e9});
    EXPECT_EQ(*result.text("C11Ausgabe"), "infinite");
    const Design& state = result.design;
    const auto H = Response(state).transfer(state.fo);
    EXPECT_NEAR(std::abs(H), std::sqrt(2), 1e-8);
    EXPECT_NEAR(std::arg(H), -std::atan(1), 1e-8);
    EXPECT_EQ(Response(state).magnitude(0), 0);
}

TEST(ResponseTest, PagesWithoutNetworkAreIdeal) {
    for (const int page : {10, 11, 12, 19}) {
        const Response response({.page = page, .R2 = 450});
        EXPECT_EQ(response.transfer(1e6), std::complex<double>(3, 0)) << page;
    }
}

TEST(ResponseTest, DerivedQuantitiesFollowFromTheValue) {
    Design state = DesignedState(3);
    state.R1 = 16 * state.R2;  // a lossless match has |H| = 1/4
    const Response response(state);
    const double f = 0.9 * state.fo;
    const std::complex<double> H = response.transfer(f);
    EXPECT_NEAR(response.magnitude(f), std::abs(H), 1e-15);
    EXPECT_NEAR(response.magnitudeDb(f), 10 * std::log10(std::norm(H)), 1e-12);
    EXPECT_NEAR(response.relativeDb(f), 10 * std::log10(std::norm(H) * 16), 1e-12);
    EXPECT_NEAR(response.phase(f), std::arg(H) * 180 / 3.14159265358979324, 1e-11);
    EXPECT_EQ(response.value(f).form, Complex::Form::Cartesian);
}

/// A pad for the least loss between 2:1 has 20·log(sqrt 2 + 1) dB (textbook formula of minimum-loss
/// pads), and is its own reference.
TEST(ResponseTest, TheResistivePadHasTheLeastLossAndPassesZeroDecibels) {
    const CycleResult result = CycleOf({.page = 7, .R1 = 100, .R2 = 50});
    EXPECT_NEAR(result.lossDb, 20 * std::log10(std::sqrt(2) + 1), 1e-8);
    EXPECT_NEAR(Response(result.design).relativeDb(1e6), 0, 1e-12);
}

}  // namespace
}  // namespace kelvro
