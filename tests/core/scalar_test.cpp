#include "core/scalar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/rounding.h"

namespace kelvro {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ScalarTest, DecimalLogarithmsRestOnTheTruncatedConstant) {
    // ln 10 = 2.302585092994046, so the logarithm of 1000 is 3·(1 - 2.5859e-12).
    EXPECT_NEAR(static_cast<double>(3 - DecimalLog(1000)), 7.7577e-12, 1e-15);
    EXPECT_EQ(DecimalLog(-100), DecimalLog(100));
    EXPECT_EQ(DecimalLog(0), -1e300L);
    EXPECT_LT(DecimalLog(1e-308L), -300);
    EXPECT_GT(DecimalLog(1e-308L), -309);
    EXPECT_EQ(GuardedDecimalLog(1e-308L), -1e300L);
}

TEST(ScalarTest, PowersIgnoreTheSignOfTheBase) {
    EXPECT_DOUBLE_EQ(Power(-2, 3), 8);
    EXPECT_DOUBLE_EQ(Power(4, -0.5), 0.5);
    EXPECT_EQ(Power(0, 0), 0);
    EXPECT_EQ(Power(0, -1), 0);
}

TEST(ScalarTest, ClampsKeepTheirPriorities) {
    EXPECT_EQ(Clamp(5, 1, 3), 3);
    EXPECT_EQ(Clamp(-5, 1, 3), 1);
    EXPECT_EQ(Clamp(2, 3, 1), 3) << "the lower limit wins";
    EXPECT_EQ(Clamp(std::nan(""), 1, 3), 1);
    EXPECT_EQ(Clamp(kInfinity, 1, 3), 3);
    EXPECT_EQ(SymmetricClamp(-5, 1, 3), -3);
    EXPECT_EQ(SymmetricClamp(-0.5, 1, 3), -1);
    EXPECT_EQ(ClampInteger(2, 3, 1), 1) << "the upper limit wins";
    EXPECT_EQ(ClampInteger(7, 1, 5), 5);
}

TEST(ScalarTest, HyperbolicFunctionsAgreeWithTheLibrary) {
    for (const double x : {-200.0, -109.9, -3.0, -0.5, 0.0, 0.25, 2.0, 20.0, 110.0, 1e300}) {
        EXPECT_NEAR(HyperbolicTangent(x), std::tanh(x), 1e-15) << x;
    }
    for (const double x : {0.0, 0.5, 3.0, 1e6, -0.5, -3.0}) {
        EXPECT_NEAR(InverseHyperbolicSine(x), std::asinh(x), 1e-13) << x;
    }
    EXPECT_DOUBLE_EQ(ArcTangentDegrees(-1), -45);
}

struct RoundingCase {
    double (*round)(double);
    double value;
    double rounded;
};

class Rounding : public testing::TestWithParam<RoundingCase> {};

TEST_P(Rounding, GivesReadableValues) {
    const auto& [round, value, rounded] = GetParam();
    EXPECT_DOUBLE_EQ(round(value), rounded) << value;
    EXPECT_DOUBLE_EQ(round(-value), -rounded) << -value;
}

INSTANTIATE_TEST_SUITE_P(
    Values, Rounding,
    testing::Values(RoundingCase{StepUp125, 0.031, 0.05}, RoundingCase{StepUp125, 600, 1000},
                    RoundingCase{StepUp125, 1, 1}, RoundingCase{StepUp125, 1.01, 2},
                    RoundingCase{StepUp125, 5e-9, 5e-9}, RoundingCase{StepUp125, 1000, 1000},
                    RoundingCase{RoundUpSig1, 2.1, 3}, RoundingCase{RoundUpSig1, 2, 2},
                    RoundingCase{RoundUpSig1, 0.00971, 0.01}, RoundingCase{RoundUpSig1b, 41, 50},
                    RoundingCase{RoundDownSig1, 29, 20}, RoundingCase{RoundDownSig1, 3, 2},
                    RoundingCase{RoundDownSig1, 0.0388, 0.03}, RoundingCase{StepUp125, 0, 0},
                    RoundingCase{RoundUpSig1, 1e-320, 1e-320},
                    RoundingCase{StepUp125, kInfinity, kInfinity},
                    // Its logarithm is that of a thousand.
                    RoundingCase{RoundUpSig1, std::nextafter(1000, 0), 1000}));

struct SpinCase {
    double value;
    double factor;
    double up;
    double down;
};

class SpinSteps : public testing::TestWithParam<SpinCase> {};

TEST_P(SpinSteps, LeadToRoundValues) {
    const auto& [value, factor, up, down] = GetParam();
    EXPECT_DOUBLE_EQ(SpinStepUp(value, factor), up);
    EXPECT_DOUBLE_EQ(SpinStepDown(value, factor), down);
}

// A step of 5 % with one significant digit; off the grid of its decade the next grid value comes
// first, and on the grid the next value with one digit less.
INSTANTIATE_TEST_SUITE_P(Values, SpinSteps,
                         testing::Values(SpinCase{100, 1.05, 105, 95}, SpinCase{50.3, 1.05, 51, 50},
                                         SpinCase{51, 1.05, 54, 50}, SpinCase{49, 1.05, 50, 47},
                                         SpinCase{1e8, 1.05, 1.05e8, 0.95e8},
                                         SpinCase{4.7e-9, 1.05, 4.9e-9, 4.5e-9},
                                         SpinCase{0, 1.5, 0.5, -0.5}, SpinCase{10, 2, 20, 5},
                                         SpinCase{10, 1, 10, 10}, SpinCase{10, 0.5, 5, 20}));

TEST(SpinStepTest, AlwaysMovesAndNeverJumps) {
    for (double x = 1e-15; x < 1e12; x *= 1.37) {
        for (const double factor : {1.0001, 1.01, 1.05, 1.3, 1.99}) {
            EXPECT_GT(SpinStepUp(x, factor), x);
            EXPECT_LT(SpinStepDown(x, factor), x);
            EXPECT_LT(SpinStepUp(x, factor), x * (1 + 1.6 * (factor - 1)));
            EXPECT_GT(SpinStepDown(x, factor), x * (1 - 1.6 * (factor - 1)));
        }
    }
}

}  // namespace
}  // namespace kelvro
