// What each kind of element does in a ladder, worked out by hand.

#include <gtest/gtest.h>

#include "network/ladder_response.h"
#include "tests/network/drawn_networks.h"

namespace kelvro {
namespace {

/// M in the middle, L1 - M and L2 - M in the arms: the T of coupled coils.
TEST(ElementTest, CoupledCoilsAreTheirT) {
    Draw draw;
    for (int i = 0; i < 50; ++i) {
        const double k = draw.between(0.05, 1);
        Part first = CoilOf(draw.between(10, 1000), 1e8);
        Part second = CoilOf(draw.between(10, 1000), 1e8);
        first.loss = second.loss = {PartLoss::Law::Page, draw.between(3, 1000)};
        Part mutual = first;
        mutual.value = k * std::sqrt(first.value * second.value);
        Part left = first;
        left.value -= mutual.value;
        Part right = second;
        right.value -= mutual.value;
        const LadderResponse coils(Between(50.0, {{CoupledCoils{first, second, k}}}, 75.0));
        const LadderResponse T(
            Between(50.0, {SeriesArm(left), ShuntArm(mutual), SeriesArm(right)}, 75.0));
        const double f = draw.between(1e7, 1e9);
        EXPECT_LT(Distance(coils.at(f).transfer, T.at(f).transfer), 1e-12);
        EXPECT_LT(Distance(coils.at(f).gammaIn, T.at(f).gammaIn), 1e-12);
    }
}

TEST(ElementTest, CoupledCoilsKeepTheirOwnCapacitance) {
    // A coil that resonates at 500 MHz by itself has 1/(ω²L) across it, here on either side.
    Part first = CoilOf(100, 1e8);
    first.loss.SRF = 5e8;
    Part second = CoilOf(150, 1e8);
    second.loss.SRF = 4e8;
    const auto own = [](const Part& coil) {
        return ShuntArm(Part::C(1 / (std::pow(kTwoPi * coil.loss.SRF, 2) * coil.value)));
    };
    Part bareFirst = Part::L(first.value);
    Part bareSecond = Part::L(second.value);
    const LadderResponse coils(Between(50.0, {{CoupledCoils{first, second, 0.6}}}, 75.0));
    const LadderResponse apart(
        Between(50.0, {own(first), {CoupledCoils{bareFirst, bareSecond, 0.6}}, own(second)}, 75.0));
    for (const double f : {1e8, 3e8, 4.5e8}) {
        EXPECT_LT(Distance(coils.at(f).transfer, apart.at(f).transfer), 1e-12) << f;
    }
}

TEST(ElementTest, MatchedLinesDelayAndWeaken) {
    // 2 m on εr 2.25 with 0.5 dB/m at 1 GHz: twice that at 4 GHz.
    const Line line{
        .length = {.metres = 2, .er = 2.25}, .attenuation = 0.5, .attenuationAtHertz = 1e9};
    const LadderResponse response(Between(50.0, {{line}}, 50.0));
    EXPECT_NEAR(10 * std::log10(response.GT(1e9)), -1, 1e-12);
    EXPECT_NEAR(10 * std::log10(response.GT(4e9)), -2, 1e-12);
    const NetworkPoint point = response.at(1e9);
    EXPECT_NEAR(point.groupDelay, 3 / 299792458.0, 1e-20);
    EXPECT_NEAR(std::abs(point.gammaIn), 0, 1e-14);
    // A tangent of the page's kind: e^(-2·0.01·π/2) of the power at a quarter wave.
    const Line page{.length = {.degrees = 90, .atHertz = 1e9}, .tangent = 0.01};
    EXPECT_NEAR(LadderResponse(Between(50.0, {{page}}, 50.0)).GT(1e9), std::exp(-0.01 * kPi),
                1e-13);
}

TEST(ElementTest, MeasuredTwoPortsKeepTheirParameters) {
    // A transistor, conditionally stable, from D. M. Pozar's "Microwave Engineering", example 11.3:
    // the simultaneous conjugate match gains 16.7 dB.
    const auto polar = [](double size, double degrees) {
        return std::polar(size, degrees * kPi / 180);
    };
    const std::array<Cx, 4> s{polar(0.72, -116), polar(0.03, 57), polar(2.60, 76),
                              polar(0.73, -54)};
    const auto resistance = [](Cx gamma) { return 50.0 * (1.0 + gamma) / (1.0 - gamma); };
    const LadderResponse response(Between(resistance(polar(0.87176, 123.41)), {TwoPort(s)},
                                          resistance(polar(0.87629, 61.03))));
    const NetworkPoint point = response.at(4e9);
    EXPECT_NEAR(10 * std::log10(point.GT), 16.710, 0.0005);
    EXPECT_LT(std::abs(point.gammaIn), 5e-4);
    EXPECT_LT(std::abs(point.gammaOut), 5e-4);
    const auto found = response.scattering(4e9, {50, 50});
    ASSERT_TRUE(found);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_LT(Distance(found->m[i], s[i]), 1e-13) << i;
}

TEST(ElementTest, MeasuredDataEndWhereTheyEnd) {
    PortData data;
    // The reflection of 50 Ω behind a delay of 1 ns, |Γ| = 1/2: -dφ/dω = 2 ns of the round trip.
    for (double f = 1e9; f <= 2.0005e9; f += 1e6) {
        data.f.push_back(f);
        data.s.push_back({std::polar(0.5, -kTwoPi * f * 2e-9)});
    }
    data.interpolation = Interpolation::MonotoneCubic;
    const Termination load = Impedance::Measured{std::make_shared<PortData>(data)};
    LadderResponse response(Between(50.0, {}, load));
    const std::vector<double> f{0.999e9, 1e9, 1.5004e9, 2e9, 2.001e9};
    const NetworkSweep& sweep = response.sweep(f);
    for (const std::size_t missing : {0U, 4U}) {
        EXPECT_TRUE(std::isnan(sweep.GT[missing]));
        EXPECT_TRUE(std::isnan(sweep.gammaInRe[missing]));
        EXPECT_TRUE(std::isnan(sweep.VSWR[missing]));
        EXPECT_TRUE(std::isnan(sweep.phase[missing]));
        EXPECT_TRUE(std::isnan(sweep.groupDelay[missing]));
    }
    for (const std::size_t held : {1U, 2U, 3U}) {
        EXPECT_NEAR(sweep.GT[held], 0.75, 1e-4) << held;
        EXPECT_TRUE(std::isfinite(sweep.groupDelay[held])) << held;
    }
    EXPECT_TRUE(std::isnan(response.GT(0.999e9)));
    // The phase slope, by the difference of the transfer's phase over a wider step.
    const double h = 1e5;
    const double turn = std::arg(response.at(1.5004e9 + h).transfer *
                                 std::conj(response.at(1.5004e9 - h).transfer));
    EXPECT_NEAR(sweep.groupDelay[2], -turn / (kTwoPi * 2 * h), 2e-12);
}

TEST(ElementTest, BranchesTakeTheirShare) {
    // Two loads of 100 Ω side by side are 50 Ω: half the power each.
    const Network split = Between(50.0, {{Branch{{{Transformer{1}}}, 100.0}}}, 100.0);
    const NetworkPoint point = LadderResponse(split).at(1e9);
    EXPECT_NEAR(point.GT, 0.5, 1e-14);
    EXPECT_NEAR(std::abs(point.gammaIn), 0, 1e-14);
    EXPECT_NEAR(point.dissipated, 0.5, 1e-14);
}

}  // namespace
}  // namespace kelvro
