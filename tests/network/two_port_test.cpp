#include "network/two_port.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvro {
namespace {

using Number = std::complex<double>;

void ExpectNear(const Matrix2& actual, const Matrix2& expected, double tolerance,
                const char* what) {
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_LE(std::abs(actual.m[i] - expected.m[i]), tolerance)
            << what << ": element " << i << " is " << actual.m[i];
    }
}

/// Every kind and back, between unequal references, of a reciprocal two-port and of a transistor.
TEST(TwoPortTest, ConversionsGiveBackTheMatrix) {
    const Matrix2 pad{{Number(0.2, 0.1), Number(0.3, -0.4), Number(0.3, -0.4), Number(-0.1, 0.2)}};
    const Matrix2 transistor{{std::polar(0.894, -1.0577), std::polar(0.02, 1.089),
                              std::polar(3.122, 2.157), std::polar(0.781, -0.4817)}};
    constexpr Ports ports{50, 75};
    for (const Matrix2& s : {pad, transistor}) {
        for (const auto kind : {Parameters::S, Parameters::Z, Parameters::Y, Parameters::ABCD}) {
            const auto other = FromScattering(kind, s, ports);
            ASSERT_TRUE(other);
            const auto back = ToScattering(kind, *other, ports);
            ASSERT_TRUE(back);
            ExpectNear(*back, s, 1e-12, kParameterNames[static_cast<std::size_t>(kind)].data());
        }
        const Matrix2 z = *FromScattering(Parameters::Z, s, ports);
        const Matrix2 y = *FromScattering(Parameters::Y, s, ports);
        EXPECT_LE(std::abs(z.determinant() * y.determinant() - 1.0), 1e-9) << "Y is Z inverted";
    }
    EXPECT_LE(std::abs(FromScattering(Parameters::ABCD, pad, ports)->determinant() - 1.0), 1e-12)
        << "reciprocity is AD - BC = 1";
}

/// By hand: 100 ohm in series between 50 and 200 ohm. s11 = (100 + 200 - 50)/350 = 5/7,
/// s21 = 2·sqrt(50·200)/350 = 4/7, s22 = (100 + 50 - 200)/350 = -1/7. It has no Z matrix.
TEST(TwoPortTest, SeriesResistorHasNoImpedanceMatrix) {
    const auto s = ToScattering(Parameters::ABCD, {{1, 100, 0, 1}}, {50, 200});
    ASSERT_TRUE(s);
    ExpectNear(*s, {{5.0 / 7, 4.0 / 7, 4.0 / 7, -1.0 / 7}}, 1e-12, "S");
    EXPECT_FALSE(FromScattering(Parameters::Z, *s, {50, 200}));
    const auto y = FromScattering(Parameters::Y, *s, {50, 200});
    ASSERT_TRUE(y);
    ExpectNear(*y, {{0.01, -0.01, -0.01, 0.01}}, 1e-12, "Y");
}

TEST(TwoPortTest, WithoutTransmissionThereIsNoChainMatrix) {
    EXPECT_FALSE(FromScattering(Parameters::ABCD, {{0.5, 0, 0, 0.5}}, {50, 50}));
    EXPECT_FALSE(FromScattering(Parameters::Y, {{-1, 0, 0, -1}}, {50, 50})) << "two shorts";
    EXPECT_FALSE(ToScattering(Parameters::ABCD, {{0, 0, 0, 0}}, {50, 50}));
    EXPECT_FALSE(ToScattering(Parameters::Z, {{-50, 0, 0, -50}}, {50, 50}));
    EXPECT_FALSE(ToScattering(Parameters::S, {{NAN, 0, 0, 0}}, {50, 50}));
}

/// Chain matrices multiply; scattering parameters have to say the same, also when the ports that
/// meet refer to different resistances.
TEST(TwoPortTest, CascadeEqualsTheProductOfChainMatrices) {
    const Matrix2 a{{1, Number(30, 40), 0, 1}};
    const Matrix2 b{{1, 0, Number(0.01, 0.02), 1}};
    const Matrix2 product{
        {1.0 + Number(30, 40) * Number(0.01, 0.02), Number(30, 40), Number(0.01, 0.02), 1}};
    const auto s = Cascade(*ToScattering(Parameters::ABCD, a, {50, 75}), {50, 75},
                           *ToScattering(Parameters::ABCD, b, {200, 100}), {200, 100});
    ASSERT_TRUE(s);
    const auto chain = FromScattering(Parameters::ABCD, *s, {50, 100});
    ASSERT_TRUE(chain);
    ExpectNear(*chain, product, 1e-11, "ABCD");
}

TEST(TwoPortTest, RenormalizingIsDescribingTheSameCircuitElsewhere) {
    const Matrix2 chain{{Number(0.6, 0.3), Number(10, 50), Number(0.01, 0.005), Number(1.2, 0.1)}};
    const auto here = ToScattering(Parameters::ABCD, chain, {50, 75});
    const auto there = ToScattering(Parameters::ABCD, chain, {10, 600});
    const auto moved = Renormalized(*here, {50, 75}, {10, 600});
    ASSERT_TRUE(moved);
    ExpectNear(*moved, *there, 1e-12, "S");
}

/// D. M. Pozar, Microwave Engineering, 3rd ed., example 11.2 (HP HFET-102 at 2 GHz): |Δ| = 0.696,
/// K = 0.607; potentially unstable, so the figure is MSG = 3.122/0.020 = 21.93 dB.
TEST(TwoPortTest, TextbookTransistorHasItsStabilityFigures) {
    constexpr double degree = 0.017453292519943295;
    const Matrix2 s{{std::polar(0.894, -60.6 * degree), std::polar(0.020, 62.4 * degree),
                     std::polar(3.122, 123.6 * degree), std::polar(0.781, -27.6 * degree)}};
    const TwoPortFigures figures = FiguresOf(s, {50, 50});
    EXPECT_NEAR(figures.determinant, 0.696, 1e-3);
    EXPECT_NEAR(figures.stability, 0.607, 1e-3);
    EXPECT_NEAR(figures.availableDb, 21.93, 5e-3);
    EXPECT_FALSE(figures.unconditional);
    EXPECT_FALSE(figures.reciprocal);
}

/// K alone does not say it: this one oscillates although its K is 1.25, as |determinant| is 1.3.
TEST(TwoPortTest, StabilityNeedsASmallDeterminantToo) {
    const TwoPortFigures figures = FiguresOf({{1.2, 0.1, -1.0, 1.0}}, {50, 50});
    EXPECT_NEAR(figures.stability, 1.25, 1e-12);
    EXPECT_NEAR(figures.determinant, 1.3, 1e-12);
    EXPECT_FALSE(figures.unconditional);
}

/// Without feedback MAG is the unilateral gain |s21|²/((1 - |s11|²)·(1 - |s22|²)).
TEST(TwoPortTest, FiguresOfAnAmplifierWithoutFeedbackStayFinite) {
    const TwoPortFigures figures = FiguresOf({{0.6, 0, 10, 0.8}}, {50, 50});
    EXPECT_NEAR(figures.availableDb, 10 * std::log10(100 / (0.64 * 0.36)), 1e-9);
    EXPECT_TRUE(figures.unconditional);
    EXPECT_NEAR(figures.inputImpedance.real(), 200, 1e-9);
}

}  // namespace
}  // namespace kelvro
