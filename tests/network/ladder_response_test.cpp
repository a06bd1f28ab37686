// What networks do at a frequency: values worked out by hand, laws that every network keeps, and
// the places where a division would blow up.

#include "network/ladder_response.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "core/scalar.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;

constexpr double kPi = std::numbers::pi;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const Cx j{0, 1};

double Distance(Cx a, Cx b) {
    return std::abs(a - b);
}

/// L with ωL = X, C with ωC = B, at f.
Part CoilOf(double X, double f) {
    return Part::L(X / (kTwoPi * f));
}
Part CapacitorOf(double B, double f) {
    return Part::C(B / (kTwoPi * f));
}

/// Between real resistances everything passes that neither end reflects.
Network Between(Termination source, std::vector<LadderElement> ladder, Termination load) {
    return {std::move(source), std::move(ladder), std::move(load)};
}

LadderElement TwoPort(std::array<Cx, 4> s, std::array<double, 2> reference = {50, 50}) {
    PortData data;
    data.ports = 2;
    data.f = {1e6, 1e12};
    data.s = {s, s};
    data.reference = reference;
    return {MeasuredTwoPort{std::make_shared<PortData>(data)}};
}

struct Draw {
    std::mt19937_64 random{1951};

    double between(double low, double high) {
        return low * std::pow(high / low, std::uniform_real_distribution<>(0, 1)(random));
    }
    bool coin() { return std::uniform_int_distribution<>(0, 1)(random) == 1; }

    Part part(bool lossy, double f) {
        Part part = coin() ? CoilOf(between(5, 500), f) : CapacitorOf(1 / between(5, 500), f);
        if (!lossy) return part;
        using Law = PartLoss::Law;
        const Law laws[] = {Law::Lossless, Law::ConstantQ, Law::ProportionalQ,
                            Law::RootQ,    Law::Page,      Law::PageMirrored};
        part.loss = {laws[random() % 6], between(5, 200), f, coin() ? between(0.01, 3) : 0,
                     coin() ? f * between(1.5, 20) : 0};
        return part;
    }
    Impedance arm(bool lossy, double f) {
        switch (random() % 4) {
            case 0:
                return Impedance::InSeries({part(lossy, f), part(lossy, f)});
            case 1:
                return Impedance::InParallel({part(lossy, f), part(lossy, f)});
            default:
                return part(lossy, f);
        }
    }
    LadderElement element(bool lossy, double f) {
        const Line line{.form = static_cast<Line::Form>(random() % 3),
                        .Z0 = between(15, 200),
                        .length = {.degrees = between(5, 300), .atHertz = f},
                        .attenuation = lossy ? between(0.1, 5) : 0,
                        .attenuationAtHertz = f};
        switch (random() % 8) {
            case 0:
                return {line};
            case 1:
                return {Transformer{between(0.3, 3)}};
            case 2:
                return {CoupledCoils{CoilOf(between(5, 500), f), CoilOf(between(5, 500), f),
                                     between(0.1, 0.99)}};
            default:
                return coin() ? SeriesArm(arm(lossy, f)) : ShuntArm(arm(lossy, f));
        }
    }
    Network network(bool lossy, double f) {
        Network network;
        network.source = Cx{between(2, 500), between(1, 200) * (coin() ? 1 : -1)};
        network.load = Impedance::InParallel({between(2, 500), part(false, f)});
        const auto count = 1 + random() % 7;
        for (std::size_t i = 0; i < count; ++i) network.ladder.push_back(element(lossy, f));
        return network;
    }
};

TEST(NetworkPointTest, PowerWavesBetweenComplexTerminations) {
    const LadderResponse straight(Between(Cx{5, 50}, {}, 50.0));
    const NetworkPoint point = straight.at(1e9);
    EXPECT_NEAR(point.GT, 0.180995, 5e-7);
    EXPECT_NEAR(point.gammaIn.real(), 0.900452, 5e-7);
    EXPECT_NEAR(point.gammaIn.imag(), 0.090498, 5e-7);
    EXPECT_NEAR(std::norm(point.gammaOut), 1 - point.GT, 1e-14);
    EXPECT_NEAR(std::norm(point.transfer), point.GT, 1e-15);
    EXPECT_LT(Distance(point.Zin, 50), 1e-12);
    EXPECT_LT(Distance(point.Zout, Cx(5, 50)), 1e-12);
}

