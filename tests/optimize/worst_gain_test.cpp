#include "optimize/worst_gain.h"

#include <gtest/gtest.h>

#include <cmath>

#include "analysis/achieved.h"
#include "design/pages.h"
#include "optimize/equal_ripple.h"
#include "optimize/page_optimizer.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

/// Refined ladders of a broad band.
struct Ladder {
    double R1 = 50;
    double R2 = 500;
    bool eight = false;
    double element = 1e12;  ///< Q of the elements
    double low = 0;
    double high = 0;

    Design calculated() const {
        Design design{.R1 = R1,
                      .R2 = R2,
                      .QB = element,
                      .QBC = element,
                      .eightElements = eight,
                      .bandLow = low,
                      .bandHigh = high};
        EnterPage(design, 16);
        return Calculated(design);
    }
    CycleResult refined() const {
        OptimizerServices services;
        return Calculate(calculated(), true, services);
    }
};

double WorstDb(const CycleResult& result) {
    return AchievedBy(result)->worst->GTDb;
}

/// Lossless: closed form of G. L. Matthaei, Proc. IEEE 52 (1964), 1/GT = 1 + ε²·T²; of four
/// elements by hand: x(0) = -(0.7² + 1.3²)/(1.3² - 0.7²) = -1.8167, T2 = 5.6006,
/// 1/GT = 1 + 2.025/31.367 = 1.06456, which is 0.2717 dB; a ratio of 5: 1 + 0.8/31.367, 0.1094 dB.
/// Eight: T4 = 2·T2² - 1 = 61.734, 1 + 2.025/3811.1, 0.0023 dB.
TEST(WorstGainOfALadder, WithoutLossesIsTheBestThatThereIs) {
    EXPECT_NEAR(WorstDb(Ladder{}.refined()), -0.2717, 1e-3);
    EXPECT_NEAR(WorstDb(Ladder{.eight = true}.refined()), -0.00231, 5e-5);
    EXPECT_NEAR(WorstDb(Ladder{.R1 = 10, .R2 = 50}.refined()), -0.1094, 5e-4);
}

/// No outside number is there: steps of any part to either side must not help, and the ladder must
/// beat the lossless one.
TEST(WorstGainOfALadder, WithLossesCannotBeRaisedByAnyPart) {
    for (const Ladder& ladder : {Ladder{.element = 30}, Ladder{.eight = true, .element = 60},
                                 Ladder{.R2 = 2000, .element = 100, .low = 60e6, .high = 150e6},
                                 Ladder{.R2 = 60, .element = 50}}) {
        const CycleResult refined = ladder.refined();
        Goal goal(refined.design, {});
        std::vector<double> x(goal.size(), 0);
        const double best = goal.value(x, CallKind::Evaluation);
        for (double& xi : x) {
            for (const double step : {-0.01, 0.01}) {
                xi = step;
                EXPECT_GT(goal.value(x, CallKind::Evaluation), best - 1e-4) << ladder.R2;
            }
            xi = 0;
        }
        Ladder lossless = ladder;
        lossless.element = 1e12;
        Design design = lossless.refined().design;
        design.QB = design.QBC = ladder.element;
        EXPECT_LE(best, Goal(design, {}).value(x, CallKind::Evaluation) + 1e-9) << ladder.R2;
    }
}

TEST(WorstGainOfALadder, ReportsOnePointAndSaysWhatItIs) {
    OptimizerSettings settings;
    settings.singleRun = false;
    settings.writeLog = settings.writeTable = true;
    const Design design = Ladder{.element = 100}.calculated();
    const PageOptimization result = OptimizePage(design, settings);
    const Summary& run = result.bestRun();
    EXPECT_EQ(result.startGoal, result.runs[0].start().f);
    EXPECT_NEAR(run.f, Goal(design, {}).value({run.x.data(), 4}, CallKind::Evaluation), 1e-9);
    EXPECT_LT(run.gradientLength, settings.local.gradientLimit);
    EXPECT_EQ(run.stop, StopReason::GradientTooSmall);
    double f = run.start().f;
    for (const IterationRecord& record : run.history) {
        EXPECT_LE(record.f, f);
        f = record.f;
    }
    EXPECT_NE(result.log.find("Max-min iterations : "), std::string::npos);
    EXPECT_FALSE(result.table.empty());
    // A part that is off by its uncertainty costs 0.01 dB to one side, and no more to the other.
    ASSERT_EQ(run.uncertainties.size(), 4);
    EXPECT_NE(result.log.find("Parameter uncertainty estimation"), std::string::npos);
    for (Eigen::Index i = 0; i < 4; ++i) {
        double most = 0;
        for (const double sign : {-1.0, 1.0}) {
            Eigen::VectorXd x = run.x;
            x[i] += sign * run.uncertainties[i];
            most = std::max(most, Goal(design, {}).value({x.data(), 4}, CallKind::Evaluation));
        }
        EXPECT_NEAR(most - run.f, 0.01, 1e-4);
    }
}

TEST(WorstGainOfALadder, KeepsToItsLimits) {
    const Design design = Ladder{.eight = true, .element = 40}.calculated();
    OptimizerSettings settings;
    for (const Ladder& ladder :
         {Ladder{.eight = true, .element = 40}, Ladder{.R2 = 200, .element = 100}}) {
        for (const int most : {1, 2}) {
            settings.local.maxIterations = most;
            EXPECT_LE(OptimizePage(ladder.calculated(), settings).iterations(), most);
        }
    }
    settings.local.maxIterations = 80;
    settings.local.reach = 0.05;
    EXPECT_LE(OptimizePage(design, settings).bestRun().distance, 0.05 + 1e-12);
}

TEST(EqualRippleLadder, HasNoAnswerWhereRoundingLeavesNone) {
    EXPECT_EQ(EqualRippleLadder(10, {70e6, 130e6}, 2).size(), 4U);
    EXPECT_EQ(EqualRippleLadder(1.0001, {1e3, 1e9}, 4).size(), 8U);
    EXPECT_TRUE(EqualRippleLadder(10, {100e6, 100e6}, 4).empty());
    EXPECT_TRUE(EqualRippleLadder(1, {70e6, 130e6}, 2).empty());
    // The edges of one frequency: the calculated ladder, exact there, is left as it is.
    Ladder narrow{.low = 100e6, .high = 100e6};
    EXPECT_NEAR(WorstDb(narrow.refined()), 0, 1e-9);
}

}  // namespace
}  // namespace kelvro
