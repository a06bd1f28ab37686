#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "analysis/tools/decibels.h"
#include "analysis/tools/immittance.h"
#include "analysis/tools/number_list.h"

namespace kelvro {
namespace {

// ---------------------------------------------------------------- decibels

struct LevelRow {
    LevelUnit unit;
    double level;
    double resistance;
    double dbm;
};

class LevelExamples : public testing::TestWithParam<LevelRow> {};

TEST_P(LevelExamples, AreMetBothWays) {
    const auto [unit, level, resistance, dbm] = GetParam();
    const double power = PowerOf(unit, level, resistance);
    EXPECT_NEAR(LevelOf(LevelUnit::Dbm, power, resistance), dbm, 5e-3);
    EXPECT_NEAR(LevelOf(unit, power, resistance), level, 1e-12 * (1 + std::fabs(level)));
}

// Known anchors: 0 dBm is 0.7746 V in 600 ohm (ITU-T) and 0.2236 V or 107 dBµV in 50 ohm, 48.75
// dBmV in 75 ohm; 1 Np is 8.686 dB.
INSTANTIATE_TEST_SUITE_P(Units, LevelExamples,
                         testing::Values(LevelRow{LevelUnit::Volt, 0.7746, 600, 0},
                                         LevelRow{LevelUnit::Volt, 0.2236, 50, 0},
                                         LevelRow{LevelUnit::VoltPeak, 0.3162, 50, 0},
                                         LevelRow{LevelUnit::VoltPeakToPeak, 0.6325, 50, 0},
                                         LevelRow{LevelUnit::DbMicrovolt, 106.99, 50, 0},
                                         LevelRow{LevelUnit::DbMillivolt, 48.75, 75, 0},
                                         LevelRow{LevelUnit::DbV, -13.01, 50, 0},
                                         LevelRow{LevelUnit::Dbw, 0, 75, 30},
                                         LevelRow{LevelUnit::Watt, 100, 50, 50},
                                         LevelRow{LevelUnit::Neper, 1, 50, 8.686},
                                         LevelRow{LevelUnit::Ampere, 4.472e-3, 50, 0},
                                         LevelRow{LevelUnit::Dbm, -7, 1, -7}));

TEST(DecibelTest, RatiosTakeTheResistancesIntoAccount) {
    const Ratio equal = RatioOf(RatioUnit::Voltage, 10, 50, 50);
    EXPECT_NEAR(equal.decibels, 20, 1e-12);
    EXPECT_NEAR(equal.nepers, 2.302585, 1e-6);
    // A lossless transformer from 50 to 200 ohm doubles the voltage at 0 dB.
    EXPECT_NEAR(RatioOf(RatioUnit::Decibel, 0, 50, 200).voltage, 2, 1e-12);
    EXPECT_NEAR(RatioOf(RatioUnit::Voltage, 2, 50, 200).decibels, 0, 1e-12);
    EXPECT_NEAR(RatioOf(RatioUnit::Neper, 1, 50, 50).decibels, 8.685890, 1e-6);
    EXPECT_NEAR(RatioOf(RatioUnit::Power, 2, 50, 50).decibels, 3.0103, 1e-4);
}

TEST(DecibelTest, SumsOfEqualLevels) {
    const LevelSum two = SumOf(std::vector<double>{7, 7});
    EXPECT_NEAR(two.powers, 7 + 3.0103, 1e-4);
    EXPECT_NEAR(two.voltages, 7 + 6.0206, 1e-4);
    EXPECT_NEAR(two.chain, 14, 1e-12);
    EXPECT_EQ(SumOf({}).powers, -INFINITY) << "no level is no power";
}

// ---------------------------------------------------------------- immittances

/// By hand: 10 ohm and 20 ohm reactance in series have Q = 2, so 10·(1 + 4) = 50 ohm in parallel
/// with 20·(1 + 1/4) = 25 ohm. At 1/(2pi) Hz reactances are inductances.
TEST(ImmittanceTest, SeriesAndParallelFormsAreEquivalent) {
    constexpr double f = 0.15915494309189535;
    const auto series = ImmittanceOf({Connection::Series, 10.0, 20.0, std::nullopt}, f);
    ASSERT_TRUE(series);
    const Equivalent parallel = ParallelForm(*series, f);
    EXPECT_NEAR(parallel.resistance, 50, 1e-12);
    EXPECT_NEAR(parallel.element, 25, 1e-12);
    EXPECT_NEAR(QualityFactor(*series), 2, 1e-12);

    const auto back = ImmittanceOf(
        {Connection::Parallel, parallel.resistance, parallel.element, std::nullopt}, f);
    EXPECT_NEAR(SeriesForm(*back, f).resistance, 10, 1e-12);
    EXPECT_NEAR(SeriesForm(*back, f).element, 20, 1e-12);
}

/// A real coil, 100 nH with 1 ohm and 1 pF across it, at 100 MHz: 104.109 nH with Q 60.35 (worked
/// by hand from Z = (R + jwL)/(1 - w²LC + jwRC)).
TEST(ImmittanceTest, CapacitanceAcrossACoilRaisesItsInductance) {
    const auto coil = ImmittanceOf({Connection::RLAcrossC, 1.0, 100e-9, 1e-12}, 100e6);
    EXPECT_NEAR(SeriesForm(*coil, 100e6).element, 104.109e-9, 1e-12);
    EXPECT_NEAR(QualityFactor(*coil), 60.35, 0.01);
}

TEST(ImmittanceTest, MissingElementsLeaveTheOthers) {
    for (const ConnectionName& name : Connections()) {
        const auto only = ImmittanceOf({name.connection, 47.0, std::nullopt, std::nullopt}, 1e6);
        ASSERT_TRUE(only) << name.text;
        EXPECT_NEAR(std::abs(only->impedance() - 47.0), 0, 1e-12) << name.text;
        EXPECT_FALSE(ImmittanceOf({name.connection, {}, {}, {}}, 1e6)) << name.text;
    }
}

/// 1 H with 1 F at 1/(2pi) Hz without losses: an open and a short are results, not failures.
TEST(ImmittanceTest, ResonanceIsAnOrdinaryResult) {
    constexpr double f = 0.15915494309189535;
    const auto open = ImmittanceOf({Connection::Parallel, {}, 1.0, 1.0}, f);
    EXPECT_LT(std::abs(open->admittance()), 1e-12);
    const auto shorted = ImmittanceOf({Connection::Series, {}, 1.0, 1.0}, f);
    EXPECT_LT(std::abs(shorted->impedance()), 1e-12);
}

// ---------------------------------------------------------------- numbers in a text

struct TextRow {
    const char* text;
    std::vector<double> values;
};

class TextsWithNumbers : public testing::TestWithParam<TextRow> {};

TEST_P(TextsWithNumbers, AreRead) {
    const auto found = NumbersIn(GetParam().text);
    ASSERT_EQ(found.size(), GetParam().values.size()) << GetParam().text;
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_DOUBLE_EQ(found[i].value, GetParam().values[i])
            << std::string_view(GetParam().text).substr(found[i].at, found[i].length);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TextsWithNumbers,
    testing::Values(TextRow{"R1 = 50 ohm, R2 = 200 ohm", {50, 200}}, TextRow{"100 nF", {100e-9}},
                    TextRow{"  79.58n   15.92p", {79.58e-9, 15.92e-12}},
                    TextRow{"10 MHz 5 m 5m 5 mm", {10e6, 5, 5e-3, 5e-3}},
                    TextRow{"1,2,3", {1, 2, 3}}, TextRow{"4,7k; 3,3", {4700, 3.3}},
                    TextRow{"1, 2", {1, 2}}, TextRow{"-3 dB +2.5dBm", {-3, 2.5}},
                    TextRow{"1e-9 2E3 3e", {1e-9, 2000, 3}}, TextRow{"0.5,0.7", {0.5, 0.7}},
                    TextRow{"22 µF 1µ 5A", {22e-6, 1e-6, 5}}, TextRow{"C_12 x2 IC7a", {}},
                    TextRow{"12pcs", {12}}, TextRow{"", {}}, TextRow{"- + . , e", {}},
                    TextRow{"10mil", {2.54e-4}}));

TEST(NumberListTest, GarbageIsReadToItsEnd) {
    std::string garbage;
    for (int i = 0; i < 200000; ++i) garbage += static_cast<char>((i * 7919 + i / 251) % 256);
    EXPECT_LE(NumbersIn(garbage, 500).size(), 500U);
    EXPECT_EQ(NumbersIn(std::string(100000, '9')).size(), 1U);
}

TEST(NumberListTest, SummaryOfThreeValues) {
    const ListSummary summary = SummaryOf(std::vector<double>{20, 30, 60});
    EXPECT_DOUBLE_EQ(summary.sum, 110);
    EXPECT_DOUBLE_EQ(summary.least, 20);
    EXPECT_DOUBLE_EQ(summary.largest, 60);
    EXPECT_DOUBLE_EQ(summary.parallel, 10);  // 1/20 + 1/30 + 1/60 = 1/10
}

}  // namespace
}  // namespace kelvro
