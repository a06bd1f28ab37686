#include "analysis/trace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>
#include <utility>

#include "design/pages.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

/// A lossless quarter-wave line from 50 to 50 ohm: every frequency passes, delayed by the line's
/// travelling time.
Design MatchedLine() {
    Design state{.R2 = 50, .QB = 1e12, .QBC = 1e12};
    EnterPage(state, 6);
    return Calculated(state);
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
        state = CalculatedEitherWay(state);
        const TraceSource source(state);
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

/// 100 nH and 25 ohm before 75 ohm, driven from 50 ohm at 100 MHz, X = 62.832 ohm: the input is
/// 100 + jX, the voltage divider 75/(150 + jX), and its phase -atan(X/150) falls with the slope
/// (L/150)/(1 + (X/150)²).
TEST(Traces, OfACoilInSeriesFollowFromItsReactance) {
    Network network;
    network.source = 50.0;
    network.load = 75.0;
    network.ladder.push_back(SeriesArm(Impedance::InSeries({25.0, Part::L(100e-9)})));
    const TraceSource source(network);
    const double X = 20 * std::numbers::pi;
    const double all = 150 * 150 + X * X;
    const double back = std::sqrt(50 * 50 + X * X);
    const std::tuple<const char*, double> expected[] = {
        {"v", 20 * std::log10(2 * 75 / std::sqrt(all))},
        {"gt", 10 * std::log10(4 * 50 * 75 / all)},
        {"phi", -std::atan(X / 150) * 180 / std::numbers::pi},
        {"delay", 100e-9 / 150 / (1 + X * X / 150 / 150)},
        {"rl", 20 * std::log10(std::sqrt(all) / back)},
        {"rlout", 20 * std::log10(std::sqrt(all) / X)},
        {"vswr", (std::sqrt(all) + back) / (std::sqrt(all) - back)},
        {"r", 100},
        {"x", X},
        {"loss", 4 * 50 * 25 / all},
    };
    for (const auto& [key, value] : expected) {
        EXPECT_NEAR(TraceOf(key).value(source, 100e6), value, 1e-9 * (1 + std::fabs(value))) << key;
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
