// The design as a Touchstone two-port: scattering parameters between the ends of its network.

#include "core/number_text.h"
#include "io/exports.h"
#include "io/touchstone.h"
#include "network/ladder_response.h"

namespace kelvro {

namespace {

std::vector<std::string> Comments(const ExportDesign& design, const Network& network) {
    std::vector<std::string> comments{"Kelvro: " + design.title(),
                                      "Port 1: side of the source, port 2: side of the load"};
    if (HasBranch(network)) {
        comments.emplace_back("Port 2 is the + output; the - output is terminated in R2");
    }
    if (const double tangent = PageTangent(network); tangent > 0) {
        comments.push_back("Q of inductors and capacitors " + FormatFixed(0, 1, 1 / tangent));
    }
    if (design.standardValues) comments.emplace_back("Standard values");
    return comments;
}

}  // namespace

std::string TouchstoneFile(const ExportDesign& design, const ExportRange& range) {
    const Network& network = design.networks.front();
    const LadderResponse response(network);
    PortData data;
    data.ports = 2;
    data.reference = {range.z0, range.z0};
    for (int i = 0; i < range.points; ++i) {
        const double f = range.frequency(i);
        const auto S = response.scattering(f, {range.z0, range.z0});
        if (!S) continue;  // beyond what a double holds, far outside any band
        data.f.push_back(f);
        data.s.push_back(S->m);
    }
    return TouchstoneText(data, Comments(design, network));
}

}  // namespace kelvro
