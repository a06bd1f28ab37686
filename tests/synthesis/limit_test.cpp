#include "synthesis/limit.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/scalar.h"

namespace kelvro {
namespace {

Termination ParallelRC(double R, double C) {
    return Impedance::InParallel({Part::R(R), Part::C(C)});
}

/// R. M. Fano, "Theoretical limitations on the broadband matching of arbitrary impedances", J.
/// Franklin Inst. 249 (1950): a capacitance C across R leaves at best |Γ| = exp(-π/(B·R·C)) over
/// the angular bandwidth B, whether the band begins at 0 or the capacitance is resonated in its
/// middle.
struct FanoCase {
    const char* name;
    double BRC;
    double relativeBand;  ///< 0: from 0 on
};

class FanoLimit : public testing::TestWithParam<FanoCase> {};

TEST_P(FanoLimit, IsFoundToTheFourthDigit) {
    const auto [name, BRC, relative] = GetParam();
    constexpr double f0 = 100e6;
    constexpr double R = 50;
    const double width = relative > 0 ? relative * f0 : f0;
    const double C = BRC / (kTwoPi * width * R);
    const double low = relative > 0 ? f0 * (std::hypot(relative / 2, 1) - relative / 2) : 0;
    const FrequencyBand band{low, low + width};
    Termination load = ParallelRC(R, C);
    if (relative > 0) {
        const double L = 1 / (std::pow(kTwoPi * f0, 2) * C);
        load = Impedance::InParallel({Part::R(R), Part::C(C), Part::L(L)});
    }
    // The limit is that of the load alone: an ideal transformer meets any resistance.
    for (const double source : {50.0, 3.0}) {
        const auto limit = GainLimitOf(source, load, {&band, 1});
        ASSERT_TRUE(limit) << limit.message();
        EXPECT_FALSE(limit->estimate);
        EXPECT_NEAR(limit->GT, 1 - std::exp(-kTwoPi / BRC), 1e-5);
    }
}

INSTANTIATE_TEST_SUITE_P(Loads, FanoLimit,
                         testing::Values(FanoCase{"from 0, 1", 1, 0}, FanoCase{"from 0, 2", 2, 0},
                                         FanoCase{"from 0, 3", 3, 0}, FanoCase{"30 %", 3, 0.3},
                                         FanoCase{"1 %", 2, 0.01}, FanoCase{"0.1 %", 3, 0.001}),
                         [](const auto& row) { return "row" + std::to_string(row.index); });

/// H. J. Carlin's load (IEEE Trans. CAS-24, 1977), whose limit J. C. Allen and D. Healy computed.
TEST(LimitTest, TheLoadOfCarlinHasItsKnownLimit) {
    const FrequencyBand band{0, 1 / kTwoPi};
    const auto limit =
        GainLimitOf(2.2, Impedance::InSeries({Part::L(2.3), ParallelRC(1, 1.2)}), {&band, 1});
    ASSERT_TRUE(limit);
    EXPECT_NEAR(limit->GT, 0.9217, 3e-4);
}

/// A coil in series is not resonated: the same law as for the capacitance, with L/R for R·C.
TEST(LimitTest, AReactanceFarFromResonanceKeepsItsLaw) {
    const FrequencyBand band{295e6, 405e6};
    const auto limit =
        GainLimitOf(50.0, Impedance::InSeries({Part::R(40), Part::L(120e-9)}), {&band, 1});
    ASSERT_TRUE(limit);
    const double width = kTwoPi * (band.high - band.low);
    EXPECT_NEAR(limit->GT, 1 - std::exp(-kTwoPi / (width * 120e-9 / 40)), 1e-5);
}

/// Seen from the lossless network both ends are alike: what is source may be load.
TEST(LimitTest, AReactiveSourceGivesAnEstimateThatDoesNotDependOnTheDirection) {
    const FrequencyBand band{0.5e9, 0.9e9};
    const Termination a = Impedance::InSeries({Part::R(25), Part::L(18e-9)});
    const Termination b = ParallelRC(200, 2e-12);
    const auto forward = GainLimitOf(a, b, {&band, 1});
    const auto backward = GainLimitOf(b, a, {&band, 1});
    ASSERT_TRUE(forward && backward);
    EXPECT_TRUE(forward->estimate);
    EXPECT_NEAR(forward->GT, backward->GT, 1e-12);
    // Either side alone sets its own limit.
    EXPECT_LE(forward->GT, GainLimitOf(50.0, b, {&band, 1})->GT + 1e-12);
    EXPECT_LE(forward->GT, GainLimitOf(50.0, a, {&band, 1})->GT + 1e-12);
}

TEST(LimitTest, TwoBandsAreEasierThanOneThatHoldsBothAndHarderThanEither) {
    const Termination load = Impedance::InSeries({Part::R(20), Part::L(100e-9), Part::C(20e-12)});
    const FrequencyBand both[] = {{80e6, 90e6}, {200e6, 220e6}};
    const FrequencyBand hull{80e6, 220e6};
    const double dual = GainLimitOf(50.0, load, both)->GT;
    EXPECT_LT(dual, GainLimitOf(50.0, load, {&both[0], 1})->GT);
    EXPECT_LT(dual, GainLimitOf(50.0, load, {&both[1], 1})->GT);
    EXPECT_GT(dual, GainLimitOf(50.0, load, {&hull, 1})->GT);
    // Bands that overlap are what they cover.
    const FrequencyBand overlapping[] = {{120e6, 220e6}, {80e6, 150e6}};
    EXPECT_NEAR(GainLimitOf(50.0, load, overlapping)->GT, GainLimitOf(50.0, load, {&hull, 1})->GT,
                1e-9);
}

TEST(LimitTest, AResistanceIsMatchedPerfectlyByATransformer) {
    const FrequencyBand band{1e6, 1e9};
    const auto limit = GainLimitOf(50.0, 500.0, {&band, 1});
    ASSERT_TRUE(limit);
    EXPECT_GT(limit->GT, 1 - 1e-9);
    EXPECT_FALSE(limit->estimate);
}

struct Refusal {
    Termination load;
    FrequencyBand band;
    const char* says;
};

TEST(LimitTest, WhatHasNoLimitIsRefusedWithTheReason) {
    const Refusal refusals[] = {
        {75.0, {2e6, 1e6}, "band"},
        {75.0, {-1e6, 1e6}, "band"},
        {75.0, {1e6, std::nan("")}, "band"},
        {std::complex<double>(0, 75), {1e6, 2e6}, "load"},
        {std::complex<double>(-5, 75), {1e6, 2e6}, "not above 0"},
        {Impedance::Measured{}, {1e6, 2e6}, "no impedance at 1.000 MHz"},
    };
    for (const Refusal& refusal : refusals) {
        const auto limit = GainLimitOf(50.0, refusal.load, {&refusal.band, 1});
        ASSERT_FALSE(limit) << refusal.says;
        EXPECT_NE(limit.message().find(refusal.says), std::string::npos) << limit.message();
    }
    EXPECT_FALSE(GainLimitOf(50.0, 75.0, {}));
}

}  // namespace
}  // namespace kelvro
