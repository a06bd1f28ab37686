#include "io/network_exports.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/number_text.h"
#include "io/json_output.h"
#include "io/network_netlist.h"
#include "io/network_report.h"
#include "io/text_table.h"
#include "io/touchstone.h"
#include "network/coverage.h"
#include "network/ladder_response.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

constexpr int kShownDigits = 5;

std::string TitleOf(const Network& network) {
    const std::string caption = network.caption.empty() ? "network" : network.caption;
    return caption + ", " + ImpedanceText(network.source, kShownDigits) + " to " +
           ImpedanceText(network.load, kShownDigits);
}

NetworkSweep SweepOf(const Network& network, const ExportRange& range) {
    std::vector<double> f;
    f.reserve(static_cast<std::size_t>(range.points));
    for (int i = 0; i < range.points; ++i) f.push_back(range.frequency(i));
    return LadderResponse(network).sweep(f);
}

}  // namespace

std::string NetworkListing(const Network& network, const ExportRange&) {
    std::string text = "Kelvro: " + TitleOf(network) + "\n\n";
    TextRows rows = {{"source", ImpedanceText(network.source, kShownDigits)}};
    for (std::size_t i = 0; i < network.ladder.size(); ++i) {
        rows.push_back({std::to_string(i + 1), ElementText(network.ladder[i], kShownDigits)});
    }
    rows.push_back({"load", ImpedanceText(network.load, kShownDigits)});
    text += AlignedTable(rows);
    TextRows more;
    if (network.designFrequency > 0) {
        more.push_back({"design frequency", FormatQuantity(3, network.designFrequency, "Hz")});
    }
    for (const FrequencyBand& band : network.bands) {
        more.push_back({"band", FormatQuantity(3, band.low, "Hz") + " to " +
                                    FormatQuantity(3, band.high, "Hz")});
    }
    for (const auto& data : DataOf(network)) {
        const auto ends = FormatQuantity(3, data->f.front(), "Hz") + " to " +
                          FormatQuantity(3, data->f.back(), "Hz");
        more.push_back({"data", data->name + ", " + std::to_string(data->ports) +
                                    (data->ports == 1 ? " port, " : " ports, ") + ends});
    }
    return more.empty() ? text : text + '\n' + AlignedTable(more);
}

std::string NetworkSpice(const Network& network, const ExportRange& range) {
    SpiceDeck deck(TitleOf(network));
    for (const LadderElement& element : network.ladder) deck.comment(ElementText(element));
    NetworkNetlist netlist(deck, range.from, range.to);
    deck.comment("Source of 2 V peak with its impedance");
    deck.line("VS source 0 DC 0 AC 2");
    netlist.impedance(network.source, "source", "in");
    const std::string last = netlist.ladder(network.ladder, "in");
    deck.comment("The load, and the current into it");
    deck.line("VLOAD " + last + " out DC 0");
    netlist.impedance(network.load, "out", "0");
    deck.comment("Its voltage is the source's impedance: what 2 V give at most is 0.5/Re(zs) watt");
    deck.line("IPROBE 0 zs DC 0 AC 1");
    netlist.impedance(network.source, "zs", "0");
    deck.comment("A path for direct current from every node");
    deck.line(".options rshunt=1e15");
    const double decades = std::log10(range.to / range.from);
    const int perDecade =
        decades > 0 ? std::max(1, static_cast<int>(std::ceil((range.points - 1) / decades))) : 1;
    deck.line(".ac dec " + std::to_string(perDecade) + ' ' + FormatShortest(range.from) + ' ' +
              FormatShortest(range.to * (1 + 1e-9)));
    deck.line(".print ac vdb(out) vp(out)");
    deck.line(".control\nrun");
    deck.line(
        "let gt_db = 10*log10(real(v(zs))*(real(v(out))*real(i(vload))+imag(v(out))*"
        "imag(i(vload))))");
    deck.line("print gt_db\n.endc");
    return deck.text();
}

std::string NetworkTouchstone(const Network& network, const ExportRange& range) {
    const LadderResponse response(network);
    PortData data;
    data.ports = 2;
    data.reference = {range.z0, range.z0};
    for (int i = 0; i < range.points; ++i) {
        const double f = range.frequency(i);
        const auto S = response.scattering(f, {range.z0, range.z0});
        if (!S) continue;  // nothing passes there
        data.f.push_back(f);
        data.s.push_back(S->m);
    }
    std::vector<std::string> comments = {"Kelvro: " + TitleOf(network),
                                         "Port 1: side of the source, port 2: side of the load"};
    for (const LadderElement& element : network.ladder) comments.push_back(ElementText(element));
    return TouchstoneText(data, comments);
}

std::string NetworkCsv(const Network& network, const ExportRange& range) {
    return SweepCsv(SweepOf(network, range));
}

std::string NetworkJson(const Network& network, const ExportRange& range) {
    return SweepJson(SweepOf(network, range));
}

std::span<const NetworkFormat> NetworkFormats() {
    static constexpr std::array<NetworkFormat, 5> formats = {
        {{"listing", "Listing", "txt", false, false, NetworkListing},
         {"spice", "SPICE netlist", "cir", true, false, NetworkSpice},
         {"touchstone", "Touchstone two-port", "s2p", true, true, NetworkTouchstone},
         {"csv", "Response table (CSV)", "csv", true, false, NetworkCsv},
         {"json", "Response (JSON)", "json", true, false, NetworkJson}}};
    return formats;
}

const NetworkFormat* FindNetworkFormat(std::string_view key) {
    const auto formats = NetworkFormats();
    const auto found = std::ranges::find(formats, key, &NetworkFormat::key);
    return found == formats.end() ? nullptr : &*found;
}

}  // namespace kelvro
