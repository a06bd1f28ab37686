#include "optimize/gradient.h"

#include <gtest/gtest.h>

#include <cmath>

#include "optimize/line_search.h"
#include "optimize/nearness.h"
#include "optimize/start_matrix.h"
#include "tests/optimize/points.h"

namespace kelvro {
namespace {

struct ReasonCase {
    GradientSituation situation;
    double gradientLimit;
    unsigned reasons;
};

class DoubleSidedFormula : public testing::TestWithParam<ReasonCase> {};

TEST_P(DoubleSidedFormula, IsChosenForTheseReasons) {
    LocalOptions options;
    options.differenceStep = 1e-4;
    options.gradientLimit = GetParam().gradientLimit;
    EXPECT_EQ(DoubleSidedReasons(GetParam().situation, options), GetParam().reasons);
}

INSTANTIATE_TEST_SUITE_P(
    Rule, DoubleSidedFormula,
    testing::Values(ReasonCase{{1, 0.1, false}, 0.01, 0},
                    // The limit is 12 · 0.01; at it the test does not hold.
                    ReasonCase{{12 * 0.01, 0.1, false}, 0.01, 0},
                    ReasonCase{{std::nextafter(12 * 0.01, 0), 0.1, false}, 0.01, kGradientSmall},
                    // 500 · 1e-4 = 0.05, strictly.
                    ReasonCase{{500 * 1e-4, 0.1, false}, 1e-4, 0},
                    ReasonCase{{0.049, 0.1, false}, 1e-4, kGradientBelowDifference},
                    ReasonCase{{1.1e-5, 0.1, false}, 0, kGradientSmall | kGradientBelowDifference},
                    ReasonCase{{1, 2 * 1e-4, false}, 0.01, 0},
                    ReasonCase{{1, 1.9e-4, true}, 0.01, kCloseToEnd | kStepsSmall}));

class Cubic : public Objective {
  public:
    double value(std::span<const double> x, CallKind) override {
        return x[0] * x[0] * x[0] + 2 * x[0] * x[1];
    }
};

TEST(Gradient, AgreesWithTheDerivativesOfACubic) {
    Cubic cubic;
    Vector x(2);
    x << 2, 3;
    Evaluator objective(cubic, x, false);
    const double f = objective(x, CallKind::Evaluation);
    const Gradient both = DoubleSidedGradient(objective, x, f, 1e-4);
    EXPECT_NEAR(both.g[0], 18, 1e-6);  // 3·x1² + 2·x2
    EXPECT_NEAR(both.g[1], 4, 1e-6);
    EXPECT_NEAR(both.curvature[0], 12, 1e-4);
    EXPECT_NEAR(SingleSidedGradient(objective, x, f, 1e-6).g[0], 18, 1e-4);
    const Matrix H = HessianAt(objective, x, f, {});
    EXPECT_NEAR(H(0, 1), 2, 1e-4);
    EXPECT_EQ(H(0, 1), H(1, 0));
}

/// f = x + c·x² at 0: the slope is 1, and 1 + c·h by the value at h alone.
TEST(Gradient, RemarksByHowMuchTheSingleSidedFormulaIsOff) {
    class Bent : public Objective {
      public:
        explicit Bent(double c) : c_(c) {}
        double value(std::span<const double> x, CallKind) override {
            return x[0] + c_ * x[0] * x[0];
        }

      private:
        double c_;
    };
    const LocalOptions options{.differenceStep = 1e-3};
    for (const auto& [c, remark] : {std::pair{5.0, NoteKind::DoubleSidedUsed},
                                    {20.0, NoteKind::SingleSidedOffBy1Percent},
                                    {40.0, NoteKind::SingleSidedOffBy3Percent}}) {
        Bent bent(c);
        Evaluator objective(bent, Vector::Zero(1), false);
        std::vector<Note> notes;
        GradientSource(objective, options).computeDoubleSided(Vector::Zero(1), 0, notes);
        EXPECT_EQ(notes.back().kind, remark) << c;
    }
}

TEST(Nearness, HasTheGradientOfItsValue) {
    const Nearness nearness(Point({1, -2, 0.5}), 0.3, 2.3, 0.5, 0.01);
    const Vector x = Point({1.4, -1, 0.2});
    for (Eigen::Index i = 0; i < 3; ++i) {
        const Vector step = 1e-6 * Vector::Unit(3, i);
        const double slope = (nearness.value(x + step) - nearness.value(x - step)) / 2e-6;
        EXPECT_NEAR(nearness.gradient(x)[i], slope, 1e-8) << i;
    }
}

TEST(StartMatrix, SeesSmallCurvaturesBesideStrongThirdDerivatives) {
    class Twisted : public Objective {
      public:
        double value(std::span<const double> x, CallKind) override {
            return 1e5 * x[0] * x[1] * (x[0] + x[1]) - 0.5 * x[0] * x[1];
        }
    } twisted;
    const Vector x = Vector::Zero(2);
    Evaluator objective(twisted, x, false);
    const Matrix H = HessianAt(objective, x, 0, {});
    EXPECT_NEAR(H(0, 1), -0.5, 1e-3);  // 20 off from one side
    EXPECT_NEAR(H(0, 0), 0, 1e-3);
}

TEST(StartMatrix, IsPositiveWhateverTheCurvatures) {
    Vector curvature(3);
    curvature << 4, -2, 0;
    const Matrix inverse = InverseOfDiagonal(curvature, {});
    EXPECT_DOUBLE_EQ(inverse(0, 0), 0.25);
    EXPECT_DOUBLE_EQ(inverse(1, 1), 0.5);
    EXPECT_GT(inverse(2, 2), 0);
    EXPECT_TRUE(inverse.allFinite());
}

TEST(LineSearch, SeesTheMinimumOfAParabola) {
    // f = (t - 3)²: f(0) = 9, slope -6, f(1) = 4.
    EXPECT_DOUBLE_EQ(ParabolaMinimum(9, -6, 1, 4), 3);
    EXPECT_TRUE(std::isinf(ParabolaMinimum(9, -6, 1, 3)));  // straight line
}

}  // namespace
}  // namespace kelvro
