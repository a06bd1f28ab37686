// The class-E stage's steady state against published and independently computed designs.

#include "design/class_e.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/scalar.h"

namespace kelvro {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// 1 V of swing and 1 W at 1/(2π) Hz: ω is 1, and R comes out as P·R/V².
ClassERequest Unit(double Q, double choke) {
    return {.power = 1, .supply = 1, .saturation = 0, .fo = 1 / kTwoPi, .Q = Q, .choke = choke};
}

ClassEOperation Operated(const ClassEStage& stage) {
    const auto operation = OperateClassE(stage);
    EXPECT_TRUE(operation) << operation.message();
    return operation ? *operation : ClassEOperation{};
}

/// In units of ω, R and the swing; the last two are NaN where nothing is known.
struct KnownStage {
    double Q, choke, C1, C2, power, secondHarmonicDb, peak;
};

class KnownStages : public testing::TestWithParam<KnownStage> {};

TEST_P(KnownStages, ComeOutToTheLastDigitOfTheirTable) {
    SCOPED_TRACE(testing::Message() << "Q " << GetParam().Q << ", choke " << GetParam().choke);
    const KnownStage& known = GetParam();
    const auto stage = DesignClassEStage(Unit(known.Q, known.choke));
    ASSERT_TRUE(stage) << stage.message();
    EXPECT_NEAR(stage->R, known.power, 0.6e-5);
    EXPECT_NEAR(stage->R * stage->C1, known.C1, 0.6e-5);
    EXPECT_NEAR(stage->R * stage->C2, known.C2, 0.6e-5);
    const ClassEOperation operation = Operated(*stage);
    if (std::isnan(known.peak)) return;
    EXPECT_NEAR(operation.harmonicDb(2), known.secondHarmonicDb, 0.06);
    EXPECT_NEAR(operation.peakVoltage, known.peak, 0.6e-3);
}

// From an integration of the circuit's equations, where chokes of 100,000 times R stood for
// infinite ones.
constexpr double kHuge = 1e5;
INSTANTIATE_TEST_SUITE_P(
    LoadedQsAndChokes, KnownStages,
    testing::Values(KnownStage{20, kHuge, .19111, .05313, .56398, -31.6, 3.575},
                    KnownStage{10, kHuge, .19790, .11375, .54964, -25.6, 3.588},
                    KnownStage{5, kHuge, .20908, .26923, .51663, -19.6, 3.616},
                    KnownStage{3, kHuge, .21835, .63466, .46453, -15.1, 3.657},
                    KnownStage{2, kHuge, .21995, 3.05164, .38890, -11.5, 3.711},
                    KnownStage{5, 200, .21202, .26833, .52291, NAN, NAN},
                    KnownStage{5, 50, .22075, .26577, .54140, NAN, NAN},
                    KnownStage{5, 20, .23768, .26128, .57682, NAN, NAN},
                    KnownStage{5, 5, .31516, .24590, .73178, NAN, NAN},
                    KnownStage{5, 2, .44901, .22907, .97623, NAN, NAN}));

TEST(ClassEStage, IsFoundForEveryQAndChoke) {
    for (const double Q : {1.79, 1.9, 2.2, 3.3, 7.7, 19.0, 100.0, 500.0}) {
        for (const double choke : {2.0, 5.0, 17.0, 143.0, 1e4, kInfinity}) {
            SCOPED_TRACE(testing::Message() << "Q " << Q << ", choke " << choke);
            ClassERequest request = Unit(Q, choke);
            request.saturation = 0.2;
            const auto stage = DesignClassEStage(request);
            ASSERT_TRUE(stage) << stage.message();
            const ClassEOperation operation = Operated(*stage);
            EXPECT_NEAR(operation.outputPower, 1, 1e-6);
            EXPECT_NEAR(operation.efficiency, 0.8, 1e-6);
            EXPECT_NEAR(operation.turnOnVoltage, 0, 1e-9);
            // Zero slope: what came out of the choke went into the load alone.
            EXPECT_NEAR(operation.chokeCurrent, operation.currentL2, 1e-9 * operation.peakCurrent);
            for (const ClassEInstant& instant : operation.waves) {
                ASSERT_GE(instant.voltage, 0.2 - 1e-9) << instant.phase;
            }
        }
    }
}

/// What the supply gives beyond the switch's own part heats R and its series losses, and what C1
/// still holds at turn-on is burnt in the switch once per period.
TEST(ClassEOperation, AccountsForAllPower) {
    auto stage = *DesignClassEStage(
        {.power = 10, .supply = 12, .saturation = 1, .fo = 10e6, .Q = 5, .choke = 20});
    stage.C1 *= 0.7;
    stage.C2 *= 1.1;
    stage.loss = 0.5;
    const ClassEOperation operation = Operated(stage);
    EXPECT_GT(std::fabs(operation.turnOnVoltage), 1);
    const double burnt =
        stage.C1 * operation.turnOnVoltage * operation.turnOnVoltage / 2 * stage.fo;
    EXPECT_NEAR((12 - 1) * operation.supplyCurrent,
                operation.outputPower * (1 + stage.loss / stage.R) + burnt, 1e-6);
}

/// A resistor of a billionth of R in series with C1 changes nothing; one of a tenth costs power.
TEST(ClassEOperation, FollowsTheLossOfTheSwitchsCapacitor) {
    ClassEStage stage = *DesignClassEStage(Unit(5, 50));
    const ClassEOperation ideal = Operated(stage);
    stage.lossC1 = 1e-9 * stage.R;
    EXPECT_NEAR(Operated(stage).outputPower, ideal.outputPower, 1e-6);
    EXPECT_NEAR(Operated(stage).efficiency, ideal.efficiency, 1e-6);
    stage.lossC1 = 0.1 * stage.R;
    EXPECT_LT(Operated(stage).efficiency, 0.995);
}

struct Refused {
    ClassERequest request;
    const char* message;
};

TEST(ClassEStage, SaysWhyThereIsNone) {
    constexpr const char* positive = "Power, frequency and choke must be positive!";
    for (const auto& [request, message] :
         {Refused{{1, 12, 12, 1e6, 5, 143}, "It must be Ub>Usat!"},
          Refused{{1, 12, 0, 1e6, 1.7879, 143}, "Q must be larger than 1.79!"},
          Refused{{1, 12, 0, 1e6, NAN, 143}, "Q must be larger than 1.79!"},
          Refused{{0, 12, 0, 1e6, 5, 143}, positive}, Refused{{1, 12, 0, -1, 5, 143}, positive},
          Refused{{1, 12, 0, 1e6, 5, 0}, positive}, Refused{{1, 12, 0, 1e6, 5, NAN}, positive}}) {
        EXPECT_EQ(DesignClassEStage(request).message(), message);
    }
}

TEST(ClassEOperation, NeedsParts) {
    const ClassEStage good = *DesignClassEStage(Unit(5, kInfinity));
    for (double ClassEStage::*part :
         {&ClassEStage::R, &ClassEStage::C1, &ClassEStage::C2, &ClassEStage::L2,
          &ClassEStage::choke, &ClassEStage::fo, &ClassEStage::supply}) {
        ClassEStage stage = good;
        stage.*part = 0;
        EXPECT_FALSE(OperateClassE(stage));
        stage.*part = NAN;
        EXPECT_FALSE(OperateClassE(stage));
    }
}

}  // namespace
}  // namespace kelvro
