#include "analysis/tools/lc_filter.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvro {
namespace {

constexpr FilterLosses kLossless{INFINITY, INFINITY};

struct PrototypeRow {
    FilterShape shape;
    double ripple;
    std::vector<double> g;
};

class PrototypeTables : public testing::TestWithParam<PrototypeRow> {};

/// Matthaei, Young and Jones 1964, tables 4.05-1(a) and 4.05-2(a). Those of Chebyshev were computed
/// with 40/ln 10 rounded to 17.37, which shows in the fourth digit.
TEST_P(PrototypeTables, AreMet) {
    const PrototypeRow& row = GetParam();
    const auto order = static_cast<int>(row.g.size()) - 1;
    const std::vector<double> g = Prototype(row.shape, order, row.ripple);
    ASSERT_EQ(g.size(), row.g.size());
    for (std::size_t k = 0; k < g.size(); ++k) EXPECT_NEAR(g[k] / row.g[k], 1, 1.5e-4) << k;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PrototypeTables,
    testing::Values(
        PrototypeRow{FilterShape::Butterworth, 0, {2, 1}},
        PrototypeRow{FilterShape::Butterworth, 0, {0.7654, 1.8478, 1.8478, 0.7654, 1}},
        PrototypeRow{FilterShape::Chebyshev, 0.01, {0.6291, 0.9702, 0.6291, 1}},
        PrototypeRow{FilterShape::Chebyshev, 0.1, {1.1468, 1.3712, 1.9750, 1.3712, 1.1468, 1}},
        PrototypeRow{FilterShape::Chebyshev, 0.5, {1.6703, 1.1926, 2.3661, 0.8419, 1.9841}},
        PrototypeRow{FilterShape::Chebyshev, 3, {3.1013, 0.5339, 5.8095}}));

std::vector<FilterWishes> AllKinds() {
    std::vector<FilterWishes> kinds;
    for (const auto shape : {FilterShape::Butterworth, FilterShape::Chebyshev}) {
        for (const auto band : {FilterBand::LowPass, FilterBand::HighPass, FilterBand::BandPass,
                                FilterBand::BandStop}) {
            for (const int order : {1, 4, 5}) {
                for (const bool shunt : {true, false}) {
                    kinds.push_back({shape, band, order, 0.5, 10e6, 2e6, 75, shunt});
                }
            }
        }
    }
    return kinds;
}

/// The circuit's response by ladder algebra against the polynomials that the approximation is
/// defined by.
TEST(FilterTest, CircuitsHaveThePromisedResponse) {
    for (const FilterWishes& wishes : AllKinds()) {
        const LadderResponse filter(NetworkOf(DesignFilter(wishes), kLossless));
        for (double f = 1e6; f < 100e6; f *= 1.093) {
            const double promised = PromisedAttenuation(wishes, f);
            const FilterPoint point = ResponseOf(filter, f);
            EXPECT_NEAR(-point.gainDb, promised, 1e-7 * (1 + promised))
                << "shape " << static_cast<int>(wishes.shape) << " band "
                << static_cast<int>(wishes.band) << " order " << wishes.order << " at " << f;
            const double power =
                std::pow(10, point.gainDb / 10) + std::pow(10, point.reflectionDb / 10);
            EXPECT_NEAR(power, 1, 1e-9) << "lossless";
        }
    }
}

TEST(FilterTest, EdgesLieWhereTheAttenuationIs) {
    for (const FilterWishes& wishes : AllKinds()) {
        const double edge = wishes.shape == FilterShape::Butterworth ? 3.0103 : wishes.ripple;
        const auto check = [&](double f, double attenuation) {
            if (f == 0) return;
            EXPECT_NEAR(PromisedAttenuation(wishes, f), attenuation, 1e-4)
                << "band " << static_cast<int>(wishes.band) << " at " << f;
        };
        check(EdgesOf(wishes).lower, edge);
        check(EdgesOf(wishes).upper, edge);
        check(HalfPowerEdges(wishes).lower, 3.0103);
        check(HalfPowerEdges(wishes).upper, 3.0103);
    }
}

/// A trap is a short at its own frequency: no division by it, only no output.
TEST(FilterTest, BandStopBlocksItsCentreAltogether) {
    const FilterWishes wishes{.band = FilterBand::BandStop, .frequency = 10e6, .bandwidth = 1e6};
    const LadderResponse filter(NetworkOf(DesignFilter(wishes), kLossless));
    const FilterPoint point = ResponseOf(filter, 10e6);
    EXPECT_LT(point.gainDb, -250);
    EXPECT_NEAR(point.reflectionDb, 0, 1e-9);
}

/// S. B. Cohn, "Dissipation Loss in Multiple-Coupled-Resonator Filters", Proc. IRE 47 (1959): the
/// midband loss of a band-pass is 4.343·(fo/B)·(sum of g)/Qu dB for a small loss. With equal Q of
/// both elements a resonator's Qu is half of it.
TEST(FilterTest, LossesGiveCohnsMidbandLoss) {
    const FilterWishes wishes{
        .band = FilterBand::BandPass, .order = 3, .frequency = 10e6, .bandwidth = 1e6};
    const LadderResponse filter(NetworkOf(DesignFilter(wishes), {4000, 4000}));
    const double loss = -ResponseOf(filter, 10e6).gainDb;
    EXPECT_NEAR(loss, 4.343 * 10 * 4 / 2000, 0.02 * loss);
}

/// Butterworth, 30 dB at twice the cutoff: 10·log(1 + 2^2n) reaches 30 at n = 5 (30.11 dB).
TEST(FilterTest, LeastOrderMeetsTheWishAndNoLowerOneDoes) {
    const FilterWishes wishes{.frequency = 1e6};
    EXPECT_EQ(LeastOrder(wishes, 30, 2e6), 5);
    EXPECT_EQ(LeastOrder(wishes, 30.2, 2e6), 6);
    EXPECT_EQ(LeastOrder(wishes, 30, 1e6), 0) << "never at the edge itself";
}

TEST(FilterTest, WishesOutOfRangeGiveNoArms) {
    const FilterWishes good{.frequency = 1e6, .bandwidth = 1e5};
    const auto with = [&](auto change) {
        FilterWishes wishes = good;
        change(wishes);
        return DesignFilter(wishes).arms.size();
    };
    EXPECT_EQ(with([](auto&) {}), 3U);
    EXPECT_EQ(with([](auto& w) { w.order = 0; }), 0U);
    EXPECT_EQ(with([](auto& w) { w.order = kMostOrder + 1; }), 0U);
    EXPECT_EQ(with([](auto& w) { w.frequency = 0; }), 0U);
    EXPECT_EQ(with([](auto& w) { w.source = NAN; }), 0U);
    EXPECT_EQ(with([](auto& w) { w.band = FilterBand::BandPass, w.bandwidth = 0; }), 0U);
    EXPECT_EQ(with([](auto& w) { w.shape = FilterShape::Chebyshev, w.ripple = 0; }), 0U);
}

}  // namespace
}  // namespace kelvro