struct MatchCase {
    const char* what;
    double f;
    Cx source, load;
    std::vector<LadderElement> ladder;
};

void PrintTo(const MatchCase& row, std::ostream* out) {
    *out << row.what;
}

class ExactMatches : public testing::TestWithParam<MatchCase> {};

/// Parts with five digits: what they reflect is of the order of 1e-5.
TEST_P(ExactMatches, PassEverything) {
    const auto& [what, f, source, load, ladder] = GetParam();
    const NetworkPoint point = LadderResponse(Between(source, ladder, load)).at(f);
    EXPECT_NEAR(point.GT, 1, 1e-8);
    EXPECT_LT(std::abs(point.gammaIn), 1e-4);
    EXPECT_LT(std::abs(point.gammaOut), 1e-4);
    EXPECT_LT(Distance(point.Zin, std::conj(source)), 1e-3 * std::abs(source));
    EXPECT_LT(Distance(point.Zout, std::conj(load)), 1e-3 * std::abs(load));
}

INSTANTIATE_TEST_SUITE_P(
    Networks, ExactMatches,
    testing::Values(MatchCase{"coil in series, capacitor at the load",
                              500e6,
                              100,
                              Cx{200, -100},
                              {SeriesArm(Part::L(38.985e-9)), ShuntArm(Part::C(0.92277e-12))}},
                    MatchCase{"capacitor in series, coil at the load",
                              500e6,
                              100,
                              Cx{200, -100},
                              {SeriesArm(Part::C(2.5990e-12)), ShuntArm(Part::L(46.139e-9))}},
                    MatchCase{"capacitor at the source",
                              2e9,
                              Cx{150, 75},
                              Cx{75, 15},
                              {ShuntArm(Part::C(0.7320e-12)), SeriesArm(Part::L(6.1160e-9))}},
                    MatchCase{"coil at the source",
                              2e9,
                              Cx{150, 75},
                              Cx{75, 15},
                              {ShuntArm(Part::L(20.588e-9)), SeriesArm(Part::C(0.74472e-12))}},
                    MatchCase{"one part", 2.44e9, Cx{25, 25}, 50, {ShuntArm(Part::C(1.3045e-12))}},
                    MatchCase{"two capacitors and coils",
                              100e6,
                              Cx{10, -20},
                              Cx{3, 4},
                              {ShuntArm(Part::C(62.329e-12)), SeriesArm(Part::L(12.532e-9))}},
                    MatchCase{"transformer", 1e6, 200, 50, {{Transformer{2}}}},
                    MatchCase{"quarter wave",
                              1e9,
                              50,
                              200,
                              {{Line{.Z0 = 100, .length = {.degrees = 90, .atHertz = 1e9}}}}},
                    // A stub of an eighth wave has the reactance of its characteristic impedance.
                    MatchCase{"open stub against a coil",
                              1e9,
                              50,
                              50,
                              {{Line{.form = Line::Form::OpenStub,
                                     .Z0 = 70,
                                     .length = {.degrees = 45, .atHertz = 1e9}}},
                               ShuntArm(CoilOf(70, 1e9))}},
                    MatchCase{"shorted stub against a capacitor",
                              1e9,
                              50,
                              50,
                              {{Line{.form = Line::Form::ShortedStub,
                                     .Z0 = 70,
                                     .length = {.degrees = 45, .atHertz = 1e9}}},
                               ShuntArm(CapacitorOf(1.0 / 70, 1e9))}}));

