#include "analysis/tolerance.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "analysis/response.h"
#include "design/pages.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Design Designed(int page, double R1 = 50, double R2 = 200) {
    Design state;
    EnterPage(state, page);
    state.R1 = R1;
    state.R2 = R2;
    state.eightElements = true;
    const CycleResult result = CycleOf(state);
    EXPECT_FALSE(result.message.has_value()) << result.message.value_or("");
    return result.design;
}

struct PartsCase {
    const char* title;
    int page;
    double R1;
    double R2;
    bool swapped;
    std::vector<std::pair<std::string, std::size_t>> parts;  ///< name and random number
};

class PartsOfPages : public testing::TestWithParam<PartsCase> {};

TEST_P(PartsOfPages, TakeTheirRandomNumbersInTheFixedOrder) {
    const PartsCase& row = GetParam();
    Design state = Designed(row.page, row.R1, row.R2);
    state.LCSwapped = row.swapped;
    std::vector<std::pair<std::string, std::size_t>> parts;
    for (const TolerancePart& part : ToleranceParts(state)) {
        parts.emplace_back(part.name, part.draw);
    }
    EXPECT_EQ(parts, row.parts);
}

TEST_P(PartsOfPages, VaryEvenlyWithinTheirTolerancesAndNothingElseDoes) {
    const PartsCase& row = GetParam();
    Design state = Designed(row.page, row.R1, row.R2);
    state.LCSwapped = row.swapped;
    const Tolerances tolerances{
        .capacitance = 1, .inductance = 20, .lineImpedance = 35, .resistance = 10};
    ToleranceRuns runs(state, tolerances, 1);
    std::vector<std::vector<double>> seen(runs.parts().size());
    Design restored;
    for (int i = 0; i < 2000; ++i) {
        restored = runs.next();
        for (std::size_t p = 0; p < seen.size(); ++p) {
            const TolerancePart& part = runs.parts()[p];
            const double ratio = part.ref.read(restored) / part.ref.read(state);
            seen[p].push_back((part.dual ? 1 / ratio : ratio) - 1);
            EXPECT_NEAR(seen[p].back(), runs.deviations()[p], 1e-12);
        }
    }
    for (std::size_t p = 0; p < seen.size(); ++p) {
        const double percent = tolerances.of(runs.parts()[p].group);
        const Spread spread = SpreadOf(seen[p], 0);
        EXPECT_GE(spread.min, -percent / 100 - 1e-12);
        EXPECT_LE(spread.max, percent / 100 + 1e-12);
        // Of 2000 even numbers; five standard deviations.
        EXPECT_NEAR(spread.mean, 0, 5 * percent / 100 / std::sqrt(3 * 2000.0));
        EXPECT_NEAR(spread.deviation, percent / 100 / std::sqrt(3.0), percent / 100 * 0.04);
        const TolerancePart& part = runs.parts()[p];
        part.ref.write(restored, part.ref.read(state));
    }
    // Pairs kept as mean and ratio come back to within rounding; all else is untouched.
    for (int slot = 0; slot < static_cast<int>(Slot::Count); ++slot) {
        const double nominal = state.components[static_cast<Slot>(slot)];
        EXPECT_NEAR(restored.components[static_cast<Slot>(slot)], nominal,
                    1e-12 * std::fabs(nominal));
    }
    restored.components = state.components;
    EXPECT_EQ(restored, state);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, PartsOfPages,
    testing::Values(PartsCase{"series tank", 1, 50, 200, false, {{"C1", 0}, {"C2", 1}, {"L", 2}}},
                    PartsCase{"Pi, swapped", 3, 50, 200, true, {{"C", 0}, {"L1", 2}, {"L2", 3}}},
                    PartsCase{"T", 4, 200, 50, false, {{"C", 0}, {"L1", 2}, {"L2", 3}}},
                    PartsCase{"line", 6, 50, 200, false, {{"ZL", 8}}},
                    PartsCase{"resistors", 7, 200, 50, false, {{"R1´", 9}, {"R2´", 10}}},
                    PartsCase{"matched pad", 8, 50, 50, false, {{"Ra", 9}, {"Rp", 10}, {"Rb", 11}}},
                    PartsCase{"balun: two of each", 9, 50, 200, false, {{"C", 0}, {"L", 2}}},
                    PartsCase{"eight elements",
                              16,
                              50,
                              200,
                              false,
                              {{"C1", 0},
                               {"C2", 1},
                               {"L1", 2},
                               {"L2", 3},
                               {"C3", 4},
                               {"C4", 5},
                               {"L3", 6},
                               {"L4", 7}}},
                    PartsCase{"more than nine",
                              17,
                              50,
                              50,
                              false,
                              {{"C01", 0},
                               {"C12", 1},
                               {"L", 2},
                               {"C23", 4},
                               {"C34", 5},
                               {"C1", 9},
                               {"C2", 10},
                               {"C3", 11}}}),
    [](const auto& row) { return "Page" + std::to_string(row.param.page); });

TEST(Tolerance, SameSeedSameRunsOtherSeedOtherRuns) {
    const Design state = Designed(1);
    const auto first = [&state](std::uint64_t seed) {
        return ToleranceRuns(state, {}, seed).next().components;
    };
    EXPECT_EQ(first(7), first(7));
    EXPECT_NE(first(7), first(8));
    EXPECT_NE(ClockSeed(), ClockSeed());
}

