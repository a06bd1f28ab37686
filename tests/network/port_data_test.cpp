// Measured data between their samples and beside them.

#include "network/port_data.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "network/coverage.h"
#include "network/network.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;

constexpr double kPi = std::numbers::pi;

PortData OnePort(std::vector<Cx> reflections, Interpolation interpolation = Interpolation::Linear) {
    PortData data;
    data.interpolation = interpolation;
    for (std::size_t i = 0; i < reflections.size(); ++i) {
        data.f.push_back(1e9 + 1e8 * static_cast<double>(i));
        data.s.push_back({reflections[i]});
    }
    return data;
}

TEST(PortDataTest, LinearFormShortensTheReflectionByTheTurnBetweenSamples) {
    // Half way along the chord of a circle: cos(δ/2).
    for (const double degrees : {10.0, 30.0, 90.0}) {
        const std::vector<Cx> arc{std::polar(0.8, 3.0), std::polar(0.8, 3.0 + degrees * kPi / 180)};
        const auto linear = OnePort(arc).at(1.05e9);
        EXPECT_NEAR(std::abs((*linear)[0]), 0.8 * std::cos(degrees * kPi / 360), 1e-12);
        const PortData data = OnePort(arc, Interpolation::Polar);
        const auto polar = data.at(1.05e9);
        EXPECT_LT(std::abs((*polar)[0] - std::polar(0.8, 3.0 + degrees * kPi / 360)), 1e-12);
        EXPECT_NEAR(data.largestTurn(1e9, 1.1e9), degrees, 1e-9);
    }
}

TEST(PortDataTest, CubicNeverPassesItsSamplesAndMeetsThemWithoutBend) {
    const auto data = OnePort({0.1, 0.1, 0.5, 0.9, 0.9}, Interpolation::MonotoneCubic);
    // Secant slopes 0, 4, 4, 0 per GHz: slopes 0, 0, 4, 0, 0; half way 0.3 - 0.1·(4 - 0)/8.
    EXPECT_NEAR((*data.at(1.15e9))[0].real(), 0.25, 1e-12);
    EXPECT_NEAR((*data.at(1.05e9))[0].real(), 0.1, 1e-12);
    double last = 0;
    for (double f = 1e9; f <= 1.4e9; f += 1e6) {
        const double now = (*data.at(f))[0].real();
        EXPECT_GE(now, last - 1e-15) << f;
        EXPECT_LE(now, 0.9 + 1e-15);
        last = now;
    }
    const auto two = OnePort({0.0, Cx{0, 0.4}}, Interpolation::MonotoneCubic);
    EXPECT_LT(std::abs((*two.at(1.025e9))[0] - Cx{0, 0.1}), 1e-12);
}

TEST(PortDataTest, CubicTakesAParabolaThroughItsEnds) {
    // y = x² - 0.1 in units of 100 MHz: end slope 0 by the parabola, inner slopes harmonic.
    const auto data = OnePort({0.0, 0.1, 0.4}, Interpolation::MonotoneCubic);
    // Slopes 0 and 2/(1/0.1 + 1/0.3) = 0.15 per step: half way 0.05 + (0 - 0.15)/8.
    EXPECT_NEAR((*data.at(1.05e9))[0].real(), 0.03125, 1e-12);
}

TEST(PortDataTest, NothingIsSaidOutsideTheSamples) {
    for (const auto form :
         {Interpolation::Linear, Interpolation::Polar, Interpolation::MonotoneCubic}) {
        const auto data = OnePort({0.1, Cx{0, 0.2}, -0.3}, form);
        EXPECT_EQ((*data.at(1e9))[0], 0.1);
        EXPECT_EQ((*data.at(1.1e9))[0], Cx(0, 0.2));
        EXPECT_EQ((*data.at(1.2e9))[0], -0.3);
        for (const double f : {0.0, 0.999e9, 1.2001e9, std::nan("")}) {
            EXPECT_FALSE(data.at(f).has_value()) << f;
        }
    }
    EXPECT_FALSE(PortData{}.at(1e9).has_value());
    const Impedance measured = Impedance::Measured{std::make_shared<PortData>(OnePort({0.5, 0.5}))};
    EXPECT_LT(std::abs(impedance(measured, 1.05e9) - 150.0), 1e-10);
    EXPECT_TRUE(std::isnan(impedance(measured, 2e9).real()));
    EXPECT_TRUE(std::isnan(impedance(Impedance::InParallel({50.0, measured}), 2e9).real()));
}

TEST(PortDataTest, TurnsCountInTheBandOnlyAndActiveSamplesAreNamed) {
    const auto data = OnePort({1.0, Cx{0, 0.9}, Cx{0, 0.8}, Cx{0, -0.7}});
    EXPECT_NEAR(data.largestTurn(1.0e9, 1.05e9), 90, 1e-9);
    EXPECT_NEAR(data.largestTurn(1.12e9, 1.18e9), 0, 1e-9);
    EXPECT_NEAR(data.largestTurn(1.12e9, 2e9), 180, 1e-9);
    EXPECT_EQ(data.activeSamples(), std::vector<double>{1e9});
}

TEST(PortDataTest, EachFileOfANetworkIsNamedOnce) {
    const auto antenna = std::make_shared<PortData>(OnePort({0.5, 0.5}));
    const auto whip = std::make_shared<PortData>(OnePort({0.1, 0.2, 0.3}));
    const Impedance both =
        Impedance::InParallel({Impedance::Measured{antenna}, 50.0, Impedance::Measured{whip}});
    const Network network{both, {ShuntArm(Impedance::Measured{antenna})}, both};
    EXPECT_EQ(DataOf(network), (std::vector<std::shared_ptr<const PortData>>{antenna, whip}));
    EXPECT_TRUE(DataOf(Network{}).empty());
}

TEST(PortDataTest, TwoPortsAreSeenFromEitherPortOrAsAnArm) {
    // 30 Ω in series between ports of 50 and 100 Ω: scattering of the T of 0, 30, 0 by hand.
    PortData series;
    series.ports = 2;
    series.f = {1e9, 2e9};
    const double through = 2 * std::sqrt(5000.0) / 180;
    series.s.assign(2, {Cx{80.0 / 180}, Cx{through}, Cx{through}, Cx{-20.0 / 180}});
    series.reference = {50, 100};
    const auto data = std::make_shared<PortData>(series);
    const auto seen = [&](int port, bool conjugate = false) {
        return impedance(Impedance::Measured{data, port, conjugate}, 1.5e9);
    };
    EXPECT_LT(std::abs(seen(1) - 130.0), 1e-9);
    EXPECT_LT(std::abs(seen(2) - 80.0), 1e-9);
    EXPECT_LT(std::abs(seen(0) - 30.0), 1e-9);

    const auto reactive = std::make_shared<PortData>(OnePort({Cx{0, 1}, Cx{0, 1}}));
    EXPECT_LT(std::abs(impedance(Impedance::Measured{reactive, 1, true}, 1e9) - Cx{0, -50}), 1e-9);
}

}  // namespace
}  // namespace kelvro
