#include "analysis/trace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>
#include <utility>

#include "design/pages.h"

namespace kelvro {
namespace {

/// A lossless quarter-wave line from 50 to 50 ohm: every frequency passes, delayed by the line's
/// travelling time.
Design MatchedLine() {
    Design state;
    EnterPage(state, 6);
    state.R2 = state.R1;
    state.fo = 100e6;
    state.QB = state.QBC = 1e12;
    ResponseServices services;
    return Calculate(state, true, services).design;
}

TEST(Traces, KeysAndColumnsAreDistinctAndEveryRowIsWhole) {
    std::set<std::string_view> keys;
    std::set<std::string_view> columns;
    for (const Trace& trace : Traces()) {
        EXPECT_TRUE(keys.insert(trace.key).second) << trace.key;
        EXPECT_TRUE(columns.insert(trace.column).second) << trace.column;
        EXPECT_FALSE(trace.title.empty() || trace.symbol.empty()) << trace.key;
        EXPECT_TRUE(trace.value && trace.scale) << trace.key;
        EXPECT_EQ(FindTrace(trace.key), &trace);
    }
    EXPECT_EQ(FindTrace("s21"), nullptr);
}

TEST(Traces, DefaultRangesHoldTheValuesAtTheDesignFrequency) {
    for (const int page : {1, 2, 3, 4, 5, 6, 13, 14, 17, 18}) {
        Design state;
        EnterPage(state, page);
        ResponseServices services;
        CycleResult result = Calculate(state, true, services);
        if (result.message) {  // this page steps down
            std::swap(state.R1, state.R2);
            result = Calculate(state, true, services);
        }
        ASSERT_FALSE(result.message) << page;
        const TraceSource source(result.design);
        for (const Trace& trace : Traces()) {
            const TraceScale scale = trace.scale(source);
            const double value = trace.value(source, state.fo);
            // A page that is not plotted knows no input.
            if (!PageOf(state).plottable && std::isnan(value)) continue;
            EXPECT_LT(scale.min, value) << page << trace.key;
            EXPECT_GT(scale.max, value) << page << trace.key;
            EXPECT_GT(scale.step, 0) << page << trace.key;
        }
    }
}

TEST(Traces, GroupDelayOfALineIsItsTravellingTime) {
    const TraceSource source(MatchedLine());
    const Trace& delay = TraceOf("delay");
    // A quarter of the period of fo, whatever the frequency: 2.5 ns.
    for (const double f : {1e6, 99e6, 100e6, 200e6, 3.3e9}) {
        EXPECT_NEAR(delay.value(source, f), 2.5e-9, 1e-17) << f;
    }
    EXPECT_TRUE(std::isnan(delay.value(source, 0)));
}

TEST(Traces, GroupDelayOfACoilInSeriesFollowsItsClosedForm) {
    // A Pi section without capacitors is a coil between two resistances R: H = 1/(1 + jωL/2R), with
    // the delay (L/2R)/(1 + (ωL/2R)²). At 1 MHz ωL/2R = q here.
    for (const double q : {0.1, 1.0, 30.0}) {
        Design state;
        EnterPage(state, 3);
        state.R1 = state.R2 = 50;
        state.QB = state.QBC = 1e12;
        const double omega = 2 * std::numbers::pi * 1e6;
        state.components[Slot::L] = q * 100 / omega;
        const double delay = TraceOf("delay").value(TraceSource(state), 1e6);
        EXPECT_NEAR(delay * omega * (1 + q * q) / q, 1, 1e-6) << q;
    }
}

/// The network that the traces of the input are taken from is the one of the response: all pages,
/// interchanged or not, lossy.
TEST(Traces, TheNetworkBehindTheInputHasTheResponseOfThePage) {
    for (const Page& page : Pages()) {
        if (!page.plottable) continue;
        for (const bool swapped : {false, true}) {
            Design state;
            EnterPage(state, page.number);
            state.LCSwapped = swapped && page.mirrored;
            state.QB = 60;
            state.QBC = 200;
            ResponseServices services;
            CycleResult result = Calculate(state, true, services);
            if (result.message) {
                std::swap(state.R1, state.R2);
                result = Calculate(state, true, services);
            }
            ASSERT_FALSE(result.message) << page.number;
            const TraceSource source(result.design);
            ASSERT_TRUE(source.network.has_value()) << page.number;
            for (const double part : {0.3, 0.9, 1.0, 1.7}) {
                const double f = part * state.fo;
                const auto H = source.response->transfer(f);
                EXPECT_NEAR(std::abs(source.network->voltageTransfer(f) / H), 1, 1e-9)
                    << page.number << " swapped " << swapped << " at " << part;
            }
        }
    }
}

TEST(Traces, InputOfACoilInSeriesIsThatCoilAndTheLoad) {
    // 100 nH before 100 ohm at 100 MHz: 100 + j62.832 ohm. Against 50 ohm
    // |Γ|² = (50² + 62.832²)/(150² + 62.832²) = 0.243793, so 6.1298 dB, and VSWR 2.95098.
    Design state;
    EnterPage(state, 3);
    state.fo = 100e6;
    state.R1 = 50;
    state.R2 = 100;
    state.QB = state.QBC = 1e12;
    state.components[Slot::L] = 100e-9;
    state.components[Slot::C1] = state.components[Slot::C2] = 0;
    const TraceSource source(state);
    EXPECT_NEAR(TraceOf("r").value(source, 100e6), 100, 1e-6);
    EXPECT_NEAR(TraceOf("x").value(source, 100e6), 62.8318531, 1e-6);
    EXPECT_NEAR(TraceOf("rl").value(source, 100e6), 6.1298, 2e-4);
    EXPECT_NEAR(TraceOf("vswr").value(source, 100e6), 2.951, 5e-4);
}

TEST(Traces, OfABareNetworkMeanTheSame) {
    // 100 ohm in series between 50 and 100 ohm: a quarter of the 200 ohm that the source sees.
    Network network;
    network.source = 50.0;
    network.load = 100.0;
    network.ladder.push_back(SeriesArm(Part::R(100)));
    const TraceSource source(network);
    const std::tuple<const char*, double> expected[] = {
        {"v", 20 * std::log10(2 * 100.0 / 250)},
        {"gt", 10 * std::log10(4 * 50 * 100.0 / (250 * 250))},
        {"phi", 0},
        {"delay", 0},
        {"rl", 20 * std::log10(250 / 150.0)},
        {"rlout", 20 * std::log10(250 / 50.0)},
        {"vswr", 4},
        {"r", 200},
        {"x", 0},
        {"loss", 4 * 50 * 100.0 / (250 * 250)},
    };
    for (const auto& [key, value] : expected) {
        EXPECT_NEAR(TraceOf(key).value(source, 1e6), value, 1e-9) << key;
    }
}

TEST(Traces, AThirdAxisMakesRoom) {
    const Trace& gt = TraceOf("gt");
    const Trace& rl = TraceOf("rl");
    const Trace& rlout = TraceOf("rlout");
    const Trace& phi = TraceOf("phi");
    EXPECT_EQ(WithTrace({&gt, &rl}, rlout), (TraceList{&gt, &rl, &rlout}));
    EXPECT_EQ(WithTrace({&gt, &rl, &rlout}, phi), (TraceList{&gt, &phi}));
    EXPECT_EQ(WithTrace({&gt, &phi}, TraceOf("v")), (TraceList{&gt, &phi, &TraceOf("v")}));
}

TEST(Traces, TwoKindsOfValuesHaveAnAxisAThirdHasNone) {
    const Trace* gt = &TraceOf("gt");
    const Trace* v = &TraceOf("v");
    const Trace* phi = &TraceOf("phi");
    const Trace* delay = &TraceOf("delay");
    EXPECT_EQ(RightTrace({gt, v}), nullptr);
    EXPECT_EQ(RightTrace({gt, v, phi}), phi);
    EXPECT_EQ(TraceWithoutAxis({gt, phi, v}), nullptr);
    EXPECT_EQ(TraceWithoutAxis({gt, phi, v, delay}), delay);
}

TEST(Traces, ValuesReadAsTheirRowSays) {
    EXPECT_EQ(TraceOf("v").text(-6), "-6.000dB");
    EXPECT_EQ(TraceOf("delay").text(2.5e-9), "2.500ns");
    EXPECT_EQ(TraceOf("gt").axisName(), "GT in dB");
    EXPECT_EQ(TraceOf("phi").legend(), "phi(f) :");
}

}  // namespace
}  // namespace kelvro
