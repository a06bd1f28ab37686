#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "optimize/box.h"
#include "optimize/local_optimizer.h"
#include "tests/optimize/points.h"

namespace kelvro {
namespace {

/// A function of one number with dips at given places; a point is good below a value.
class Dips : public Objective {
  public:
    struct Dip {
        double x;
        double depth;
    };
    Dips(std::vector<Dip> dips, double good, double lowerBound)
        : dips_(std::move(dips)), good_(good), lowerBound_(lowerBound) {}

    double value(std::span<const double> x, CallKind /*kind*/) override {
        double f = 0;
        for (const Dip& dip : dips_) f -= dip.depth * std::exp(-Square((x[0] - dip.x) / 0.4));
        return f;
    }
    bool isGood(std::span<const double> x) override {
        return value(x, CallKind::Evaluation) < good_;
    }
    double lowerBound() const override { return lowerBound_; }

  private:
    std::vector<Dip> dips_;
    double good_;
    double lowerBound_;
};

struct SearchCase {
    const char* name;
    std::vector<Dips::Dip> dips;
    double good;
    double x;            ///< where it ends
    bool severalStarts;  ///< more than one descent was made
    bool outOfReach = false;
    std::function<void(LocalOptions&)> change = [](LocalOptions&) {};
    double lowerBound = -100;
};

class SearchDelivers : public testing::TestWithParam<SearchCase> {};

/// From 0; a factor of ten reaches to 2.3026.
TEST_P(SearchDelivers, TheNearestGoodMinimum) {
    const SearchCase& c = GetParam();
    Dips dips(c.dips, c.good, c.lowerBound);
    LocalOptions options;
    options.gradientLimit = 1e-4;
    c.change(options);
    const Summary run = MinimizeLocally(dips, Point({0}), options);
    EXPECT_NEAR(run.x[0], c.x, 0.02);
    EXPECT_EQ(run.descents > 1, c.severalStarts);
    EXPECT_EQ(run.outOfReach, c.outOfReach);
    EXPECT_NEAR(run.distance, std::fabs(run.x[0]), 1e-12);
    // All of one point.
    const double h = 1e-6;
    const double slope =
        (dips.value(std::vector{run.x[0] + h}, {}) - dips.value(std::vector{run.x[0] - h}, {})) /
        (2 * h);
    EXPECT_NEAR(run.g[0], slope, 1e-4);
    EXPECT_DOUBLE_EQ(run.f, dips.value(std::vector{run.x[0]}, {}));
    EXPECT_NEAR(run.gradientLength, std::fabs(run.g[0]), 1e-15);
}

INSTANTIATE_TEST_SUITE_P(
    Choice, SearchDelivers,
    testing::Values(
        // Good: nobody looks at the deeper one.
        SearchCase{"firstGoodOne", {{0.3, 5}, {-1.8, 9}}, -4, 0.3, false},
        // Not good, and the other one is by more than 0.2 lower.
        SearchCase{"lowerOneWithinReach", {{0.3, 1}, {-1.8, 5}}, -4, -1.8, true},
        // No good one at all, and the other one is hardly lower.
        SearchCase{"nearOneOfTwoAlike", {{0.3, 5}, {-1.8, 5.1}}, -50, 0.3, true},
        // Beyond a factor of ten, and lower by less than 1.
        SearchCase{"notTheFarOneThatIsLittleLower", {{0.3, 5}, {3.4, 5.8}}, -50, 0.3, true},
        // Beyond, and worth the way.
        SearchCase{"theFarOneThatIsMuchLower", {{0.3, 1}, {3.4, 6}}, -5, 3.4, true, true},
        // So good already that nobody looks beyond: 7 above all that is possible.
        SearchCase{"notTheFarOneWhereTheNearOneServes",
                   {{0.3, 1}, {3.4, 6}},
                   -5,
                   0.3,
                   true,
                   false,
                   [](LocalOptions&) {},
                   -8},
        SearchCase{"thoroughlyTheLowestOfAll",
                   {{0.3, 5}, {-1.8, 5.1}, {3.4, 5.5}},
                   -4,
                   3.4,
                   true,
                   false,
                   [](LocalOptions& options) { options.thorough = true; }},
        SearchCase{"theFirstWithoutFurtherStarts",
                   {{0.3, 1}, {-1.8, 5}},
                   -4,
                   0.3,
                   false,
                   false,
                   [](LocalOptions& options) { options.furtherStarts = false; }}),
    [](const auto& test) { return test.param.name; });

TEST(Search, EndsAtAFaceOfTheBoxAndNamesTheParameter) {
    class Bowl : public Objective {
      public:
        double value(std::span<const double> x, CallKind /*kind*/) override {
            return Square(x[0] - 4) + Square(x[1] - x[0] / 2);
        }
    } bowl;
    const Summary run = MinimizeLocally(bowl, Point({0, 0}), {});
    EXPECT_NEAR(run.x[0], std::log(10), 1e-9);
    EXPECT_NEAR(run.x[1], std::log(10) / 2, 1e-3);  // the minimum along the face
    EXPECT_EQ(run.onLimit, (std::vector<bool>{true, false}));
}

TEST(Box, LeadsAlongItsFacesAndBackInside) {
    const Box box(Point({1, 1}), 2);
    const Vector corner = Point({3, -1});
    EXPECT_TRUE(box.contains(corner));
    EXPECT_TRUE(box.blocks(corner, Point({1, 0}), 0));
    EXPECT_FALSE(box.blocks(corner, Point({-1, 0}), 0));
    EXPECT_EQ(box.room(Point({0, 0}), Point({1, -0.5})), 2);  // to x1 = -1
    EXPECT_EQ(box.nearest(Point({9, 0})), Point({3, 0}));
    EXPECT_EQ(box.freeGradient(Point({3, 0}), Point({-1, 5})), Point({0, 5}));
    // f = (x0 - 5)² + (x1 - x0)², at (3, 0): along the face to x1 = 3.
    Matrix inverse(2, 2);  // of the Hessian (4, -2; -2, 2)
    inverse << 0.5, 0.5, 0.5, 1;
    const Vector S = box.direction(inverse, Point({3, 0}), Point({2, -6}));
    EXPECT_NEAR(S[0], 0, 1e-12);
    EXPECT_NEAR(S[1], 3, 1e-12);
}

}  // namespace
}  // namespace kelvro
