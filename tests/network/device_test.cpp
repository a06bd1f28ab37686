#include "network/device.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace kelvro {
namespace {

using Cx = std::complex<double>;

Cx Polar(double size, double degrees) {
    return std::polar(size, degrees * std::numbers::pi / 180);
}

double Decibel(double ratio) {
    return 10 * std::log10(ratio);
}

/// D. M. Pozar, Microwave Engineering, 3rd ed., example 11.3: a GaAs FET at 4 GHz.
const Matrix2 kPozarFet{{Polar(0.72, -116), Polar(0.03, 57), Polar(2.60, 76), Polar(0.73, -54)}};
/// Example 11.2: potentially unstable at 2 GHz, and where its stability circles are.
const Matrix2 kUnstableFet{
    {Polar(0.894, -60.6), Polar(0.020, 62.4), Polar(3.122, 123.6), Polar(0.781, -27.6)}};

TEST(DeviceTest, TextbookTransistorHasItsSimultaneousMatch) {
    const DeviceFigures device = DeviceFiguresOf(kPozarFet);
    EXPECT_NEAR(device.K, 1.19476, 5e-6);
    EXPECT_NEAR(device.determinant, 0.488, 1e-3);
    EXPECT_TRUE(device.unconditional);
    EXPECT_GT(device.mu, 1);
    EXPECT_GT(device.muPrime, 1);
    ASSERT_TRUE(device.match);
    EXPECT_NEAR(std::abs(device.match->source), 0.87176, 5e-6);
    EXPECT_NEAR(std::arg(device.match->source) * 180 / std::numbers::pi, 123.41, 5e-3);
    EXPECT_NEAR(std::abs(device.match->load), 0.87629, 5e-6);
    EXPECT_NEAR(std::arg(device.match->load) * 180 / std::numbers::pi, 61.03, 5e-3);
    EXPECT_NEAR(Decibel(device.match->gain), 16.710, 5e-4);
    EXPECT_NEAR(Decibel(device.availableGain), 16.710, 5e-4);
}

/// Pozar gives 1.361∠47°, 0.50 for the load and 1.132∠68°, 0.199 for the source.
TEST(DeviceTest, TextbookTransistorHasItsStabilityCircles) {
    const StabilityCircle load = StabilityCircleOf(kUnstableFet, DeviceSide::Load);
    EXPECT_NEAR(std::abs(load.centre - Polar(1.361, 47)), 0, 0.012);
    EXPECT_NEAR(load.radius, 0.50, 0.005);
    EXPECT_FALSE(load.stableInside);
    const StabilityCircle source = StabilityCircleOf(kUnstableFet, DeviceSide::Source);
    EXPECT_NEAR(std::abs(source.centre - Polar(1.132, 68)), 0, 0.012);
    EXPECT_NEAR(source.radius, 0.199, 0.001);
    const DeviceFigures device = DeviceFiguresOf(kUnstableFet);
    EXPECT_FALSE(device.match);
    // µ is the distance of the circle from the centre.
    EXPECT_NEAR(device.mu, std::abs(load.centre) - load.radius, 1e-12);
    EXPECT_NEAR(device.muPrime, std::abs(source.centre) - source.radius, 1e-12);
}

/// By definition: on a stability circle the other port reflects all, on a gain circle the gain is
/// what was asked for.
TEST(DeviceTest, CirclesHoldWhatTheyPromise) {
    std::mt19937_64 random(3);
    const auto number = [&] { return std::ldexp(static_cast<double>(random()), -64); };
    for (int i = 0; i < 200; ++i) {
        const Matrix2 s{{Polar(number(), 360 * number()), Polar(0.2 * number(), 360 * number()),
                         Polar(5 * number(), 360 * number()), Polar(number(), 360 * number())}};
        const double angle = 360 * number();
        const StabilityCircle load = StabilityCircleOf(s, DeviceSide::Load);
        const Cx onCircle = load.centre + Polar(load.radius, angle);
        const Cx input = s.m[0] + s.m[1] * s.m[2] * onCircle / (1.0 - s.m[3] * onCircle);
        EXPECT_NEAR(std::abs(input), 1, 1e-6);
        const double asked = DeviceFiguresOf(s).availableGain * number();
        for (const DeviceSide side : {DeviceSide::Source, DeviceSide::Load}) {
            const auto circle = GainCircleOf(s, side, asked);
            if (!circle) continue;
            const Cx at = circle->centre + Polar(circle->radius, angle);
            const double gain =
                side == DeviceSide::Load ? OperatingGain(s, at) : AvailableGain(s, at);
            EXPECT_NEAR(gain, asked, 1e-6 * asked);
        }
    }
}

/// At the simultaneous match all gains are the same and no small step raises any of them.
TEST(DeviceTest, SimultaneousMatchIsTheTopOfAllGains) {
    const SimultaneousMatch top = *DeviceFiguresOf(kPozarFet).match;
    EXPECT_NEAR(OperatingGain(kPozarFet, top.load), top.gain, 1e-9 * top.gain);
    EXPECT_NEAR(AvailableGain(kPozarFet, top.source), top.gain, 1e-9 * top.gain);
    for (int i = 0; i < 12; ++i) {
        const Cx step = Polar(1e-3, 30 * i);
        EXPECT_LT(TransducerGain(kPozarFet, top.source + step, top.load), top.gain);
        EXPECT_LT(TransducerGain(kPozarFet, top.source, top.load + step), top.gain);
    }
    const auto point = GainCircleOf(kPozarFet, DeviceSide::Load, top.gain);
    ASSERT_TRUE(point);
    EXPECT_LE(std::abs(point->centre - top.load), 1e-5);
    EXPECT_LE(point->radius, 1e-3);
    EXPECT_FALSE(GainCircleOf(kPozarFet, DeviceSide::Load, 1.01 * top.gain));
}

/// Without feedback: both ports conjugate, S11* and S22*, whatever the other sees.
TEST(DeviceTest, UnilateralDeviceIsMatchedPortByPort) {
    const Matrix2 s{{Cx(0.3, 0.4), 0, 4, Cx(-0.2, 0)}};
    const auto match = DeviceFiguresOf(s).match;
    ASSERT_TRUE(match);
    EXPECT_LE(std::abs(match->source - Cx(0.3, -0.4)), 1e-12);
    EXPECT_LE(std::abs(match->load - Cx(-0.2, 0)), 1e-12);
    EXPECT_NEAR(match->gain, 16 / (0.75 * 0.96), 1e-9);
}

}  // namespace
}  // namespace kelvro