TEST(LadderResponseTest, EveryNetworkKeepsTheLawsOfItsKind) {
    Draw draw;
    for (int i = 0; i < 400; ++i) {
        const bool lossy = i % 2 == 1;
        const double f0 = draw.between(1e6, 1e10);
        const Network network = draw.network(lossy, f0);
        const LadderResponse response(network);
        for (int k = 0; k < 4; ++k) {
            const double f = f0 * draw.between(0.4, 1.3);
            const NetworkPoint point = response.at(f);
            SCOPED_TRACE(testing::Message() << "draw " << i << " at " << f / f0);
            if (lossy) {
                EXPECT_GT(point.dissipated, -1e-12);
            } else {
                EXPECT_NEAR(point.GT, 1 - std::norm(point.gammaIn), 1e-11);
                EXPECT_NEAR(point.GT, 1 - std::norm(point.gammaOut), 1e-11);
            }
            EXPECT_LE(point.GT, 1 + 1e-12);
            EXPECT_NEAR(response.GT(f), point.GT, 1e-12 * point.GT);
            const auto s = response.scattering(f, {20, 75});
            ASSERT_TRUE(s);
            EXPECT_LT(Distance(s->m[1], s->m[2]), 1e-10 * std::abs(s->m[1]));
            // The chain between the terminations, by the formula of the textbooks.
            const auto [A, B, C, D] = response.chain(f).m;
            EXPECT_LT(Distance(A * D - B * C, 1), 1e-12 * (std::abs(A * D) + std::abs(B * C)));
            const Cx ZS = impedance(network.source, f);
            const Cx ZL = impedance(network.load, f);
            EXPECT_LT(Distance(point.Zin, (A * ZL + B) / (C * ZL + D)),
                      1e-11 * std::abs(point.Zin));
            EXPECT_LT(Distance(point.Zout, (D * ZS + B) / (C * ZS + A)),
                      1e-11 * std::abs(point.Zout));
            const Cx sum = A * ZL + B + C * ZS * ZL + D * ZS;
            EXPECT_LT(Distance(point.transfer, 2 * std::sqrt(ZS.real() * ZL.real()) / sum), 1e-11);
            EXPECT_LT(Distance(response.voltageTransfer(f), 2.0 * ZL / sum),
                      1e-11 * std::abs(2.0 * ZL / sum));
            // Phase slope over 1e-5 of the frequency, centred.
            const double h = 1e-5 * f;
            const double turn =
                std::arg(response.at(f + h).transfer * std::conj(response.at(f - h).transfer));
            EXPECT_NEAR(point.groupDelay, -turn / (kTwoPi * 2 * h),
                        1e-6 * std::fabs(point.groupDelay) + 1e-5 / f);
        }
    }
}

TEST(LadderResponseTest, SweepsHaveTheDigitsOfSinglePoints) {
    Draw draw;
    for (std::size_t points : {1U, 3U, 4U, 9U, 1000U}) {
        const Network network = draw.network(true, 1e9);
        LadderResponse response(network);
        std::vector<double> f;
        for (std::size_t i = 0; i < points; ++i) f.push_back(0.3e9 + 1e6 * static_cast<double>(i));
        const NetworkSweep& sweep = response.sweep(f);
        ASSERT_EQ(sweep.size(), points);
        for (std::size_t i = 0; i < points; ++i) {
            const NetworkPoint point = response.at(f[i]);
            ASSERT_EQ(sweep.f[i], f[i]);
            ASSERT_EQ(sweep.GT[i], point.GT);
            ASSERT_EQ(sweep.groupDelay[i], point.groupDelay);
            ASSERT_EQ(sweep.dissipated[i], point.dissipated);
            ASSERT_EQ(Cx(sweep.gammaInRe[i], sweep.gammaInIm[i]), point.gammaIn);
            ASSERT_EQ(Cx(sweep.gammaOutRe[i], sweep.gammaOutIm[i]), point.gammaOut);
            ASSERT_EQ(Cx(sweep.ZinRe[i], sweep.ZinIm[i]), point.Zin);
            ASSERT_EQ(Cx(sweep.ZoutRe[i], sweep.ZoutIm[i]), point.Zout);
            ASSERT_NEAR(sweep.phase[i], std::arg(point.transfer), 1e-14);
            const double size = std::abs(point.gammaIn);
            ASSERT_NEAR(sweep.VSWR[i], (1 + size) / (1 - size), 1e-9 * sweep.VSWR[i]);
        }
    }
}

struct LimitCase {
    const char* what;
    std::vector<LadderElement> ladder;
    double GT;
    Cx gammaIn, gammaOut;
};

