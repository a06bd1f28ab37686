#include "network/ladder_response.h"

#include <algorithm>

#include "network/ladder_sweep.h"
#include "network/ladder_values.h"

namespace kelvro {

namespace {

using ladder::Frequency;
using ladder::State;
using One = lanes::Complex<double>;

Frequency<double> At(double f) {
    return Frequency<double>::Of(std::max(f, ladder::kLowestFrequency));
}

std::complex<double> FromLanes(const One& x) {
    return {x.re, x.im};
}

/// From the load alone: what the load's volts ask of the source.
struct Through {
    One ZS, ZL;
    One sum;     ///< the source's voltage
    One factor;  ///< the load's current
};
Through ThroughAt(const LadderProgram& program, const Frequency<double>& at) {
    const One ZS = ladder::TerminationAt<One>(program.source, at);
    const One ZL = ladder::TerminationAt<One>(program.load, at);
    State<One, 1> state(ZL, One::Of(1));
    ladder::Apply(program.steps, at, state);
    return {ZS, ZL, state.voltage[0] + ZS * state.current[0], state.factor};
}

/// The chain matrix times its factor.
struct ScaledChain {
    std::complex<double> A, B, C, D, factor;
};
ScaledChain ChainAt(const LadderProgram& program, const Frequency<double>& at) {
    State<One, 2> state;
    ladder::Apply(program.steps, at, state);
    return {FromLanes(state.voltage[0]), FromLanes(state.voltage[1]), FromLanes(state.current[0]),
            FromLanes(state.current[1]), FromLanes(state.factor)};
}

}  // namespace

void NetworkSweep::resize(std::size_t points) {
    for (auto* array : {&f, &GT, &phase, &groupDelay, &dissipated, &VSWR, &gammaInRe, &gammaInIm,
                        &gammaOutRe, &gammaOutIm, &ZinRe, &ZinIm, &ZoutRe, &ZoutIm}) {
        array->resize(points);
    }
}

NodeValue NodeValues::part(std::size_t i, Place place) const {
    const NodeValue& before = nodes[i];
    const NodeValue& behind = nodes[i + 1];
    if (place == Place::Series) return {before.voltage - behind.voltage, before.current};
    return {before.voltage, before.current - behind.current};
}

LadderResponse::LadderResponse(const Network& network)
    : program_(LadderProgram::Of(network)), elements_(network.ladder.size()) {}

Matrix2 LadderResponse::chain(double f) const {
    const auto [A, B, C, D, factor] = ChainAt(program_, At(f));
    return {{A / factor, B / factor, C / factor, D / factor}};
}

std::complex<double> LadderResponse::voltageTransfer(double f) const {
    const Through through = ThroughAt(program_, At(f));
    if (through.factor.norm() == 0) return 0;
    return FromLanes(2.0 * (through.ZL * through.factor * through.sum.reciprocal()));
}

double LadderResponse::GT(double f) const {
    const Through through = ThroughAt(program_, At(f));
    const double passing = through.factor.norm();
    if (passing == 0) return 0;
    return 4 * (through.ZS.re * through.ZL.re) * passing / through.sum.norm();
}

NetworkPoint LadderResponse::at(double f) const {
    const ladder::Values<double> values = ladder::ValuesAt(program_, At(f));
    const double through = std::sqrt(values.GT) / std::sqrt(values.direction.norm());
    NetworkPoint point;
    point.f = f;
    point.GT = values.GT;
    point.gammaIn = FromLanes(values.gammaIn);
    point.gammaOut = FromLanes(values.gammaOut);
    point.Zin = FromLanes(values.Zin);
    point.Zout = FromLanes(values.Zout);
    if (values.GT != 0) point.transfer = FromLanes(through * values.direction);
    point.groupDelay = values.groupDelay;
    point.dissipated = values.dissipated;
    return point;
}

const NetworkSweep& LadderResponse::sweep(std::span<const double> f) {
    sweep_.resize(f.size());
    std::ranges::copy(f, sweep_.f.begin());
    ladder::Sweep(program_, sweep_, ladder::BestLanes());
    return sweep_;
}

NodeValues LadderResponse::nodes(double f, double availablePower) const {
    const auto at = At(f);
    const One ZS = ladder::TerminationAt<One>(program_.source, at);
    State<One, 1> state(ladder::TerminationAt<One>(program_.load, at), One::Of(1));
    NodeValues values;
    values.nodes.resize(elements_ + 1);
    // From the load: what each place has, times the factors of the elements behind it.
    std::vector<std::complex<double>> factors(elements_, 1);
    std::size_t step = program_.steps.size();
    for (std::size_t i = elements_ + 1; i-- > 0;) {
        state.factored = false;
        state.factor = One::Of(1);
        while (step > 0 && program_.steps[step - 1].element >= i) {
            ladder::Apply(program_.steps[--step], at, state);
        }
        if (i < elements_) factors[i] = FromLanes(state.factor);
        values.nodes[i] = {FromLanes(state.voltage[0]), FromLanes(state.current[0])};
    }
    // Each place is reached through the factors of the elements before it.
    const double source = std::sqrt(8 * ZS.re * availablePower);  // peak, without load
    std::complex<double> scale = source / FromLanes(state.voltage[0] + ZS * state.current[0]);
    for (std::size_t i = 0; i <= elements_; ++i) {
        values.nodes[i].voltage *= scale;
        values.nodes[i].current *= scale;
        if (i < elements_) scale *= factors[i];
    }
    return values;
}

std::optional<Matrix2> LadderResponse::scattering(double f, Ports ports) const {
    const auto at = At(f);
    const auto [A, B, C, D, factor] = ChainAt(program_, at);
    const auto [z1, z2] = ports;
    const auto sum = A * z2 + B + C * z1 * z2 + D * z1;
    const auto root = 2 * std::sqrt(z1 * z2) / sum;
    const auto back = FromLanes(ladder::BackwardFactor(program_.steps, at));
    const Matrix2 s{{(A * z2 + B - C * z1 * z2 - D * z1) / sum, root * back, root * factor,
                     (-A * z2 + B - C * z1 * z2 + D * z1) / sum}};
    if (!s.finite()) return std::nullopt;
    return s;
}

}  // namespace kelvro
