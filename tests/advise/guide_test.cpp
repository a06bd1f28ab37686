#include "advise/guide.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvro {
namespace {

const std::string kLocal = "Consider a local optimizer due to higher speed.";
const std::string kGlobal = "Consider a global optimizer.";
const std::string kFew = " Check if you give the optimizer enough parameters to improve.";
const std::string kMany =
    " Consider to reduce number of parameters and check if you exploit e.g. matchings.";

struct Advice {
    GuideSituation situation;
    std::string beginning;  ///< up to the number of points
    const char* points;
};

class GuideTest : public testing::TestWithParam<Advice> {};

TEST_P(GuideTest, AdvisesBySituation) {
    const Advice& advice = GetParam();
    EXPECT_EQ(GuideAdvice(advice.situation),
              advice.beginning + " You can expect significant improvements in app. " +
                  advice.points +
                  " simulation points. Note if design is already close to optimum we would of "
                  "course typically top earlier.");
}

INSTANTIATE_TEST_SUITE_P(
    Situations, GuideTest,
    testing::Values(Advice{{10}, kLocal, "70"}, Advice{{10, false, true, true}, kGlobal, "420"},
                    Advice{{10, true, true}, kLocal, "120"},
                    Advice{{10, true, false, true}, kLocal, "120"},
                    // The limits themselves give no further advice.
                    Advice{{4}, kLocal, "16"}, Advice{{30}, kLocal, "510"},
                    // 3·3/2 + 6 = 10.5 rounds up.
                    Advice{{3}, kLocal + kFew, "11"}, Advice{{31, false}, kGlobal + kMany, "1023"},
                    Advice{{0}, kLocal + kFew, "0"}, Advice{{-5}, kLocal + kFew, "0"},
                    Advice{{1e99, false, true, true}, kGlobal + kMany, "4000002000000"}));

}  // namespace
}  // namespace kelvro