void PrintTo(const LimitCase& row, std::ostream* out) {
    *out << row.what;
}

class Limits : public testing::TestWithParam<LimitCase> {};

/// Between 50 and 50 Ω at 1 GHz: an open in the path reflects everything, +1; a short across it -1.
TEST_P(Limits, AreNumbers) {
    const auto& [what, ladder, GT, gammaIn, gammaOut] = GetParam();
    LadderResponse response(Between(50.0, ladder, 50.0));
    const NetworkPoint point = response.at(1e9);
    EXPECT_NEAR(point.GT, GT, 1e-12);
    EXPECT_LT(Distance(point.gammaIn, gammaIn), 1e-9);
    EXPECT_LT(Distance(point.gammaOut, gammaOut), 1e-9);
    const std::vector<double> f{1e9};
    const NetworkSweep& sweep = response.sweep(f);
    for (const auto* values : {&sweep.GT, &sweep.phase, &sweep.groupDelay, &sweep.dissipated,
                               &sweep.ZinRe, &sweep.ZinIm, &sweep.ZoutRe, &sweep.ZoutIm}) {
        EXPECT_TRUE(std::isfinite(values->front()));
    }
    EXPECT_FALSE(std::isnan(sweep.VSWR.front()));
    for (const NodeValue& node : response.nodes(1e9).nodes) {
        EXPECT_TRUE(std::isfinite(std::abs(node.voltage)));
        EXPECT_TRUE(std::isfinite(std::abs(node.current)));
    }
}

const Impedance kTank = Impedance::InParallel({CoilOf(70, 1e9), CapacitorOf(1.0 / 70, 1e9)});
const Impedance kTrap = Impedance::InSeries({CoilOf(70, 1e9), CapacitorOf(1.0 / 70, 1e9)});
const Line kQuarter{.length = {.degrees = 90, .atHertz = 1e9}};
const Line kShorted{.form = Line::Form::ShortedStub, .length = {.degrees = 180, .atHertz = 1e9}};

INSTANTIATE_TEST_SUITE_P(
    Ladders, Limits,
    testing::Values(
        LimitCase{"nothing", {}, 1, 0, 0}, LimitCase{"tank in series", {SeriesArm(kTank)}, 0, 1, 1},
        LimitCase{"trap across", {ShuntArm(kTrap)}, 0, -1, -1},
        LimitCase{"tank across", {ShuntArm(kTank)}, 1, 0, 0},
        LimitCase{"trap in series", {SeriesArm(kTrap)}, 1, 0, 0},
        LimitCase{"tank behind a quarter wave", {{kQuarter}, SeriesArm(kTank)}, 0, -1, 1},
        LimitCase{"shorted half wave across", {{kShorted}}, 0, -1, -1},
        LimitCase{"no capacitance", {SeriesArm(Part::C(0))}, 0, 1, 1},
        LimitCase{"infinite inductance", {SeriesArm(Part::L(kInfinity))}, 0, 1, 1},
        LimitCase{"infinite capacitance across", {ShuntArm(Part::C(kInfinity))}, 0, -1, -1},
        LimitCase{"no inductance across", {ShuntArm(Part::L(0))}, 0, -1, -1},
        LimitCase{"no resistance across", {ShuntArm(Part::R(0))}, 0, -1, -1},
        LimitCase{"infinite capacitance in series", {SeriesArm(Part::C(kInfinity))}, 1, 0, 0},
        LimitCase{"infinite inductance across", {ShuntArm(Part::L(kInfinity))}, 1, 0, 0},
        LimitCase{"no coupling", {{CoupledCoils{CoilOf(50, 1e9), CoilOf(50, 1e9), 0}}}, 0, j, j},
        LimitCase{"very long lossy line",
                  {{Line{.length = {.metres = 1e6}, .attenuation = 1, .attenuationAtHertz = 1e9}}},
                  0,
                  0,
                  0},
        LimitCase{"two-port that passes nothing",
                  {TwoPort({Cx{0.5}, Cx{0.1}, Cx{0}, Cx{-0.25}})},
                  0,
                  0.5,
                  -0.25},
        LimitCase{"open in a branch", {{Branch{{SeriesArm(kTank)}, 50.0}}}, 1, 0, 0}));

