#include "core/random.h"

#include <gtest/gtest.h>

namespace kelvro {
namespace {

/// ISO C++ [rand.predef] names the ten thousandth number of the generator.
TEST(UniformStreamTest, IsTheGeneratorOfTheStandardOnEveryMachine) {
    UniformStream stream(5489);
    for (int i = 1; i < 10000; ++i) stream.next();
    EXPECT_EQ(stream.next(), static_cast<double>(9981545732273789042ULL >> 11) * 0x1p-53);
}

TEST(UniformStreamTest, WholeNumbersCoverTheirRangeEvenly) {
    UniformStream stream(1);
    int counts[7] = {};
    for (int i = 0; i < 70000; ++i) ++counts[stream.below(7)];
    // Five standard deviations of a binomial count: sqrt(70000·(1/7)·(6/7)) = 93.
    for (const int count : counts) EXPECT_NEAR(count, 10000, 463);
}

}  // namespace
}  // namespace kelvro
