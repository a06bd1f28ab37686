// Losses of lines and coils against published examples and hand calculations.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "analysis/tools/coil_quality.h"
#include "analysis/tools/line_losses.h"

namespace kelvro {
namespace {

const double kDecibels = 20 / std::log(10.0);

/// Copper at 1 GHz by hand: sqrt(2/(2pi·1e9·4pi·1e-7·5.8e7)) = 2.0898 µm.
TEST(SkinEffectTest, CopperAtOneGigahertz) {
    EXPECT_NEAR(SkinDepth(1e9, kCopperConductivity), 2.0898e-6, 1e-10);
    EXPECT_NEAR(SurfaceResistance(1e9, kCopperConductivity), 8.2504e-3, 1e-6);
}

struct Example {
    const char* source;
    LineType type;
    double width, height, thickness, er;
    double lossTangent;
    double f;
    double conductor;   ///< Np/m
    double dielectric;  ///< Np/m
    double tolerance;
};

class LossExamples : public testing::TestWithParam<Example> {};

TEST_P(LossExamples, AreMet) {
    const Example& example = GetParam();
    const LineShape shape{example.type,      example.width, example.height, 0,
                          example.thickness, example.er};
    const LineLosses losses = LossesOf(shape, {.lossTangent = example.lossTangent}, example.f);
    EXPECT_NEAR(losses.conductor / example.conductor, 1, example.tolerance) << example.source;
    EXPECT_NEAR(losses.dielectric / example.dielectric, 1, 0.01) << example.source;
}

// Coax by hand: R = Rs/pi·(1/d + 1/D) = 3.7555 ohm/m at 1 GHz, Zo = 49.871 ohm, R/2Zo; the
// dielectric takes pi·f·sqrt(er)/c·tan.
// The microstrip's conductor after R. A. Pucel, D. J. Masse, C. P. Hartwig, "Losses in Microstrip",
// IEEE Trans. MTT-16 (1968), pp. 342-350, for 0.16 <= w/h <= 2: Rs/(2pi·Zo·h)·(1 - (w'/4h)²)·
// (1 + h/w' + h/(pi·w')·(ln(2h/t) - t/h)), w' = w + t/pi·(ln(2h/t) + 1), here with h = 0.5 mm,
// t = 5 µm, Zo = 49.39 ohm: w' = 0.4931 mm, 0.5877 Np/m. Both rest on Wheeler's rule but on other
// impedances.
INSTANTIATE_TEST_SUITE_P(
    Cases, LossExamples,
    testing::Values(Example{"by hand, semi-rigid cable", LineType::Coax, 0.91e-3, 3.02e-3, 0, 2.08,
                            4e-4, 1e9, 0.037652, 0.0060453, 0.001},
                    Example{"D. M. Pozar, Microwave Engineering, 4th ed., example 3.5",
                            LineType::Stripline, 2.66e-3, 3.2e-3, 10e-6, 2.20, 1e-3, 10e9, 0.122,
                            0.155, 0.04},
                    Example{"the same, example 3.7, dielectric; conductor by Pucel's formula",
                            LineType::Microstrip, 0.483e-3, 0.5e-3, 5e-6, 9.9, 1e-3, 10e9, 0.5877,
                            0.255, 0.08}));

/// Conductors by the root of the frequency, dielectric by the frequency; a surface rougher than the
/// skin depth doubles the loss.
TEST(LineLossesTest, FollowFrequencyAndRoughness) {
    const LineShape line{LineType::Microstrip, 3e-3, 1.6e-3, 0, 35e-6, 4.4};
    const LineMaterials smooth{.lossTangent = 0.02};
    const LineLosses low = LossesOf(line, smooth, 100e6);
    const LineLosses high = LossesOf(line, smooth, 400e6);
    EXPECT_NEAR(high.conductor / low.conductor, 2, 1e-9);
    EXPECT_NEAR(high.dielectric / low.dielectric, 4, 1e-9);
    const LineLosses rough = LossesOf(line, {.roughness = 1e-3, .lossTangent = 0.02}, 100e6);
    EXPECT_NEAR(rough.conductor / low.conductor, 2, 1e-3);
    EXPECT_EQ(rough.dielectric, low.dielectric);
}

/// A quarter-wave resonator filled with a dielectric has Q = 1/tan when the metal loses nothing.
TEST(LineLossesTest, DielectricAloneGivesItsQ) {
    const LineShape line{LineType::Coax, 1e-3, 3.5e-3, 0, 0, 2.1};
    const LineLosses losses = LossesOf(line, {.conductivity = 1e30, .lossTangent = 2e-3}, 1e9);
    EXPECT_NEAR(LineQuality(line, losses, 1e9), 500, 0.01);
}

TEST(LineLossesTest, TellWhatIsNotKnown) {
    const LineShape thin{LineType::Microstrip, 3e-3, 1.6e-3, 0, 0, 4.4};
    const LineShape coplanar{LineType::Coplanar, 3e-3, 1.6e-3, 0.3e-3, 0, 4.4};
    for (const LineShape& line : {thin, coplanar}) {
        const LineLosses losses = LossesOf(line, {.lossTangent = 0.02}, 1e9);
        EXPECT_TRUE(std::isnan(losses.conductor));
        EXPECT_EQ(losses.total(), losses.dielectric);
    }
    for (const LineMaterials& bad :
         {LineMaterials{.conductivity = 0}, LineMaterials{.roughness = -1},
          LineMaterials{.lossTangent = -1}}) {
        EXPECT_TRUE(std::isnan(LossesOf(thin, bad, 1e9).total()));
    }
    EXPECT_TRUE(std::isnan(LossesOf(thin, {}, 0).total()));
    LineShape foil = thin;
    foil.thickness = 5e-6;
    EXPECT_FALSE(LossCaution(foil, {}, 100e6).empty()) << "skin depth 6.6 µm";
    EXPECT_TRUE(LossCaution(foil, {}, 10e9).empty());
}

// By hand: 20 turns of 0.5 mm wire, 20 mm by 20 mm, at 10 MHz: 1.2568 m of wire, Rs = 0.8250
// mohm, Medhurst's factor 1.67 at a wire of half the pitch: 1.1024 ohm. Halfway to 0.6 it is the
// mean of 1.67 and 1.94.
TEST(CoilQualityTest, ResistanceIsTheWiresTimesTheMeasuredFactor) {
    Solenoid coil{.diameter = 20e-3, .wire = 0.5e-3, .extent = 20e-3, .turns = 20};
    EXPECT_NEAR(Resistance(coil, 10e6), 1.1024, 5e-4);
    coil.wire = 0.55e-3;
    EXPECT_NEAR(Resistance(coil, 10e6), 1.1024 * 0.5 / 0.55 * 1.805 / 1.67, 5e-4);
    coil.wire = 0.1e-3;
    EXPECT_TRUE(std::isnan(Resistance(coil, 10e6))) << "five skin depths";
    coil.wire = 1.1e-3;
    EXPECT_TRUE(std::isnan(Resistance(coil, 10e6))) << "turns overlap";
    coil.wire = 1e-3;
    EXPECT_TRUE(std::isfinite(Resistance(coil, 10e6))) << "close winding";
    coil.extent = 3e-3;
    coil.wire = 0.1e-3;
    EXPECT_TRUE(std::isnan(Resistance(coil, 1e9))) << "shorter than the table";
}

/// Measured values of the same paper in pF per cm of diameter.
TEST(CoilQualityTest, SelfCapacitanceIsThatOfTheTable) {
    struct Row {
        double ratio, capacitance;
    };
    for (const Row& row :
         {Row{0.5, 0.50}, Row{1, 0.46}, Row{2, 0.50}, Row{4, 0.72}, Row{10, 1.32}}) {
        const Solenoid coil{.diameter = 1e-2, .extent = row.ratio * 1e-2, .turns = 10};
        EXPECT_NEAR(SelfCapacitance(coil) * 1e12 / row.capacitance, 1, 0.08) << row.ratio;
    }
    EXPECT_NEAR(SelfResonance(1e-6, 1e-12), 159.155e6, 1e3);
}

}  // namespace
}  // namespace kelvro
