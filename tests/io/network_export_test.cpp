// Networks in the forms of other tools, held to what those tools make of them.

#include "io/network_exports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "io/touchstone.h"
#include "network/ladder_response.h"
#include "ngspice.h"
#include "tests/network/drawn_networks.h"

namespace kelvro {
namespace {

constexpr double kLow = 200e6;
constexpr double kHigh = 800e6;

/// The gain in ngspice from what it says of voltages and currents.
TEST(NetworkSpice, IsWhatNgspiceMakesOfTheNetwork) {
    Draw draw;
    double worst = 0;
    for (int i = 0; i < 40; ++i) {
        const Network network = draw.anyNetwork(1 + i % 6, 400e6);
        ExportRange range;
        range.from = kLow;
        range.to = kHigh;
        range.points = 20;
        const std::string netlist = NetworkSpice(network, range);
        const auto vectors = Ngspice(netlist).sweep();
        ASSERT_FALSE(vectors.empty()) << netlist;
        const LadderResponse response(network);
        const auto& f = vectors.at("frequency");
        ASSERT_GE(f.size(), 19U);
        for (std::size_t k = 0; k < f.size(); ++k) {
            const Cx out = vectors.at("v(out)")[k];
            const Cx current = vectors.at("i(vload)")[k];
            const double gain = vectors.at("v(zs)")[k].real() * (out * std::conj(current)).real();
            const double expected = response.GT(f[k].real());
            if (expected < 1e-8) continue;
            const double difference = std::abs(10 * std::log10(gain / expected));
            worst = std::max(worst, difference);
            ASSERT_LT(difference, 0.001) << f[k] << " gain " << expected << '\n' << netlist;
        }
    }
    RecordProperty("worst_dB", std::to_string(worst));
}

TEST(NetworkSpice, PrintsTheGainByItself) {
    Network network;
    network.source = 50;
    network.ladder = {SeriesArm(Part::L(10e-9)), ShuntArm(Part::C(3e-12))};
    network.load = Cx(20, -30);
    network.caption = "Größe";
    ExportRange range;
    range.from = 400e6;
    range.to = 500e6;
    range.points = 2;
    const std::string netlist = NetworkSpice(network, range);
    EXPECT_TRUE(std::ranges::all_of(netlist, [](char c) { return (c & 0x80) == 0; }));
    const auto output = Ngspice(netlist).output();
    ASSERT_TRUE(output);
    const auto at = output->find("gt_db");
    ASSERT_NE(at, std::string::npos);
    double f = 0;
    double gain = 0;
    ASSERT_EQ(std::sscanf(output->c_str() + output->find("\n0", at), " 0 %lf %lf", &f, &gain), 2);
    EXPECT_NEAR(gain, 10 * std::log10(LadderResponse(network).GT(400e6)), 1e-4);
}

TEST(NetworkTouchstone, HoldsTheLadder) {
    Draw draw;
    for (int i = 0; i < 20; ++i) {
        const Network network = draw.anyNetwork(3, 400e6);
        ExportRange range;
        range.from = kLow;
        range.to = kHigh;
        range.points = 7;
        range.z0 = 75;
        const auto read = ParseTouchstone(NetworkTouchstone(network, range), "ladder.s2p");
        ASSERT_TRUE(read.ok()) << read.message();
        EXPECT_EQ(read->data.reference[0], 75);
        // Put back between the terminations, the file gives the network's gain.
        Network replaced = network;
        replaced.ladder = {{MeasuredTwoPort{std::make_shared<const PortData>(read->data)}, {}}};
        for (const double f : read->data.f) {
            const double expected = LadderResponse(network).GT(f);
            EXPECT_NEAR(LadderResponse(replaced).GT(f), expected, 1e-9 + 1e-9 * expected);
        }
    }
}

TEST(NetworkListing, NamesEverything) {
    Network network;
    network.source = 50;
    network.ladder = {SeriesArm(Part::L(38.984839e-9)), ShuntArm(Part::C(1e-12))};
    network.load = Cx(12, -45);
    network.designFrequency = 500e6;
    network.bands = {{400e6, 600e6}};
    const std::string text = NetworkListing(network, {});
    for (const char* part : {"series: L=38.985n", "shunt: C=1p", "12-j45", "500.000 MHz",
                             "400.000 MHz to 600.000 MHz"}) {
        EXPECT_THAT(text, testing::HasSubstr(part));
    }
}

}  // namespace
}  // namespace kelvro