TEST(Tolerance, SpreadOfFewNumbersByHand) {
    // 1..5: places 0.2 and 3.8 of the sorted row; squares of deviations add up to 10, over 4.
    const Spread spread = SpreadOf({5, 3, kNaN, 1, 4, kInfinity, 2}, 3);
    EXPECT_EQ(spread.count, 7U);
    EXPECT_EQ(spread.finite, 5U);
    EXPECT_DOUBLE_EQ(spread.mean, 3);
    EXPECT_DOUBLE_EQ(spread.deviation, std::sqrt(2.5));
    EXPECT_DOUBLE_EQ(spread.percentile5, 1.2);
    EXPECT_DOUBLE_EQ(spread.percentile95, 4.8);
    EXPECT_EQ(spread.min, 1);
    EXPECT_EQ(spread.max, 5);
    EXPECT_DOUBLE_EQ(spread.yield, 3.0 / 7);  // 3, 4 and 5 of seven; no yield from infinity
}

TEST(Tolerance, TooFewNumbersHaveNoSpread) {
    EXPECT_TRUE(std::isnan(SpreadOf({}, 0).mean));
    EXPECT_TRUE(std::isnan(SpreadOf({kNaN, kNaN}, 0).max));
    EXPECT_EQ(SpreadOf({kNaN, kNaN}, 0).yield, 0);
    EXPECT_TRUE(std::isnan(SpreadOf({2}, 0).deviation));
    EXPECT_EQ(SpreadOf({2}, 0).percentile95, 2);
}

TEST(Tolerance, CorrelationByHand) {
    const std::vector<double> x{1, 2, 3, kNaN, 4};
    // Deviations (-1.5, -0.5, 0.5, 1.5) and (-1, -1, 1, 1): 4 / sqrt(5 · 4).
    EXPECT_DOUBLE_EQ(Correlation(x, std::vector<double>{0, 0, 2, 9, 2}), 4 / std::sqrt(20.0));
    EXPECT_DOUBLE_EQ(Correlation(x, std::vector<double>{8, 6, 4, 0, 2}), -1);
    EXPECT_TRUE(std::isnan(Correlation(x, std::vector<double>{5, 5, 5, 5, 5})));
}

TEST(Tolerance, QuarterWaveLineFollowsItsClosedForm) {
    // A lossless line of ZL = u·sqrt(R1·R2) has GT = 4u²/(1 + u²)² at fo, the same for u and 1/u.
    Design state = Designed(6, 50, 200);
    state.QB = state.QBC = 1e12;
    const auto gain = [](double u) { return 20 * std::log10(2 * u / (1 + u * u)); };
    const ToleranceReport report =
        AnalyseTolerance(state, {.lineImpedance = 20}, 20000, 5, gain(0.9));
    EXPECT_NEAR(report.nominalGain, 0, 1e-9);
    EXPECT_NEAR(report.gain.max, 0, 1e-6);
    EXPECT_NEAR(report.gain.min, gain(0.8), 1e-3);
    // Good from u = 0.9 to 1/0.9, of 0.8 to 1.2.
    const double yield = (1 / 0.9 - 0.9) / 0.4;
    EXPECT_NEAR(report.gain.yield, yield, 5 * std::sqrt(yield * (1 - yield) / 20000));
    ASSERT_EQ(report.parts.size(), 1U);
    // For even d in [-t, t] the gain is -d² + d³ + ..., of variance t⁴·(4/45 + t²/7); its
    // covariance with d is t⁴/5, with |d| it is -t³/12. Five standard errors of a correlation.
    const double deviation = std::sqrt(4.0 / 45 + 0.04 / 7);
    EXPECT_NEAR(report.parts[0].correlation, 0.2 / 5 * std::sqrt(3.0) / deviation, 0.035);
    EXPECT_NEAR(report.parts[0].correlationOfSize, -std::sqrt(12.0) / 12 / deviation, 0.01);
}

/// Either output of the balun has half the power: 3 dB below a match, which is no fault of a build.
TEST(Tolerance, TheLimitFollowsTheNominalGain) {
    const Design balun = Designed(9, 50, 100);
    EXPECT_EQ(AnalyseTolerance(balun, {0.1, 0.1, 0.1}, 50, 1).gain.yield, 1);
    EXPECT_EQ(AnalyseTolerance(balun, {0.1, 0.1, 0.1}, 50, 1, 0.5).gain.yield, 0);
    const Design tank = Designed(1);
    EXPECT_NEAR(AnalyseTolerance(tank, {}, 1, 1).limit, Response(tank).relativeDb(tank.fo) - 1,
                1e-12);
}

TEST(Tolerance, ADesignWithoutPartsHasNoYield) {
    const ToleranceReport report = AnalyseTolerance(Designed(10), {}, 100, 1);
    EXPECT_TRUE(report.parts.empty());
    EXPECT_EQ(report.gain.count, 0U);
    EXPECT_TRUE(std::isnan(report.gain.yield));
}

TEST(Tolerance, ValuesThatAreNoNumbersLeaveTheDesignAloneAndCountAsFailed) {
    Design state = Designed(3);
    state.components[Slot::C1] = kNaN;
    state.components[Slot::L] = kInfinity;
    const auto bits = [](const Design& s, Slot slot) {
        return std::bit_cast<std::uint64_t>(s.components[slot]);
    };
    const Design before = state;
    const ToleranceReport report = AnalyseTolerance(state, {}, 10, 1, -1);
    EXPECT_EQ(report.gain.count, 10U);
    EXPECT_EQ(report.gain.finite, 0U);
    EXPECT_EQ(report.gain.yield, 0);
    for (const Slot slot : {Slot::C1, Slot::C2, Slot::L}) {
        EXPECT_EQ(bits(state, slot), bits(before, slot));
    }
}

}  // namespace
}  // namespace kelvro
