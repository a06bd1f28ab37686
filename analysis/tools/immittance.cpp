#include "analysis/tools/immittance.h"

#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

using Element = std::optional<Immittance>;

/// An element that is not there leaves the other one as it is.
Element Join(const Element& a, const Element& b,
             Immittance (*join)(const Immittance&, const Immittance&)) {
    if (!a) return b;
    return b ? join(*a, *b) : a;
}

Element Chain(const Element& a, const Element& b) {
    return Join(a, b, InSeries);
}

Element Across(const Element& a, const Element& b) {
    return Join(a, b, InParallel);
}

/// Inductance or capacitance of a reactance.
double ElementOf(double reactance, double omega) {
    return reactance >= 0 ? reactance / omega : -1 / (omega * reactance);
}

}  // namespace

const std::vector<ConnectionName>& Connections() {
    static const std::vector<ConnectionName> names{
        {Connection::Series, "R, L, C in series"},
        {Connection::Parallel, "R, L, C in parallel"},
        {Connection::RLAcrossC, "(R in series with L) parallel to C"},
        {Connection::RCAcrossL, "(R in series with C) parallel to L"},
        {Connection::RLParallelToC, "(R parallel to L) in series with C"},
        {Connection::RCParallelToL, "(R parallel to C) in series with L"},
    };
    return names;
}

std::optional<Immittance> ImmittanceOf(const MixedCircuit& circuit, double f) {
    Element R, L, C;
    if (circuit.R) R = immittance(Part::R(*circuit.R), f);
    if (circuit.L) L = immittance(Part::L(*circuit.L), f);
    if (circuit.C) C = immittance(Part::C(*circuit.C), f);
    switch (circuit.connection) {
        case Connection::Series:
            return Chain(Chain(R, L), C);
        case Connection::Parallel:
            return Across(Across(R, L), C);
        case Connection::RLAcrossC:
            return Across(Chain(R, L), C);
        case Connection::RCAcrossL:
            return Across(Chain(R, C), L);
        case Connection::RLParallelToC:
            return Chain(Across(R, L), C);
        case Connection::RCParallelToL:
            return Chain(Across(R, C), L);
    }
    return std::nullopt;
}

Equivalent SeriesForm(const Immittance& circuit, double f) {
    const std::complex<double> z = circuit.impedance();
    return {z.real(), z.imag(), ElementOf(z.imag(), kTwoPi * f)};
}

Equivalent ParallelForm(const Immittance& circuit, double f) {
    const std::complex<double> y = circuit.admittance();
    const double reactance = -1 / y.imag();
    return {1 / y.real(), reactance, ElementOf(reactance, kTwoPi * f)};
}

double QualityFactor(const Immittance& circuit) {
    // z = voltage·conj(current)/|current|²: the common divisor does not change the ratio.
    const std::complex<double> z = circuit.voltage * std::conj(circuit.current);
    return std::fabs(z.imag()) / z.real();
}

}  // namespace kelvro
