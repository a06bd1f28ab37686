// Exported netlists against the program's own response, by way of ngspice.

#include <gtest/gtest.h>

#include <cmath>

#include "core/scalar.h"
#include "export_design.h"
#include "io/class_e_netlist.h"
#include "io/class_e_simulation.h"
#include "io/ngspice.h"
#include "ngspice.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

double Decibels(double ratio) {
    return 20 * std::log10(ratio);
}

class Netlists : public testing::TestWithParam<DesignCase> {};

/// Element Qs of the best and of very bad parts.
TEST_P(Netlists, FollowTheResponseOverADecade) {
    for (const double elementQ : {10000.0, 30.0}) {
        Design state = DesignedState(GetParam(), elementQ);
        const ExportDesign design = Exported(state);
        const Response response(design.state);
        ExportRange range = ExportRange::Around(design.state.fo);
        range.points = 61;
        const auto vectors = Ngspice(SpiceNetlist(design, range)).sweep();
        const std::string out = GetParam().page == 9 ? "v(outp)" : "v(out)";
        ASSERT_TRUE(vectors.contains(out)) << SpiceNetlist(design, range);
        const auto& frequencies = vectors.at("frequency");
        ASSERT_GE(frequencies.size(), 60U);
        EXPECT_LE(frequencies.front().real(), range.from * 1.000001);
        EXPECT_GE(frequencies.back().real(), range.to * 0.95);
        for (std::size_t i = 0; i < frequencies.size(); ++i) {
            const double f = frequencies[i].real();
            ASSERT_NEAR(Decibels(std::abs(vectors.at(out)[i])), response.magnitudeDb(f), 1e-6)
                << "at " << f << " with an element Q of " << elementQ;
        }
    }
}

TEST_P(Netlists, MeasureTheGainOfLossyPartsAtFo) {
    Design state = DesignedState(GetParam(), 1000);
    state.QB = 20;
    state.QBC = 60;
    const ExportDesign design = Exported(state);
    const Response response(design.state);
    const Ngspice simulator(SpiceNetlist(design, ExportRange::Around(state.fo)));
    const auto output = simulator.output();
    ASSERT_TRUE(output);
    const auto v = Ngspice::number(*output, "v_db");
    const auto gain = Ngspice::number(*output, "gt_db");
    ASSERT_TRUE(v && gain) << *output;
    EXPECT_NEAR(*v, response.magnitudeDb(state.fo), 1e-3);
    EXPECT_NEAR(*gain, -design.cycle.lossDb, 1e-3);
}

INSTANTIATE_TEST_SUITE_P(Pages, Netlists, testing::ValuesIn(kTwoPorts));

TEST(BalunNetlist, HasOppositeOutputs) {
    const ExportDesign design = Exported(DesignedState({"balun", 9, 50, 100}, 10000));
    const auto vectors = Ngspice(SpiceNetlist(design, ExportRange::Around(100e6))).sweep();
    ASSERT_TRUE(vectors.contains("v(outm)"));
    const std::size_t middle = vectors.at("frequency").size() / 2;
    EXPECT_NEAR(vectors.at("frequency")[middle].real(), 100e6, 1);
    EXPECT_NEAR(std::abs(vectors.at("v(outp)")[middle] + vectors.at("v(outm)")[middle]), 0, 1e-3);
}

/// What stands across the line between 50 and 50 ohm, by its admittance: at its short the tank
/// leaves its losses, 100 ohm of Ls and of Cs over their Q, beside 1 + j100 ohm of Lp; a coil of 20
/// nH and 2 ohm has 1 pF across.
TEST(OnePortNetlists, PassWhatTheirLossesLeave) {
    Design tank = DesignedState({"tank", 12, 50, 50}, 100);
    tank.fo = 1 / (kTwoPi * std::sqrt(1e-6 * 100e-12));
    const Design coil = DesignedState({"coil", 11, 50, 50}, 100);
    const double omega = kTwoPi * coil.fo;
    using Cx = std::complex<double>;
    for (const auto& [state, Y] :
         {std::pair{tank, 1.0 / 2.0 + 1.0 / Cx(1, 100)},
          std::pair{coil, 1.0 / Cx(coil.R, omega * coil.L) + Cx(0, omega * coil.C)}}) {
        const double expected = 2 * std::abs(1.0 / 50 / (2.0 / 50 + Y));
        const auto output =
            Ngspice(SpiceNetlist(Exported(state), ExportRange::Around(state.fo))).output();
        ASSERT_TRUE(output);
        EXPECT_NEAR(Ngspice::number(*output, "v_db").value_or(NAN), Decibels(expected), 1e-2);
    }
}

