#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "analysis/goal.h"
#include "analysis/response.h"
#include "design/pages.h"
#include "optimize/local_optimizer.h"
#include "optimize/page_optimizer.h"
#include "tests/calculated.h"
#include "tests/optimize/points.h"

namespace kelvro {
namespace {

class Creased : public Objective {
  public:
    using Function = std::function<Sides(std::span<const double>)>;
    explicit Creased(Function function) : function_(std::move(function)) {}

    double value(std::span<const double> x, CallKind kind) override {
        return sides(x, kind).value();
    }
    Sides sides(std::span<const double> x, CallKind /*kind*/) override { return function_(x); }

  private:
    Function function_;
};

/// A valley whose floor is the crease x = y²: on it the rest is (y² - 2)² + y², least where
/// 2·(y² - 2) + 1 = 0.
Sides BentValley(std::span<const double> x) {
    const double rest = Square(x[0] - 2) + Square(x[1]);
    const double offset = x[0] - Square(x[1]);
    return {rest - 10 * offset, rest + 10 * offset, offset};
}

/// The lower one of two parabolas of one number, around -0.3 and, shifted, around 0.4: alike where
/// x² + 0.6x + 0.09 = x² - 0.8x + 0.16 + shift.
Creased::Function TwoBowls(double shift) {
    return [shift](std::span<const double> x) {
        return Sides{Square(x[0] + 0.3), Square(x[0] - 0.4) + shift, x[0] - (0.07 + shift) / 1.4};
    };
}

/// Minima at (1, -1) and (-1, 1), a ridge between them.
Sides Twins(std::span<const double> x) {
    const double f = Square(x[0] * x[1] + 1) + Square(x[0] + x[1]);
    return {f, f, -1};
}

struct RefinementCase {
    const char* name;
    Creased::Function function;
    Eigen::VectorXd start;
    double reach;
    Eigen::VectorXd end;
};

class RefinementEnds : public testing::TestWithParam<RefinementCase> {};

TEST_P(RefinementEnds, AtTheOneLowestPlace) {
    const RefinementCase& c = GetParam();
    Creased function(c.function);
    LocalOptions options;
    options.reach = c.reach;
    options.nearness = 1e-9;
    options.tuning.search.tilt = 1e-6;
    const Summary run = MinimizeLocally(function, c.start, options);
    EXPECT_LT((run.x - c.end).cwiseAbs().maxCoeff(), 1e-5) << run.x.transpose();
    for (std::size_t i = 1; i < run.history.size(); ++i) {
        EXPECT_LT((run.history[i].x - run.history[i - 1].x - run.history[i].step).norm(), 1e-12);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, RefinementEnds,
    testing::Values(RefinementCase{"alongTheCrease", BentValley, Point({1, 1}), 9,
                                   Point({1.5, std::sqrt(1.5)})},
                    RefinementCase{"alongTheCreaseToAFace", BentValley, Point({1, 1}), 0.2,
                                   Point({1.2, std::sqrt(1.2)})},
                    RefinementCase{"beyondTheCreaseWhereItIsLower", TwoBowls(-0.05), Point({-0.5}),
                                   9, Point({0.4})},
                    RefinementCase{"onItsSideWhereTheOtherIsHigher", TwoBowls(0.05), Point({-0.5}),
                                   9, Point({-0.3})},
                    RefinementCase{"atOneOfTwinsFromTheRidge", Twins, Point({0.3, 0.3}), 9,
                                   Point({1, -1})},
                    RefinementCase{"atTheSameTwinFromTheOtherEnd", Twins, Point({-0.3, -0.3}), 9,
                                   Point({1, -1})}),
    [](const auto& test) { return std::string(test.param.name); });

/// Descents that end on a crease or in the flat valley of transformers, where the goal is the same
/// to four digits, ended at another place with every last digit.
TEST(PageOptimizer, MovesTheDesignByAHairForAHairOfInput) {
    struct Inputs {
        int page;
        double R1, R2, Q;
    };
    constexpr Inputs grid[] = {{1, 5, 1000, 5},  {2, 300, 5, 10}, {3, 1000, 10, 5},
                               {5, 50, 1000, 5}, {5, 10, 75, 5},  {5, 50, 5, 2},
                               {5, 300, 50, 2},  {16, 10, 75, 2}, {18, 75, 10, 2}};
    for (const auto& [page, R1, R2, Q] : grid) {
        // Clang takes no part of a pair into a lambda without a name of its own.
        const auto optimized = [page = page, R1 = R1, R2 = R2, Q = Q](double fo) {
            return OptimizePage(Calculated({.page = page, .R1 = R1, .R2 = R2, .fo = fo, .Q = Q}),
                                {});
        };
        const PageOptimization a = optimized(100e6);
        const PageOptimization b = optimized(100e6 * (1 + 1e-5));
        EXPECT_NEAR(a.achievedGoal, b.achievedGoal, 0.01) << page << ": " << R1 << " to " << R2;
        for (const Slot slot : PageOf(page).goal.moved({.page = page})) {
            EXPECT_NEAR(b.components[slot] / a.components[slot], 1, 0.01)
                << page << ": " << R1 << " to " << R2;
        }
    }
}

TEST(Goal, HasASideForEachEdgeOfTheBand) {
    const Design design = Calculated({.page = 2, .R1 = 300, .R2 = 5, .Q = 10});
    Goal goal(design, {});
    for (const double x : {-0.3, -0.1, 0.0, 0.1, 0.3}) {
        const std::vector<double> point = {x, -x, x / 2};
        const Sides sides = goal.sides(point, CallKind::Evaluation);
        EXPECT_EQ(sides.value(), goal.value(point, CallKind::Evaluation));
        Design moved = design;
        moved.components = goal.components(point);
        const Response response(moved);
        const double half = design.fo / (8 * design.Q);
        EXPECT_NEAR(sides.offset,
                    response.relativeDb(design.fo - half) - response.relativeDb(design.fo + half),
                    1e-9);
        EXPECT_NE(sides.below, sides.above);
    }
}

}  // namespace
}  // namespace kelvro
