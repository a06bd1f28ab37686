// What a part is at a frequency, by formulas of its losses worked out by hand.

#include "network/part.h"

#include <gtest/gtest.h>

#include <cmath>

#include "network/network.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;
using Law = PartLoss::Law;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// ωL = 100 Ω and 1/(ωC) = 100 Ω at 100 MHz.
constexpr double kL = 1.5915494309189535e-7;
constexpr double kC = 1.5915494309189535e-11;

struct PartCase {
    const char* what;
    Part part;
    double f;
    Cx expected;
};

class PartTest : public testing::TestWithParam<PartCase> {};

TEST_P(PartTest, HasTheImpedanceOfItsLaw) {
    SCOPED_TRACE(testing::Message() << GetParam().what << " at " << GetParam().f);
    const auto& [what, part, f, expected] = GetParam();
    const Cx Z = impedance(part, f);
    if (!std::isfinite(std::abs(expected))) {
        EXPECT_GT(std::abs(Z), 1e15) << what;
        EXPECT_FALSE(std::isnan(std::abs(immittance(part, f).admittance()))) << what;
        return;
    }
    EXPECT_NEAR(std::abs(Z - expected), 0, 1e-12 * (1 + std::abs(expected))) << what << ": " << Z;
}

INSTANTIATE_TEST_SUITE_P(
    Parts, PartTest,
    testing::Values(
        PartCase{"resistor", Part::R(47), 1e6, 47}, PartCase{"coil", Part::L(kL), 1e8, {0, 100}},
        PartCase{"capacitor", Part::C(kC), 1e8, {0, -100}},
        PartCase{"constant Q", {PartKind::Inductor, kL, {Law::ConstantQ, 40}}, 2e8, {5, 200}},
        PartCase{"constant Q", {PartKind::Capacitor, kC, {Law::ConstantQ, 40}}, 2e8, {1.25, -50}},
        // Q 40 at 100 MHz and 80 at 200 MHz: 2.5 Ω at both.
        PartCase{"proportional Q",
                 {PartKind::Inductor, kL, {Law::ProportionalQ, 40, 1e8}},
                 2e8,
                 {2.5, 200}},
        // Q 40·√4 at 400 MHz of 400 Ω.
        PartCase{"root Q", {PartKind::Inductor, kL, {Law::RootQ, 40, 1e8}}, 4e8, {5, 400}},
        PartCase{"series resistance", {PartKind::Capacitor, kC, {.ESR = 0.1}}, 1e8, {0.1, -100}},
        PartCase{"Q and series resistance",
                 {PartKind::Inductor, kL, {Law::ConstantQ, 40, 0, 0.5}},
                 1e8,
                 {3, 100}},
        // s = ω(0.5 + j): s·L, and 1/(s·C) = 100·(0.5 - j)/1.25.
        PartCase{"page", {PartKind::Inductor, kL, {Law::Page, 2}}, 1e8, {50, 100}},
        PartCase{"page", {PartKind::Capacitor, kC, {Law::Page, 2}}, 1e8, {40, -80}},
        PartCase{
            "page, interchanged", {PartKind::Inductor, kL, {Law::PageMirrored, 2}}, 1e8, {40, 80}},
        PartCase{"page, interchanged",
                 {PartKind::Capacitor, kC, {Law::PageMirrored, 2}},
                 1e8,
                 {50, -100}},
        // At half the self-resonance 1/(1 - 1/4) of the reactance, and 1 - 1/4 of it.
        PartCase{"self-resonance", {PartKind::Inductor, kL, {.SRF = 2e8}}, 1e8, {0, 400.0 / 3}},
        PartCase{"self-resonance", {PartKind::Capacitor, kC, {.SRF = 2e8}}, 1e8, {0, -75}},
        PartCase{"at self-resonance", {PartKind::Capacitor, kC, {.SRF = 1e8}}, 1e8, 0},
        PartCase{"at self-resonance", {PartKind::Inductor, kL, {.SRF = 1e8}}, 1e8, kInfinity},
        // Q²·r = 100·40 Ω and in series with it -j·X: 1/(1/(2.5 + 100j) + j/100) = 4000 - 100j.
        PartCase{"lossy at self-resonance",
                 {PartKind::Inductor, kL, {Law::ConstantQ, 40, 0, 0, 1e8}},
                 1e8,
                 {4000, -100}},
        PartCase{"no Q given", {PartKind::Inductor, kL, {Law::ConstantQ}}, 1e8, {0, 100}},
        PartCase{"infinite capacitance", Part::C(kInfinity), 1e8, 0},
        PartCase{
            "infinite lossy capacitance", {PartKind::Capacitor, kInfinity, {Law::Page, 2}}, 1e8, 0},
        PartCase{"no capacitance", Part::C(0), 1e8, kInfinity},
        PartCase{"infinite inductance", Part::L(kInfinity), 1e8, kInfinity},
        PartCase{"no inductance, self-resonant", {PartKind::Inductor, 0, {.SRF = 2e8}}, 1e8, 0}));

