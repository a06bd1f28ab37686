#pragma once

#include "network/ladder_engine.h"

// Everything that a prepared network says of itself at one frequency or at several.

namespace kelvro::ladder {

/// Frequencies below count as this, Hz.
inline constexpr double kLowestFrequency = 1e-6;

/// Everything at one or several frequencies.
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
    const X ZS = TerminationAt<X>(program.source, at);
    const X ZL = TerminationAt<X>(program.load, at);
    State<X, 2> state;
    Apply(program.steps, at, state);
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
    values.Zin = Ratio(V.value, I.value);
    values.Zout = Ratio(outV, outI);
    values.reflected = values.gammaIn.norm();
    values.GT = T(4.0) * (zs.re * zl.re) * inverse;
    values.direction = unit;
    values.groupDelay = (sum.slope * unit).im;
    if (state.factored) {
        const auto factor = state.factor.value;
        const T through = factor.norm();
        // Where nothing passes, the phase is that of the sum, the limit from both sides. Behind a
        // second short even that is 0/0; no power passes all the same.
        const auto none = through == T(0.0);
        const T turning =
            (state.factor.slope * factor.conjugate()).im / lanes::Select(none, T(1.0), through);
        values.GT = lanes::Select(none, T(0.0), values.GT * through);
        values.direction = factor * values.direction;
        values.groupDelay = values.groupDelay - turning;
    }
    values.dissipated = (T(1.0) - values.reflected) - values.GT;
    return values;
}

}  // namespace kelvro::ladder
