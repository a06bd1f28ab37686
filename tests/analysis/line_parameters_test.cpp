#include "analysis/tools/line_parameters.h"

#include <gtest/gtest.h>

#include <cmath>

#include "analysis/tools/physics.h"

namespace kelvro {
namespace {

struct Published {
    const char* source;
    LineType type;
    double width, height, gap, er;
    double impedance;
    double permittivity;
    double tolerance;  ///< relative
};

class LineExamples : public testing::TestWithParam<Published> {};

TEST_P(LineExamples, AreMet) {
    const Published& example = GetParam();
    const LineParameters line =
        Analyse({example.type, example.width, example.height, example.gap, 0, example.er});
    EXPECT_NEAR(line.impedance / example.impedance, 1, example.tolerance) << example.source;
    EXPECT_NEAR(line.permittivity / example.permittivity, 1, example.tolerance) << example.source;
}

// The hand derivations: with the modulus k = 1/sqrt 2 the elliptic integrals K and K' are equal, so
// a thin stripline with tanh(pi·w/2b) = k has Zo = 30pi/sqrt(er), and a coplanar line with
// w/(w + 2s) = k on an endless substrate Zo = 30pi/sqrt((er + 1)/2); a
// ground plane endlessly far away changes nothing. 30pi stands for a quarter of the wave impedance.
// "Field solution": finite differences over the cross section, grids of h/12 and h/24 extrapolated.
constexpr double kThirtyPi = kWaveImpedance / 4;
INSTANTIATE_TEST_SUITE_P(
    Cases, LineExamples,
    testing::Values(
        Published{"D. M. Pozar, Microwave Engineering, 3rd ed., example 3.7", LineType::Microstrip,
                  0.391e-2, 0.127e-2, 0, 2.20, 50, 1.87, 0.01},
        Published{"the same, example 3.5", LineType::Stripline, 0.266e-2, 0.32e-2, 0, 2.20, 50,
                  2.20, 0.01},
        Published{"by hand, thin stripline", LineType::Stripline, 0.561099852, 1, 0, 4,
                  kThirtyPi / 2, 4, 0.005},
        Published{"by hand, coplanar on a thick substrate", LineType::Coplanar, 1e-3, 1,
                  0.207106781e-3, 9, kThirtyPi / std::sqrt(5.0), 5, 1e-5},
        Published{"by hand, ground far below the substrate", LineType::GroundedCoplanar, 1e-3, 1,
                  0.207106781e-3, 9, kThirtyPi / std::sqrt(5.0), 5, 1e-5},
        Published{"field solution", LineType::Microstrip, 2, 1, 0, 4.4, 48.4, 3.32, 0.01},
        Published{"field solution", LineType::Coplanar, 1, 1, 0.5, 4.4, 76.0, 2.50, 0.012},
        Published{"field solution", LineType::GroundedCoplanar, 1, 1, 0.5, 4.4, 61.4, 2.91, 0.01},
        Published{"semi-rigid cable .141 (MIL-DTL-17/130): 50 ohm", LineType::Coax, 0.92e-3,
                  2.98e-3, 0, 2.03, 50, 2.03, 0.015}));

/// Without dielectric there is nothing to slow the wave down, whatever the shape.
TEST(LineTest, AirLinesHaveTheSpeedOfLight) {
    for (const LineDescription& type : LineTypes()) {
        const LineShape air{type.type, 1e-3, 2e-3, 0.5e-3, 0, 1};
        EXPECT_NEAR(Analyse(air).permittivity, 1, 1e-12) << type.caption;
        EXPECT_NEAR(EffectivePermittivity(air, 10e9), 1, 1e-12) << type.caption;
        const LineConstants constants = ConstantsOf(Analyse(air));
        EXPECT_NEAR(constants.velocity / kSpeedOfLight, 1, 1e-12);
        EXPECT_NEAR(constants.inductance * constants.capacitance * std::pow(kSpeedOfLight, 2), 1,
                    1e-9);
    }
}

TEST(LineTest, WidthsGiveBackTheImpedance) {
    for (const LineDescription& type : LineTypes()) {
        for (const double impedance : {25.0, 50.0, 90.0}) {
            for (const double thickness : {0.0, 35e-6}) {
                LineShape line{type.type, 0, 1.6e-3, 0.3e-3, thickness, 2.2};
                line.width = WidthFor(line, impedance);
                // The gap bounds what a coplanar line can reach.
                if (std::isnan(line.width) && !type.gapLabel.empty()) continue;
                EXPECT_NEAR(Analyse(line).impedance / impedance, 1, 1e-12)
                    << type.caption << ' ' << impedance << " t " << thickness;
            }
        }
    }
}

/// Dispersion starts at the static value and ends at the substrate's; 90° at 2.5 GHz of the
/// textbook line are 2.19 cm.
TEST(LineTest, MicrostripSlowsDownWithFrequency) {
    const LineShape line{LineType::Microstrip, 0.391e-2, 0.127e-2, 0, 0, 2.20};
    double last = Analyse(line).permittivity;
    EXPECT_NEAR(EffectivePermittivity(line, 1e3), last, 1e-9);
    for (double f = 1e8; f < 1e13; f *= 3) {
        const double now = EffectivePermittivity(line, f);
        EXPECT_GT(now, last) << f;
        EXPECT_LT(now, 2.20) << f;
        last = now;
    }
    EXPECT_NEAR(last, 2.20, 1e-3);
    const double quarter =
        kSpeedOfLight / 2.5e9 / 4 / std::sqrt(EffectivePermittivity(line, 2.5e9));
    EXPECT_NEAR(quarter, 2.19e-2, 0.02e-2);
}

TEST(LineTest, ThickStripsCountAsWider) {
    for (const LineType type : {LineType::Microstrip, LineType::Stripline}) {
        LineShape line{type, 1e-3, 1.6e-3, 0, 0, 4.4};
        const double thin = Analyse(line).impedance;
        line.thickness = 1e-9;
        EXPECT_NEAR(Analyse(line).impedance / thin, 1, 1e-4) << "no jump at zero";
        line.thickness = 70e-6;
        EXPECT_LT(Analyse(line).impedance, 0.99 * thin);
    }
}

class ShapesThatAreNoLine : public testing::TestWithParam<LineShape> {};

TEST_P(ShapesThatAreNoLine, AreNotANumber) {
    EXPECT_TRUE(std::isnan(Analyse(GetParam()).impedance));
}

INSTANTIATE_TEST_SUITE_P(Cases, ShapesThatAreNoLine,
                         testing::Values(LineShape{LineType::Coax, 2, 1, 0, 0, 1},
                                         LineShape{LineType::Microstrip, 0, 1, 0, 0, 2},
                                         LineShape{LineType::Microstrip, 1, 1, 0, 0, 0.5},
                                         LineShape{LineType::Stripline, 1, 1, 0, 1, 2},
                                         LineShape{LineType::Coplanar, 1, 1, 0, 0, 2},
                                         LineShape{LineType::Coplanar, 1, NAN, 1, 0, 2},
                                         LineShape{LineType::Microstrip, 1, INFINITY, 1, 0, 2}));

TEST(LineTest, ExtremeShapesStayFinite) {
    for (const LineDescription& type : LineTypes()) {
        for (const double width : {1e-9, 1e-3, 10.0}) {
            for (const double gap : {1e-9, 1e-3, 10.0}) {
                const LineShape line{type.type, width, 20, gap, 0, 100};
                EXPECT_GT(Analyse(line).impedance, 0) << type.caption << ' ' << width << ' ' << gap;
                EXPECT_LT(Analyse(line).impedance, 1e4) << type.caption;
            }
        }
    }
}

}  // namespace
}  // namespace kelvro
