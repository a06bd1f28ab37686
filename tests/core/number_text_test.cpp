#include "core/number_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

namespace kelvro {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// ---------------------------------------------------------------- reading

struct ParseCase {
    const char* text;
    double value;
};

class ParseValueReads : public testing::TestWithParam<ParseCase> {};

TEST_P(ParseValueReads, TheValueOfTheText) {
    EXPECT_DOUBLE_EQ(ParseValue(GetParam().text), GetParam().value) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ParseValueReads,
    testing::Values(ParseCase{"4.7k", 4700}, ParseCase{"4,7k", 4700}, ParseCase{"100n", 1e-7},
                    ParseCase{"+5", 5}, ParseCase{"  12", 12}, ParseCase{" -3", -3},
                    ParseCase{".5", 0.5}, ParseCase{"-,5k", -500}, ParseCase{"5.", 5},
                    ParseCase{"1.5E-3", 0.0015}, ParseCase{"-2e2", -200}, ParseCase{"1e+2", 100},
                    ParseCase{"-1e-2", -0.01}, ParseCase{"2E", 2}, ParseCase{"1e-", 1}));

INSTANTIATE_TEST_SUITE_P(
    Prefixes, ParseValueReads,
    testing::Values(ParseCase{"1a", 1e-18}, ParseCase{"1A", 1e-18}, ParseCase{"1F", 1e-15},
                    ParseCase{"1P", 1e-12}, ParseCase{"1N", 1e-9}, ParseCase{"2.2u", 2.2e-6},
                    ParseCase{"2.2U", 2.2e-6}, ParseCase{"1m", 1e-3}, ParseCase{"1M", 1e6},
                    ParseCase{"1c", 1e-2}, ParseCase{"1C", 1e-2}, ParseCase{"3d", 0.3},
                    ParseCase{"3dB", 3}, ParseCase{"3Db", 3}, ParseCase{"1K", 1e3},
                    ParseCase{"1g", 1e9}, ParseCase{"1t", 1e12}, ParseCase{"1T", 1e12},
                    ParseCase{"5MHz", 5e6}, ParseCase{"1m5", 1e-3}));

INSTANTIATE_TEST_SUITE_P(Units, ParseValueReads,
                         testing::Values(ParseCase{"10mil", 2.54e-4}, ParseCase{"10 mil", 2.54e-4},
                                         ParseCase{"3mils", 7.62e-5}, ParseCase{"2miles", 3200},
                                         ParseCase{"1,5miles", 2400}, ParseCase{"1mil 2miles", 1.6},
                                         ParseCase{"5Mil", 5e6}, ParseCase{"mil", 0}));

INSTANTIATE_TEST_SUITE_P(
    BadTexts, ParseValueReads,
    testing::Values(ParseCase{"", 0}, ParseCase{"   ", 0}, ParseCase{"abc", 0}, ParseCase{"x5", 0},
                    ParseCase{"\t5", 0}, ParseCase{"--5", 0}, ParseCase{"- 5", 0},
                    ParseCase{"12x", 12}, ParseCase{"12 k", 12}, ParseCase{"5+3", 5},
                    ParseCase{"1,5.3", 1.5}, ParseCase{"1.000,5", 1}, ParseCase{"1I2L3s", 123},
                    ParseCase{"2E3k", 2000}, ParseCase{"1e2.5", 100}, ParseCase{"1e2e3", 100},
                    ParseCase{"1e2s3", 100}, ParseCase{"e5", 0}, ParseCase{"k5", 0},
                    ParseCase{"0e99999", 0}, ParseCase{"1e99999", kInfinity},
                    ParseCase{"1e-99999", 0}, ParseCase{"2.2\xC2\xB5", 2.2}));

TEST(ParseNumberTest, TellsATextWithoutDigitsFromZero) {
    for (const char* text : {"", " ", "abc", "-", "+.", "E", "k5", "--5", "nan", "infinite"}) {
        EXPECT_TRUE(ParseNumber(text).noDigits) << text;
    }
    for (const char* text : {"0", "-0", ".0", "e5", " 0k", "i0"}) {
        EXPECT_FALSE(ParseNumber(text).noDigits) << text;
        EXPECT_EQ(ParseNumber(text).value, 0) << text;
    }
}

TEST(ParseNumberTest, ReadsVeryLongTexts) {
    constexpr std::size_t many = 1'000'000;
    EXPECT_EQ(ParseValue(std::string(many, '9')), kInfinity);
    EXPECT_EQ(ParseValue(std::string(many, '0') + "5"), 5);
    EXPECT_EQ(ParseValue("0." + std::string(many, '0') + "1"), 0);
    EXPECT_EQ(ParseValue("1." + std::string(many, '9')), 2);
    EXPECT_EQ(ParseValue("1e" + std::string(many, '9')), kInfinity);
    EXPECT_EQ(ParseValue("1e-" + std::string(many, '9')), 0);
    EXPECT_EQ(ParseValue(std::string(many, '9') + "e-" + std::string(many, '9')), 0);
    EXPECT_EQ(ParseValue(std::string(many, ' ') + "7"), 7);
    EXPECT_EQ(ParseValue(std::string(many, 'l') + "7"), 7);
    EXPECT_EQ(ParseValue(std::string(many, '-')), 0);
    EXPECT_EQ(ParseValue("1" + std::string(many, 'm')), 1e-3);
}

TEST(ParseNumberTest, GivesANumberForAnyBytes) {
    std::mt19937 random(1);
    const std::string likely = "0123456789+-,. eEkMmunpdDbBiles\0\xFF";
    for (int i = 0; i < 50000; ++i) {
        std::string text(random() % 24, '\0');
        for (char& c : text) {
            c = random() % 2 ? likely[random() % likely.size()] : static_cast<char>(random());
        }
        EXPECT_FALSE(std::isnan(ParseValue(text))) << testing::PrintToString(text);
    }
}

/// The C library reads the mantissa; the prefix is applied here.
TEST(ParseNumberTest, AgreesWithTheCLibrary) {
    std::mt19937 random(2);
    const std::pair<const char*, double> prefixes[] = {{"", 1},     {"k", 1e3},  {"M", 1e6},
                                                       {"u", 1e-6}, {"n", 1e-9}, {"p", 1e-12}};
    const std::string point = std::localeconv()->decimal_point;
    for (int i = 0; i < 2000; ++i) {
        const std::string whole = std::to_string(random() % 100000);
        const std::string fraction = std::to_string(random() % 1000);
        const auto& [letter, factor] = prefixes[random() % std::size(prefixes)];
        const double expected = std::strtod((whole + point + fraction).c_str(), nullptr) * factor;
        const std::string text = whole + (random() % 2 ? "." : ",") + fraction + letter;
        EXPECT_NEAR(ParseValue(text), expected, 1e-15 * expected) << text;
    }
}

// ---------------------------------------------------------------- writing

struct FormatCase {
    double value;
    const char* text;
};

class FormatEngWrites : public testing::TestWithParam<FormatCase> {};

TEST_P(FormatEngWrites, SevenCharactersWithTwoDecimalsAndASuffix) {
    EXPECT_EQ(FormatEng(7, 2, GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    PrefixRange, FormatEngWrites,
    testing::Values(FormatCase{1.5, "   1.500"}, FormatCase{12.3456e-9, "  12.35n"},
                    FormatCase{0.5, " 500.00m"}, FormatCase{-4700, "  -4.70k"},
                    FormatCase{1000, "   1.00k"}, FormatCase{999.99, " 999.990"},
                    // 999.996 is below the decade, though it rounds up to it
                    FormatCase{999.996, "1000.000"}, FormatCase{999.99999999, "   1.00k"},
                    FormatCase{1e-18, "   1.00a"}, FormatCase{1e-15, "   1.00f"},
                    FormatCase{1e13, "  10.00T"}, FormatCase{1.125, "   1.130"},
                    FormatCase{-1.125, "  -1.130"}, FormatCase{2.675e6, "   2.67M"}));

// Outside the prefixes the text is one decimal shorter and still gets the suffix "0".
INSTANTIATE_TEST_SUITE_P(
    OutsideThePrefixes, FormatEngWrites,
    testing::Values(FormatCase{0, "   0.000"}, FormatCase{-0.0, "   0.000"},
                    FormatCase{1e-300, "   0.000"}, FormatCase{5e-324, "   0.000"},
                    FormatCase{9.9e-19, " 990.0E-210"}, FormatCase{-2e-21, "  -2.0E-210"},
                    FormatCase{1.1e13, "  11.0E+120"}, FormatCase{1e15, "   1.0E+150"},
                    FormatCase{1e31, "  10.0E+300"}, FormatCase{1e-27, "   1.0E-270"},
                    FormatCase{2e-28, "2.000000e-280"}, FormatCase{2e32, "2.000000e+320"},
                    FormatCase{2e-300, "2.000000e-3000"}));

TEST(FormatEngTest, FollowsWidthAndDecimals) {
    EXPECT_EQ(FormatEng(6, 2, 1.2e-9), "  1.20n");
    EXPECT_EQ(FormatEng(2, 2, 123456), "123.46k");
    EXPECT_EQ(FormatEng(3, 0, 4.7), "  50");
    EXPECT_EQ(FormatEng(2, 2, 0), "0.000");
}

class FormatEngShortWrites : public testing::TestWithParam<FormatCase> {};

TEST_P(FormatEngShortWrites, TheCompactText) {
    EXPECT_EQ(FormatEngShort(2, GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, FormatEngShortWrites,
                         testing::Values(FormatCase{0.5, "0.50"}, FormatCase{4700, "4.70k"},
                                         FormatCase{0, "0.0"}, FormatCase{-0.0, "0.0"},
                                         FormatCase{-1, "-1.00"}, FormatCase{0.1, "0.10"},
                                         FormatCase{0.0999, "99.90m"}, FormatCase{999, "999.00"},
                                         FormatCase{999.99999999, "1.00k"},
                                         FormatCase{1e-7, "0.10u"}, FormatCase{1e-19, "0.10a"},
                                         FormatCase{9e-20, "90.00E-21"}, FormatCase{1e13, "10.00T"},
                                         FormatCase{1e14, "100.00E+12"}, FormatCase{1e-300, "0.0"},
                                         FormatCase{2e-300, "2.000000e-300"}));

TEST(FormatTest, WhatIsNotFiniteStillGivesAText) {
    for (const double value : {kInfinity, -kInfinity, std::nan("")}) {
        EXPECT_FALSE(FormatEng(7, 2, value).empty());
        EXPECT_FALSE(FormatEngShort(2, value).empty());
        EXPECT_FALSE(FormatFixed(7, 2, value).empty());
    }
    const double negativeNan = std::copysign(std::nan(""), -1);
    EXPECT_EQ(FormatFixed(7, 2, negativeNan), "    nan");
    EXPECT_EQ(FormatExact(negativeNan), "nan");
}

TEST(FormatTest, ReadingAWrittenTextGivesTheValueToItsDecimals) {
    for (double decade = -17.9; decade < 12.9; decade += 0.07) {
        const double value = std::pow(10, decade);
        // The shortest mantissa is 1.00 in fields and 0.10 in compact texts.
        EXPECT_NEAR(ParseValue(FormatEng(7, 2, value)), value, 0.0051 * value) << decade;
        EXPECT_NEAR(ParseValue(FormatEngShort(2, -value)), -value, 0.051 * value) << decade;
    }
}

TEST(FormatFixedTest, RoundsExactTiesAwayFromZero) {
    struct Case {
        int width, decimals;
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0, 2, 1.125, "1.13"},
        {0, 0, 0.5, "1"},
        {0, 0, -0.5, "-1"},
        {0, 0, 2.5, "3"},
        {0, 1, 0.25, "0.3"},
        {0, 3, 0.0625, "0.063"},
        {0, 2, 2.675, "2.67"},  // the double lies below 2.675
        {8, 2, 5, "    5.00"},
        {9, 3, 1.9802, "    1.980"},
        {7, 2, -0.0, "   0.00"},
        {2, 1, 123.45, "123.5"},
        {0, 1, 9.96, "10.0"},
        {0, 0, 2251799813685248.5, "2251799813685249"},
        {0, 0, 1e22, "10000000000000000000000"},
    };
    for (const auto& [width, decimals, value, text] : cases) {
        EXPECT_EQ(FormatFixed(width, decimals, value), text);
    }
    EXPECT_EQ(FormatFixed(0, 2, 1e300).size(), 304U);
    EXPECT_EQ(FormatFixed(0, 255, 0.5).size(), 257U);
}

TEST(FormatFixedTest, AgreesWithTheCLibraryButForTies) {
    std::mt19937_64 random{11};
    std::uniform_real_distribution<> decade(-5, 10);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::copysign(std::pow(10, decade(random)), i % 2 - 0.5);
        const int decimals = i % 5;
        char expected[64];
        std::snprintf(expected, sizeof expected, "%12.*f", decimals, value);
        std::ranges::replace(expected, ',', '.');  // where the locale has a comma
        ASSERT_EQ(FormatFixed(12, decimals, value), expected);
    }
}

TEST(FormatExactTest, IsTheTextOfTheStandardLibraryForEveryDouble) {
    using Limits = std::numeric_limits<double>;
    std::vector<double> values{
        0, -0.0, kInfinity, -kInfinity, Limits::denorm_min(), Limits::min(), Limits::max()};
    // Around powers of ten the number of digits changes; of powers of two, many end in a tie.
    for (int exponent = -307; exponent <= 308; ++exponent) {
        const double decade = std::pow(10, exponent);
        values.insert(values.end(),
                      {decade, std::nextafter(decade, 0), std::nextafter(decade, kInfinity),
                       9.9999999999999995 * decade, -1.5 * decade});
    }
    for (int exponent = -1000; exponent <= 1000; ++exponent) {
        values.push_back(std::ldexp(1, exponent));
        values.push_back(std::ldexp(3, exponent));
    }
    std::mt19937_64 random(1);
    for (int i = 0; i < 30000; ++i) {
        values.push_back(std::bit_cast<double>(random()));
        values.push_back(std::ldexp(static_cast<double>(random()), -80 + i % 40));
    }
    for (const double value : values) {
        if (std::isnan(value)) continue;
        char text[32];
        const auto end = std::to_chars(text, text + 32, value, std::chars_format::general, 17).ptr;
        ASSERT_EQ(FormatExact(value), std::string(text, end));
    }
}

}  // namespace
}  // namespace kelvro
