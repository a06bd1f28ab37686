#include "optimize/line_scan.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvro {
namespace {

/// Valleys x0 = 0, ±1.3, ±2.6, ..., each deeper than the one before on the right hand side.
class Waves : public Objective {
  public:
    double value(std::span<const double> x, CallKind /*kind*/) override {
        ++calls;
        return 1 - std::cos(2 * 3.141592653589793 * x[0] / 1.3) - 0.1 * x[0] + x[1] * x[1];
    }
    int calls = 0;
};

TEST(LineScan, FindsTheDipsBesideTheCentreLowestFirst) {
    Waves waves;
    Evaluator objective(waves, Vector::Zero(2), false);
    const LocalOptions options;
    Summary summary;
    SearchRun run(objective, options, summary);
    const auto dips = DipsAlongLines(run, Vector::Zero(2), 0, {Vector::Unit(2, 0)}, 5);
    ASSERT_EQ(dips.size(), 5U);
    // Five valleys to the right within reach: 1.3 to 6.5.
    for (std::size_t i = 0; i < dips.size(); ++i) {
        EXPECT_NEAR(dips[i].x[0], 1.3 * (5 - static_cast<double>(i)), 0.2) << i;
        EXPECT_EQ(dips[i].x[1], 0);
        EXPECT_EQ(dips[i].f, waves.value(std::span(dips[i].x.data(), 2), CallKind::Evaluation));
    }
    EXPECT_EQ(objective.calls().of(CallKind::LineSearch), waves.calls - 5);
}

TEST(LineScan, TakesTheLowestPointOnBothSides) {
    Waves waves;
    Evaluator objective(waves, Vector::Zero(2), false);
    Summary summary;
    SearchRun run(objective, {}, summary);
    const ValuedPoint origin{Vector::Zero(2), 0};
    // The deepest valley within reach is the one at 5.2.
    const ValuedPoint deep = LowestOnLine(run, origin, Vector::Unit(2, 0), 6, 0.4);
    EXPECT_NEAR(deep.x[0], 5.2, 0.1);
    EXPECT_EQ(deep.f, waves.value(std::span(deep.x.data(), 2), CallKind::Evaluation));
    EXPECT_EQ(LowestOnLine(run, origin, -Vector::Unit(2, 0), 6, 0.4).x, deep.x);
    // Across there is nothing lower.
    EXPECT_EQ(LowestOnLine(run, origin, Vector::Unit(2, 1), 3, 1).x, origin.x);
}

TEST(LineScan, HasNoTwoDiagonalsOnOneLine) {
    for (const Eigen::Index n : {1, 2, 3, 4, 6, 8}) {
        const auto diagonals = Diagonals(n);
        EXPECT_EQ(diagonals.size(), std::size_t{1} << (std::min<Eigen::Index>(n, 4) - 1));
        for (std::size_t i = 0; i < diagonals.size(); ++i) {
            EXPECT_TRUE((diagonals[i].cwiseAbs().array() == 1).all());
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_LT(std::fabs(diagonals[i].dot(diagonals[j])), static_cast<double>(n));
            }
        }
    }
}

}  // namespace
}  // namespace kelvro
