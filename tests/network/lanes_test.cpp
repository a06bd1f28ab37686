// Functions of several frequencies at once against the C library's, and lane against lane.

#include "network/lanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace kelvro::lanes {
namespace {

/// f at x and at three other places, all of which have to agree with the same formula for one.
template <typename Of>
double InFourLanes(double x, const Of& of) {
    const double at[] = {x, 0.75 * x, -0.5 * x, 3 * x};
    const Four found = of(Four::From(at));
    const Wide wide = of(Wide::From(at));
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(found.lane(i), of(at[i])) << at[i];
        EXPECT_EQ(wide.lane(i), of(at[i])) << at[i];
    }
    return found.lane(0);
}

TEST(LanesTest, ArcTangentIsTheAngleInEveryQuadrant) {
    std::mt19937_64 random{7};
    std::uniform_real_distribution<> angle(-std::numbers::pi, std::numbers::pi);
    for (int i = 0; i < 20000; ++i) {
        const double expected = angle(random);
        const double size = std::pow(10.0, angle(random) * 10);
        const double y = size * std::sin(expected);
        const double x = size * std::cos(expected);
        const auto of = [x](auto v) { return ArcTangent(v, decltype(v)(x)); };
        EXPECT_NEAR(InFourLanes(y, of), std::atan2(y, x), 5e-16);
    }
    for (const double y : {0.0, -0.0, 1.0, -1.0}) {
        for (const double x : {1.0, -1.0, std::tan(std::numbers::pi / 8)}) {
            EXPECT_NEAR(ArcTangent(y, x), std::atan2(y, x), 5e-16) << y << " " << x;
        }
    }
    EXPECT_EQ(ArcTangent(0.0, 0.0), 0);
    EXPECT_TRUE(std::isnan(ArcTangent(std::nan(""), 1.0)));
}

TEST(LanesTest, SineAndCosineHoldOverManyTurns) {
    const auto sine = [](auto v) { return SineAndCosine(v).sine; };
    const auto cosine = [](auto v) { return SineAndCosine(v).cosine; };
    for (double x = -40; x < 40; x += 0.0137) {
        EXPECT_NEAR(InFourLanes(x, sine), std::sin(x), 4e-16) << x;
        EXPECT_NEAR(InFourLanes(x, cosine), std::cos(x), 4e-16) << x;
    }
    for (const double x : {1e3, 12345.678, -9.9e4}) {
        EXPECT_NEAR(SineAndCosine(x).sine, std::sin(x), 1e-15) << x;
        EXPECT_NEAR(SineAndCosine(x).cosine, std::cos(x), 1e-15) << x;
    }
}

TEST(LanesTest, DecayFallsToNothing) {
    for (double x = 0; x < 680; x += 0.377) {
        const auto of = [](auto v) { return Decay(Absolute(v)); };
        const double expected = std::exp(-x);
        EXPECT_NEAR(InFourLanes(x, of), expected, 6e-16 * expected) << x;
    }
    EXPECT_EQ(Decay(0.0), 1);
    EXPECT_EQ(Decay(1e6), 0);
    EXPECT_EQ(Decay(std::numeric_limits<double>::infinity()), 0);
}

}  // namespace
}  // namespace kelvro::lanes
