#include "advise/keywords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "optimize/page_optimizer.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

using testing::StartsWith;

struct KeywordCase {
    const char* word;
    const char* message;  ///< its beginning, empty for none
};

class Keyword : public testing::TestWithParam<KeywordCase> {};

/// Each keyword changes what an optimization does.
TEST_P(Keyword, TakesEffect) {
    const std::vector<std::string> arguments = {GetParam().word};
    const KeywordPreset preset = ReadKeywords(arguments);
    if (*GetParam().message == 0) {
        EXPECT_TRUE(preset.messages.empty());
    } else {
        ASSERT_EQ(preset.messages.size(), 1U);
        EXPECT_THAT(preset.messages[0], StartsWith(GetParam().message));
    }
    bool changed = preset.settings.disabled;
    for (const auto& [page, Q] : {std::pair{5, 5.0}, {2, 0.2}, {1, 8.0}}) {
        const Design design = Calculated(
            {.page = page, .R1 = page == 2 ? 300.0 : 40, .R2 = page == 2 ? 70.0 : 170, .Q = Q});
        // Two runs by default, so that "single" shows; "mruns" is the other way round.
        OptimizerSettings defaults;
        defaults.singleRun = std::string(GetParam().word) != "single";
        const auto with = ReadKeywords(arguments, defaults).settings;
        const auto a = OptimizePage(design, defaults);
        const auto b = OptimizePage(design, with);
        changed = changed || a.calls.of(CallKind::Gradient) != b.calls.of(CallKind::Gradient) ||
                  a.achievedGoal != b.achievedGoal || !b.table.empty();
    }
    EXPECT_TRUE(changed);
}

INSTANTIATE_TEST_SUITE_P(
    All, Keyword,
    testing::Values(KeywordCase{"dfp", "Hint: DFP"}, KeywordCase{"hessian", "Hint: True H"},
                    KeywordCase{"noclamp", "Hint: No parameter clamping."},
                    KeywordCase{"max", "Hint: Max-norm used"}, KeywordCase{"xls", "Hint: Tables"},
                    KeywordCase{"noise", "Hint: Optimization is less accurate"},
                    KeywordCase{"nopt", ""}, KeywordCase{"steep", "Hint: Optimization using"},
                    KeywordCase{"single", ""}, KeywordCase{"ssg", ""}, KeywordCase{"dsg", ""},
                    KeywordCase{"trans", ""}, KeywordCase{"mruns", ""},
                    KeywordCase{"thorough", "Hint: Thorough search"}),
    [](const auto& test) { return test.param.word; });

TEST(Keywords, JoinAndTheNumbersBehindThem) {
    const std::vector<std::string> arguments = {"dfp,steep", "0,75", "7"};
    const KeywordPreset preset = ReadKeywords(arguments);
    EXPECT_TRUE(preset.settings.local.dfp);
    EXPECT_TRUE(preset.settings.local.steepestDescent);
    EXPECT_EQ(preset.settings.local.lineAccuracy, 0.75);
    EXPECT_EQ(preset.settings.local.lineCentre, 1);
    const std::vector<std::string> withoutCentre = {"dfp", "0.3"};
    EXPECT_EQ(ReadKeywords(withoutCentre).settings.local.lineAccuracy, 0.3);
    ASSERT_EQ(preset.messages.size(), 4U);
    EXPECT_EQ(preset.messages[2],
              "Hint: Line accuracy modified (0=fast,1=accurate)! Parameter set to 0.75");
}

}  // namespace
}  // namespace kelvro
