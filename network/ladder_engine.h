#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "network/ladder_program.h"

// Evaluation of a prepared ladder, from the load back to the source. X is a complex number of one
// or several frequencies, with its slope over ω or without; all of them are the same formulas.

namespace kelvro::ladder {

template <typename T>
struct Frequency {
    T f;
    Powers<T> powers;

    static Frequency Of(T f) { return {f, Powers<T>::Of(T(6.283185307179586) * f)}; }
};

/// Step of the difference that stands for the slope of measured data, relative to the frequency;
/// where the data end it is one-sided.
inline constexpr double kSlopeStep = 1e-6;

inline lanes::Complex<double> ToLanes(std::complex<double> x) {
    return {x.real(), x.imag()};
}

/// Values of measured data with their slopes over ω; NaN outside.
template <std::size_t n, typename At>
std::array<lanes::Sloped<double>, n> Differentiated(double f, const At& at) {
    using Values = std::array<std::complex<double>, n>;
    const Values here = at(f);
    const auto missing = [](const Values& x) { return std::isnan(x[0].real()); };
    double low = f - kSlopeStep * f;
    double high = f + kSlopeStep * f;
    Values below = at(low);
    Values above = at(high);
    if (missing(below)) std::tie(below, low) = std::tie(here, f);
    if (missing(above)) std::tie(above, high) = std::tie(here, f);
    const double span = 6.283185307179586 * (high - low);
    std::array<lanes::Sloped<double>, n> found;
    for (std::size_t i = 0; i < n; ++i) {
        const std::complex<double> slope =
            span > 0 ? (above[i] - below[i]) / span : std::complex<double>{};
        found[i] = {ToLanes(here[i]), ToLanes(slope)};
    }
    return found;
}

/// The same at one or several frequencies.
template <typename X, std::size_t n, typename At>
std::array<X, n> MeasuredValues(double f, const At& at) {
    std::array<X, n> values;
    if constexpr (std::is_same_v<X, lanes::Complex<double>>) {
        const auto found = at(f);
        for (std::size_t i = 0; i < n; ++i) values[i] = ToLanes(found[i]);
    } else {
        const auto found = Differentiated<n>(f, at);
        for (std::size_t i = 0; i < n; ++i) values[i] = X::Of(found[i].value, found[i].slope);
    }
    return values;
}
template <typename X, std::size_t n, typename At, typename T>
std::array<X, n> MeasuredValues(const T& f, const At& at) {
    using One = lanes::Sloped<double>;
    std::array<std::array<One, n>, T::size> single;
    for (std::size_t lane = 0; lane < T::size; ++lane) {
        single[lane] = MeasuredValues<One, n>(f.lane(lane), at);
    }
    std::array<X, n> values;
    for (std::size_t i = 0; i < n; ++i) {
        const auto gather = [&](const auto& read) {
            double x[T::size];
            for (std::size_t lane = 0; lane < T::size; ++lane) x[lane] = read(single[lane][i]);
            return T::From(x);
        };
        values[i] = X::Of({gather([](const One& x) { return x.value.re; }),
                           gather([](const One& x) { return x.value.im; })},
                          {gather([](const One& x) { return x.slope.re; }),
                           gather([](const One& x) { return x.slope.im; })});
    }
    return values;
}

// --- Impedances ------------------------------------------------------------------------------

template <typename X>
PairOf<X> PairAt(const ImpedanceForm& form, const Frequency<typename X::Real>& at);

template <typename X>
X AdmittanceAt(const ImpedanceForm& form, const Frequency<typename X::Real>& at);

/// Z of a form that has one.
template <typename X>
X ImpedanceAt(const ImpedanceForm& form, const Frequency<typename X::Real>& at) {
    using T = typename X::Real;
    if (const auto* part = std::get_if<PartForm>(&form.is)) return part->impedance<X>(at.powers);
    if (const auto* Z = std::get_if<std::complex<double>>(&form.is)) {
        return X::Of({T(Z->real()), T(Z->imag())}, {T(0.0), T(0.0)});
    }
    const auto& group = std::get<ImpedanceForm::Group>(form.is);
    if (group.parallel) return AdmittanceAt<X>(form, at).reciprocal();
    X sum = X::Of(0);
    for (const ImpedanceForm& member : group.members) sum = sum + ImpedanceAt<X>(member, at);
    return sum;
}

/// 1/Z of a form that has one.
template <typename X>
X AdmittanceAt(const ImpedanceForm& form, const Frequency<typename X::Real>& at) {
    if (const auto* part = std::get_if<PartForm>(&form.is)) return part->admittance<X>(at.powers);
    const auto* group = std::get_if<ImpedanceForm::Group>(&form.is);
    if (!group || !group->parallel) return ImpedanceAt<X>(form, at).reciprocal();
    X sum = X::Of(0);
    for (const ImpedanceForm& member : group->members) sum = sum + AdmittanceAt<X>(member, at);
    return sum;
}

/// Divides both by their size, which the slopes need not follow: it cancels in every ratio.
template <typename X>
PairOf<X> Normalized(const PairOf<X>& pair) {
    using T = typename X::Real;
    const auto v = pair.voltage.plain();
    const auto i = pair.current.plain();
    const T size = (lanes::Absolute(v.re) + lanes::Absolute(v.im)) +
                   (lanes::Absolute(i.re) + lanes::Absolute(i.im));
    const T scale = T(1.0) / size;
    return {scale * pair.voltage, scale * pair.current};
}

/// 1 where the parts of a pair are both 0, as when two shorts stand side by side, or two opens in a
/// row; else 0.
template <typename X>
X OneForNothing(const X& a, const X& b) {
    using T = typename X::Real;
    const auto nothing = a.plain().norm() + b.plain().norm() == T(0.0);
    return X::Of({lanes::Select(nothing, T(1.0), T(0.0)), T(0.0)}, {T(0.0), T(0.0)});
}

template <typename X>
PairOf<X> GroupPairAt(const ImpedanceForm::Group& group, const Frequency<typename X::Real>& at) {
    PairOf<X> whole{X::Of(group.parallel ? 1 : 0), X::Of(group.parallel ? 0 : 1)};
    for (const ImpedanceForm& member : group.members) {
        const PairOf<X> next = PairAt<X>(member, at);
        const X product =
            group.parallel ? whole.voltage * next.voltage : whole.current * next.current;
        const X sum = whole.voltage * next.current + next.voltage * whole.current;
        const X cross = sum + OneForNothing(sum, product);
        whole =
            Normalized<X>(group.parallel ? PairOf<X>{product, cross} : PairOf<X>{cross, product});
    }
    return whole;
}

template <typename X>
PairOf<X> PairAt(const ImpedanceForm& form, const Frequency<typename X::Real>& at) {
    if (form.hasImpedance) return {ImpedanceAt<X>(form, at), X::Of(1)};
    if (form.hasAdmittance) return {X::Of(1), AdmittanceAt<X>(form, at)};
    if (const auto* part = std::get_if<PartForm>(&form.is)) return part->pair<X>(at.powers);
    if (const auto* group = std::get_if<ImpedanceForm::Group>(&form.is)) {
        return GroupPairAt<X>(*group, at);
    }
    if (const auto* measured = std::get_if<Impedance::Measured>(&form.is)) {
        const auto values = MeasuredValues<X, 2>(at.f, [&](double f) {
            const Immittance found = immittance(Impedance(*measured), f);
            return std::array{found.voltage, found.current};
        });
        return {values[0], values[1]};
    }
    return {ImpedanceAt<X>(form, at), X::Of(1)};
}

/// What an impedance that grows beyond all limits counts as: large enough that nothing else matters
/// beside it, small enough that its square is a number.
inline constexpr double kOpenOhms = 1e60;

/// v/i; kOpenOhms where no current flows.
template <typename T>
lanes::Complex<T> Ratio(const lanes::Complex<T>& v, const lanes::Complex<T>& i) {
    const T size = i.norm();
    const auto open = size == T(0.0);
    const T scale = T(1.0) / lanes::Select(open, T(1.0), size);
    const lanes::Complex<T> ratio = scale * (v * i.conjugate());
    return {lanes::Select(open, T(kOpenOhms), ratio.re), lanes::Select(open, T(0.0), ratio.im)};
}

/// Impedance of a termination.
template <typename X>
X TerminationAt(const ImpedanceForm& form, const Frequency<typename X::Real>& at) {
    using T = typename X::Real;
    if (form.hasImpedance) return ImpedanceAt<X>(form, at);
    const PairOf<X> pair = PairAt<X>(form, at);
    const auto open = pair.current.plain().norm() == T(0.0);
    const X least = X::Of({lanes::Select(open, T(1 / kOpenOhms), T(0.0)), T(0.0)}, {});
    return pair.voltage * (pair.current + least).reciprocal();
}

// --- Ladders ---------------------------------------------------------------------------------

/// Voltage and current at a place of the ladder, for one or two conditions at its end, and the
/// common factor of all steps behind that place: what is there is voltage/factor, current/factor.
template <typename X, std::size_t columns>
struct State {
    std::array<X, columns> voltage, current;
    X factor = X::Of(1);
    bool factored = false;