TEST(LadderResponseTest, DirectCurrentIsANumberToo) {
    const LadderResponse lowPass(
        Between(50.0, {SeriesArm(Part::L(1e-7)), ShuntArm(Part::C(1e-12))}, 50.0));
    EXPECT_NEAR(lowPass.GT(0), 1, 1e-12);
    const LadderResponse highPass(
        Between(50.0, {SeriesArm(Part::C(1e-12)), ShuntArm(Part::L(1e-7))}, 50.0));
    EXPECT_NEAR(highPass.GT(0), 0, 1e-12);
    EXPECT_LT(Distance(highPass.at(0).gammaIn, 1), 1e-9);
}

TEST(LadderResponseTest, AnOpenLoadTakesNothing) {
    for (const Termination& load :
         {Impedance::InSeries({10.0, kTank}), Impedance::InSeries({10.0, Part::C(0)}),
          Impedance::Nothing()}) {
        const LadderResponse response(Between(50.0, {SeriesArm(Part::L(1e-9))}, load));
        const NetworkPoint point = response.at(1e9);
        EXPECT_NEAR(point.GT, 0, 1e-12);
        EXPECT_LT(Distance(point.gammaIn, 1), 1e-9);
        EXPECT_TRUE(std::isfinite(point.groupDelay));
    }
}

/// M in the middle, L1 - M and L2 - M in the arms: the T of coupled coils.
TEST(ElementTest, CoupledCoilsAreTheirT) {
    Draw draw;
    for (int i = 0; i < 50; ++i) {
        const double k = draw.between(0.05, 1);
        Part first = CoilOf(draw.between(10, 1000), 1e8);
        Part second = CoilOf(draw.between(10, 1000), 1e8);
        first.loss = second.loss = {PartLoss::Law::Page, draw.between(3, 1000)};
        Part mutual = first;
        mutual.value = k * std::sqrt(first.value * second.value);
        Part left = first;
        left.value -= mutual.value;
        Part right = second;
        right.value -= mutual.value;
        const LadderResponse coils(Between(50.0, {{CoupledCoils{first, second, k}}}, 75.0));
        const LadderResponse T(
            Between(50.0, {SeriesArm(left), ShuntArm(mutual), SeriesArm(right)}, 75.0));
        const double f = draw.between(1e7, 1e9);
        EXPECT_LT(Distance(coils.at(f).transfer, T.at(f).transfer), 1e-12);
        EXPECT_LT(Distance(coils.at(f).gammaIn, T.at(f).gammaIn), 1e-12);
    }
}

TEST(ElementTest, CoupledCoilsKeepTheirOwnCapacitance) {
    // A coil that resonates at 500 MHz by itself has 1/(ω²L) across it, here on either side.
    Part first = CoilOf(100, 1e8);
    first.loss.SRF = 5e8;
    Part second = CoilOf(150, 1e8);
    second.loss.SRF = 4e8;
    const auto own = [](const Part& coil) {
        return ShuntArm(Part::C(1 / (std::pow(kTwoPi * coil.loss.SRF, 2) * coil.value)));
    };
    Part bareFirst = Part::L(first.value);
    Part bareSecond = Part::L(second.value);
    const LadderResponse coils(Between(50.0, {{CoupledCoils{first, second, 0.6}}}, 75.0));
    const LadderResponse apart(
        Between(50.0, {own(first), {CoupledCoils{bareFirst, bareSecond, 0.6}}, own(second)}, 75.0));
    for (const double f : {1e8, 3e8, 4.5e8}) {
        EXPECT_LT(Distance(coils.at(f).transfer, apart.at(f).transfer), 1e-12) << f;
    }
}

