// Netlists for ngspice: the network between source and load as the design describes it.

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

#include "core/number_text.h"
#include "core/scalar.h"
#include "io/class_e_netlist.h"
#include "io/exports.h"
#include "io/spice_deck.h"

namespace kelvro {

namespace {

// ---------------------------------------------------------------- parts with losses

/// Names of parts may carry primes and the like; a simulator takes letters and digits.
std::string PlainName(std::string_view name) {
    std::string plain;
    for (const char c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) plain += c;
    }
    return plain;
}

/// 1/Q of a part that has the page's loss.
double TangentOf(const Part& part) {
    const bool page =
        part.loss.law == PartLoss::Law::Page || part.loss.law == PartLoss::Law::PageMirrored;
    return page && part.loss.Q > 0 ? 1 / part.loss.Q : 0;
}

/// Writes a network from its input node on. Parts with the page's loss have the resistor that gives
/// them the element Q: so many ohms at fo, and over frequency such that the Q stays the same, as in
/// the program's own response.
class NetworkWriter {
  public:
    NetworkWriter(SpiceDeck& deck, double fo) : deck_(deck), omega_(kTwoPi * fo), fo_(fo) {}

    /// From node "in"; gives back the node of the load. Branches end at "outm".
    std::string network(const Network& network) {
        const bool branched = HasBranch(network);
        if (branched) suffix_ = "p";
        return ladder(network.ladder, "in", branched ? "outp" : "out");
    }

  private:
    /// Does it lead on to a node of its own?
    static bool leadsOn(const LadderElement& element) {
        if (const auto* arm = std::get_if<Arm>(&element.is)) return arm->place == Place::Series;
        if (const auto* line = std::get_if<Line>(&element.is)) {
            return line->form == Line::Form::Through;
        }
        return std::holds_alternative<CoupledCoils>(element.is) ||
               std::holds_alternative<Transformer>(element.is);
    }

    std::string newNode() { return "n" + std::to_string(++nodes_); }

    /// The elements of a path; the last node is called as asked.
    std::string ladder(const std::vector<LadderElement>& elements, std::string node,
                       std::string_view last) {
        auto left = std::ranges::count_if(elements, leadsOn);
        for (const LadderElement& element : elements) {
            std::string next = node;
            if (leadsOn(element)) next = --left == 0 ? std::string(last) : newNode();
            std::visit([&](const auto& is) { write(is, node, next); }, element.is);
            node = std::move(next);
        }
        return node;
    }

    void write(const Arm& arm, const std::string& node, const std::string& next) {
        impedance(arm.impedance, node, arm.place == Place::Series ? next : "0");
    }

    /// What leaves the main path here is the - output.
    void write(const Branch& branch, const std::string& node, const std::string&) {
        const std::string suffix = std::exchange(suffix_, "m");
        const int nodes = std::exchange(nodes_, 0);
        ladder(branch.ladder, node, "outm");
        suffix_ = suffix;
        nodes_ = nodes;
    }

    /// An ideal line behind a pad that is matched to it and as lossy as the line is.
    void write(const Line& line, const std::string& from, const std::string& to) {
        const std::string name = PlainName(line.name);
        const double angle = line.length.angle(fo_);
        std::string start = from;
        if (const double loss = angle * line.tangent; loss > 0) {
            const std::string arm =
                FormatShortest(line.Z0) + "*tanh(" + FormatShortest(loss / 2) + rising() + ')';
            deck_.expression("RA" + name, from, "loss", arm);
            deck_.expression(
                "RP" + name, "loss", "0",
                FormatShortest(line.Z0) + "/sinh(" + FormatShortest(loss) + rising() + ')');
            deck_.expression("RB" + name, "loss", "line", arm);
            start = "line";
        }
        deck_.line("T" + line.name + ' ' + start + " 0 " + to + " 0 Z0=" + FormatShortest(line.Z0) +
                   " F=" + FormatShortest(fo_) + " NL=" + FormatShortest(angle / kTwoPi));
    }

    /// Coils with common ground. Their mutual inductance is as lossy as the coils are; the resistor
    /// from the coils' common end to ground stands for that.
    void write(const CoupledCoils& coils, const std::string& in, const std::string& out) {
        const double M = coils.k * std::sqrt(coils.first.value * coils.second.value);
        const double rate = omega_ * TangentOf(coils.first);
        const std::string common = rate > 0 ? "common" : "0";
        const auto coil = [&](const Part& part, const std::string& node) {
            const std::string name = PlainName(part.name);
            const double R = rate * (part.value - M);
            const std::string inner = R == 0 ? node : "coil" + name;
            if (R != 0) deck_.expression("R" + name, node, inner, FormatShortest(R) + rising());
            deck_.part(name, inner, common, part.value);
        };
        coil(coils.first, in);
        coil(coils.second, out);
        if (rate > 0) deck_.expression("RM", common, "0", FormatShortest(rate * M) + rising());
        deck_.line("K1 " + PlainName(coils.first.name) + ' ' + PlainName(coils.second.name) + ' ' +
                   FormatShortest(coils.k));
    }

    template <typename Other>
    void write(const Other&, const std::string&, const std::string&) {
        assert(false && "no page has such an element");
    }

