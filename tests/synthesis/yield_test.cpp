#include "synthesis/yield.h"

#include <gtest/gtest.h>

#include "tests/synthesis/problems.h"

namespace kelvro {
namespace {

/// One coil between equal resistances: GT = 1/(1 + (X/2R)²) falls with X, so a build keeps the gain
/// of the coil that is off by d if it is off by less.
Network OneCoil() {
    Network network = MatchingProblem(50.0, 50.0, {90e6, 100e6});
    network.ladder = {SeriesArm(Part::L(50e-9))};
    return network;
}

/// A pad's resistor across equal resistances: GT = 1/(1 + 25/R)².
TEST(YieldTest, ResistorsVaryToo) {
    Network network = MatchingProblem(50.0, 50.0, {90e6, 100e6});
    network.ladder = {ShuntArm(Part::R(100))};
    YieldOptions options;
    options.tolerances.resistance = 20;
    options.leastGT = 1 / (1.25 * 1.25);
    options.builds = 20000;
    const auto report = YieldOf(network, options);
    ASSERT_TRUE(report) << report.message();
    EXPECT_NEAR(report->yield, 0.5, 0.01);
    EXPECT_NEAR(report->parts.at(0).costDb, 20 * std::log10((1 + 25 / 80.0) / 1.25), 1e-9);
}

double GainWithCoil(double L) {
    return 1 / (1 + std::pow(kTwoPi * 100e6 * L / 100, 2));
}

TEST(YieldTest, OnePartYieldsWhatItsDistributionSays) {
    YieldOptions options;
    options.tolerances.inductance = 10;
    options.builds = 20000;
    for (const auto& [off, expected] : {std::pair{0.0, 0.5}, {0.05, 0.75}, {-0.08, 0.1}}) {
        options.leastGT = GainWithCoil(50e-9 * (1 + off));
        const auto report = YieldOf(OneCoil(), options);
        ASSERT_TRUE(report) << report.message();
        EXPECT_NEAR(report->yield, expected, 0.01) << off;
        EXPECT_NEAR(report->high - report->low,
                    2 * 1.96 * std::sqrt(expected * (1 - expected) / 20000), 2e-4);
        EXPECT_NEAR(report->nominalGT, GainWithCoil(50e-9), 1e-12);
        // A tenth of the builds lies in the last tenth of the tolerance.
        EXPECT_NEAR(report->quantile10, GainWithCoil(50e-9 * 1.08), 2e-4);
        ASSERT_EQ(report->parts.size(), 1U);
        EXPECT_NEAR(report->parts[0].costDb, Decibels(GainWithCoil(50e-9) / GainWithCoil(55e-9)),
                    1e-9);
    }
}

TEST(YieldTest, APartsOwnToleranceComesBeforeThatOfItsKind) {
    YieldOptions options;
    options.tolerances.inductance = 20;
    options.builds = 20000;
    options.leastGT = GainWithCoil(50e-9 * 1.05);
    Network network = OneCoil();
    // Equally distributed over ±20 %, five eighths stay below +5 %; over ±10 %, three quarters do.
    for (const auto& [own, expected] : {std::pair{0.0, 0.625}, {10.0, 0.75}}) {
        PartsOf(network.ladder).front()->tolerance = own;
        const auto report = YieldOf(network, options);
        ASSERT_TRUE(report) << report.message();
        EXPECT_NEAR(report->yield, expected, 0.01) << own;
        EXPECT_EQ(report->parts.at(0).tolerance, own > 0 ? own : 20);
    }
}

TEST(YieldTest, TheSameSeedDrawsTheSameBuildsForNetworksOfAnySize) {
    YieldOptions options;
    options.leastGT = GainWithCoil(50e-9);
    Network with = OneCoil();
    with.ladder.push_back(ShuntArm(Part::C(1e-18)));  // no influence
    EXPECT_EQ(YieldOf(with, options)->yield, YieldOf(OneCoil(), options)->yield);
    options.seed = 2;
    EXPECT_NE(YieldOf(with, options)->quantile10, YieldOf(OneCoil(), {})->quantile10);
}

/// 50 to 500 ohm with four parts. The nominal optimum is as good as it can be at its worst
/// frequencies, its builds are not.
TEST(YieldTest, CentringRaisesTheQuantileAndNeverLowersIt) {
    Network network = TenToOne();
    network.ladder = {SeriesArm(Part::L(144.2e-9)), ShuntArm(Part::C(16.6e-12)),
                      SeriesArm(Part::L(414.9e-9)), ShuntArm(Part::C(5.768e-12))};
    YieldOptions options;
    options.leastGT = std::pow(10, -0.05);
    const auto centred = Centred(network, options);
    ASSERT_TRUE(centred) << centred.message();
    EXPECT_GT(centred->after.quantile10, centred->before.quantile10);
    EXPECT_GE(centred->after.yield, centred->before.yield);
    // The reports are of the networks themselves.
    EXPECT_EQ(*YieldOf(network, options), centred->before);
    EXPECT_NEAR(YieldOf(centred->network, options)->quantile10, centred->after.quantile10, 1e-12);
    // Locked values stay, and who stops it has at least what there was.
    const Tunable first{0, 0};
    const auto locked = Centred(network, options, {.locked = {first}});
    EXPECT_EQ(ValueOf(locked->network.ladder, first), 144.2e-9);
    EXPECT_GT(locked->after.quantile10, locked->before.quantile10);
    const auto stopped = Centred(network, options, {.goesOn = [] { return false; }});
    EXPECT_EQ(stopped->network, network);
    const auto again = Centred(centred->network, options);
    EXPECT_GE(again->after.quantile10, centred->after.quantile10);
}

TEST(YieldTest, WithoutABandOrAPartThereIsNothingToBuild) {
    Network noBand = OneCoil();
    noBand.bands.clear();
    Network noPart = OneCoil();
    noPart.ladder.clear();
    for (const Network& network : {noBand, noPart}) {
        EXPECT_FALSE(YieldOf(network, {}));
        EXPECT_FALSE(Centred(network, {}));
    }
}

}  // namespace
}  // namespace kelvro
