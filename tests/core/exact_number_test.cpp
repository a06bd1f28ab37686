#include "core/exact_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

namespace kelvro {
namespace {

struct ReadCase {
    const char* text;
    double value;
    std::size_t length;
};

class ExactNumbers : public testing::TestWithParam<ReadCase> {};

TEST_P(ExactNumbers, AreReadAsFarAsTheyGo) {
    SCOPED_TRACE(GetParam().text);
    const auto number = ReadExactNumber(GetParam().text);
    ASSERT_TRUE(number);
    EXPECT_EQ(number->value, GetParam().value);
    EXPECT_EQ(number->length, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Texts, ExactNumbers,
                         testing::Values(ReadCase{"4.7k", 4.7, 3}, ReadCase{"4,7 ", 4.7, 3},
                                         ReadCase{"4,k=2", 4, 1}, ReadCase{"5.", 5, 2},
                                         ReadCase{".5", 0.5, 2}, ReadCase{"1e-9m", 1e-9, 4},
                                         ReadCase{"1e", 1, 1}, ReadCase{"2e+", 2, 1},
                                         ReadCase{"1e400", INFINITY, 5}, ReadCase{"1e-400", 0, 6},
                                         ReadCase{"0e99999999999999999999", 0, 22},
                                         ReadCase{"1e99999999999999999999", INFINITY, 22},
                                         ReadCase{"inf", INFINITY, 3}));

TEST(ExactNumbers, NeedADigit) {
    for (const char* text : {"", ".", ",", "-1", "k", "e5", " 1"}) {
        EXPECT_FALSE(ReadExactNumber(text)) << text;
    }
}

/// 0.3·1e-9 in doubles is not 3e-10; prefix and number are one decimal number.
TEST(ExactNumbers, WithTheirPrefixAreTheNearestDouble) {
    EXPECT_EQ(ReadExactNumber("0.3", ReadPrefix("n")->exponent)->value, 3e-10);
    EXPECT_EQ(ReadExactNumber("20.8", ReadPrefix("µ")->exponent)->value, 20.8e-6);
}

TEST(PrefixedTexts, AreShortAndReadable) {
    EXPECT_EQ(FormatPrefixed(20.8e-9), "20.8n");
    EXPECT_EQ(FormatPrefixed(1e3), "1k");
    EXPECT_EQ(FormatPrefixed(999), "999");
    EXPECT_EQ(FormatPrefixed(0.25), "0.25");
    EXPECT_EQ(FormatPrefixed(0.031), "31m");
    EXPECT_EQ(FormatPrefixed(-123456), "-123.456k");
    EXPECT_EQ(FormatPrefixed(2.5e-30), "2.5e-30");
    EXPECT_EQ(FormatPrefixed(3e18), "3e18");
    EXPECT_EQ(FormatPrefixed(38.98484e-9, 5), "38.985n");
    EXPECT_EQ(FormatPrefixed(999.999, 5), "1k") << "rounding may reach the next prefix";
    EXPECT_EQ(FormatPrefixed(0), "0");
}

/// Doubles of every size, drawn by their bits.
TEST(PrefixedTexts, ReadBackAsTheSameDouble) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::fabs(std::bit_cast<double>(random()));
        if (!std::isfinite(value)) continue;
        const double near =
            std::pow(10.0, -20 + 40 * (static_cast<double>(random() >> 11) * 0x1p-53));
        for (const double x : {value, near}) {
            const std::string text = FormatPrefixed(x);
            const std::string_view behind =
                std::string_view(text).substr(ReadExactNumber(text)->length);
            const auto prefix = ReadPrefix(behind);
            const auto read = ReadExactNumber(text, prefix ? prefix->exponent : 0);
            ASSERT_EQ(read->value, x) << text;
            ASSERT_EQ(read->length + (prefix ? prefix->length : 0), text.size()) << text;
        }
    }
}

}  // namespace
}  // namespace kelvro