struct SwitchedStage {
    double P, Ub, Usat, fo, Q, choke;
};

Design Designed(const SwitchedStage& stage, double elementQ) {
    Design state;
    state.page = 15;
    state.P = stage.P;
    state.Ub = stage.Ub;
    state.Usat = stage.Usat;
    state.fo = stage.fo;
    state.Q = stage.Q;
    state.chokeRatio = stage.choke;
    state.infiniteChoke = std::isinf(stage.choke);
    state.QB = state.QBC = elementQ;
    const CycleResult cycle = CycleOf(state);
    EXPECT_FALSE(cycle.message);
    return cycle.design;
}

class ClassENetlists : public testing::TestWithParam<SwitchedStage> {};

/// What was asked for, by the simulator's own integration: the power within 0.1 %, and less than
/// 0.5 % of the supply on the switch when it closes.
TEST_P(ClassENetlists, DeliverThePowerAskedAndSwitchAtZeroVoltage) {
    SCOPED_TRACE(testing::Message() << GetParam().P << " W from " << GetParam().Ub << " V, Q "
                                    << GetParam().Q << ", choke " << GetParam().choke);
    const SwitchedStage& stage = GetParam();
    const auto measured = RunNgspice(ClassENetlist(Exported(Designed(stage, 1e9))));
    ASSERT_TRUE(measured) << measured.message();
    EXPECT_NEAR(measured->at("pout"), stage.P, 1e-3 * stage.P);
    EXPECT_NEAR(measured->at("vturnon"), 0, 5e-3 * stage.Ub);
    const double supplied = stage.P / (stage.Ub - stage.Usat);
    EXPECT_NEAR(measured->at("isupply"), -supplied, 1e-3 * supplied);
    EXPECT_NEAR(measured->at("efficiency"), 100 * (1 - stage.Usat / stage.Ub), 0.1);
}

INSTANTIATE_TEST_SUITE_P(Stages, ClassENetlists,
                         testing::Values(SwitchedStage{1, 12, 0.5, 100e6, 5, 143},
                                         SwitchedStage{10, 12, 0, 10e6, 2, 200},
                                         SwitchedStage{10, 12, 0, 10e6, 20, 2},
                                         SwitchedStage{10, 12, 0, 10e6, 19, 143},
                                         SwitchedStage{50, 28, 2, 1e6, 3, 5},
                                         SwitchedStage{10, 12, 0, 10e6, 7.7, INFINITY}));

/// Lossy parts, nominal and of the standard series: the steady state that is computed is the one
/// that the simulator runs into.
TEST(ClassENetlist, RunsAsTheSteadyStateSays) {
    for (const auto& [choice, elementQ] :
         {std::pair{ExportChoice{}, 50.0},
          std::pair{ExportChoice{.standardValues = true}, 200.0}}) {
        const auto values =
            CompareWithNgspice(Exported(Designed({10, 12, 1, 10e6, 5, 20}, elementQ), choice));
        ASSERT_TRUE(values) << values.message();
        EXPECT_EQ(values->size(), 9U);
        for (const ComparedValue& value : *values) {
            const double allowed = value.unit == "dB"  ? 0.1
                                   : value.unit == "%" ? 0.2
                                   : value.name == "Voltage left at turn-on"
                                       ? 0.05
                                       : 3e-3 * value.computed;
            EXPECT_NEAR(value.simulated, value.computed, allowed) << value.name;
        }
    }
}

TEST(ClassENetlist, IsComparedForSwitchedStagesOnly) {
    EXPECT_EQ(CompareWithNgspice(Exported(DesignedState({"Pi section", 3}, 500))).message(),
              "Only a class-E stage is compared with ngspice");
}

TEST(DividerNetlist, HasTheWantedTapVoltages) {
    const ExportDesign design = Exported(DesignedState({"divider", 19}, 100));
    const auto output = Ngspice(SpiceNetlist(design, ExportRange::Around(1e6))).output();
    ASSERT_TRUE(output);
    for (const auto& [node, volts] :
         {std::pair{"vlow1", 0.4}, std::pair{"vlow2", 0.6}, std::pair{"vmid1", 1.1},
          std::pair{"vmid2", 1.3}, std::pair{"vhi1", 1.8}, std::pair{"vhi2", 2.0},
          std::pair{"vbg#branch", -100e-6}}) {
        EXPECT_NEAR(Ngspice::number(*output, node).value_or(NAN), volts, 1e-5 * std::fabs(volts))
            << node;
    }
}

}  // namespace
}  // namespace kelvro
