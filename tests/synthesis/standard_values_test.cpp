#include "synthesis/standard_values.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "network/network_text.h"
#include "synthesis/refine.h"
#include "tests/synthesis/problems.h"

namespace kelvro {
namespace {

/// The best four parts for 40 ohm with 120 nH: -0.7154 dB.
Network FourParts() {
    Network network = InductiveLoad();
    network.ladder = {SeriesArm(Part::L(20.82e-9)),
                      ShuntArm(Impedance::InParallel({Part::C(16.4e-12), Part::L(18.25e-9)})),
                      SeriesArm(Part::C(1.818e-12))};
    return network;
}

std::vector<double> ValuesIn(const Network& network) {
    std::vector<double> values;
    for (const Part* part : PartsOf(network.ladder)) values.push_back(part->value);
    return values;
}

TEST(StandardValuesTest, TheJointChoiceBeatsRounding) {
    const auto e12 =
        WithStandardValues(FourParts(), {.inductors = Series::E12, .capacitors = Series::E12});
    ASSERT_TRUE(e12) << e12.message();
    EXPECT_NEAR(Decibels(e12->worstGT), -0.904, 1e-3);
    EXPECT_NEAR(Decibels(e12->roundedGT), -1.105, 1e-3);
    EXPECT_EQ(ValuesIn(e12->network), (std::vector{22e-9, 18e-12, 15e-9, 1.8e-12}));
    const auto e24 = WithStandardValues(FourParts(), {});
    EXPECT_NEAR(Decibels(e24->worstGT), -0.802, 1e-3);
    EXPECT_NEAR(Decibels(e24->roundedGT), -0.841, 1e-3);
}

TEST(StandardValuesTest, WhatIsLockedStaysAndTheOthersMakeUpForIt) {
    Network network = FourParts();
    const auto tunables = TunablesOf(network.ladder);
    SetValue(network.ladder, tunables[0], 20.5e-9);
    const auto found = WithStandardValues(network, {.locked = {tunables[0]}});
    ASSERT_TRUE(found) << found.message();
    const auto values = ValuesIn(found->network);
    EXPECT_EQ(values[0], 20.5e-9);
    EXPECT_EQ(values[3], 1.8e-12);
    EXPECT_GT(Decibels(found->worstGT), -0.95);
    EXPECT_FALSE(WithStandardValues(network, {.locked = tunables}));
}

TEST(StandardValuesTest, WhatStaysFreeIsOptimizedAnew) {
    const auto found =
        WithStandardValues(FourParts(), {.inductors = Series::None, .capacitors = Series::E12});
    ASSERT_TRUE(found) << found.message();
    const auto values = ValuesIn(found->network);
    EXPECT_EQ(values[3], 1.8e-12);
    // Two free coils make up for most of what the coarse capacitors cost.
    EXPECT_GT(Decibels(found->worstGT), -0.76);
    EXPECT_NE(values[0], 20.82e-9);
}

TEST(StandardValuesTest, OwnPartsAreReadAndUsed) {
    const auto owned = ParseOwnedParts("22nH 15nH, 27n # ambiguous only without a heading\n");
    EXPECT_FALSE(owned);
    EXPECT_NE(owned.message().find("27n"), std::string::npos);
    const auto parts = ParseOwnedParts("L: 10n 22n 33n\n# a drawer\n15pF, C=18p C=2.2pF\nR=50\n");
    ASSERT_TRUE(parts) << parts.message();
    EXPECT_EQ(parts->inductors, (std::vector{10e-9, 22e-9, 33e-9}));
    EXPECT_EQ(parts->resistors, std::vector{50.0});
    const auto found = WithStandardValues(FourParts(), {.owned = *parts});
    ASSERT_TRUE(found);
    for (const double value : ValuesIn(found->network)) {
        const auto& all = value > 1e-10 ? parts->inductors : parts->capacitors;
        EXPECT_EQ(std::ranges::count(all, value), 1) << value;
    }
}

TEST(StandardValuesTest, ValuesBeyondTheLimitsAreNotChosen) {
    const StandardOptions free{.inductors = Series::E12, .capacitors = Series::E12};
    StandardOptions limited = free;
    limited.inductance.low = 18e-9;  // 15 nH would be the best
    const auto found = WithStandardValues(FourParts(), limited);
    ASSERT_TRUE(found) << found.message();
    for (const Part* part : PartsOf(found->network.ladder)) {
        EXPECT_TRUE(part->kind != PartKind::Inductor || part->value >= 18e-9) << part->value;
    }
    EXPECT_LT(found->worstGT, WithStandardValues(FourParts(), free)->worstGT);
    limited.capacitance = {1.9e-12, 2.1e-12};
    EXPECT_FALSE(WithStandardValues(FourParts(), limited));
}

TEST(StandardValuesTest, WhatCannotBeChosenIsRefused) {
    Network noBand = FourParts();
    noBand.bands.clear();
    EXPECT_FALSE(WithStandardValues(noBand, {}));
    EXPECT_FALSE(
        WithStandardValues(FourParts(), {.inductors = Series::None, .capacitors = Series::None}));
    for (const char* text : {"22x", "L=", "L=-3n", "C: nothing"}) {
        EXPECT_FALSE(ParseOwnedParts(text)) << text;
    }
}

}  // namespace
}  // namespace kelvro