TEST(ElementTest, MatchedLinesDelayAndWeaken) {
    // 2 m on εr 2.25 with 0.5 dB/m at 1 GHz: twice that at 4 GHz.
    const Line line{
        .length = {.metres = 2, .er = 2.25}, .attenuation = 0.5, .attenuationAtHertz = 1e9};
    const LadderResponse response(Between(50.0, {{line}}, 50.0));
    EXPECT_NEAR(10 * std::log10(response.GT(1e9)), -1, 1e-12);
    EXPECT_NEAR(10 * std::log10(response.GT(4e9)), -2, 1e-12);
    const NetworkPoint point = response.at(1e9);
    EXPECT_NEAR(point.groupDelay, 3 / 299792458.0, 1e-20);
    EXPECT_NEAR(std::abs(point.gammaIn), 0, 1e-14);
    // A tangent of the page's kind: e^(-2·0.01·π/2) of the power at a quarter wave.
    const Line page{.length = {.degrees = 90, .atHertz = 1e9}, .tangent = 0.01};
    EXPECT_NEAR(LadderResponse(Between(50.0, {{page}}, 50.0)).GT(1e9), std::exp(-0.01 * kPi),
                1e-13);
}

TEST(ElementTest, MeasuredTwoPortsKeepTheirParameters) {
    // A transistor, conditionally stable, from D. M. Pozar's "Microwave Engineering", example 11.3:
    // the simultaneous conjugate match gains 16.7 dB.
    const auto polar = [](double size, double degrees) {
        return std::polar(size, degrees * kPi / 180);
    };
    const std::array<Cx, 4> s{polar(0.72, -116), polar(0.03, 57), polar(2.60, 76),
                              polar(0.73, -54)};
    const auto resistance = [](Cx gamma) { return 50.0 * (1.0 + gamma) / (1.0 - gamma); };
    const LadderResponse response(Between(resistance(polar(0.87176, 123.41)), {TwoPort(s)},
                                          resistance(polar(0.87629, 61.03))));
    const NetworkPoint point = response.at(4e9);
    EXPECT_NEAR(10 * std::log10(point.GT), 16.710, 0.0005);
    EXPECT_LT(std::abs(point.gammaIn), 5e-4);
    EXPECT_LT(std::abs(point.gammaOut), 5e-4);
    const auto found = response.scattering(4e9, {50, 50});
    ASSERT_TRUE(found);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_LT(Distance(found->m[i], s[i]), 1e-13) << i;
    // 30 Ω in series between ports of 50 and 100 Ω.
    const double through = 2 * std::sqrt(5000.0) / 180;
    const auto chain =
        LadderResponse(Between(50.0,
                               {TwoPort({Cx{80.0 / 180}, Cx{through}, Cx{through}, Cx{-20.0 / 180}},
                                        {50, 100})},
                               50.0))
            .chain(1e9);
    EXPECT_LT(Distance(chain.m[1], 30), 1e-12);
    EXPECT_LT(Distance(chain.m[3], 1), 1e-12);
}

TEST(ElementTest, MeasuredDataEndWhereTheyEnd) {
    PortData data;
    // The reflection of 50 Ω behind a delay of 1 ns, |Γ| = 1/2: -dφ/dω = 2 ns of the round trip.
    for (double f = 1e9; f <= 2.0005e9; f += 1e6) {
        data.f.push_back(f);
        data.s.push_back({std::polar(0.5, -kTwoPi * f * 2e-9)});
    }
    data.interpolation = Interpolation::MonotoneCubic;
    const Termination load = Impedance::Measured{std::make_shared<PortData>(data)};
    LadderResponse response(Between(50.0, {}, load));
    const std::vector<double> f{0.999e9, 1e9, 1.5004e9, 2e9, 2.001e9};
    const NetworkSweep& sweep = response.sweep(f);
    for (const std::size_t missing : {0U, 4U}) {
        EXPECT_TRUE(std::isnan(sweep.GT[missing]));
        EXPECT_TRUE(std::isnan(sweep.gammaInRe[missing]));
        EXPECT_TRUE(std::isnan(sweep.VSWR[missing]));
        EXPECT_TRUE(std::isnan(sweep.phase[missing]));
        EXPECT_TRUE(std::isnan(sweep.groupDelay[missing]));
    }
    for (const std::size_t held : {1U, 2U, 3U}) {
        EXPECT_NEAR(sweep.GT[held], 0.75, 1e-4) << held;
        EXPECT_TRUE(std::isfinite(sweep.groupDelay[held])) << held;
    }
    EXPECT_TRUE(std::isnan(response.GT(0.999e9)));
    // The phase slope, by the difference of the transfer's phase over a wider step.
    const double h = 1e5;
    const double turn = std::arg(response.at(1.5004e9 + h).transfer *
                                 std::conj(response.at(1.5004e9 - h).transfer));
    EXPECT_NEAR(sweep.groupDelay[2], -turn / (kTwoPi * 2 * h), 2e-12);
}

