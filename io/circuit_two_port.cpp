#include "io/circuit_two_port.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

Matrix2 operator*(const Matrix2& x, const Matrix2& y) {
    const auto& [a, b, c, d] = x.m;
    const auto& [e, f, g, h] = y.m;
    return {{a * e + b * g, a * f + b * h, c * e + d * g, c * f + d * h}};
}

Matrix2 InSeries(Cx Z) {
    return {{1, Z, 0, 1}};
}

Matrix2 Across(Cx Y) {
    return {{1, 0, Y, 1}};
}

}  // namespace

ElementLosses ElementLosses::Of(const Design& state) {
    const Page& page = PageOf(state);
    const Circuit circuit = page.builtCircuit(state);
    const bool lossy = std::ranges::any_of(circuit.elements, [](const Element& element) {
        return element.kind != ElementKind::Resistor && element.kind != ElementKind::Switch;
    });
    if (!lossy || circuit.topology == Topology::OnePort) return {};
    return {(1 / state.QBC + 1 / state.QB) / 2, page.showsDuals(state)};
}

Cx ElementLosses::impedance(const Element& element, double f) const {
    const double omega = kTwoPi * f;
    const Cx lossy{tangent, 1};          // s/ω
    const Cx turned = std::conj(lossy);  // s/ω at the mirrored frequency
    switch (element.kind) {
        case ElementKind::Inductor:
        case ElementKind::Choke:
            return omega * element.value * (mirrored ? 1.0 / turned : lossy);
        case ElementKind::Capacitor:
            return (mirrored ? turned : 1.0 / lossy) / (omega * element.value);
        default:
            return {element.value, 0};
    }
}

CircuitTwoPort::CircuitTwoPort(Circuit circuit, ElementLosses losses, double fo, double otherLoad)
    : circuit_(std::move(circuit)), losses_(losses), fo_(fo), otherLoad_(otherLoad) {}

bool CircuitTwoPort::Exists(Topology topology) {
    return topology != Topology::None && topology != Topology::Divider;
}

Matrix2 CircuitTwoPort::chain(double f) const {
    switch (circuit_.topology) {
        case Topology::CoupledCoils:
            return coupledCoils(f);
        case Topology::Tank:
        case Topology::OnePort:
            return Across(1.0 / arm(f));
        case Topology::Balun:
            return Across(1.0 / otherBranch(f)) * ladder(f);
        default:
            return ladder(f);
    }
}

/// The elements of the main path one behind the other.
Matrix2 CircuitTwoPort::ladder(double f) const {
    const bool classE = circuit_.topology == Topology::ClassE;
    Matrix2 chain{{1, 0, 0, 1}};
    for (const Element& part : circuit_.elements) {
        if (part.branch != 0 || part.kind == ElementKind::Switch) continue;
        if (classE && part.kind == ElementKind::Resistor) continue;  // the load itself
        chain = chain * element(part, f);
    }
    return chain;
}

Matrix2 CircuitTwoPort::element(const Element& part, double f) const {
    if (part.kind == ElementKind::Line) {
        const Cx angle = circuit_.lineAngleFo * f / fo_ * Cx(losses_.tangent, 1);
        return {{std::cosh(angle), part.value * std::sinh(angle), std::sinh(angle) / part.value,
                 std::cosh(angle)}};
    }
    if (part.kind == ElementKind::Choke && std::isinf(part.value)) return Across(0);
    const Cx Z = losses_.impedance(part, f);
    // The choke hangs between the supply, which is ground for signals, and the switch.
    const bool across = part.place == Place::Shunt || part.kind == ElementKind::Choke;
    return across ? Across(1.0 / Z) : InSeries(Z);
}

/// Two coils with common ground: V1 = s(L1·I1 + M·I2), V2 = s(M·I1 + L2·I2).
Matrix2 CircuitTwoPort::coupledCoils(double f) const {
    const auto& parts = circuit_.elements;
    const double L1 = parts[1].value;
    const double L2 = parts[2].value;
    const double k = circuit_.coupling;
    const double M = k * std::sqrt(L1 * L2);
    const Cx s = kTwoPi * f * Cx(losses_.tangent, 1);
    const Matrix2 coils{{L1 / M, s * (L1 * L2 * (1 - k * k) / M), 1.0 / (s * M), L2 / M}};
    return Across(1.0 / losses_.impedance(parts[0], f)) * coils *
           Across(1.0 / losses_.impedance(parts[3], f));
}

/// One-port: the parts of branch 0 in series, those of branch 1 across them.
Cx CircuitTwoPort::arm(double f) const {
    Cx series = 0;
    Cx across = 0;
    for (const Element& part : circuit_.elements) {
        const Cx Z = losses_.impedance(part, f);
        if (part.branch == 0) {
            series += Z;
        } else {
            across += 1.0 / Z;
        }
    }
    return 1.0 / (1.0 / series + across);
}

/// What the source sees of the balun's second branch.
Cx CircuitTwoPort::otherBranch(double f) const {
    Cx Z = otherLoad_;
    for (auto part = circuit_.elements.rbegin(); part != circuit_.elements.rend(); ++part) {
        if (part->branch != 1) continue;
        const Cx own = losses_.impedance(*part, f);
        Z = part->place == Place::Series ? Z + own : 1.0 / (1.0 / Z + 1.0 / own);
    }
    return Z;
}

}  // namespace kelvro
