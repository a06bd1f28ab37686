#include "optimize/local_optimizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "analysis/goal.h"
#include "optimize/report.h"
#include "optimize/update.h"
#include "tests/optimize/points.h"

namespace kelvro {
namespace {

using Function = std::function<double(std::span<const double>)>;

/// A function with a count of its calls.
class Counted : public Objective {
  public:
    explicit Counted(Function function) : function_(std::move(function)) {}
    double value(std::span<const double> x, CallKind kind) override {
        calls.add(kind);
        return function_(x);
    }
    CallCounts calls;

  private:
    Function function_;
};

constexpr double kEverywhere = std::numeric_limits<double>::infinity();

struct KnownMinimum {
    const char* name;
    Function function;
    std::vector<Eigen::VectorXd> starts;
    double f;
};

class LocalOptimizerFinds : public testing::TestWithParam<KnownMinimum> {};

TEST_P(LocalOptimizerFinds, TheMinimumFromEachStart) {
    const auto& [name, function, starts, f] = GetParam();
    for (const bool dfp : {false, true}) {
        for (const Eigen::VectorXd& start : starts) {
            Counted objective(function);
            const LocalOptions options{.gradientLimit = 1e-5,
                                       // DFP recovers slowly from a bad matrix.
                                       .maxIterations = dfp ? 160 : 80,
                                       .dfp = dfp,
                                       .reach = kEverywhere};
            const Summary run = MinimizeLocally(objective, start, options);
            EXPECT_NEAR(run.f, f, 1e-4) << name << " from " << start.transpose();
            EXPECT_EQ(run.calls, objective.calls) << name;
            EXPECT_LE(run.f, run.start().f) << name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Functions, LocalOptimizerFinds,
    testing::Values(KnownMinimum{"page 6",
                                 [](auto x) { return TestFunction(6, x); },
                                 {Point({0, 0, 0, 0}), Point({3, -2, 1, 4})},
                                 0},
                    KnownMinimum{"page 7",
                                 [](auto x) { return TestFunction(7, x); },
                                 {Point({0, 0}), Point({-3, 5})},
                                 0},
                    KnownMinimum{"Rosenbrock",
                                 [](auto x) { return TestFunction(10, x); },
                                 {Point({0, 0}), Point({-1.2, 1}), Point({2, -1})},
                                 0},
                    // From beside a saddle, where one curvature is negative.
                    KnownMinimum{"saddle",
                                 [](auto x) { return Square(x[0] * x[0] - 1) + Square(x[1]); },
                                 {Point({1e-3, 0}), Point({-0.05, 2})},
                                 0},
                    // Two planes that meet in a kink, in a bowl.
                    KnownMinimum{"crease",
                                 [](auto x) {
                                     return 20 * std::fabs(x[0] - x[1]) + Square(x[0] + x[1] - 2);
                                 },
                                 {Point({3, -1}), Point({-2, 0.5})},
                                 0}),
    [](const auto& test) { return "case" + std::to_string(test.index); });

/// Bent between walls in two directions: 50 iterations with an eye on one only.
TEST(LocalOptimizer, FollowsTheFloorOfAValley) {
    Counted objective([](auto x) {
        return Square(x[0] - 2) + 100 * Square(x[1] - Square(x[0])) +
               100 * Square(x[2] - std::sin(2 * x[0]));
    });
    const Summary run = MinimizeLocally(objective, Point({-1.5, 2, 0.5}), {.reach = kEverywhere});
    const auto arrived = std::ranges::find_if(
        run.history, [](const IterationRecord& record) { return record.f <= 1e-3; });
    ASSERT_NE(arrived, run.history.end());
    EXPECT_LE(arrived->iteration, 40);
}

TEST(LocalOptimizer, FinishesAThoroughSearchToItsGradientLimit) {
    Counted objective([](auto x) { return TestFunction(10, x); });
    const LocalOptions options{.gradientLimit = 1e-3, .thorough = true};
    const Summary run = MinimizeLocally(objective, Point({-1.2, 1}), options);
    EXPECT_LT(run.gradientLength, 1e-3);
    EXPECT_LE(run.iterations, options.maxIterations);
}

TEST(LocalOptimizer, StaysAwayFromWhereTheFunctionDoesNotExist) {
    // Curvature far out is small: the first steps overshoot into the half plane without values.
    Counted objective([](std::span<const double> x) {
        const double d = x[0] - 0.5;
        return d - std::log(d) + Square(x[1] - 1);
    });
    const Summary run = MinimizeLocally(objective, Point({12, 4}), {.reach = kEverywhere});
    EXPECT_TRUE(run.inverseHessian.allFinite());
    EXPECT_GT(run.x[0], 0.5);
    EXPECT_NEAR(run.f, 1, 1e-3);
}

TEST(LocalOptimizer, EndsAtAStartWithoutAValue) {
    Counted objective([](auto) { return std::numeric_limits<double>::infinity(); });
    const Summary run = MinimizeLocally(objective, Point({1, 2}), {});
    EXPECT_EQ(run.x, Point({1, 2}));
    EXPECT_EQ(run.iterations, 0);
    EXPECT_EQ(objective.calls.total(), 1);
}

TEST(LocalOptimizer, LeavesAFlatFunctionAlone) {
    Counted objective([](auto) { return 3.5; });
    const Summary run = MinimizeLocally(objective, Point({1, 2, 3}), {});
    EXPECT_EQ(run.stop, StopReason::GradientTooSmall);
    EXPECT_EQ(run.x, Point({1, 2, 3}));
    EXPECT_LE(objective.calls.total(), 7);
}

TEST(LocalOptimizer, SpendsNoCallsOnAParameterWithoutInfluence) {
    const auto bowl = [](std::span<const double> x) {
        return Square(x[0] - 1) + 5 * Square(x[1] + x[0]);
    };
    Counted plain(bowl);
    Counted padded([&](std::span<const double> x) {
        return bowl(std::array<double, 2>{x[0], x[2]});
    });
    const Summary two = MinimizeLocally(plain, Point({0, 3}), {});
    const Summary three = MinimizeLocally(padded, Point({0, 7, 3}), {});
    EXPECT_EQ(three.x[1], 7);
    EXPECT_EQ(three.active, (std::vector<bool>{true, false, true}));
    EXPECT_DOUBLE_EQ(three.f, two.f);
    // The one look at it, to both sides.
    EXPECT_EQ(padded.calls.total(), plain.calls.total() + 2);
}

TEST(LocalOptimizer, CopesWithNoise) {
    Counted objective([](std::span<const double> x) {
        const double f = 1 + Square(x[0] - 1) + 4 * Square(x[1] - x[0]);
        return std::nearbyint(f * 1e7) / 1e7;
    });
    const LocalOptions options{
        .differenceStep = 1e-3, .secondDifferenceStep = 1e-3, .reach = kEverywhere};
    const Summary run = MinimizeLocally(objective, Point({-2, 4}), options);
    EXPECT_NEAR(run.f, 1, 1e-3);
}

struct StopCase {
    const char* name;
    Function function;
    LocalOptions options;
    StopReason stop;
};

class LocalOptimizerStops : public testing::TestWithParam<StopCase> {};

TEST_P(LocalOptimizerStops, ForTheReason) {
    Counted objective(GetParam().function);
    const Summary run = MinimizeLocally(objective, Point({0, 0}), GetParam().options);
    EXPECT_EQ(run.stop, GetParam().stop);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, LocalOptimizerStops,
    testing::Values(StopCase{"maxIterations",
                             [](auto x) { return TestFunction(10, x); },
                             {.maxIterations = 3},
                             StopReason::MaxIterations},
                    StopCase{"gradient",
                             [](auto x) { return TestFunction(7, x); },
                             {.gradientLimit = 1e-4, .reach = kEverywhere},
                             StopReason::GradientTooSmall},
                    // The gradient does not change along a plane.
                    StopCase{"ys",
                             [](auto x) { return 4 * x[0] - 2 * x[1]; },
                             {.gradient = GradientChoice::DoubleSided, .reach = kEverywhere},
                             StopReason::YsTooSmall},
                    // What is large counts by its root: 0.1 above a million there is little left to
                    // gain, though |g| is 1 on the walls of so flat a bowl.
                    StopCase{"vy",
                             [](auto x) {
                                 return 1e6 + 3 * Square(Square(x[0] - 1.5)) +
                                        Square(Square(x[1] + 1));
                             },
                             LocalOptions{}, StopReason::VyTooSmall},
                    // |g| is the square root of 2 all around the minimum.
                    StopCase{"step",
                             [](auto x) { return std::fabs(x[0] - 0.3) + std::fabs(x[1] + 0.7); },
                             LocalOptions{}, StopReason::StepTooSmall}),
    [](const auto& test) { return test.param.name; });

TEST(LocalOptimizer, ReportsWhatALastLineSearchInVainHasSeen) {
    // Falls within the reach of the differences only.
    Counted objective(
        [](auto x) { return std::fabs(x[0]) < 2e-12 ? -1e6 * x[0] : 1 + std::fabs(x[0]); });
    const Summary run = MinimizeLocally(objective, Point({0}), {.differenceStep = 1e-12});
    ASSERT_EQ(run.stop, StopReason::StepTooSmall);
    EXPECT_GT(run.warnings, 0);
    const std::string report = RunText(run, {}, RunOrigin::Single, 1);
    EXPECT_NE(report.find("caused problems in linear search. Quite large df/(t*psg)!\n"
                          "BFGS iterations"),
              std::string::npos)
        << report;
}

TEST(LocalOptimizer, FollowsTheForcedFormula) {
    const auto run = [](GradientChoice choice) {
        Counted objective([](auto x) { return TestFunction(10, x); });
        return MinimizeLocally(objective, Point({0, 0}),
                               {.gradient = choice, .reach = kEverywhere});
    };
    // The start matrix needs one double-sided gradient in any case.
    EXPECT_EQ(run(GradientChoice::SingleSided).doubleSidedGradients, 1);
    EXPECT_EQ(run(GradientChoice::DoubleSided).singleSidedGradients, 0);
}

TEST(LocalOptimizer, HoldsStepsToTheClampingUnlessToldOtherwise) {
    // A long way down a gentle slope.
    const auto slope = [](std::span<const double> x) {
        return std::sqrt(1 + Square(x[0] - 60)) + Square(x[1]);
    };
    const auto longest = [&](bool noClampings) {
        Counted objective(slope);
        const Summary run = MinimizeLocally(objective, Point({0, 0}),
                                            {.noClampings = noClampings, .reach = kEverywhere});
        double most = 0;
        for (const IterationRecord& record : run.history) {
            most = std::max(most, record.step.cwiseAbs().maxCoeff());
        }
        return most;
    };
    // A factor of e in one iteration at most.
    EXPECT_LE(longest(false), 1 + 1e-12);
    EXPECT_GT(longest(true), 4);
}

TEST(LocalOptimizer, SteepestDescentGoesAlongTheGradient) {
    Counted objective([](auto x) { return TestFunction(7, x); });
    const Summary run =
        MinimizeLocally(objective, Point({0, 0}), {.steepestDescent = true, .reach = kEverywhere});
    for (std::size_t i = 1; i < run.history.size(); ++i) {
        EXPECT_EQ(run.history[i].direction, -run.history[i - 1].g) << "iteration " << i;
    }
    EXPECT_LT(run.f, run.start().f);
}

TEST(LocalOptimizer, RecordsEveryCallOnDemand) {
    Counted objective([](auto x) { return TestFunction(10, x); });
    LocalOptions options{.reach = kEverywhere};
    options.recordCalls = options.finalHessian = true;
    const Summary run = MinimizeLocally(objective, Point({0, 0}), options);
    EXPECT_EQ(static_cast<int>(run.table.size()), objective.calls.total());
    ASSERT_TRUE(run.finalHessian);
    // Rosenbrock at (1, 1): 802, -400, -400, 200.
    EXPECT_NEAR((*run.finalHessian)(0, 0), 802, 8);
    EXPECT_NEAR((*run.finalHessian)(0, 1), -400, 4);
}

TEST(MatrixUpdate, KeepsMatricesPositiveDefiniteWhereTheCurvatureIsPositive) {
    Eigen::MatrixXd inverse = Eigen::MatrixXd::Identity(3, 3);
    // Pairs of s and y with y·s > 0, one of them hardly.
    const std::pair<Eigen::VectorXd, Eigen::VectorXd> pairs[] = {
        {Point({1, 0, 0}), Point({2, -3, 1})},
        {Point({0, 1, 1}), Point({5, 1e-3, 1e-3})},
        {Point({-1, 2, 0.5}), Point({-4, 1, 9})}};
    for (const bool dfp : {false, true}) {
        Eigen::MatrixXd updated = inverse;
        for (const auto& [s, y] : pairs) {
            updated = UpdatedInverse(updated, s, y, dfp);
            EXPECT_GT(SmallestEigenvalue(updated), 0) << "dfp " << dfp;
            EXPECT_LT((updated * y - s).norm(), 1e-9 * updated.norm()) << "secant, dfp " << dfp;
        }
    }
}

}  // namespace
}  // namespace kelvro
