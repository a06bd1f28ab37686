#include "core/series.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/number_text.h"

namespace kelvro {
namespace {

struct SeriesCase {
    Series series;
    double x;
    double below;
    double above;
    double nearest;
};

class SeriesOf : public testing::TestWithParam<SeriesCase> {};

TEST_P(SeriesOf, ANumberAreTheValuesAround) {
    const auto& [series, x, below, above, nearest] = GetParam();
    EXPECT_DOUBLE_EQ(ParseValue(SeriesBelow(series, x)), below) << x;
    EXPECT_DOUBLE_EQ(ParseValue(SeriesAbove(series, x)), above) << x;
    EXPECT_DOUBLE_EQ(ParseValue(SeriesNearest(series, x)), nearest) << x;
}

INSTANTIATE_TEST_SUITE_P(Values, SeriesOf,
                         testing::Values(SeriesCase{Series::E12, 1.3e-9, 1.2e-9, 1.5e-9, 1.2e-9},
                                         SeriesCase{Series::E6, 390, 330, 470, 330},
                                         SeriesCase{Series::E24, 6.4e6, 6.2e6, 6.8e6, 6.2e6},
                                         SeriesCase{Series::E48, 3.9e-12, 3.83e-12, 4.02e-12,
                                                    3.83e-12},
                                         SeriesCase{Series::E96, 9.8, 9.76, 10, 9.76},
                                         SeriesCase{Series::E6, 9.9e3, 6.8e3, 1e4, 1e4},
                                         // a tie of the displayed values goes up
                                         SeriesCase{Series::E6, 1.25, 1, 1.5, 1.5},
                                         SeriesCase{Series::E12, 110, 100, 120, 120}));

// A value of the series has the next lower one below it; 1 and lower powers of ten have the second
// one above them, and higher powers of ten are the end of their decade.
INSTANTIATE_TEST_SUITE_P(ExactHits, SeriesOf,
                         testing::Values(SeriesCase{Series::E12, 1.5, 1.2, 1.5, 1.5},
                                         SeriesCase{Series::E12, 1, 1, 1.2, 1},
                                         SeriesCase{Series::E12, 1e-9, 1e-9, 1.2e-9, 1e-9},
                                         SeriesCase{Series::E12, 10, 8.2, 10, 10},
                                         SeriesCase{Series::E12, 100, 82, 100, 100},
                                         SeriesCase{Series::E96, 1e6, 976e3, 1e6, 1e6},
                                         SeriesCase{Series::None, 1.2345, 1.23, 1.23, 1.23}));

TEST(SeriesTest, TextsAreSixWideWithTwoDecimals) {
    EXPECT_EQ(SeriesNearest(Series::E12, 1.3e-9), "  1.20n");
    EXPECT_EQ(SeriesNearest(Series::E6, 390), "330.000");
    EXPECT_EQ(SeriesNearest(Series::None, 1.2345), "  1.230");
}

/// Values as fields hold them must be hits in every decade, whatever their last bit.
TEST(SeriesTest, EveryStandardValueIsItsOwnNeighbour) {
    const double e12[] = {1.2, 1.5, 1.8, 2.2, 2.7, 3.3, 3.9, 4.7, 5.6, 6.8, 8.2};
    for (int decade = -14; decade <= 8; ++decade) {
        for (std::size_t i = 1; i < std::size(e12); ++i) {
            const std::string exponent = "e" + std::to_string(decade);
            const double value = ParseValue(FormatExact(e12[i]) + exponent);
            const double lower = ParseValue(FormatExact(e12[i - 1]) + exponent);
            for (const double x : {std::nextafter(value, 0), value, std::nextafter(value, 1e9)}) {
                EXPECT_NEAR(ParseValue(SeriesAbove(Series::E12, x)), value, 1e-9 * value);
                EXPECT_NEAR(ParseValue(SeriesNearest(Series::E12, x)), value, 1e-9 * value);
                EXPECT_NEAR(ParseValue(SeriesBelow(Series::E12, x)), lower, 1e-9 * value);
            }
        }
    }
}

TEST(SeriesTest, AnyNumberGivesATextAndAnEnd) {
    for (const double x : {0.0, -1.0, 5e-324, 1e308, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        EXPECT_FALSE(SeriesNearest(Series::E24, x).empty()) << x;
    }
}

TEST(SeriesTest, SeriesAreKnownByName) {
    EXPECT_EQ(SeriesByName("E6"), Series::E6);
    EXPECT_EQ(SeriesByName("e96"), Series::E96);
    for (const char* name : {"", "E", "E7", "12", "E12 ", "E192"}) {
        EXPECT_FALSE(SeriesByName(name)) << name;
    }
}

}  // namespace
}  // namespace kelvro
