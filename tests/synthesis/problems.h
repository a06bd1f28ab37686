#pragma once

#include <cmath>

#include "core/scalar.h"
#include "network/network.h"

// Matching problems with published answers, and a way to make others.

namespace kelvro {

inline Network MatchingProblem(Termination source, Termination load, FrequencyBand band) {
    Network problem;
    problem.source = std::move(source);
    problem.load = std::move(load);
    problem.bands = {band};
    return problem;
}

/// 50 to 500 ohm: G. L. Matthaei, "Tables of Chebyshev impedance-transforming networks of low-pass
/// filter form", Proc. IEEE 52 (1964).
inline Network TenToOne() {
    return MatchingProblem(50.0, 500.0, {70e6, 130e6});
}
inline Network FiveToOne() {
    return MatchingProblem(10.0, 50.0, {70e6, 130e6});
}
/// A short antenna: resistance and inductance.
inline Network InductiveLoad() {
    return MatchingProblem(50.0, Impedance::InSeries({Part::R(40), Part::L(120e-9)}),
                           {295e6, 405e6});
}
/// H. J. Carlin, "A new approach to gain-bandwidth problems", IEEE Trans. CAS-24 (1977), to 2.2
/// ohm.
inline Network CarlinsLoad() {
    const Impedance RC = Impedance::InParallel({Part::R(1), Part::C(1.2)});
    return MatchingProblem(2.2, Impedance::InSeries({Part::L(2.3), RC}), {0, 1 / kTwoPi});
}
inline Network ComplexPair() {
    return MatchingProblem(std::complex<double>(25, 78), std::complex<double>(65, -100),
                           {0.5e9, 0.9e9});
}

inline double Decibels(double ratio) {
    return 10 * std::log10(ratio);
}

}  // namespace kelvro