TEST(ImpedanceTest, GroupsAreSeriesAndParallelCircuits) {
    const Part C = Part::C(kC);
    const Part L = Part::L(kL);
    const auto at = [](const Impedance& of) { return impedance(of, 1e8); };
    EXPECT_LT(std::abs(at(Impedance::InSeries({30.0, L, C})) - Cx(30, 0)), 1e-12);
    EXPECT_LT(std::abs(at(Impedance::InParallel({100.0, C})) - Cx(50, -50)), 1e-12);
    // The coil and the capacitor in parallel are an open, which leaves what stands beside them.
    const Impedance tank = Impedance::InParallel({L, C});
    EXPECT_GT(std::abs(at(tank)), 1e14);
    EXPECT_LT(std::abs(at(Impedance::InParallel({tank, 50.0})) - Cx(50, 0)), 1e-9);
    EXPECT_GT(std::abs(at(Impedance::InSeries({tank, 50.0}))), 1e14);
    EXPECT_EQ(at(Impedance::InSeries({})), 0.0);
    EXPECT_TRUE(std::isinf(std::abs(at(Impedance::InParallel({})))));
}

TEST(LineLengthTest, DegreesAndMetresAreTheSameLine) {
    // 45° at 1 GHz on εr 2.25: an eighth of 0.2 m = 299792458/1e9/1.5.
    const LineLength byAngle{.degrees = 45, .atHertz = 1e9, .er = 2.25};
    EXPECT_NEAR(byAngle.length(), 0.299792458 / 1.5 / 8, 1e-15);
    const LineLength byMetres{.metres = byAngle.length(), .er = 2.25};
    EXPECT_NEAR(byMetres.angle(3e9), 3 * std::acos(-1.0) / 4, 1e-12);
    EXPECT_NEAR(byAngle.angle(3e9), byMetres.angle(3e9), 1e-12);
}

TEST(NetworkTest, DualInterchangesEveryPart) {
    const double f0 = 1e8;
    const std::vector<LadderElement> ladder{
        SeriesArm(Impedance::InSeries({Part::L(2 * kL, "L1"), Part::R(3, "R1")}), "mid"),
        {Branch{{ShuntArm(Part::C(kC / 4, "C2"))}, 50.0}}};
    const auto dual = Dual(ladder, f0);
    const auto parts = PartsOf(dual);
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[0]->name, "C1");
    EXPECT_NEAR(parts[0]->value, kC / 2, 1e-24);
    EXPECT_EQ(*parts[1], Part::R(3, "R1"));
    EXPECT_EQ(parts[2]->name, "L2");
    EXPECT_NEAR(parts[2]->value, 4 * kL, 1e-20);
    EXPECT_EQ(dual[0].node, "mid");
}

}  // namespace
}  // namespace kelvro
