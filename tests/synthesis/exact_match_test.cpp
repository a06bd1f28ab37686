#include "synthesis/exact_match.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "network/ladder_response.h"
#include "tests/network/drawn_networks.h"

namespace kelvro {
namespace {

const Arm& ArmOf(const LadderElement& element) {
    return std::get<Arm>(element.is);
}

const Part& PartOf(const LadderElement& element) {
    return std::get<Part>(ArmOf(element).impedance.is);
}

bool Has(const ExactMatch& match, const std::vector<LadderElement>& ladder) {
    return std::ranges::equal(
        match.network.ladder, ladder,
        [](const LadderElement& element, const LadderElement& wanted) {
            return ArmOf(element).place == ArmOf(wanted).place &&
                   PartOf(element).kind == PartOf(wanted).kind &&
                   std::abs(PartOf(element).value / PartOf(wanted).value - 1) < 5e-5;
        });
}

struct MatchCase {
    const char* name;
    const char* source;
    const char* load;
    double f;
    const char* solution;
    const char* other;  ///< or none
};

class ExactLSections : public testing::TestWithParam<MatchCase> {};

TEST_P(ExactLSections, AreAllFound) {
    SCOPED_TRACE(GetParam().name);
    const MatchCase& c = GetParam();
    const auto matches = ExactMatches(*ParseTermination(c.source), *ParseTermination(c.load), c.f);
    ASSERT_TRUE(matches.ok()) << matches.message();
    EXPECT_EQ(matches->size(), 2U);
    for (const char* wanted : {c.solution, c.other}) {
        if (!wanted) continue;
        const auto ladder = LadderOf(wanted);
        EXPECT_TRUE(std::ranges::any_of(*matches, [&](const auto& m) { return Has(m, ladder); }))
            << "missing " << wanted;
    }
    for (const ExactMatch& match : *matches) EXPECT_NEAR(match.GT, 1, 1e-9);
}

/// Textbook values: D. M. Pozar, Microwave Engineering, example 5.1, and others reckoned by hand
/// from its equations.
INSTANTIATE_TEST_SUITE_P(
    Textbook, ExactLSections,
    testing::Values(
        MatchCase{"Pozar", "100", "200-j100", 500e6, "series: L=38.985n; shunt: C=0.92277p",
                  "series: C=2.599p; shunt: L=46.139n"},
        MatchCase{"inductive", "150+j75", "75+j15", 2e9, "shunt: C=0.732p; series: L=6.116n",
                  "shunt: L=20.588n; series: C=0.74472p"},
        MatchCase{"one part", "25+j25", "50", 2.44e9, "shunt: C=1.3045p", nullptr},
        MatchCase{"small", "10-j20", "3+j4", 100e6, "shunt: C=62.329p; series: L=12.532n",
                  "shunt: L=13.356n; series: C=100.26p"}));

TEST(ExactMatch, WhatIsMatchedAlreadyNeedsNoPart) {
    const auto matches = ExactMatches(Cx(50, 20), Cx(50, -20), 1e9);
    ASSERT_TRUE(matches.ok()) << matches.message();
    EXPECT_EQ(matches->size(), 3U);
    EXPECT_TRUE(std::ranges::any_of(*matches, [](const auto& m) { return Has(m, {}); }));
}

// ---------------------------------------------------------------- properties

class RandomEnds {
  public:
    Cx next() { return {std::pow(10.0, 3 * number()), 400 * (number() - 0.5)}; }
    double number() { return std::ldexp(static_cast<double>(random_()), -64); }

