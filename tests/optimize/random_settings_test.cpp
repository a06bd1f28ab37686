#include <gtest/gtest.h>

#include <cmath>

#include "core/random.h"
#include "optimize/page_optimizer.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

/// Designs and settings that no one would think of, the same ones for the same number.
class Anything {
  public:
    explicit Anything(int number) : random_(static_cast<std::uint64_t>(number)) {}

    Design design() {
        constexpr int pages[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 13, 14, 16, 18, 19};
        Design d;
        d.page = pages[static_cast<std::size_t>(random_.next() * std::size(pages))];
        d.R1 = oneOf({1e-3, 1, 50, 1e3, 1e6});
        d.R2 = oneOf({1e-3, 1, 50, 200, 1e6});
        d.Q = oneOf({0.2, 0.22, 1, 5, 100, 1000});
        d.QB = oneOf({0.5, 30, 1e6});
        d.QBC = oneOf({0.5, 300, 1e6});
        d.fo = oneOf({1, 1e6, 1e12});
        d.k = oneOf({0.01, 0.9, 1});
        d.eightElements = yes();
        d.LCSwapped = yes();
        d.QByBandwidth = yes();
        return Calculated(d);
    }

    OptimizerSettings settings() {
        OptimizerSettings s;
        s.singleRun = yes();
        s.differentStartValues = yes();
        s.writeLog = yes();
        s.writeTable = yes();
        s.local.gradientLimit = oneOf({0, 1e-12, 0.01, 300, 1e9});
        s.local.maxIterations = static_cast<int>(oneOf({1, 7, 80, 199}));
        s.local.steepestDescent = random_.next() < 0.2;
        s.local.gradient = static_cast<GradientChoice>(random_.next() * 3);
        s.local.enhancedStartMatrix = yes();
        s.local.noClampings = yes();
        s.local.dfp = yes();
        s.local.lineAccuracy = oneOf({0, 0.5, 1});
        s.local.lineCentre = oneOf({0, 0.5, 1});
        s.local.thorough = random_.next() < 0.2;
        s.goal.maxNorm = yes();
        s.goal.noise = yes();
        s.goal.phaseSlope = yes();
        s.goal.transformer = yes();
        return s;
    }

  private:
    bool yes() { return random_.next() < 0.5; }
    double oneOf(std::initializer_list<double> values) {
        return values
            .begin()[static_cast<std::size_t>(random_.next() * static_cast<double>(values.size()))];
    }

    UniformStream random_;
};

/// Calls that one run may take: each iteration a line search with its gradients and two matrices,
/// each start the points that are looked at for it.
int MostCalls(const OptimizerSettings& settings, int n) {
    constexpr int lineSearch = 20 + 10;
    const int matrix = 2 * n * n + 2 * n;
    const int iteration = lineSearch + 5 * 2 * n + 2 * matrix;
    const SearchTuning& search = settings.local.tuning.search;
    const int start =
        search.draws * (1 + search.sweeps * n * 2 * search.looks) + 2 * matrix + 4 * n;
    return settings.local.maxIterations * iteration + search.mostStarts * start;
}

TEST(AnySettings, EndWithinTheirLimitsAndNeverWorseThanTheyBegan) {
    for (int number = 1; number <= 400; ++number) {
        SCOPED_TRACE("case " + std::to_string(number));
        Anything anything(number);
        const Design design = anything.design();
        const OptimizerSettings settings = anything.settings();
        const PageOptimization result = OptimizePage(design, settings);
        for (const Summary& run : result.runs) {
            EXPECT_LE(run.iterations, settings.local.maxIterations);
            EXPECT_LE(run.calls.total(), MostCalls(settings, static_cast<int>(run.x.size())));
            EXPECT_TRUE(run.x.allFinite());
        }
        if (!std::isfinite(result.startGoal)) {
            EXPECT_EQ(result.components, design.components);
            continue;
        }
        EXPECT_LE(result.achievedGoal, result.startGoal);
        EXPECT_EQ(settings.writeLog, !result.log.empty());
    }
}

/// Settings that once never came to an end, and one that ended in no good way.
TEST(AnySettings, EndUnderAWideGradientLimitAndWithoutAHessian) {
    const auto optimized = [](int page, double R1, double R2, double Q, auto change) {
        OptimizerSettings settings;
        settings.singleRun = false;
        change(settings);
        return OptimizePage(Calculated({.page = page, .R1 = R1, .R2 = R2, .Q = Q}), settings);
    };
    for (const double limit : {300.0, 1000.0}) {
        const auto result = optimized(3, 50, 200, 5, [&](OptimizerSettings& settings) {
            settings.local.gradientLimit = limit;
        });
        EXPECT_LT(result.calls.total(), 5000) << limit;
    }
    const auto noisy = optimized(4, 1000, 0.001, 0.2, [](OptimizerSettings& settings) {
        settings.local.enhancedStartMatrix = true;
        settings.goal.noise = true;
    });
    EXPECT_LE(noisy.achievedGoal, noisy.startGoal);
}

}  // namespace
}  // namespace kelvro