TEST(ElementTest, BranchesTakeTheirShare) {
    // Two loads of 100 Ω side by side are 50 Ω: half the power each.
    const Network split = Between(50.0, {{Branch{{{Transformer{1}}}, 100.0}}}, 100.0);
    const NetworkPoint point = LadderResponse(split).at(1e9);
    EXPECT_NEAR(point.GT, 0.5, 1e-14);
    EXPECT_NEAR(std::abs(point.gammaIn), 0, 1e-14);
    EXPECT_NEAR(point.dissipated, 0.5, 1e-14);
}

TEST(NodeValuesTest, AreThoseOfKirchhoff) {
    // A match at 1 W: 10 V and 0.2 A peak in 50 Ω.
    const NodeValues matched = LadderResponse(Between(50.0, {}, 50.0)).nodes(1e9);
    ASSERT_EQ(matched.nodes.size(), 1U);
    EXPECT_LT(Distance(matched.nodes[0].voltage, 10), 1e-12);
    EXPECT_LT(Distance(matched.nodes[0].current, 0.2), 1e-12);

    Draw draw;
    for (int i = 0; i < 100; ++i) {
        Network network = draw.network(true, 1e9);
        const std::size_t at = network.ladder.size();
        network.ladder.push_back(SeriesArm(draw.arm(true, 1e9)));
        network.ladder.push_back(ShuntArm(draw.arm(true, 1e9)));
        network.ladder.push_back({Switch{"S"}});
        const double f = draw.between(0.5e9, 1.2e9);
        const LadderResponse response(network);
        const NodeValues values = response.nodes(f, 0.25);
        ASSERT_EQ(values.nodes.size(), network.ladder.size() + 1);
        const auto arm = [&](std::size_t n) {
            return impedance(std::get<Arm>(network.ladder[n].is).impedance, f);
        };
        const NodeValue series = values.part(at, Place::Series);
        EXPECT_LT(Distance(series.voltage, arm(at) * series.current),
                  1e-9 * std::abs(values.nodes[at].voltage));
        const NodeValue shunt = values.part(at + 1, Place::Shunt);
        EXPECT_LT(Distance(shunt.voltage, arm(at + 1) * shunt.current),
                  1e-9 * (std::abs(shunt.voltage) +
                          std::abs(arm(at + 1) * values.nodes[at + 1].current)));
        const NodeValue& end = values.nodes.back();
        const double power = (end.voltage * std::conj(end.current)).real() / 2;
        EXPECT_NEAR(power, 0.25 * response.GT(f), 1e-10 * power);
        const NodeValue& start = values.nodes.front();
        EXPECT_LT(Distance(start.voltage / start.current, response.at(f).Zin),
                  1e-10 * std::abs(response.at(f).Zin));
    }
}

TEST(DualTest, RespondsAsTheLadderAtTheMirroredFrequency) {
    Draw draw;
    const double f0 = 3e8;
    for (int i = 0; i < 50; ++i) {
        Network network = Between(30.0, {}, 200.0);
        for (int n = 0; n < 4; ++n) {
            Part part = draw.part(false, f0);
            part.loss = {PartLoss::Law::Page, draw.between(3, 300)};
            network.ladder.push_back(n % 2 == 0 ? SeriesArm(part) : ShuntArm(part));
        }
        const Network dual = Between(30.0, Dual(network.ladder, f0), 200.0);
        const double f = f0 * draw.between(0.2, 5);
        EXPECT_LT(Distance(LadderResponse(dual).at(f).transfer,
                           std::conj(LadderResponse(network).at(f0 * f0 / f).transfer)),
                  1e-12);
        EXPECT_EQ(PartsOf(Dual(dual.ladder, f0))[2]->loss, PartsOf(network.ladder)[2]->loss);
    }
}

}  // namespace
}  // namespace kelvro
