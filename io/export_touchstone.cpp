// Touchstone 1.1 two-port file, as the EIA/IBIS Open Forum has laid it down (2002). Scattering
// parameters as real and imaginary parts over hertz.

#include "core/number_text.h"
#include "io/circuit_two_port.h"
#include "io/exports.h"

namespace kelvro {

namespace {

std::string Header(const ExportDesign& design, const ExportRange& range) {
    const DesignState& s = design.state;
    const ElementLosses losses = ElementLosses::Of(s);
    std::string text = "! Kelvro: " + design.title() + '\n';
    text += "! Port 1: side of the source, port 2: side of the load\n";
    if (design.circuit.topology == Topology::Balun) {
        text += "! Port 2 is the + output; the - output is terminated in R2\n";
    }
    if (losses.tangent > 0) {
        text += "! Q of inductors and capacitors " + FormatFixed(0, 1, 1 / losses.tangent) + "\n";
    }
    if (design.standardValues) text += "! Standard values\n";
    return text + "# HZ S RI R " + FormatShortest(range.z0) + "\n";
}

}  // namespace

std::string TouchstoneFile(const ExportDesign& design, const ExportRange& range) {
    const DesignState& s = design.state;
    const CircuitTwoPort network(design.circuit, ElementLosses::Of(s), s.fo, s.R2);
    std::string text = Header(design, range);
    const auto add = [&](std::complex<double> x) {
        text += ' ' + FormatShortest(x.real()) + ' ' + FormatShortest(x.imag());
    };
    for (int i = 0; i < range.points; ++i) {
        const double f = range.frequency(i);
        const auto S = ToScattering(Parameters::ABCD, network.chain(f), {range.z0, range.z0});
        if (!S) continue;  // beyond what a double holds, far outside any band
        text += FormatShortest(f);
        add(S->m[0]);
        // Networks of these parts are reciprocal; the determinant of a chain matrix with large
        // elements would only tell so within its rounding.
        add(S->m[2]);
        add(S->m[2]);
        add(S->m[3]);
        text += '\n';
    }
    return text;
}

}  // namespace kelvro
