#include "synthesis/refine.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvro {
namespace {

/// 50 to 500 ohm over 70 to 130 MHz with four parts; the best is -0.2717 dB (Matthaei 1964).
Network Detuned() {
    Network network;
    network.source = 50.0;
    network.load = 500.0;
    network.bands = {{70e6, 130e6}};
    network.ladder = {SeriesArm(Part::L(117e-9)), ShuntArm(Part::C(15e-12)),
                      SeriesArm(Part::L(370e-9)), ShuntArm(Part::C(4.7e-12))};
    return network;
}

double Decibels(double ratio) {
    return 10 * std::log10(ratio);
}

TEST(Refine, FindsTheBestLadderOfItsShapeFromNearby) {
    const Network start = Detuned();
    const auto refined = Refined(start, {});
    ASSERT_TRUE(refined.ok()) << refined.message();
    EXPECT_LT(Decibels(WorstGain(start)), -0.35);
    EXPECT_NEAR(Decibels(WorstGain(*refined)), -0.2717, 0.01);
}

TEST(Refine, LeavesLockedValuesAloneAndNeverMakesWorse) {
    const Network start = Detuned();
    const std::vector<Tunable> all = TunablesOf(start.ladder);
    const auto refined = Refined(start, std::vector{all[0], all[2]});
    ASSERT_TRUE(refined.ok());
    EXPECT_EQ(ValueOf(refined->ladder, all[0]), 117e-9);
    EXPECT_EQ(ValueOf(refined->ladder, all[2]), 370e-9);
    EXPECT_NE(ValueOf(refined->ladder, all[1]), 15e-12);
    EXPECT_GE(WorstGain(*refined), WorstGain(start));
    const auto twice = Refined(*refined, std::vector{all[0], all[2]});
    EXPECT_GE(WorstGain(*twice), WorstGain(*refined));
}

TEST(Refine, SaysWhyThereIsNothingToDo) {
    Network network = Detuned();
    EXPECT_FALSE(Refined(network, TunablesOf(network.ladder)).ok());
    network.bands.clear();
    network.designFrequency = 0;
    EXPECT_FALSE(Refined(network, {}).ok());
    network.bands = {{70e6, 130e6}};
    PortData data;
    data.f = {80e6, 100e6};
    data.s = {{}, {}};
    network.load = Impedance::Measured{std::make_shared<const PortData>(data), 1, false};
    EXPECT_NE(Refined(network, {}).message().find("measured"), std::string::npos);
}

}  // namespace
}  // namespace kelvro
