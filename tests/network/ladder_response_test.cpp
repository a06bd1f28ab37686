// What networks do at a frequency: values worked out by hand, laws that every network keeps, and
// the places where a division would blow up.

#include "network/ladder_response.h"
#include "network/ladder_sweep.h"

#include <gtest/gtest.h>

#include "tests/network/drawn_networks.h"

namespace kelvro {
namespace {

TEST(NetworkPointTest, PowerWavesBetweenComplexTerminations) {
    const LadderResponse straight(Between(Cx{5, 50}, {}, 50.0));
    const NetworkPoint point = straight.at(1e9);
    EXPECT_NEAR(point.GT, 0.180995, 5e-7);
    EXPECT_NEAR(point.gammaIn.real(), 0.900452, 5e-7);
    EXPECT_NEAR(point.gammaIn.imag(), 0.090498, 5e-7);
    EXPECT_NEAR(std::norm(point.gammaOut), 1 - point.GT, 1e-14);
    EXPECT_NEAR(std::norm(point.transfer), point.GT, 1e-15);
    EXPECT_LT(Distance(point.Zin, 50), 1e-12);
    EXPECT_LT(Distance(point.Zout, Cx(5, 50)), 1e-12);
}

struct MatchCase {
    const char* what;
    double f;
    const char* source;
    const char* load;
    const char* ladder;
};

class ExactMatches : public testing::TestWithParam<MatchCase> {};

/// Parts with five digits: what they reflect is of the order of 1e-5.
TEST_P(ExactMatches, PassEverything) {
    SCOPED_TRACE(GetParam().what);
    const auto& [what, f, source, load, ladder] = GetParam();
    const Cx ZS = impedance(*ParseTermination(source), f);
    const Cx ZL = impedance(*ParseTermination(load), f);
    const NetworkPoint point = LadderResponse(Between(ZS, LadderOf(ladder), ZL)).at(f);
    EXPECT_NEAR(point.GT, 1, 1e-8);
    EXPECT_LT(std::abs(point.gammaIn), 1e-4);
    EXPECT_LT(std::abs(point.gammaOut), 1e-4);
    EXPECT_LT(Distance(point.Zin, std::conj(ZS)), 1e-3 * std::abs(ZS));
    EXPECT_LT(Distance(point.Zout, std::conj(ZL)), 1e-3 * std::abs(ZL));
}

// A stub of an eighth wave has the reactance of its characteristic impedance.
INSTANTIATE_TEST_SUITE_P(
    Networks, ExactMatches,
    testing::Values(MatchCase{"coil in series", 500e6, "100", "200-j100",
                              "series: L=38.985n; shunt: C=0.92277p"},
                    MatchCase{"capacitor in series", 500e6, "100", "200-j100",
                              "series: C=2.599p; shunt: L=46.139n"},
                    MatchCase{"capacitor at the source", 2e9, "150+j75", "75+j15",
                              "shunt: C=0.732p; series: L=6.116n"},
                    MatchCase{"coil at the source", 2e9, "150+j75", "75+j15",
                              "shunt: L=20.588n; series: C=0.74472p"},
                    MatchCase{"one part", 2.44e9, "25+j25", "50", "shunt: C=1.3045p"},
                    MatchCase{"two capacitors and coils", 100e6, "10-j20", "3+j4",
                              "shunt: C=62.329p; series: L=12.532n"},
                    MatchCase{"transformer", 1e6, "200", "50", "transformer: n=2"},
                    MatchCase{"quarter wave", 1e9, "50", "200", "line: Z=100, deg=90@1G"},
                    MatchCase{"open stub against a coil", 1e9, "50", "50",
                              "open: Z=70, deg=45@1G; shunt: L=11.140846n"},
                    MatchCase{"shorted stub against a capacitor", 1e9, "50", "50",
                              "short: Z=70, deg=45@1G; shunt: C=2.273642p"}));

TEST(LadderResponseTest, EveryNetworkKeepsTheLawsOfItsKind) {
    Draw draw;
    for (int i = 0; i < 400; ++i) {
        const bool lossy = i % 2 == 1;
        const double f0 = draw.between(1e6, 1e10);
        const Network network = draw.network(lossy, f0);
        const LadderResponse response(network);
        for (int k = 0; k < 4; ++k) {
            const double f = f0 * draw.between(0.4, 1.3);
            const NetworkPoint point = response.at(f);
            SCOPED_TRACE(testing::Message() << "draw " << i << " at " << f / f0);
            if (lossy) {
                EXPECT_GT(point.dissipated, -1e-12);
            } else {
                EXPECT_NEAR(point.GT, 1 - std::norm(point.gammaIn), 1e-11);
                EXPECT_NEAR(point.GT, 1 - std::norm(point.gammaOut), 1e-11);
            }
            EXPECT_LE(point.GT, 1 + 1e-12);
            EXPECT_NEAR(response.GT(f), point.GT, 1e-12 * point.GT);
            const auto s = response.scattering(f, {20, 75});
            ASSERT_TRUE(s);
            EXPECT_LT(Distance(s->m[1], s->m[2]), 1e-10 * std::abs(s->m[1]));
            // The chain between the terminations, by the formula of the textbooks.
            const auto [A, B, C, D] = response.chain(f).m;
            EXPECT_LT(Distance(A * D - B * C, 1), 1e-12 * (std::abs(A * D) + std::abs(B * C)));
            const Cx ZS = impedance(network.source, f);
            const Cx ZL = impedance(network.load, f);
            EXPECT_LT(Distance(point.Zin, (A * ZL + B) / (C * ZL + D)),
                      1e-11 * std::abs(point.Zin));
            EXPECT_LT(Distance(point.Zout, (D * ZS + B) / (C * ZS + A)),
                      1e-11 * std::abs(point.Zout));
            const Cx sum = A * ZL + B + C * ZS * ZL + D * ZS;
            EXPECT_LT(Distance(point.transfer, 2 * std::sqrt(ZS.real() * ZL.real()) / sum), 1e-11);
            EXPECT_LT(Distance(response.voltageTransfer(f), 2.0 * ZL / sum),
                      1e-11 * std::abs(2.0 * ZL / sum));
            // Phase slope over 1e-5 of the frequency, centred.
            const double h = 1e-5 * f;
            const double turn =
                std::arg(response.at(f + h).transfer * std::conj(response.at(f - h).transfer));
            EXPECT_NEAR(point.groupDelay, -turn / (kTwoPi * 2 * h),
                        1e-6 * std::fabs(point.groupDelay) + 1e-5 / f);
        }
    }
}

TEST(LadderResponseTest, SweepsHaveTheDigitsOfSinglePoints) {
    Draw draw;
    for (std::size_t points : {1U, 3U, 4U, 9U, 1000U}) {
        const Network network = draw.network(true, 1e9);
        LadderResponse response(network);
        std::vector<double> f;
        for (std::size_t i = 0; i < points; ++i) f.push_back(0.3e9 + 1e6 * static_cast<double>(i));
        const NetworkSweep& sweep = response.sweep(f);
        ASSERT_EQ(sweep.size(), points);
        NetworkSweep other = sweep;
        other.GT[points - 1] = -1;
        ladder::Sweep(LadderProgram::Of(network), other, ladder::Lanes::Four);
        ASSERT_EQ(sweep, other);
        for (std::size_t i = 0; i < points; ++i) {
            const NetworkPoint point = response.at(f[i]);
            ASSERT_EQ(sweep.f[i], f[i]);
            ASSERT_EQ(sweep.GT[i], point.GT);
            ASSERT_EQ(sweep.groupDelay[i], point.groupDelay);
            ASSERT_EQ(sweep.dissipated[i], point.dissipated);
            ASSERT_EQ(Cx(sweep.gammaInRe[i], sweep.gammaInIm[i]), point.gammaIn);
            ASSERT_EQ(Cx(sweep.gammaOutRe[i], sweep.gammaOutIm[i]), point.gammaOut);
            ASSERT_EQ(Cx(sweep.ZinRe[i], sweep.ZinIm[i]), point.Zin);
            ASSERT_EQ(Cx(sweep.ZoutRe[i], sweep.ZoutIm[i]), point.Zout);
            ASSERT_NEAR(sweep.phase[i], std::arg(point.transfer), 1e-14);
            const double size = std::abs(point.gammaIn);
            ASSERT_NEAR(sweep.VSWR[i], (1 + size) / (1 - size), 1e-9 * sweep.VSWR[i]);
        }
    }
}

TEST(LadderResponseTest, NothingPassesTwoShortsOrTwoOpens) {
    const Part noCoil = Part::L(0);
    const Part noCapacitor = Part::C(0);
    const std::vector<double> f{1e9};
    for (const auto& ladder : {std::vector{ShuntArm(noCoil), ShuntArm(noCoil)},
                               std::vector{SeriesArm(noCapacitor), SeriesArm(noCapacitor)}}) {
        for (const double load : {50.0, 0.0}) {
            LadderResponse response(Between(50.0, ladder, load));
            EXPECT_EQ(response.GT(1e9), 0);
            EXPECT_EQ(response.at(1e9).GT, 0);
            EXPECT_EQ(response.sweep(f).GT[0], 0);
            EXPECT_EQ(response.voltageTransfer(1e9), 0.0);
        }
    }
}

struct LimitCase {
    const char* what;
    std::vector<LadderElement> ladder;
    double GT;
    Cx gammaIn, gammaOut;
};

class Limits : public testing::TestWithParam<LimitCase> {};

/// Between 50 and 50 Ω at 1 GHz: an open in the path reflects everything, +1; a short across it -1.
TEST_P(Limits, AreNumbers) {
    SCOPED_TRACE(GetParam().what);
    const auto& [what, ladder, GT, gammaIn, gammaOut] = GetParam();
    LadderResponse response(Between(50.0, ladder, 50.0));
    const NetworkPoint point = response.at(1e9);
    EXPECT_NEAR(point.GT, GT, 1e-12);
    EXPECT_LT(Distance(point.gammaIn, gammaIn), 1e-9);
    EXPECT_LT(Distance(point.gammaOut, gammaOut), 1e-9);
    const std::vector<double> f{1e9};
    const NetworkSweep& sweep = response.sweep(f);
    for (const auto* values : {&sweep.GT, &sweep.phase, &sweep.groupDelay, &sweep.dissipated,
                               &sweep.ZinRe, &sweep.ZinIm, &sweep.ZoutRe, &sweep.ZoutIm}) {
        EXPECT_TRUE(std::isfinite(values->front()));
    }
    EXPECT_FALSE(std::isnan(sweep.VSWR.front()));
    for (const NodeValue& node : response.nodes(1e9).nodes) {
        EXPECT_TRUE(std::isfinite(std::abs(node.voltage)));
        EXPECT_TRUE(std::isfinite(std::abs(node.current)));
    }
}

const Impedance kTank = Impedance::InParallel({CoilOf(70, 1e9), CapacitorOf(1.0 / 70, 1e9)});
const Impedance kTrap = Impedance::InSeries({CoilOf(70, 1e9), CapacitorOf(1.0 / 70, 1e9)});
const Line kQuarter{.length = {.degrees = 90, .atHertz = 1e9}};
const Line kShorted{.form = Line::Form::ShortedStub, .length = {.degrees = 180, .atHertz = 1e9}};

INSTANTIATE_TEST_SUITE_P(
    Ladders, Limits,
    testing::Values(
        LimitCase{"nothing", {}, 1, 0, 0}, LimitCase{"tank in series", {SeriesArm(kTank)}, 0, 1, 1},
        LimitCase{"trap across", {ShuntArm(kTrap)}, 0, -1, -1},
        LimitCase{"tank across", {ShuntArm(kTank)}, 1, 0, 0},
        LimitCase{"trap in series", {SeriesArm(kTrap)}, 1, 0, 0},
        LimitCase{"tank behind a quarter wave", {{kQuarter}, SeriesArm(kTank)}, 0, -1, 1},
        LimitCase{"shorted half wave across", {{kShorted}}, 0, -1, -1},
        LimitCase{"two traps across", {ShuntArm(Impedance::InParallel({kTrap, kTrap}))}, 0, -1, -1},
        LimitCase{"two tanks in series", {SeriesArm(Impedance::InSeries({kTank, kTank}))}, 0, 1, 1},
        LimitCase{"two shorts across", {ShuntArm(Impedance::InParallel({0, 0}))}, 0, -1, -1},
        LimitCase{"no capacitance", {SeriesArm(Part::C(0))}, 0, 1, 1},
        LimitCase{"infinite inductance", {SeriesArm(Part::L(kInfinity))}, 0, 1, 1},
        LimitCase{"infinite capacitance across", {ShuntArm(Part::C(kInfinity))}, 0, -1, -1},
        LimitCase{"no inductance across", {ShuntArm(Part::L(0))}, 0, -1, -1},
        LimitCase{"no resistance across", {ShuntArm(Part::R(0))}, 0, -1, -1},
        LimitCase{"infinite capacitance in series", {SeriesArm(Part::C(kInfinity))}, 1, 0, 0},
        LimitCase{"infinite inductance across", {ShuntArm(Part::L(kInfinity))}, 1, 0, 0},
        LimitCase{"no coupling", {{CoupledCoils{CoilOf(50, 1e9), CoilOf(50, 1e9), 0}}}, 0, j, j},
        LimitCase{"very long lossy line",
                  {{Line{.length = {.metres = 1e6}, .attenuation = 1, .attenuationAtHertz = 1e9}}},
                  0,
                  0,
                  0},
        LimitCase{"two-port that passes nothing",
                  {TwoPort({Cx{0.5}, Cx{0.1}, Cx{0}, Cx{-0.25}})},
                  0,
                  0.5,
                  -0.25},
        LimitCase{"open in a branch", {{Branch{{SeriesArm(kTank)}, 50.0}}}, 1, 0, 0}));

TEST(LadderResponseTest, DirectCurrentIsANumberToo) {
    const LadderResponse lowPass(
        Between(50.0, {SeriesArm(Part::L(1e-7)), ShuntArm(Part::C(1e-12))}, 50.0));
    EXPECT_NEAR(lowPass.GT(0), 1, 1e-12);
    const LadderResponse highPass(
        Between(50.0, {SeriesArm(Part::C(1e-12)), ShuntArm(Part::L(1e-7))}, 50.0));
    EXPECT_NEAR(highPass.GT(0), 0, 1e-12);
    EXPECT_LT(Distance(highPass.at(0).gammaIn, 1), 1e-9);
}

TEST(LadderResponseTest, AnOpenLoadTakesNothing) {
    for (const Termination& load :
         {Impedance::InSeries({10.0, kTank}), Impedance::InSeries({10.0, Part::C(0)}),
          Impedance::Nothing()}) {
        const LadderResponse response(Between(50.0, {SeriesArm(Part::L(1e-9))}, load));
        const NetworkPoint point = response.at(1e9);
        EXPECT_NEAR(point.GT, 0, 1e-12);
        EXPECT_LT(Distance(point.gammaIn, 1), 1e-9);
        EXPECT_TRUE(std::isfinite(point.groupDelay));
    }
}

TEST(NodeValuesTest, AreThoseOfKirchhoff) {
    // A match at 1 W: 10 V and 0.2 A peak in 50 Ω.
    const NodeValues matched = LadderResponse(Between(50.0, {}, 50.0)).nodes(1e9);
    ASSERT_EQ(matched.nodes.size(), 1U);
    EXPECT_LT(Distance(matched.nodes[0].voltage, 10), 1e-12);
    EXPECT_LT(Distance(matched.nodes[0].current, 0.2), 1e-12);

    Draw draw;
    for (int i = 0; i < 100; ++i) {
        Network network = draw.network(true, 1e9);
        const std::size_t at = network.ladder.size();
        network.ladder.push_back(SeriesArm(draw.arm(true, 1e9)));
        network.ladder.push_back(ShuntArm(draw.arm(true, 1e9)));
        network.ladder.push_back({Switch{"S"}});
        const double f = draw.between(0.5e9, 1.2e9);
        const LadderResponse response(network);
        const NodeValues values = response.nodes(f, 0.25);
        ASSERT_EQ(values.nodes.size(), network.ladder.size() + 1);
        const auto arm = [&](std::size_t n) {
            return impedance(std::get<Arm>(network.ladder[n].is).impedance, f);
        };
        const NodeValue series = values.part(at, Place::Series);
        EXPECT_LT(Distance(series.voltage, arm(at) * series.current),
                  1e-9 * std::abs(values.nodes[at].voltage));
        const NodeValue shunt = values.part(at + 1, Place::Shunt);
        EXPECT_LT(Distance(shunt.voltage, arm(at + 1) * shunt.current),
                  1e-9 * (std::abs(shunt.voltage) +
                          std::abs(arm(at + 1) * values.nodes[at + 1].current)));
        const NodeValue& end = values.nodes.back();
        const double power = (end.voltage * std::conj(end.current)).real() / 2;
        EXPECT_NEAR(power, 0.25 * response.GT(f), 1e-10 * power);
        const NodeValue& start = values.nodes.front();
        EXPECT_LT(Distance(start.voltage / start.current, response.at(f).Zin),
                  1e-10 * std::abs(response.at(f).Zin));
    }
}

TEST(DualTest, RespondsAsTheLadderAtTheMirroredFrequency) {
    Draw draw;
    const double f0 = 3e8;
    for (int i = 0; i < 50; ++i) {
        Network network = Between(30.0, {}, 200.0);
        for (int n = 0; n < 4; ++n) {
            Part part = draw.part(false, f0);
            part.loss = {PartLoss::Law::Page, draw.between(3, 300)};
            network.ladder.push_back(n % 2 == 0 ? SeriesArm(part) : ShuntArm(part));
        }
        const Network dual = Between(30.0, Dual(network.ladder, f0), 200.0);
        const double f = f0 * draw.between(0.2, 5);
        EXPECT_LT(Distance(LadderResponse(dual).at(f).transfer,
                           std::conj(LadderResponse(network).at(f0 * f0 / f).transfer)),
                  1e-12);
        EXPECT_EQ(PartsOf(Dual(dual.ladder, f0))[2]->loss, PartsOf(network.ladder)[2]->loss);
    }
}

}  // namespace
}  // namespace kelvro
