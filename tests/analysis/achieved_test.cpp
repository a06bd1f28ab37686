#include "analysis/achieved.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "analysis/response.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

CycleResult Calculated(int page, double R1, double R2, double Q) {
    return CycleOf({.page = page, .R1 = R1, .R2 = R2, .fo = 10e6, .Q = Q});
}

TEST(Achieved, TellsTheBandThatTheResponseHas) {
    // L section 50 to 200 ohm: q = √3; numbers from its closed form, lossy as the parts are.
    const CycleResult result = Calculated(13, 50, 200, 5);
    const auto achieved = AchievedBy(result);
    ASSERT_TRUE(achieved);
    const Response response(result.design);
    EXPECT_NEAR(response.relativeDb(achieved->band.high), response.relativeDb(10e6) - 3.0103, 1e-4);
    EXPECT_EQ(achieved->band.low, 0) << "a low-pass section has no lower edge";
    EXPECT_NEAR(achieved->loadedQ, 10e6 / achieved->band.high, 1e-9);
    EXPECT_EQ(achieved->lossDb, result.lossDb);
}

TEST(Achieved, SaysSoWhereTheBandIsNotTheOneShownAsB) {
    // The calculated tank keeps its Q; a ladder made for a broad band does not.
    const CycleResult tank = Calculated(2, 200, 50, 10);
    const CycleResult ladder = Calculated(16, 50, 200, 5);
    ASSERT_TRUE(AchievedBy(tank) && AchievedBy(ladder));
    EXPECT_FALSE(AchievedBy(tank)->otherThanBandwidth);
    EXPECT_TRUE(AchievedBy(ladder)->otherThanBandwidth);
    EXPECT_THAT(AchievedText(*AchievedBy(ladder), ladder.bandwidth),
                testing::HasSubstr(", not the 2.00 MHz of B"));
    EXPECT_THAT(AchievedText(*AchievedBy(tank), tank.bandwidth),
                testing::Not(testing::HasSubstr("of B")));
}

TEST(Achieved, NamesTheWorstGainOfABandThatCounts) {
    const CycleResult ladder = Calculated(16, 50, 200, 0.2);
    const auto achieved = AchievedBy(ladder);
    ASSERT_TRUE(achieved && achieved->worst);
    // The ladder of equal steps is worst where it nears the direct connection.
    EXPECT_NEAR(achieved->worst->GTDb, Response(ladder.design).relativeDb(7e6), 1e-9);
    EXPECT_THAT(AchievedText(*achieved, ladder.bandwidth),
                testing::ContainsRegex("worst GT -0\\.[0-9]+ dB from 7.00 MHz to 13.00 MHz"));
    EXPECT_FALSE(AchievedBy(Calculated(16, 50, 200, 5))->worst) << "a loaded Q counts";
    EXPECT_FALSE(AchievedBy(Calculated(13, 50, 200, 0.2))->worst) << "no band on this page";
}

TEST(Achieved, NamesTheDipThatALowPassBandHasBelowFo) {
    const CycleResult pi = Calculated(3, 50, 200, 3);
    const auto achieved = AchievedBy(pi);
    ASSERT_TRUE(achieved && achieved->dip);
    EXPECT_EQ(achieved->band.low, 0);
    // Straight through at 0 Hz 4·50·200/250² of the power arrives: 1.94 dB less.
    EXPECT_GT(achieved->dip->depthDb + pi.lossDb, 1.94);
    EXPECT_LT(achieved->dip->depthDb, 3.0103);
    EXPECT_THAT(AchievedText(*achieved, pi.bandwidth),
                testing::ContainsRegex(" with a dip of 2\\.[0-9]+ dB at [0-9.]+ MHz, loaded Q"));
    EXPECT_FALSE(AchievedBy(Calculated(3, 50, 200, 5))->dip) << "its band begins above";
    EXPECT_FALSE(AchievedBy(Calculated(13, 50, 200, 5))->dip) << "an L section rises to fo";
}

TEST(Achieved, HasNothingToSayWithoutABand) {
    EXPECT_FALSE(AchievedBy(Calculated(1, 200, 50, 5))) << "refused";
    EXPECT_FALSE(AchievedBy(Calculated(7, 200, 50, 5))) << "flat";
    EXPECT_FALSE(AchievedBy(Calculated(11, 50, 200, 5))) << "no response";
}

}  // namespace
}  // namespace kelvro
