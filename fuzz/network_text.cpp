// Networks as texts, a line each: source, elements, load. What is read is written as a text that
// reads as the same, and nothing passive has gain.

#include "network/network_text.h"

#include <algorithm>
#include <cmath>

#include "fuzz/bounded.h"
#include "fuzz/require.h"
#include "io/touchstone.h"
#include "network/ladder_response.h"
#include "network/ladder_values.h"

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

/// What a network makes of power for certain.
enum class Power : std::uint8_t { Kept, Taken };

bool Is(Power power, const Part& part) {
    if (power == Power::Kept && (part.kind == PartKind::Resistor || part.loss != PartLoss{}))
        return false;
    return part.value >= 0 && !(part.loss.Q < 0) && part.loss.ESR >= 0;
}

bool Is(Power power, const Impedance& of) {
    if (const auto* ohm = std::get_if<Impedance::Constant>(&of.is)) {
        return power == Power::Kept ? ohm->ohm.real() == 0 : ohm->ohm.real() >= 0;
    }
    if (const auto* part = std::get_if<Part>(&of.is)) return Is(power, *part);
    const auto* group = std::get_if<Impedance::Group>(&of.is);
    return group && std::ranges::all_of(group->members,
                                        [&](const Impedance& member) { return Is(power, member); });
}

bool Is(Power power, const Line& line) {
    const double least = std::min(line.attenuation, line.tangent);
    const double most = std::max(line.attenuation, line.tangent);
    return line.Z0 > 0 && (power == Power::Kept ? least == 0 && most == 0 : least >= 0);
}

/// Losses of unlike coils do to their mutual inductance what no law says.
bool IsLossless(const CoupledCoils& coils) {
    return Is(Power::Kept, coils.first) && Is(Power::Kept, coils.second) && coils.k <= 1;
}

bool Is(Power power, const std::vector<LadderElement>& ladder);

/// Of what measured data do nothing is known.
bool Is(Power power, const LadderElement& element) {
    if (const auto* arm = std::get_if<Arm>(&element.is)) return Is(power, arm->impedance);
    if (const auto* line = std::get_if<Line>(&element.is)) return Is(power, *line);
    if (const auto* coils = std::get_if<CoupledCoils>(&element.is)) return IsLossless(*coils);
    if (const auto* branch = std::get_if<Branch>(&element.is)) {
        return power == Power::Taken && Is(power, branch->ladder) && Is(power, branch->load);
    }
    return std::holds_alternative<Transformer>(element.is);
}

bool Is(Power power, const std::vector<LadderElement>& ladder) {
    return std::ranges::all_of(ladder, [&](const LadderElement& e) { return Is(power, e); });
}

using lanes::Bounded;

double Resistance(const ImpedanceForm& termination, const ladder::Frequency<Bounded>& at) {
    return ladder::TerminationAt<lanes::Complex<Bounded>>(termination, at).re.value;
}

/// What goes out is at most what comes in, or all of it, as far as rounding lets one tell: where
/// numbers of all magnitudes cancel, nothing is left to be certain of.
void CheckPower(const LadderProgram& program, double f, Power power) {
    Bounded::leftRange = false;
    const auto at = ladder::Frequency<Bounded>::Of(f);
    const auto values = ladder::ValuesAt(program, at);
    // Between reactances that resonate the gain is 0/0.
    const bool resistive = Resistance(program.source, at) > 0 && Resistance(program.load, at) > 0;
    if (Bounded::leftRange || !resistive) return;
    const auto [gain, taken] = std::pair(values.GT, values.dissipated);
    const std::string shown = std::to_string(gain.value) + " and dissipation " +
                              std::to_string(taken.value) + " at " + std::to_string(f);
    Require(!std::isnan(gain.value), "a gain is a number", shown);
    Require(!(gain.value + gain.error < 0), "a gain", shown);
    Require(!(taken.value + taken.error < -1e-9), "a passive network", shown);
    Require(power == Power::Taken || !(taken.value - taken.error > 1e-9), "a lossless network",
            shown);
}

void CheckResponse(const Network& network) {
    const LadderResponse response(network);
    const LadderProgram program = LadderProgram::Of(network);
    const bool passive = Is(Power::Taken, network.source) && Is(Power::Taken, network.load) &&
                         Is(Power::Taken, network.ladder);
    const Power power = Is(Power::Kept, network.ladder) ? Power::Kept : Power::Taken;
    for (const double f : {1e3, 3e6, 1e9}) {
        (void)response.at(f);
        if (passive) CheckPower(program, f, power);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Network network = NetworkOf(TextOf(data, size));
    if (!network.ladder.empty()) CheckResponse(network);
    return 0;
}
