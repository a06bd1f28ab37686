// The design as a Touchstone two-port: scattering parameters between the ends of its network.

#include "core/number_text.h"
#include "io/circuit_two_port.h"
#include "io/exports.h"
#include "io/touchstone.h"

namespace kelvro {

namespace {

std::vector<std::string> Comments(const ExportDesign& design) {
    const ElementLosses losses = ElementLosses::Of(design.state);
    std::vector<std::string> comments{"Kelvro: " + design.title(),
                                      "Port 1: side of the source, port 2: side of the load"};
    if (design.circuit.topology == Topology::Balun) {
        comments.emplace_back("Port 2 is the + output; the - output is terminated in R2");
    }
    if (losses.tangent > 0) {
        comments.push_back("Q of inductors and capacitors " +
                           FormatFixed(0, 1, 1 / losses.tangent));
    }
    if (design.standardValues) comments.emplace_back("Standard values");
    return comments;
}

}  // namespace

std::string TouchstoneFile(const ExportDesign& design, const ExportRange& range) {
    const Design& s = design.state;
    const CircuitTwoPort network(design.circuit, ElementLosses::Of(s), s.fo, s.R2);
    PortData data;
    data.ports = 2;
    data.reference = {range.z0, range.z0};
    for (int i = 0; i < range.points; ++i) {
        const double f = range.frequency(i);
        const auto S = ToScattering(Parameters::ABCD, network.chain(f), {range.z0, range.z0});
        if (!S) continue;  // beyond what a double holds, far outside any band
        data.f.push_back(f);
        // Networks of these parts are reciprocal; the determinant of a chain matrix with large
        // elements would only tell so within its rounding.
        data.s.push_back({S->m[0], S->m[2], S->m[2], S->m[3]});
    }
    return TouchstoneText(data, Comments(design));
}

}  // namespace kelvro
