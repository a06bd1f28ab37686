#include "analysis/tools/coils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "analysis/tools/physics.h"

namespace kelvro {
namespace {

constexpr double kPi = std::numbers::pi;

/// Lorenz's exact expression for the current sheet, by complete elliptic integrals.
TEST(SolenoidTest, AgreesWithEllipticIntegralsForEveryRatio) {
    for (double ratio = 0.02; ratio < 60; ratio *= 1.17) {
        const double k = ratio / std::hypot(1, ratio);
        const double complement = 1 / std::hypot(1, ratio);
        const double K = std::comp_ellint_1(k);
        const double E = std::comp_ellint_2(k);
        const double coefficient =
            4 / (3 * kPi * complement) * (complement * complement / (k * k) * (K - E) + E - k);
        const double exact = kVacuumPermeability * 100 * kPi * ratio * ratio / 4 * coefficient;
        const Solenoid coil{.diameter = ratio, .extent = 1, .turns = 10};
        EXPECT_NEAR(Inductance(coil) / exact, 1, 5e-6) << "diameter/length " << ratio;
    }
}

/// The mutual part of Rosa's correction from its definition: a single wire's worth of the
/// difference between the mean of ln over all pairs of turns and over the sheet in their place,
/// N·(2/N²·sum (N - m)·ln m - (ln N - 3/2)) - 3/2. At pitch = wire·exp(1.25)/2 the other part is 0.
TEST(SolenoidTest, RoundWireTakesWhatTheDefiningSumSays) {
    for (const int turns : {2, 5, 10, 100}) {
        Solenoid coil{.diameter = 0.1,
                      .keeps = Solenoid::Keeps::Pitch,
                      .extent = 1e-3,
                      .turns = static_cast<double>(turns)};
        const double sheet = Inductance(coil);
        coil.wire = 2 * coil.extent / std::exp(1.25);
        double sum = 0;
        for (int m = 1; m < turns; ++m) sum += (turns - m) * std::log(m);
        const double mutual = turns * (2 * sum / (turns * turns) - std::log(turns) + 1.5) - 1.5;
        const double taken = (sheet - Inductance(coil)) / (kVacuumPermeability * 0.05 * turns);
        EXPECT_NEAR(taken, mutual, 2e-6) << turns;
    }
}

TEST(SolenoidTest, TurnsGiveBackTheInductanceWithEitherDimensionKept) {
    for (const auto keeps : {Solenoid::Keeps::Length, Solenoid::Keeps::Pitch}) {
        Solenoid coil{.diameter = 8e-3,
                      .wire = 0.8e-3,
                      .keeps = keeps,
                      .extent = keeps == Solenoid::Keeps::Length ? 12e-3 : 1e-3};
        for (const double inductance : {100e-9, 1e-6, 47e-6}) {
            coil.turns = Turns(coil, inductance);
            EXPECT_NEAR(Inductance(coil) / inductance, 1, 1e-12);
        }
        EXPECT_TRUE(std::isnan(Turns(coil, 1e-12))) << "less than a turn";
        EXPECT_TRUE(std::isnan(Turns(coil, -1e-6)));
        EXPECT_TRUE(std::isnan(Turns(coil, NAN)));
    }
}

/// H. A. Wheeler, "Simple Inductance Formulas for Radio Coils", Proc. IRE 16 (1928): flat spirals
/// by mean radius a and depth c in inches, L = a²·N²/(8a + 11c) µH, within 5 % for c > 0.2·a.
TEST(SpiralTest, RoundSpiralsAgreeWithWheelersFormula) {
    constexpr double inch = 0.0254;
    for (const double turns : {5, 8, 12}) {
        const Spiral coil{Spiral::Shape::Circle, 0.5 * inch, 0.06 * inch, 0.02 * inch, turns};
        const double a = coil.mean() / 2 / inch;
        const double c = (coil.outer() - coil.inner) / 2 / inch;
        const double wheeler = a * a * turns * turns / (8 * a + 11 * c) * 1e-6;
        EXPECT_NEAR(Inductance(coil) / wheeler, 1, 0.05) << turns;
    }
}

/// The second expression of the same paper, an independent fit ("modified Wheeler"):
/// L = K1·µ0·N²·mean/(1 + K2·fill); both claim 2 to 3 %.
TEST(SpiralTest, PolygonsAgreeWithTheModifiedWheelerFit) {
    struct Row {
        Spiral::Shape shape;
        double K1, K2;
    };
    for (const Row& row :
         {Row{Spiral::Shape::Square, 2.34, 2.75}, Row{Spiral::Shape::Hexagon, 2.33, 3.82},
          Row{Spiral::Shape::Octagon, 2.25, 3.55}}) {
        for (const double inner : {100e-6, 200e-6}) {
            const Spiral coil{row.shape, inner, 10e-6, 2e-6, 5};
            const double fit =
                row.K1 * kVacuumPermeability * 25 * coil.mean() / (1 + row.K2 * coil.fill());
            EXPECT_NEAR(Inductance(coil) / fit, 1, 0.04) << static_cast<int>(row.shape);
        }
    }
}

TEST(SpiralTest, TurnsGiveBackTheInductance) {
    for (const auto shape : {Spiral::Shape::Square, Spiral::Shape::Circle}) {
        Spiral coil{shape, 2e-3, 0.3e-3, 0.2e-3};
        coil.turns = Turns(coil, 330e-9);
        EXPECT_NEAR(Inductance(coil), 330e-9, 1e-19);
    }
}

/// Powdered-iron core T50-2 (Micrometals catalogue): 12.7 x 7.70 x 4.83 mm, permeability 10,
/// A_L 4.9 nH; 5.0 % is the catalogue's tolerance.
TEST(ToroidTest, CatalogueCoreHasItsInductanceFactor) {
    const double factor = InductanceFactor({10, 12.7e-3, 7.70e-3, 4.83e-3});
    EXPECT_NEAR(factor, 4.9e-9, 0.05 * 4.9e-9);
    EXPECT_NEAR(ToroidTurns(4.9e-9, 4.9e-9 * 20 * 20), 20, 1e-12);
    EXPECT_TRUE(std::isnan(InductanceFactor({10, 7e-3, 7e-3, 4e-3}))) << "no core between";
    EXPECT_TRUE(std::isnan(ToroidTurns(0, 1e-6)));
}

TEST(CoilsTest, DimensionsThatMakeNoCoilAreNotANumber) {
    EXPECT_TRUE(std::isnan(Inductance(Solenoid{.diameter = 0, .extent = 1})));
    EXPECT_TRUE(std::isnan(Inductance(Solenoid{.diameter = 1, .extent = 1, .turns = 0})));
    EXPECT_TRUE(std::isnan(Inductance(Solenoid{.diameter = INFINITY, .extent = 1})));
    EXPECT_TRUE(std::isnan(Inductance(Spiral{Spiral::Shape::Circle, -1, 1, 1, 3})));
    EXPECT_FALSE(
        Caution(Solenoid{.diameter = 1e-2, .wire = 2e-3, .extent = 5e-3, .turns = 5}).empty())
        << "turns overlap";
}

}  // namespace
}  // namespace kelvro
