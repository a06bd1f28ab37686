// Netlists for ngspice: the network between source and load as the design describes it.

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"
#include "io/circuit_two_port.h"
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

/// Writes the parts of a network between named nodes, each with the resistor that gives it the
/// element Q: so many ohms at fo, and over frequency such that the Q stays the same, as in the
/// program's own response.
class NetworkWriter {
  public:
    NetworkWriter(SpiceDeck& deck, ElementLosses losses, double fo)
        : deck_(deck), losses_(losses), omega_(kTwoPi * fo), fo_(fo) {}

    /// `suffix` keeps names apart where two branches have like parts.
    void part(const Element& element, const std::string& from, const std::string& to,
              const std::string& suffix = {}) {
        const std::string name = PlainName(element.name) + suffix;
        switch (element.kind) {
            case ElementKind::Inductor:
            case ElementKind::Choke:
                return reactance(name, element.value, omega_ * element.value, true, from, to);
            case ElementKind::Capacitor:
                return reactance(name, element.value, 1 / (omega_ * element.value), false, from,
                                 to);
            default:
                return deck_.part(name, from, to, element.value);
        }
    }

    /// An ideal line behind a pad that is matched to it and as lossy as the line is.
    void line(const Element& element, double angle, const std::string& from,
              const std::string& to) {
        const double ZL = element.value;
        std::string start = from;
        if (const double loss = angle * losses_.tangent; loss > 0) {
            const std::string name = PlainName(element.name);
            const std::string arm =
                FormatShortest(ZL) + "*tanh(" + FormatShortest(loss / 2) + rising() + ')';
            deck_.expression("RA" + name, from, "loss", arm);
            deck_.expression("RP" + name, "loss", "0",
                             FormatShortest(ZL) + "/sinh(" + FormatShortest(loss) + rising() + ')');
            deck_.expression("RB" + name, "loss", "line", arm);
            start = "line";
        }
        deck_.line("T" + element.name + ' ' + start + " 0 " + to + " 0 Z0=" + FormatShortest(ZL) +
                   " F=" + FormatShortest(fo_) + " NL=" + FormatShortest(angle / kTwoPi));
    }

    /// Coils with common ground. Their mutual inductance is as lossy as the coils are; the resistor
    /// from the coils' common end to ground stands for that.
    void coils(const Element& first, const Element& second, double k, const std::string& in,
               const std::string& out) {
        const double M = k * std::sqrt(first.value * second.value);
        const double rate = omega_ * losses_.tangent;
        const std::string common = rate > 0 ? "common" : "0";
        const auto coil = [&](const Element& element, const std::string& node) {
            const std::string name = PlainName(element.name);
            const double R = rate * (element.value - M);
            const std::string inner = R == 0 ? node : "coil" + name;
            if (R != 0) deck_.expression("R" + name, node, inner, FormatShortest(R) + rising());
            deck_.part(name, inner, common, element.value);
        };
        coil(first, in);
        coil(second, out);
        if (rate > 0) deck_.expression("RM", common, "0", FormatShortest(rate * M) + rising());
        deck_.line("K1 " + PlainName(first.name) + ' ' + PlainName(second.name) + ' ' +
                   FormatShortest(k));
    }

  private:
    /// Factors of resistances that rise or fall with frequency; 1 at fo.
    std::string rising() const { return "*hertz/" + FormatShortest(fo_); }
    std::string falling() const { return '*' + FormatShortest(fo_) + "/hertz"; }

    /// A part of reactance X at fo; its resistor keeps the proportion to the reactance.
    void reactance(const std::string& name, double value, double X, bool inductor,
                   const std::string& from, const std::string& to) {
        const double tangent = losses_.tangent;
        if (tangent == 0) return deck_.part(name, from, to, value);
        const std::string slope = inductor ? rising() : falling();
        const bool seriesLoss = inductor != losses_.mirrored;
        if (!seriesLoss) {
            deck_.part(name, from, to, value);
            return deck_.expression("R" + name, from, to, FormatShortest(X / tangent) + slope);
        }
        const std::string inner = "loss" + name;
        deck_.part(name, from, inner, value);
        deck_.expression("R" + name, inner, to, FormatShortest(X * tangent) + slope);
    }

    SpiceDeck& deck_;
    ElementLosses losses_;
    double omega_;
    double fo_;
};

// ---------------------------------------------------------------- networks

