#include "network/ladder_response.h"

#include <algorithm>

#include "network/ladder_engine.h"

namespace kelvro {

namespace {

using ladder::Frequency;
using ladder::State;
using lanes::Four;
using One = lanes::Complex<double>;

constexpr double kLowestFrequency = 1e-6;  // Hz

Frequency<double> At(double f) {
    return Frequency<double>::Of(std::max(f, kLowestFrequency));
}

std::complex<double> FromLanes(const One& x) {
    return {x.re, x.im};
}

/// Everything at one or four frequencies.
template <typename T>
struct Values {
    T GT, groupDelay, dissipated, reflected;
    lanes::Complex<T> gammaIn, gammaOut, Zin, Zout;
    lanes::Complex<T> direction;  ///< with the phase of the transfer
};

/// With the voltage and the current at the source's side for 1 V, and for 1 A, at the load: A, C
/// and B, D times the factor.
template <typename T>
Values<T> ValuesAt(const LadderProgram& program, const Frequency<T>& at) {
    using X = lanes::Sloped<T>;
    const X ZS = ladder::TerminationAt<X>(program.source, at);
    const X ZL = ladder::TerminationAt<X>(program.load, at);
    State<X, 2> state;
    ladder::Apply(program.steps, at, state);
    const auto& [A, B] = state.voltage;
    const auto& [C, D] = state.current;

    const X V = A * ZL + B;
    const X I = C * ZL + D;
    const X sum = V + ZS * I;
    const auto zs = ZS.value;
    const auto zl = ZL.value;
    const auto outV = B.value + D.value * zs;
    const auto outI = A.value + C.value * zs;
    const T inverse = T(1.0) / sum.value.norm();
    const auto unit = inverse * sum.value.conjugate();  // 1/sum

    Values<T> values;
    values.gammaIn = (V.value - zs.conjugate() * I.value) * unit;
    values.gammaOut = (outV - zl.conjugate() * outI) * unit;
    values.Zin = ladder::Ratio(V.value, I.value);
    values.Zout = ladder::Ratio(outV, outI);
    values.reflected = values.gammaIn.norm();
    values.GT = T(4.0) * (zs.re * zl.re) * inverse;
    values.direction = unit;
    values.groupDelay = (sum.slope * unit).im;
    if (state.factored) {
        const auto factor = state.factor.value;
        const T through = factor.norm();
        // Where nothing passes, the phase is that of the sum, the limit from both sides.
        const auto none = through == T(0.0);
        const T turning =
            (state.factor.slope * factor.conjugate()).im / lanes::Select(none, T(1.0), through);
        values.GT = values.GT * through;
        values.direction = factor * values.direction;
        values.groupDelay = values.groupDelay - turning;
    }
    values.dissipated = (T(1.0) - values.reflected) - values.GT;
    return values;
}

template <typename T>
T StandingWaves(T reflected) {
    const T size = lanes::SquareRoot(reflected);
    const T infinite = std::numeric_limits<double>::infinity();
    return lanes::Select(size < T(1.0), (T(1.0) + size) / (T(1.0) - size), infinite + size);
}

/// `count` values from place i on; a last block may be filled partly.
template <typename T>
void Store(T x, std::vector<double>& into, std::size_t i, std::size_t count) {
    if (count == 4) return x.to(&into[i]);
    for (std::size_t lane = 0; lane < count; ++lane) into[i + lane] = x.lane(lane);
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
    return FromLanes(2.0 * (through.ZL * through.factor * through.sum.reciprocal()));
}

double LadderResponse::GT(double f) const {
    const Through through = ThroughAt(program_, At(f));
    return 4 * (through.ZS.re * through.ZL.re) * through.factor.norm() / through.sum.norm();
}

NetworkPoint LadderResponse::at(double f) const {
    const Values<double> values = ValuesAt(program_, At(f));
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
    for (std::size_t i = 0; i < f.size(); i += Four::size) {
        const std::size_t count = std::min(Four::size, f.size() - i);
        double block[Four::size];
        for (std::size_t lane = 0; lane < Four::size; ++lane) {
            block[lane] = std::max(f[i + std::min(lane, count - 1)], kLowestFrequency);
        }
        const Values<Four> values = ValuesAt(program_, Frequency<Four>::Of(Four::From(block)));
        const auto store = [&](const Four& x, std::vector<double>& into) {
            Store(x, into, i, count);
        };
        store(values.GT, sweep_.GT);
        store(lanes::ArcTangent(values.direction.im, values.direction.re), sweep_.phase);
        store(values.groupDelay, sweep_.groupDelay);
        store(values.dissipated, sweep_.dissipated);
        store(StandingWaves(values.reflected), sweep_.VSWR);
        store(values.gammaIn.re, sweep_.gammaInRe);
        store(values.gammaIn.im, sweep_.gammaInIm);
        store(values.gammaOut.re, sweep_.gammaOutRe);
        store(values.gammaOut.im, sweep_.gammaOutIm);
        store(values.Zin.re, sweep_.ZinRe);
        store(values.Zin.im, sweep_.ZinIm);
        store(values.Zout.re, sweep_.ZoutRe);
        store(values.Zout.im, sweep_.ZoutIm);
    }
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
