#pragma once

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "core/scalar.h"
#include "network/network.h"

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

}  // namespace kelvro
