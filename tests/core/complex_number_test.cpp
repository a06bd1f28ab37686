#include "core/complex_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <random>

namespace kelvro {
namespace {

TEST(ComplexTest, PolarFormHasItsAngleInEveryQuadrantAndOnEveryAxis) {
    struct Case {
        double re, im, modulus, angle;
    };
    constexpr double root2 = 1.4142135623730951;
    const Case cases[] = {{1, 1, root2, 45},   {-1, 1, root2, 135}, {-1, -1, root2, -135},
                          {1, -1, root2, -45}, {-1, 0, 1, 180},     {0, -2, 2, -90},
                          {0, 3, 3, 90},       {4, 0, 4, 0},        {0, 0, 0, 0}};
    for (const auto& [re, im, modulus, angle] : cases) {
        const Complex polar = Complex::Cartesian(re, im).switched();
        EXPECT_EQ(polar.form, Complex::Form::Polar);
        EXPECT_DOUBLE_EQ(polar.a, modulus) << re << ' ' << im;
        EXPECT_DOUBLE_EQ(polar.b, angle) << re << ' ' << im;
        EXPECT_NEAR(polar.switched().a, re, 1e-15);
        EXPECT_NEAR(polar.switched().b, im, 1e-15);
    }
}

TEST(ComplexTest, MixedFormsAddInCartesianForm) {
    EXPECT_EQ((Complex::Polar(1, 90) + Complex::Cartesian(1, 0)).form, Complex::Form::Cartesian);
    const Complex less = 3 - Complex::Polar(2, -90);
    EXPECT_NEAR(less.a, 3, 1e-15);
    EXPECT_NEAR(less.b, 2, 1e-15);
}

TEST(ComplexTest, AnglesOfQuotientsLoseOneTurn) {
    EXPECT_EQ((Complex::Polar(1, 200) / Complex::Polar(1, -200)).b, 40);
    EXPECT_EQ((Complex::Polar(1, -200) / Complex::Polar(1, 200)).b, -40);
    EXPECT_EQ((Complex::Polar(1, 180) / Complex::Polar(1, -180)).b, 360);
    EXPECT_EQ((Complex::Polar(2, 170) * Complex::Polar(3, 30)).b, 200);
}

TEST(ComplexTest, DividingByZeroGivesAHugeModulus) {
    const Complex quotient = Complex::Cartesian(2, 0) / Complex::Cartesian(0, 0);
    EXPECT_DOUBLE_EQ(quotient.a, 2e20);
    EXPECT_EQ(quotient.b, 0);
    EXPECT_TRUE(std::isinf(Reciprocal(Complex::Cartesian(0, 0)).a));
}

TEST(ComplexTest, AgreesWithTheStandardLibraryInBothForms) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> part(-2, 2);
    for (int i = 0; i < 200; ++i) {
        const std::complex<double> x(part(random), part(random));
        const std::complex<double> y(part(random), part(random));
        Complex X = Complex::Cartesian(x.real(), x.imag());
        Complex Y = Complex::Cartesian(y.real(), y.imag());
        if (i % 2) X = X.switched();
        if (i % 4 > 1) Y = Y.switched();
        const auto expectSame = [&](Complex actual, std::complex<double> expected) {
            EXPECT_NEAR(actual.real(), expected.real(), 1e-13 * (1 + std::abs(expected)));
            EXPECT_NEAR(actual.imaginary(), expected.imag(), 1e-13 * (1 + std::abs(expected)));
        };
        expectSame(X + Y, x + y);
        expectSame(X - Y, x - y);
        expectSame(X * Y, x * y);
        expectSame(X / Y, x / y);
        expectSame(Reciprocal(X), 1.0 / x);
        EXPECT_NEAR(X.argument(), std::arg(x) * 57.29577951308232, 1e-12);
    }
}

}  // namespace
}  // namespace kelvro