    void impedance(const Impedance& arm, const std::string& from, const std::string& to) {
        if (const auto* single = std::get_if<Part>(&arm.is)) return part(*single, from, to);
        const auto* group = std::get_if<Impedance::Group>(&arm.is);
        if (!group) return;
        std::string node = from;
        for (const Impedance& member : group->members) {
            const bool last = &member == &group->members.back();
            std::string next = group->parallel || last ? to : newNode();
            impedance(member, node, next);
            if (!group->parallel) node = std::move(next);
        }
    }

    void part(const Part& part, const std::string& from, const std::string& to) {
        const std::string name = PlainName(part.name) + suffix_;
        if (part.kind == PartKind::Resistor) {
            if (std::isfinite(part.value)) deck_.part(name, from, to, part.value);
            return;
        }
        const bool inductor = part.kind == PartKind::Inductor;
        const double X = inductor ? omega_ * part.value : 1 / (omega_ * part.value);
        const double tangent = TangentOf(part);
        if (tangent == 0) return deck_.part(name, from, to, part.value);
        const std::string slope = inductor ? rising() : falling();
        const bool seriesLoss = inductor == (part.loss.law == PartLoss::Law::Page);
        if (!seriesLoss) {
            deck_.part(name, from, to, part.value);
            return deck_.expression("R" + name, from, to, FormatShortest(X / tangent) + slope);
        }
        const std::string inner = "loss" + name;
        deck_.part(name, from, inner, part.value);
        deck_.expression("R" + name, inner, to, FormatShortest(X * tangent) + slope);
    }

    /// Factors of resistances that rise or fall with frequency; 1 at fo.
    std::string rising() const { return "*hertz/" + FormatShortest(fo_); }
    std::string falling() const { return '*' + FormatShortest(fo_) + "/hertz"; }

    SpiceDeck& deck_;
    double omega_;
    double fo_;
    std::string suffix_;  ///< keeps names apart where two paths have like parts
    int nodes_ = 0;
};

// ---------------------------------------------------------------- analyses

/// A sweep in equal ratios that covers the range and has fo among its points: v and gain at fo are
/// then computed, not interpolated.
void WriteSweep(SpiceDeck& deck, const ExportDesign& design, const ExportRange& range,
                const std::string& out) {
    const Design& s = design.state;
    const int perDecade = std::max(
        1, static_cast<int>(std::ceil((range.points - 1) / std::log10(range.to / range.from))));
    const bool covered = range.from <= s.fo && s.fo <= range.to;
    const double below =
        covered ? std::ceil(perDecade * std::log10(s.fo / range.from) - 1e-6) / perDecade : 0;
    const double from = covered ? s.fo / std::pow(10.0, below) : range.from;
    deck.line(".ac dec " + std::to_string(perDecade) + ' ' + FormatShortest(from) + ' ' +
              FormatShortest(range.to * (1 + 1e-9)));
    const std::string dB = "vdb(" + out + ")";
    deck.line(".print ac " + dB + " vp(" + out + ")");
    if (!covered) return;
    const double match = std::sqrt(s.R2 / (design.page().sourceCount * s.R1));
    deck.comment(
        "Some versions of ngspice warn that they can't parse 'vd' here, and measure right");
    deck.line(".meas ac v_db FIND " + dB + " AT=" + FormatShortest(s.fo));
    deck.line(".meas ac gt_db PARAM='v_db-(" + FormatShortest(20 * std::log10(match)) + ")'");
}

std::string SweptNetlist(const ExportDesign& design, const ExportRange& range) {
    const Design& s = design.state;
    const Network& network = design.networks.front();
    SpiceDeck deck(design);
    deck.elementQ(PageTangent(network));
    deck.comment("Source of 2 V, so that the voltage at the load is v=V2/V1");
    deck.line("VS source 0 DC 0 AC 2");
    deck.part("RS", "source", "in", s.R1);
    const std::string out = NetworkWriter(deck, s.fo).network(network);
    deck.part("RLOAD", out, "0", s.R2);
    if (HasBranch(network)) deck.part("RLOADM", "outm", "0", s.R2);
    WriteSweep(deck, design, range, out);
    return deck.text();
}

/// Node names as simulators write them; ground where the network has none.
std::string NodeName(std::string_view name) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
    return lower.empty() ? "0" : lower;
}

/// Operating point of a network of resistors between named nodes.
std::string OperatingPointNetlist(const ExportDesign& design) {
    const Design& s = design.state;
    SpiceDeck deck(design);
    deck.line("VREF vref 0 DC " + FormatShortest(s.Vref));
    deck.line("VBG vbg 0 DC " + FormatShortest(s.Vbg));
    for (const Network& network : design.networks) {
        std::string node = NodeName(network.sourceNode);
        for (const LadderElement& element : network.ladder) {
            const std::string next = NodeName(element.node);
            const Part& part = std::get<Part>(std::get<Arm>(element.is).impedance.is);
            deck.part(part.name, node, next, part.value);
            node = next;
        }
    }
    deck.line(".op");
    return deck.text();
}

}  // namespace

std::string SpiceNetlist(const ExportDesign& design, const ExportRange& range) {
    if (!design.page().atFrequency) return OperatingPointNetlist(design);
    if (design.page().switched) return ClassENetlist(design);
    return SweptNetlist(design, range);
}

}  // namespace kelvro