  private:
    std::mt19937_64 random_{11};
};

TEST(ExactMatch, AtLeastTwoSolutionsMatchAnyTwoResistances) {
    RandomEnds ends;
    for (int i = 0; i < 500; ++i) {
        const Cx source = ends.next();
        const Cx load = ends.next();
        const auto matches = ExactMatches(source, load, 100e6);
        ASSERT_TRUE(matches.ok());
        EXPECT_GE(matches->size(), 2U) << source << load;
        EXPECT_LE(matches->size(), 4U);
        for (const ExactMatch& match : *matches) {
            ASSERT_NEAR(match.GT, 1, 1e-8) << source << load;
            EXPECT_LE(match.network.ladder.size(), 2U);
            EXPECT_TRUE(match.width.contains(100e6));
        }
    }
}

/// Q at the end that the definition names: of a pi the conductance there to the susceptance of its
/// arm, the termination's own taken along.
TEST(ExactMatch, PiAndTHaveTheQThatWasAsked) {
    RandomEnds ends;
    for (int i = 0; i < 200; ++i) {
        const Cx source = ends.next();
        const Cx load = ends.next();
        for (const auto topology : {MatchTopology::Pi, MatchTopology::T}) {
            const bool pi = topology == MatchTopology::Pi;
            const double Q = LowestQ(topology, source, load) * (1.01 + 3 * ends.number());
            const auto matches = ExactMatches(source, load, 100e6, {topology, Q});
            ASSERT_TRUE(matches.ok()) << matches.message();
            ASSERT_EQ(matches->size(), 4U);
            for (const ExactMatch& match : *matches) {
                ASSERT_NEAR(match.GT, 1, 1e-7) << source << load;
                const auto& ladder = match.network.ladder;
                ASSERT_EQ(ladder.size(), 3U);
                const auto loadedQ = [&](const LadderElement& arm, Cx end) {
                    const Cx own = impedance(ArmOf(arm).impedance, 100e6);
                    const Cx sum = pi ? 1.0 / own + 1.0 / end : own + end;
                    return std::abs(sum.imag() / sum.real());
                };
                EXPECT_NEAR(std::max(loadedQ(ladder.front(), source), loadedQ(ladder.back(), load)),
                            Q, 1e-6 * Q);
            }
        }
    }
}

/// By hand: 50 to 200 ohm, Q 3 at 200 ohm: R = 20 ohm in the middle, so Q = sqrt(50/20 - 1) =
/// 1.2247 at the source. Shunt reactances 50/1.2247 = 40.82 and 200/3 = 66.67 ohm, series
/// 20·(1.2247 + 3) = 84.49 ohm; at 10 MHz 389.9 pF, 1.3447 uH and 238.73 pF.
TEST(ExactMatch, PiSectionIsTheTextbooks) {
    const auto matches = ExactMatches(50, 200, 10e6, {MatchTopology::Pi, 3});
    ASSERT_TRUE(matches.ok());
    const double omega = kTwoPi * 10e6;
    const double q = std::sqrt(1.5);
    EXPECT_TRUE(std::ranges::any_of(*matches, [&](const ExactMatch& match) {
        return Has(match,
                   {ShuntArm(Part::C(q / 50 / omega)), SeriesArm(Part::L(20 * (q + 3) / omega)),
                    ShuntArm(Part::C(3.0 / 200 / omega))});
    }));
}

TEST(ExactMatch, AtTheLowestQAPiIsAnLSection) {
    const double lowest = LowestQ(MatchTopology::Pi, 50, 200);
    EXPECT_NEAR(lowest, std::sqrt(3.0), 1e-12);
    const auto matches = ExactMatches(50, 200, 10e6, {MatchTopology::Pi, lowest});
    ASSERT_TRUE(matches.ok()) << matches.message();
    ASSERT_EQ(matches->size(), 2U);
    EXPECT_EQ(matches->front().network.ladder.size(), 2U);
    EXPECT_NEAR(matches->front().GT, 1, 1e-9);
}

/// The 1 dB width counts what the termination really is: the gain at its ends says so.
TEST(ExactMatch, WidthEndsWhereTheGainHasFallenByOneDecibel) {
    const Termination load = Impedance::InSeries({Part::R(40), Part::L(120e-9)});
    const auto matches = ExactMatches(50, load, 350e6);
    ASSERT_TRUE(matches.ok());
    for (const ExactMatch& match : *matches) {
        const LadderResponse response(match.network);
        for (const double edge : {match.width.low, match.width.high}) {
            if (!(edge > 0) || !std::isfinite(edge)) continue;
            EXPECT_NEAR(10 * std::log10(response.GT(edge)), -1, 1e-6);
        }
    }
}

TEST(ExactMatch, TellsHowDirectCurrentGoes) {
    const auto matches = ExactMatches(100, Cx(200, -100), 500e6);
    for (const ExactMatch& match : *matches) {
        const bool lowPass = PartOf(match.network.ladder.front()).kind == PartKind::Inductor;
        EXPECT_EQ(match.dc, lowPass ? DcPath::Passed : DcPath::Blocked);
    }
    EXPECT_EQ(DcPathOf({ShuntArm(Part::L(1e-9)), SeriesArm(Part::L(1e-9))}), DcPath::Grounded);
}

struct RefusedMatch {
    const char* name;
    Impedance source;
    Impedance load;
    ExactMatchOptions options;
    const char* message;
};

class RefusedMatches : public testing::TestWithParam<RefusedMatch> {};

TEST_P(RefusedMatches, SayWhy) {
    const RefusedMatch& c = GetParam();
    const auto matches = ExactMatches(c.source, c.load, 1e9, c.options);
    ASSERT_FALSE(matches.ok()) << c.name;
    EXPECT_NE(matches.message().find(c.message), std::string::npos) << matches.message();
}

Impedance MeasuredLoad(Cx gamma) {
    PortData data;
    data.name = "antenna.s1p";
    data.f = {1e9, 2e9};
    data.s = {{gamma}, {gamma}};
    return Impedance::Measured{std::make_shared<PortData>(data)};
}

INSTANTIATE_TEST_SUITE_P(
    Faults, RefusedMatches,
    testing::Values(
        RefusedMatch{"reactive load", 50, Cx(0, 20), {}, "the load has 0.0"},
        RefusedMatch{"negative source", Cx(-5, 20), 50, {}, "the source has -5.0"},
        RefusedMatch{"open load", 50, Part::C(0), {}, "the load is open"},
        RefusedMatch{"active load", 50, MeasuredLoad({0, 1.2}), {}, "only a resistance above 0"},
        RefusedMatch{"low Q", 50, 200, {MatchTopology::Pi, 1.5}, "need a Q of 1.732 or more"}));

TEST(ExactMatch, OutsideTheDataNamesTheirRange) {
    const auto matches = ExactMatches(50, MeasuredLoad(0.5), 3e9);
    ASSERT_FALSE(matches.ok());
    EXPECT_EQ(matches.message(), "antenna.s1p covers 1.000 GHz to 2.000 GHz, not 3.000 GHz");
}

}  // namespace
}  // namespace kelvro
