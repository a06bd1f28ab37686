// Networks as texts, a line each: source, elements, load. What is read is written as a text that
// reads as the same, and nothing passive has gain.

#include "network/network_text.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "fuzz/require.h"
#include "io/touchstone.h"
#include "network/ladder_response.h"

using namespace kelvro;

namespace {

/// Measured data of passive devices for any name, so that texts with files go on.
Result<std::shared_ptr<const PortData>> Load(std::string_view file) {
    const bool two = file.ends_with(".s2p");
    auto content = ParseTouchstone(two ? "# MHz S RI R 50\n1 .1 .2 .3 0 .3 0 .1 0\n"
                                         "9 .2 .1 .4 0 .4 0 .1 0\n"
                                       : "# MHz S RI R 50\n1 .1 .2\n9 .2 .1\n",
                                   two ? "a.s2p" : "a.s1p");
    if (!content) return content.status();
    content->data.name = file;
    return std::make_shared<const PortData>(std::move(content->data));
}

template <typename Parsed, typename Parse, typename Write>
void CheckWritten(const Parsed& parsed, Parse&& parse, Write&& write) {
    const std::string written = write(parsed, 0);
    const auto again = parse(written, Load);
    Require(again.ok(), "a written text is read", written);
    const std::string twice = write(*again, 0);
    Require(twice == written, "and written as before", written + "' not '" + twice);
    const std::string rounded = write(parsed, 4);
    Require(parse(rounded, Load).ok(), "a rounded text is read", rounded);
}

/// The lines that are read, from source to load; what stands first or last in the way of an
/// impedance leaves 50 ohms there.
Network NetworkOf(std::string_view text) {
    Network network;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (auto impedance = ParseImpedance(line, Load)) {
            CheckWritten(*impedance, ParseImpedance, ImpedanceText);
            auto termination = ParseTermination(line, Load);
            if (termination)
                (network.ladder.empty() ? network.source : network.load) = *termination;
        }
        if (auto element = ParseElement(line, Load)) {
            CheckWritten(*element, ParseElement, ElementText);
            network.ladder.push_back(std::move(*element));
        }
    }
    return network;
}

/// Of parts as one can build them: sums of numbers that differ by all digits of a double tell no
/// gain of a passive network from one of rounding.
bool IsOrdinary(double value) {
    return value == 0 || (value > 1e-18 && value < 1e12);
}

bool IsOrdinary(const Part& part) {
    const bool q = part.loss.law == PartLoss::Law::Lossless || (part.loss.Q > 0.1);
    return IsOrdinary(part.value) && q && IsOrdinary(part.loss.ESR) && IsOrdinary(part.loss.SRF);
}

bool IsOrdinary(const Impedance& of) {
    if (const auto* ohm = std::get_if<Impedance::Constant>(&of.is)) {
        return IsOrdinary(ohm->ohm.real()) && IsOrdinary(std::fabs(ohm->ohm.imag()));
    }
    if (const auto* part = std::get_if<Part>(&of.is)) return IsOrdinary(*part);
    const auto* group = std::get_if<Impedance::Group>(&of.is);
    return group &&
           std::ranges::all_of(group->members, [](const Impedance& m) { return IsOrdinary(m); });
}

bool IsOrdinary(const LadderElement& element) {
    if (const auto* arm = std::get_if<Arm>(&element.is)) return IsOrdinary(arm->impedance);
    if (const auto* line = std::get_if<Line>(&element.is)) {
        return line->Z0 > 1e-3 && line->Z0 < 1e6 && IsOrdinary(line->attenuation) &&
               line->attenuation < 1e3 && line->tangent >= 0 && line->tangent < 1;
    }
    const auto* transformer = std::get_if<Transformer>(&element.is);
    return transformer && std::fabs(transformer->n) > 1e-3 && std::fabs(transformer->n) < 1e3;
}

void CheckResponse(const Network& network) {
    LadderResponse response(network);
    const bool ordinary =
        IsOrdinary(network.source) && IsOrdinary(network.load) &&
        std::ranges::all_of(network.ladder, [](const LadderElement& e) { return IsOrdinary(e); });
    for (const double f : {1e3, 3e6, 1e9}) {
        const double gain = response.at(f).GT;
        if (!ordinary) continue;
        // A short across a short passes no current that one could tell: it has no gain.
        Require(!(gain < 0 || gain > 1 + 1e-6), "a gain of a passive network",
                std::to_string(gain) + " at " + std::to_string(f));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Network network = NetworkOf(TextOf(data, size));
    if (!network.ladder.empty()) CheckResponse(network);
    return 0;
}