/// Names the nodes along a path: "in", "n1", ..., and the last one as asked.
class Path {
  public:
    Path(const Circuit& circuit, int branch, std::string_view last) : last_(last) {
        left_ = std::ranges::count_if(circuit.elements, [&](const Element& element) {
            return element.branch == branch && element.place == Place::Series;
        });
    }
    const std::string& node() const { return node_; }
    std::string next() {
        --left_;
        return left_ == 0 ? std::string(last_) : "n" + std::to_string(++count_);
    }
    void moveTo(std::string node) { node_ = std::move(node); }

  private:
    std::string node_ = "in";
    std::string_view last_;
    std::ptrdiff_t left_ = 0;
    int count_ = 0;
};

/// The ladder of one branch; gives back its last node.
std::string WriteLadder(NetworkWriter& writer, const Circuit& circuit, int branch,
                        std::string_view last, const std::string& suffix) {
    Path path(circuit, branch, last);
    for (const Element& element : circuit.elements) {
        if (element.branch != branch) continue;
        if (element.place == Place::Shunt) {
            if (std::isfinite(element.value)) writer.part(element, path.node(), "0", suffix);
            continue;
        }
        std::string next = path.next();
        if (element.kind == ElementKind::Line) {
            writer.line(element, circuit.lineAngleFo, path.node(), next);
        } else {
            writer.part(element, path.node(), next, suffix);
        }
        path.moveTo(std::move(next));
    }
    return path.node();
}

/// A one-port across the line: branch 0 in series from "in" to ground, branch 1 across it.
void WriteArm(NetworkWriter& writer, const Circuit& circuit) {
    WriteLadder(writer, circuit, 0, "0", "");
    for (const Element& element : circuit.elements) {
        if (element.branch == 1) writer.part(element, "in", "0");
    }
}

/// The network from node "in"; gives back the node of the (+) load.
std::string WriteNetwork(NetworkWriter& writer, const Circuit& circuit) {
    const auto& parts = circuit.elements;
    switch (circuit.topology) {
        case Topology::CoupledCoils:
            writer.part(parts[0], "in", "0");
            writer.coils(parts[1], parts[2], circuit.coupling, "in", "out");
            writer.part(parts[3], "out", "0");
            return "out";
        case Topology::Tank:
        case Topology::OnePort:
            WriteArm(writer, circuit);
            return "in";
        case Topology::Balun:
            WriteLadder(writer, circuit, 1, "outm", "m");
            return WriteLadder(writer, circuit, 0, "outp", "p");
        default:
            return WriteLadder(writer, circuit, 0, "out", "");
    }
}

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
    SpiceDeck deck(design);
    const ElementLosses losses = ElementLosses::Of(s);
    deck.elementQ(losses.tangent);
    deck.comment("Source of 2 V, so that the voltage at the load is v=V2/V1");
    deck.line("VS source 0 DC 0 AC 2");
    deck.part("RS", "source", "in", s.R1);
    NetworkWriter writer(deck, losses, s.fo);
    const std::string out = WriteNetwork(writer, design.circuit);
    deck.part("RLOAD", out, "0", s.R2);
    if (design.circuit.topology == Topology::Balun) deck.part("RLOADM", "outm", "0", s.R2);
    WriteSweep(deck, design, range, out);
    return deck.text();
}

/// Operating point of the resistor string and of the band-gap resistor.
std::string DividerNetlist(const ExportDesign& design) {
    const Design& s = design.state;
    // From Vref down, as the string's resistors stand in the circuit.
    const std::vector<std::string> nodes = {"vref",  "vhi2",  "vhi1",  "vmid2",
                                            "vmid1", "vlow2", "vlow1", "0"};
    SpiceDeck deck(design);
    deck.line("VREF vref 0 DC " + FormatShortest(s.Vref));
    deck.line("VBG vbg 0 DC " + FormatShortest(s.Vbg));
    const auto& parts = design.circuit.elements;
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
        deck.part(parts[i].name, nodes[i], nodes[i + 1], parts[i].value);
    }
    deck.part(parts.back().name, "vbg", "0", parts.back().value);
    deck.line(".op");
    return deck.text();
}

}  // namespace

std::string SpiceNetlist(const ExportDesign& design, const ExportRange& range) {
    switch (design.circuit.topology) {
        case Topology::ClassE:
            return ClassENetlist(design);
        case Topology::Divider:
            return DividerNetlist(design);
        default:
            return SweptNetlist(design, range);
    }
}

}  // namespace kelvro
