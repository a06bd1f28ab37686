// Networks in the forms of other tools, held to what those tools make of them.

#include "io/network_exports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "io/touchstone.h"
#include "network/ladder_response.h"
#include "ngspice.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;
using Law = PartLoss::Law;

constexpr double kLow = 200e6;
constexpr double kHigh = 800e6;

/// Random networks around 400 MHz: every kind of element and of loss, terminations typed and
/// measured.
class RandomNetworks {
  public:
    explicit RandomNetworks(unsigned seed) : random_(seed) {}

    Network network(int elements) {
        Network network{termination(), {}, termination(), 0, {}, ""};
        for (int i = 0; i < elements; ++i) network.ladder.push_back(element());
        return network;
    }

  private:
    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    double number(double low, double high) {
        return low * std::pow(high / low, std::ldexp(static_cast<double>(random_()), -64));
    }

    Part part(PartKind kind) {
        Part part{kind, 0, {}, {}};
        if (kind == PartKind::Resistor) {
            part.value = number(5, 500);
            return part;
        }
        part.value = kind == PartKind::Inductor ? number(2e-9, 80e-9) : number(1e-12, 30e-12);
        part.loss.law = static_cast<Law>(below(6));
        if (part.loss.law != Law::Lossless) part.loss.Q = number(10, 200);
        if (part.loss.law == Law::ProportionalQ || part.loss.law == Law::RootQ) {
            part.loss.f = number(100e6, 1e9);
        }
        if (below(3) == 0) part.loss.ESR = number(0.05, 2);
        if (below(3) == 0) part.loss.SRF = number(1e9, 4e9);
        return part;
    }

    Part reactance() { return part(below(2) == 0 ? PartKind::Inductor : PartKind::Capacitor); }

    Cx reflection() { return std::polar(number(0.1, 0.8), number(0.1, 6.3)); }

    std::shared_ptr<const PortData> data(int ports) {
        PortData data;
        data.name = "d" + std::to_string(++files_) + (ports == 1 ? ".s1p" : ".s2p");
        data.ports = ports;
        data.reference = {number(20, 100), number(20, 100)};
        const bool smooth = below(3) == 0;
        data.interpolation = smooth ? Interpolation::Polar : Interpolation::Linear;
        const std::array<Cx, 4> start{reflection(), 0.5 * reflection(), reflection(), reflection()};
        for (double f = 100e6; f <= 1e9; f += 20e6) {
            data.f.push_back(f);
            auto s = start;
            for (Cx& x : s) x *= std::polar(1 - 0.2 * f / 1e9, -4 * f / 1e9);
            data.s.push_back(s);
        }
        return std::make_shared<const PortData>(data);
    }

    Impedance termination() {
        switch (below(4)) {
            case 0:
                return number(10, 200);
            case 1:
                return Cx(number(10, 200), 60.0 - below(120));
            case 2:
                return Impedance::Measured{data(1), 0, below(2) == 0};
            default:
                return Impedance::InParallel({number(20, 200), reactance()});
        }
    }

    Impedance arm() {
        switch (below(5)) {
            case 0:
                return Impedance::InSeries({reactance(), reactance()});
            case 1:
                return Impedance::InParallel({reactance(), part(PartKind::Resistor)});
            case 2:
                return below(2) == 0 ? Impedance::Measured{data(2), 0}
                                     : Impedance::Measured{data(2), 2};
            default:
                return reactance();
        }
    }

    LadderElement element() {
        LadderElement element;
        switch (below(9)) {
            case 0: {
                Line line{static_cast<Line::Form>(below(3)), number(20, 120), {}, 0, 0, 0, {}};
                line.length = below(2) == 0 ? LineLength{number(10, 80), 400e6, 0, 1}
                                            : LineLength{0, 0, number(0.01, 0.1), number(1, 5)};
                if (below(2) == 0) {
                    line.attenuation = number(0.5, 20);
                    line.attenuationAtHertz = 500e6;
                }
                if (below(3) == 0) line.tangent = 0.02;
                element.is = line;
                break;
            }
            case 1:
                element.is = Transformer{number(0.3, 3)};
                break;
            case 2: {
                Part first = part(PartKind::Inductor);
                Part second = part(PartKind::Inductor);
                // The windings of a page's transformer share their loss.
                first.loss.law = second.loss.law = Law::RootQ;
                first.loss.f = second.loss.f = 300e6;
                first.loss.Q = second.loss.Q = 50;
                if (below(2) == 0) first.loss = second.loss = {Law::Page, 40, 0, 0, 0};
                element.is = CoupledCoils{first, second, 0.8};
                break;
            }
            case 3:
                element.is = MeasuredTwoPort{data(2)};
                break;
            case 4: {
                Branch branch;
                branch.ladder = {SeriesArm(reactance()), ShuntArm(reactance())};
                branch.load = number(50, 300);
                element.is = branch;
                break;
            }
            default:
                element = below(2) == 0 ? SeriesArm(arm()) : ShuntArm(arm());
        }
        return element;
    }

    std::mt19937_64 random_;
    int files_ = 0;
};

/// The gain in ngspice from what it says of voltages and currents.
TEST(NetworkSpice, IsWhatNgspiceMakesOfTheNetwork) {
    RandomNetworks networks(5);
    double worst = 0;
    for (int i = 0; i < 40; ++i) {
        const Network network = networks.network(1 + i % 6);
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
    RandomNetworks networks(8);
    for (int i = 0; i < 20; ++i) {
        const Network network = networks.network(3);
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