    State(const X& V, const X& I) requires(columns == 1) {
        voltage[0] = V;
        current[0] = I;
    }
    /// 1 V without current, and 1 A without voltage: the columns of the chain matrix.
    State() requires(columns == 2) {
        voltage[0] = current[1] = X::Of(1);
        voltage[1] = current[0] = X::Of(0);
    }

    void multiply(const X& by) {
        factor = factored ? factor * by : by;
        factored = true;
    }
};

template <typename X>
struct Matrix {
    X a, b, c, d;
};

template <typename X, std::size_t n>
void Apply(const Matrix<X>& m, const X& factor, State<X, n>& state) {
    for (std::size_t i = 0; i < n; ++i) {
        const X V = state.voltage[i];
        const X I = state.current[i];
        state.voltage[i] = m.a * V + m.b * I;
        state.current[i] = m.c * V + m.d * I;
    }
    state.multiply(factor);
}

template <typename X, std::size_t n>
void ApplySeries(const PairOf<X>& arm, State<X, n>& state) {
    for (std::size_t i = 0; i < n; ++i) {
        state.voltage[i] = state.voltage[i] * arm.current + arm.voltage * state.current[i];
        state.current[i] = state.current[i] * arm.current;
    }
    state.multiply(arm.current);
}

template <typename X, std::size_t n>
void ApplyShunt(const PairOf<X>& arm, State<X, n>& state) {
    for (std::size_t i = 0; i < n; ++i) {
        state.current[i] = state.current[i] * arm.voltage + arm.current * state.voltage[i];
        state.voltage[i] = state.voltage[i] * arm.voltage;
    }
    state.multiply(arm.voltage);
}

template <typename X, std::size_t n>
void Apply(const ArmStep& step, const Frequency<typename X::Real>& at, State<X, n>& state) {
    if (step.pair) {
        const PairOf<X> arm = Normalized(PairAt<X>(step.arm, at));
        if (step.place == Place::Series) return ApplySeries(arm, state);
        return ApplyShunt(arm, state);
    }
    const auto* part = std::get_if<PartForm>(&step.arm.is);
    if (step.place == Place::Series) {
        const X Z = part ? part->impedance<X>(at.powers) : ImpedanceAt<X>(step.arm, at);
        for (std::size_t i = 0; i < n; ++i) {
            state.voltage[i] = state.voltage[i] + Z * state.current[i];
        }
    } else {
        const X Y = part ? part->admittance<X>(at.powers) : AdmittanceAt<X>(step.arm, at);
        for (std::size_t i = 0; i < n; ++i) {
            state.current[i] = state.current[i] + Y * state.voltage[i];
        }
    }
}

/// e^-a·cosh γl and e^-a·sinh γl with a = Re γl, which long lossy lines need; factor e^-a.
template <typename X, std::size_t n>
void Apply(const LineStep& step, const Frequency<typename X::Real>& at, State<X, n>& state) {
    using T = typename X::Real;
    const T angle = T(step.delay) * at.powers.omega;
    const T a = T(step.rootLoss) * at.powers.root + T(step.tangent) * angle;
    const lanes::Complex<T> slope{
        T(0.5 * step.rootLoss) * at.powers.inverseRoot + T(step.tangent * step.delay),
        T(step.delay)};
    const auto [sine, cosine] = lanes::SineAndCosine(angle);
    const T decay = lanes::Decay(a);
    const T even = T(0.5) * (T(1.0) + decay * decay);
    const T odd = T(0.5) * (T(1.0) - decay * decay);
    const lanes::Complex<T> c{cosine * even, sine * odd};
    const lanes::Complex<T> s{cosine * odd, sine * even};
    const X cosh = X::Of(c, slope * s);
    const X sinh = X::Of(s, slope * c);
    switch (step.form) {
        case Line::Form::Through:
            return Apply({cosh, T(step.Z0) * sinh, T(1 / step.Z0) * sinh, cosh},
                         X::Of({decay, T(0.0)}, {T(0.0), T(0.0)}), state);
        case Line::Form::OpenStub:
            return ApplyShunt(Normalized(PairOf<X>{T(step.Z0) * cosh, sinh}), state);
        case Line::Form::ShortedStub:
            return ApplyShunt(Normalized(PairOf<X>{T(step.Z0) * sinh, cosh}), state);
    }
}

template <typename X, std::size_t n>
void Apply(const TransformerStep& step, const Frequency<typename X::Real>&, State<X, n>& state) {
    using T = typename X::Real;
    for (std::size_t i = 0; i < n; ++i) {
        state.voltage[i] = T(step.n) * state.voltage[i];
        state.current[i] = T(1 / step.n) * state.current[i];
    }
}

/// Two coils with common ground: V1 = Z1·I1 + Zm·I2, V2 = Zm·I1 + Z2·I2.
template <typename X, std::size_t n>
void Apply(const CoilsStep& step, const Frequency<typename X::Real>& at, State<X, n>& state) {
    using T = typename X::Real;
    const X Z1 = step.first.impedance<X>(at.powers);
    const X Z2 = step.second.impedance<X>(at.powers);
    const X Zm = step.mutual.impedance<X>(at.powers);
    const X product = Z1 * Z2;
    const X leakage = step.sameLaw ? T(step.leakage) * product : product - Zm * Zm;
    Apply({Z1, leakage, X::Of(1), Z2}, Zm, state);
}

/// D. A. Frickey, IEEE Trans. MTT-42 (1994), table I, times 2·s21·√(R1·R2).
inline std::array<std::complex<double>, 5> ChainOf(const PortData& data, double f) {
    const auto s = data.at(f);
    if (!s || data.ports != 2) {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        return {nan, nan, nan, nan, nan};
    }
    const auto& [s11, s12, s21, s22] = *s;
    const auto [R1, R2] = data.reference;
    const std::complex<double> cross = s12 * s21;
    return {R1 * ((1.0 + s11) * (1.0 - s22) + cross), R1 * R2 * ((1.0 + s11) * (1.0 + s22) - cross),
            (1.0 - s11) * (1.0 - s22) - cross, R2 * ((1.0 - s11) * (1.0 + s22) + cross),
            2.0 * s21 * std::sqrt(R1 * R2)};
}

template <typename X, std::size_t n>
void Apply(const MeasuredTwoPort& step, const Frequency<typename X::Real>& at, State<X, n>& state) {
    const auto values = MeasuredValues<X, 5>(
        at.f, [&](double f) { return step.data ? ChainOf(*step.data, f) : ChainOf({}, f); });
    Apply({values[0], values[1], values[2], values[3]}, values[4], state);
}

template <typename X, std::size_t n>
void Apply(const std::vector<LadderStep>& steps, const Frequency<typename X::Real>& at,
           State<X, n>& state);

/// What the branch asks for stands across the main path.
template <typename X, std::size_t n>
void Apply(const BranchStep& step, const Frequency<typename X::Real>& at, State<X, n>& state) {
    State<X, 1> branch(TerminationAt<X>(step.load, at), X::Of(1));
    Apply(step.ladder, at, branch);
    ApplyShunt(Normalized(PairOf<X>{branch.voltage[0], branch.current[0]}), state);
}

template <typename X, std::size_t n>
void Apply(const LadderStep& step, const Frequency<typename X::Real>& at, State<X, n>& state) {
    std::visit([&](const auto& is) { Apply(is, at, state); }, step.is);
}

template <typename X, std::size_t n>
void Apply(const std::vector<LadderStep>& steps, const Frequency<typename X::Real>& at,
           State<X, n>& state) {
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) Apply(*step, at, state);
}

/// The common factor of all steps from the load's side: the same but for measured two-ports, which
/// may pass less that way, or nothing.
inline lanes::Complex<double> BackwardFactor(const std::vector<LadderStep>& steps,
                                             const Frequency<double>& at) {
    using One = lanes::Complex<double>;
    One factor = One::Of(1);
    for (const LadderStep& step : steps) {
        const auto* measured = std::get_if<MeasuredTwoPort>(&step.is);
        const auto s = measured && measured->data ? measured->data->at(at.f) : std::nullopt;
        if (s) {
            const auto [R1, R2] = measured->data->reference;
            factor = factor * (2 * std::sqrt(R1 * R2) * ToLanes((*s)[1]));
        } else {
            State<One, 1> state(One::Of(0), One::Of(0));
            Apply(step, at, state);
            factor = factor * state.factor;
        }
    }
    return factor;
}

}  // namespace kelvro::ladder
