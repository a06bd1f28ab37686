#pragma once

#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <random>

#include "core/scalar.h"
#include "network/network.h"
#include "network/network_text.h"

// Networks for tests: of given reactances, between resistances, drawn at random.

namespace kelvro {

using Cx = std::complex<double>;

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline const Cx j{0, 1};

inline double Distance(Cx a, Cx b) {
    return std::abs(a - b);
}

/// L with ωL = X, C with ωC = B, at f.
inline Part CoilOf(double X, double f) {
    return Part::L(X / (kTwoPi * f));
}
inline Part CapacitorOf(double B, double f) {
    return Part::C(B / (kTwoPi * f));
}

/// Between real resistances everything passes that neither end reflects.
inline Network Between(Termination source, std::vector<LadderElement> ladder, Termination load) {
    return {std::move(source), std::move(ladder), std::move(load)};
}

inline LadderElement TwoPort(std::array<Cx, 4> s, std::array<double, 2> reference = {50, 50}) {
    PortData data;
    data.ports = 2;
    data.f = {1e6, 1e12};
    data.s = {s, s};
    data.reference = reference;
    return {MeasuredTwoPort{std::make_shared<PortData>(data)}};
}

/// The elements of "series: L=1n; shunt: C=2p".
inline std::vector<LadderElement> LadderOf(const std::string& texts) {
    return std::get<Branch>(ParseElement("branch: {" + texts + "; load: 50}")->is).ladder;
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
        if (part.loss.law == Law::Lossless) part.loss.Q = part.loss.f = 0;
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

    Cx reflection() { return std::polar(between(0.1, 0.8), between(0.1, 6.3)); }

    /// Smooth data from a quarter to two and a half times f, under a name of their own.
    std::shared_ptr<const PortData> data(int ports, double f0) {
        PortData data;
        data.name = "d" + std::to_string(files.size()) + (ports == 1 ? ".s1p" : ".s2p");
        data.ports = ports;
        data.reference = {between(20, 100), between(20, 100)};
        data.interpolation = coin() ? Interpolation::Polar : Interpolation::Linear;
        const std::array<Cx, 4> start{reflection(), 0.5 * reflection(), reflection(), reflection()};
        for (double f = 0.25; f <= 2.5; f += 0.05) {
            data.f.push_back(f * f0);
            data.s.push_back(ports == 1 ? std::array<Cx, 4>{start[0]} : start);
            for (Cx& x : data.s.back()) x *= std::polar(1 - 0.08 * f, -1.6 * f);
        }
        return files[data.name] = std::make_shared<const PortData>(data);
    }
    Impedance::Measured measured(int ports, double f) {
        if (ports == 2) return {data(ports, f), coin() ? 0 : 2, coin()};
        return {data(ports, f), 0, coin()};
    }
    Termination termination(double f) {
        switch (random() % 4) {
            case 0:
                return between(10, 200);
            case 1:
                return Cx{between(10, 200), between(1, 60) * (coin() ? 1 : -1)};
            case 2:
                return measured(1, f);
            default:
                return Impedance::InParallel({between(20, 200), part(true, f)});
        }
    }
    /// Of every kind, also with measured data, branches and resistors.
    LadderElement anyElement(double f) {
        const Part coil{PartKind::Inductor, CoilOf(between(5, 200), f).value,
                        coin() ? PartLoss{PartLoss::Law::Page, 40}
                               : PartLoss{PartLoss::Law::RootQ, 50, f, 0.1, 5 * f}};
        Part other = coil;
        other.value *= between(0.3, 3);
        switch (random() % 8) {
            case 0:
                return {MeasuredTwoPort{data(2, f)}};
            case 1:
                return {
                    Branch{{SeriesArm(part(true, f)), ShuntArm(part(true, f))}, between(50, 300)}};
            case 2:
                return SeriesArm(measured(2, f));
            case 3:
                return ShuntArm(Impedance::InParallel({part(true, f), Part::R(between(5, 500))}));
            case 4:
                // The windings of a page's transformer share their loss.
                return {CoupledCoils{coil, other, 0.8}};
            case 5:
                return {Line{.form = static_cast<Line::Form>(random() % 3),
                             .Z0 = between(20, 120),
                             .length = {.metres = 3e8 / f * between(0.01, 0.13), .er = 2.2},
                             .tangent = 0.02}};
            default:
                return element(true, f);
        }
    }
    Network anyNetwork(int elements, double f) {
        Network network = Between(termination(f), {}, termination(f));
        for (int i = 0; i < elements; ++i) network.ladder.push_back(anyElement(f));
        return network;
    }

    std::map<std::string, std::shared_ptr<const PortData>, std::less<>> files;  ///< of data()
};

}  // namespace kelvro
