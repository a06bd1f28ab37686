#include "optimize/max_min.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/random.h"

namespace kelvro {
namespace {

/// Smallest row at a step.
double SmallestAt(const LinearRows& rows, std::span<const double> step) {
    double smallest = 1e300;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        double value = rows.values[i];
        for (std::size_t j = 0; j < step.size(); ++j) value += rows.gradient(i)[j] * step[j];
        smallest = std::min(smallest, value);
    }
    return smallest;
}

/// The dual of the programme: weights of the rows, at least 0 and 1 together, for which the
/// weighted row is nowhere in the box above t. Where it meets t, t is the largest that can be.
double BoundBy(const LinearRows& rows, const std::vector<MaxMinStep::Weight>& weights,
               std::span<const double> low, std::span<const double> high) {
    double bound = 0;
    double sum = 0;
    std::vector<double> gradient(rows.variables, 0);
    for (const auto& [row, weight] : weights) {
        EXPECT_GE(weight, 0);
        sum += weight;
        bound += weight * rows.values[row];
        for (std::size_t j = 0; j < gradient.size(); ++j) {
            gradient[j] += weight * rows.gradient(row)[j];
        }
    }
    EXPECT_NEAR(sum, 1, 1e-9);
    for (std::size_t j = 0; j < gradient.size(); ++j) {
        bound += std::max(gradient[j] * low[j], gradient[j] * high[j]);
    }
    return bound;
}

TEST(MaxMinStepTest, RandomProgrammesAreSolvedAsTheirDualsProve) {
    UniformStream random(3);
    MaxMinStep solver;
    for (int k = 0; k < 500; ++k) {
        LinearRows rows;
        rows.variables = 1 + static_cast<std::size_t>(random.below(10));
        const auto size = 1 + static_cast<std::size_t>(random.below(40));
        for (std::size_t i = 0; i < size; ++i) rows.values.push_back(-random.next());
        for (std::size_t i = 0; i < size * rows.variables; ++i) {
            rows.gradients.push_back(4 * random.next() - 2);
        }
        // Some rows alike and some numbers without room, as measured data and limits bring them.
        if (k % 3 == 0 && size > 1) {
            rows.values[1] = rows.values[0];
            std::copy_n(rows.gradients.begin(), rows.variables,
                        rows.gradients.begin() + static_cast<long>(rows.variables));
        }
        std::vector<double> low(rows.variables, -0.5);
        std::vector<double> high(rows.variables, 0.5);
        if (k % 4 == 0) low[0] = 0;
        if (k % 7 == 0) high[0] = 0;
        const double t = solver.solve(rows, low, high);
        for (std::size_t j = 0; j < rows.variables; ++j) {
            ASSERT_GE(solver.step()[j], low[j] - 1e-9);
            ASSERT_LE(solver.step()[j], high[j] + 1e-9);
        }
        ASSERT_NEAR(SmallestAt(rows, solver.step()), t, 1e-9) << k;
        ASSERT_NEAR(BoundBy(rows, solver.weights(), low, high), t, 1e-9) << k;
        ASSERT_GE(t, *std::ranges::min_element(rows.values) - 1e-12);
    }
}

/// Functions with gradients written out.
class TestGoal : public MaxMinGoal {
  public:
    using Function = void (*)(std::span<const double> x, double& value, double* gradient);
    explicit TestGoal(std::vector<Function> functions) : functions_(std::move(functions)) {}

    void rows(std::span<const double> x, LinearRows& rows) override {
        std::vector<std::size_t> all(functions_.size());
        for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
        someRows(all, x, rows);
    }
    void someRows(std::span<const std::size_t> which, std::span<const double> x,
                  LinearRows& rows) override {
        rows.variables = x.size();
        rows.values.resize(which.size());
        rows.gradients.resize(which.size() * x.size());
        for (std::size_t i = 0; i < which.size(); ++i) {
            functions_[which[i]](x, rows.values[i], rows.gradients.data() + i * x.size());
        }
    }

  private:
    std::vector<Function> functions_;
};

/// C. Charalambous, A. R. Conn, "An efficient method to solve the minimax problem directly", SIAM
/// J. Numer. Anal. 15 (1978), first problem, signs turned: the solution is 1.9522245.
TEST(MaxMinSolverTest, APublishedMinimaxProblemWithCurvature) {
    TestGoal goal({[](std::span<const double> x, double& value, double* gradient) {
                       value = -(x[0] * x[0] + std::pow(x[1], 4));
                       gradient[0] = -2 * x[0];
                       gradient[1] = -4 * std::pow(x[1], 3);
                   },
                   [](std::span<const double> x, double& value, double* gradient) {
                       value = -(std::pow(2 - x[0], 2) + std::pow(2 - x[1], 2));
                       gradient[0] = 2 * (2 - x[0]);
                       gradient[1] = 2 * (2 - x[1]);
                   },
                   [](std::span<const double> x, double& value, double* gradient) {
                       value = -2 * std::exp(x[1] - x[0]);
                       gradient[0] = -value;
                       gradient[1] = value;
                   }});
    MaxMinPoint point{.x = {1, -0.1}};
    MaxMinSolver().improve(goal, {{-9, -9}, {9, 9}}, {}, point);
    EXPECT_NEAR(point.worst, -1.9522245, 1e-6);
    EXPECT_NEAR(point.x[0], 1.139037, 1e-3);
    EXPECT_NEAR(point.x[1], 0.899560, 1e-3);
    // A limit in the way: the solution moves onto it.
    MaxMinPoint limited{.x = {0.5, 0.5}};
    MaxMinSolver().improve(goal, {{-9, -9}, {1, 9}}, {}, limited);
    EXPECT_LT(limited.worst, point.worst - 1e-3);
    EXPECT_NEAR(limited.x[0], 1, 1e-9);
}

TEST(MaxMinSolverTest, WhereNothingIsANumberThePointStays) {
    TestGoal goal({[](std::span<const double>, double& value, double* gradient) {
        value = std::nan("");
        gradient[0] = std::nan("");
    }});
    MaxMinPoint point{.x = {1}};
    MaxMinSolver().improve(goal, {{-9}, {9}}, {}, point);
    EXPECT_EQ(point.x[0], 1);
    EXPECT_TRUE(point.settled);
}

}  // namespace
}  // namespace kelvro
