#include "io/network_netlist.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr double kDecibelsPerNeper = 8.685889638065035;
/// Steps between two samples where data are not joined by straight lines.
constexpr int kFineSteps = 16;
constexpr int kPairsPerLine = 4;

std::string Number(double value) {
    return FormatShortest(value);
}

/// The factor of frequency by which a resistance follows from that at f, as an expression.
std::string Over(double f, const char* form) {
    std::string text = form;
    const std::string ratio = "(hertz/" + Number(f) + ')';
    for (auto at = text.find('x'); at != std::string::npos; at = text.find('x')) {
        text.replace(at, 1, ratio);
    }
    return text;
}

/// Resistance in series with a reactance as strong as |X| at f, an expression of hertz; empty where
/// the law puts none there.
std::string SeriesResistance(const Part& part) {
    const PartLoss& loss = part.loss;
    if (!(loss.Q > 0)) return "";
    const bool inductor = part.kind == PartKind::Inductor;
    const double f = loss.f > 0 ? loss.f : 1e9;
    const double X = inductor ? kTwoPi * f * part.value : 1 / (kTwoPi * f * part.value);
    const std::string R = Number(X / loss.Q) + '*';
    switch (loss.law) {
        case PartLoss::Law::ConstantQ:
            return R + Over(f, inductor ? "x" : "1/x");
        case PartLoss::Law::ProportionalQ:
            return R + Over(f, inductor ? "1" : "1/x/x");
        case PartLoss::Law::RootQ:
            return R + Over(f, inductor ? "sqrt(x)" : "1/x/sqrt(x)");
        case PartLoss::Law::Page:
            return inductor ? R + Over(f, "x") : "";
        case PartLoss::Law::PageMirrored:
            return inductor ? "" : R + Over(f, "1/x");
        default:
            return "";
    }
}

/// Resistance across it, of the pages' laws.
std::string ParallelResistance(const Part& part) {
    constexpr double f = 1e9;
    const double omega = kTwoPi * f;
    const double Q = part.loss.Q;
    if (!(Q > 0)) return "";
    if (part.loss.law == PartLoss::Law::Page && part.kind == PartKind::Capacitor) {
        return Number(Q / (omega * part.value)) + '*' + Over(f, "1/x");
    }
    if (part.loss.law == PartLoss::Law::PageMirrored && part.kind == PartKind::Inductor) {
        return Number(Q * omega * part.value) + '*' + Over(f, "x");
    }
    return "";
}

/// The other reactance of a part that resonates with itself.
double ParasiticValue(const Part& part) {
    const double omega = kTwoPi * part.loss.SRF;
    return 1 / (omega * omega * part.value);
}

}  // namespace

// ---------------------------------------------------------------- impedances

void NetworkNetlist::impedance(const Impedance& impedance, const std::string& from,
                               const std::string& to) {
    if (const auto* single = std::get_if<Part>(&impedance.is)) return part(*single, from, to);
    if (const auto* data = std::get_if<Impedance::Measured>(&impedance.is)) {
        return measured(*data, from, to);
    }
    if (const auto* members = std::get_if<Impedance::Group>(&impedance.is)) {
        return group(*members, from, to);
    }
    constant(std::get<Impedance::Constant>(impedance.is).ohm, from, to);
}

void NetworkNetlist::shortCircuit(const std::string& from, const std::string& to) {
    deck_.line(newName('V') + ' ' + from + ' ' + to + " DC 0");
}

void NetworkNetlist::group(const Impedance::Group& group, const std::string& from,
                           const std::string& to) {
    if (group.parallel) {
        for (const Impedance& member : group.members) impedance(member, from, to);
        return;
    }
    if (group.members.empty()) return shortCircuit(from, to);
    std::string node = from;
    for (std::size_t i = 0; i < group.members.size(); ++i) {
        const std::string next = i + 1 == group.members.size() ? to : newNode();
        impedance(group.members[i], node, next);
        node = next;
    }
}

void NetworkNetlist::part(const Part& part, const std::string& from, const std::string& to) {
    const bool resistor = part.kind == PartKind::Resistor;
    const bool wire = part.kind == PartKind::Capacitor ? std::isinf(part.value) : part.value == 0;
    const bool open = part.kind == PartKind::Capacitor ? part.value == 0 : std::isinf(part.value);
    if (open) return;
    const double resonance = wire || resistor ? 0 : part.loss.SRF;
    std::string name = newName(LetterOf(part.kind), part.name);
    std::string inner = from;
    if (resonance > 0 && part.kind == PartKind::Capacitor) {
        inner = newNode();
        deck_.part(newName('L'), from, inner, ParasiticValue(part));
    }
    if (!resistor && part.loss.ESR > 0) {
        std::string behind = newNode();
        deck_.part(newName('R'), inner, behind, part.loss.ESR);
        inner = behind;
    }
    if (wire) {
        shortCircuit(inner, to);
    } else if (resistor) {
        deck_.line(name + ' ' + inner + ' ' + to + ' ' + Number(part.value));
    } else {
        reactance(part, name, inner, to);
    }
    if (resonance > 0 && part.kind == PartKind::Inductor) {
        deck_.part(newName('C'), from, to, ParasiticValue(part));
    }
}

/// A reactance with the loss of its law.
void NetworkNetlist::reactance(const Part& part, const std::string& name, const std::string& from,
                               const std::string& to) {
    std::string inner = from;
    if (const std::string R = SeriesResistance(part); !R.empty()) {
        inner = newNode();
        deck_.expression(newName('R'), from, inner, R);
    }
    deck_.part(name, inner, to, part.value);
    if (const std::string R = ParallelResistance(part); !R.empty()) {
        deck_.expression(newName('R'), inner, to, R);
    }
}

/// Complex constants are reflections, the same at every frequency.
void NetworkNetlist::constant(Cx ohm, const std::string& from, const std::string& to) {
    if (!std::isfinite(std::abs(ohm))) return;
    if (ohm == 0.0) return shortCircuit(from, to);
    if (ohm.imag() == 0) {
        return deck_.line(newName('R') + ' ' + from + ' ' + to + ' ' + Number(ohm.real()));
    }
    const double reference = std::abs(ohm);
    const Cx gamma = (ohm - reference) / (ohm + reference);
    const WavePort port = wavePort(reference, from, to);
    deck_.line(newName('B') + ' ' + port.out +
               " 0 V=" + waveTerm(Number(gamma.real()), Number(gamma.imag()), port));
}

// ---------------------------------------------------------------- waves

/// A port of this reference resistance that reflects as its waves say: V = a + b and R·I = a - b,
/// so V = R·I + 2·b behind the resistor, with a = V - b. An inductor turns a by 90°, which makes
/// room for complex factors.
NetworkNetlist::WavePort NetworkNetlist::wavePort(double reference, const std::string& from,
                                                  const std::string& to) {
    WavePort port{newNode(), newNode(), newNode()};
    const std::string inner = newNode();
    deck_.line(newName('R') + ' ' + from + ' ' + inner + ' ' + Number(reference));
    deck_.line(newName('E') + ' ' + inner + ' ' + to + ' ' + port.out + " 0 2");
    deck_.line(newName('B') + ' ' + port.in + " 0 V=v(" + from + ',' + to + ")-v(" + port.out +
               ")");
    deck_.line(newName('G') + " 0 " + port.turned + ' ' + port.in + " 0 1");
    deck_.line(newName('L') + ' ' + port.turned + " 0 " + Number(1 / (kTwoPi * 1e9)));
    return port;
}

/// (re + j·im)·a.
std::string NetworkNetlist::waveTerm(const std::string& re, const std::string& im,
                                     const WavePort& port) const {
    return '(' + re + ")*v(" + port.in + ")+(" + im + ")*1e9/max(hertz,1)*v(" + port.turned + ')';
}

template <typename Value>
std::string NetworkNetlist::table(const PortData& data, const Value& value) const {
    const auto first = std::ranges::upper_bound(data.f, low_);
    const auto last = std::ranges::lower_bound(data.f, high_);
    const auto from = std::max<std::ptrdiff_t>(first - data.f.begin() - 1, 0);
    const auto to = std::min<std::ptrdiff_t>(last - data.f.begin(), std::ssize(data.f) - 1);
    const int steps = data.interpolation == Interpolation::Linear ? 1 : kFineSteps;
    std::string text = "pwl(hertz";
    int pairs = 0;
    const auto add = [&](double f) {
        text += pairs++ % kPairsPerLine == 0 ? ",\n+ " : ", ";
        text += Number(f) + ", " + Number(value(*data.at(f)));
    };
    for (auto i = static_cast<std::size_t>(from); i < static_cast<std::size_t>(to); ++i) {
        for (int k = 0; k < steps; ++k) {
            add(data.f[i] + (data.f[i + 1] - data.f[i]) * k / steps);
        }
    }
    add(data.f[static_cast<std::size_t>(to)]);
    // A table has two points at least.
    if (pairs == 1) add(data.f[static_cast<std::size_t>(to)]);
    return text + ')';
}

void NetworkNetlist::measured(const Impedance::Measured& measured, const std::string& from,
                              const std::string& to) {
    const PortData& data = *measured.data;
    const double turn = measured.conjugate ? -1 : 1;
    if (data.ports == 2 && measured.port == 0) return twoPort(data, {from, to, to}, turn);
    const bool second = data.ports == 2 && measured.port == 2;
    const std::size_t k = second ? 3 : 0;
    const WavePort port = wavePort(data.reference[second ? 1 : 0], from, to);
    const auto re = table(data, [&](const auto& s) { return s[k].real(); });
    const auto im = table(data, [&](const auto& s) { return turn * s[k].imag(); });
    deck_.line(newName('B') + ' ' + port.out + " 0 V=" + waveTerm(re, im, port));
}

void NetworkNetlist::twoPort(const PortData& data, const TwoPortNodes& nodes, double turn) {
    const WavePort ports[] = {wavePort(data.reference[0], nodes.first, nodes.ground),
                              wavePort(data.reference[1], nodes.second, nodes.ground)};
    for (std::size_t out = 0; out < 2; ++out) {
        std::string sum;
        for (std::size_t in = 0; in < 2; ++in) {
            // Waves of power become voltages by the root of their reference.
            const double scale = std::sqrt(data.reference[out] / data.reference[in]);
            const std::size_t k = 2 * out + in;
            const auto re = table(data, [&](const auto& s) { return scale * s[k].real(); });
            const auto im = table(data, [&](const auto& s) { return turn * scale * s[k].imag(); });
            sum += (sum.empty() ? "" : "\n+ +") + waveTerm(re, im, ports[in]);
        }
        deck_.line(newName('B') + ' ' + ports[out].out + " 0 V=" + sum);
    }
}

// ---------------------------------------------------------------- ladders

std::string NetworkNetlist::ladder(const std::vector<LadderElement>& ladder, std::string node) {
    for (const LadderElement& next : ladder) node = element(next, node);
    return node;
}

std::string NetworkNetlist::element(const LadderElement& element, const std::string& node) {
    if (const auto* arm = std::get_if<Arm>(&element.is)) {
        std::string behind = arm->place == Place::Series ? newNode() : node;
        impedance(arm->impedance, node, arm->place == Place::Series ? behind : "0");
        return behind;
    }
    if (const auto* piece = std::get_if<Line>(&element.is)) return line(*piece, node);
    if (const auto* ideal = std::get_if<Transformer>(&element.is)) return transformer(*ideal, node);
    if (const auto* pair = std::get_if<CoupledCoils>(&element.is)) return coils(*pair, node);
    if (const auto* two = std::get_if<MeasuredTwoPort>(&element.is)) {
        std::string behind = newNode();
        twoPort(*two->data, {node, behind, "0"}, 1);
        return behind;
    }
    if (const auto* branch = std::get_if<Branch>(&element.is)) {
        impedance(branch->load, ladder(branch->ladder, node), "0");
    }
    return node;  // a switch is open for signals
}

/// An ideal line behind a pad that is matched to it and as lossy as the line is.
std::string NetworkNetlist::line(const Line& line, const std::string& node) {
    const double delay = line.length.angle(1e9) / (kTwoPi * 1e9);
    std::string start = node;
    std::string loss;
    if (line.attenuation > 0) {
        const double nepers = line.attenuation * line.length.length() / kDecibelsPerNeper;
        loss = Number(nepers) + '*' + Over(line.attenuationAtHertz, "sqrt(x)");
    }
    if (line.tangent > 0) {
        loss += (loss.empty() ? "" : "+") + Number(line.tangent * kTwoPi * delay) + "*hertz";
    }
    if (!loss.empty() && delay > 0) {
        const std::string middle = newNode();
        start = newNode();
        const std::string Z = Number(line.Z0);
        deck_.expression(newName('R'), node, middle, Z + "*tanh((" + loss + ")/2)");
        deck_.expression(newName('R'), middle, "0", Z + "/sinh(" + loss + ')');
        deck_.expression(newName('R'), middle, start, Z + "*tanh((" + loss + ")/2)");
    }
    const std::string end = line.form == Line::Form::ShortedStub ? "0" : newNode();
    if (delay > 0) {
        deck_.line(newName('T', line.name) + ' ' + start + " 0 " + end +
                   " 0 Z0=" + Number(line.Z0) + " TD=" + Number(delay));
    } else {
        shortCircuit(start, end);
    }
    return line.form == Line::Form::Through ? end : node;
}

/// V1 = n·V2 and I2 = n·I1.
std::string NetworkNetlist::transformer(const Transformer& transformer, const std::string& node) {
    const std::string inner = newNode();
    std::string behind = newNode();
    const std::string sense = newName('V');
    const std::string n = Number(transformer.n);
    deck_.line(sense + ' ' + node + ' ' + inner + " DC 0");
    deck_.line(newName('E') + ' ' + inner + " 0 " + behind + " 0 " + n);
    deck_.line(newName('F') + " 0 " + behind + ' ' + sense + ' ' + n);
    return behind;
}

/// Losses of the windings in series with them; where both follow the page's law, so does what they
/// share, and the resistor from their common end to ground stands for that.
std::string NetworkNetlist::coils(const CoupledCoils& coils, const std::string& node) {
    std::string behind = newNode();
    const bool page = coils.first.loss == coils.second.loss &&
                      coils.first.loss.law == PartLoss::Law::Page && coils.first.loss.Q > 0 &&
                      coils.first.loss.ESR == 0;
    const double M = coils.k * std::sqrt(coils.first.value * coils.second.value);
    std::string common = "0";
    if (page) {
        common = newNode();
        deck_.expression(newName('R'), common, "0",
                         Number(kTwoPi * M / coils.first.loss.Q) + "*hertz");
    }
    const auto coil = [&](const Part& part, const std::string& at) {
        std::string inner = at;
        std::string R = SeriesResistance(part);
        if (page) R = Number(kTwoPi * (part.value - M) / part.loss.Q) + "*hertz";
        if (part.loss.ESR > 0) R += (R.empty() ? "" : "+") + Number(part.loss.ESR);
        if (!R.empty()) {
            inner = newNode();
            deck_.expression(newName('R'), at, inner, R);
        }
        std::string name = newName('L', part.name);
        deck_.part(name, inner, common, part.value);
        if (part.loss.SRF > 0) deck_.part(newName('C'), at, "0", ParasiticValue(part));
        return name;
    };
    const std::string first = coil(coils.first, node);
    const std::string second = coil(coils.second, behind);
    deck_.line(newName('K') + ' ' + first + ' ' + second + ' ' + Number(coils.k));
    return behind;
}

std::string NetworkNetlist::newName(char letter, std::string_view wanted) {
    std::string plain;
    for (const char c : wanted) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) plain += c;
    }
    std::string upper = plain;
    std::ranges::transform(upper, upper.begin(), [](unsigned char c) { return std::toupper(c); });
    if (plain.size() > 1 && upper[0] == letter && names_.insert(upper).second) return plain;
    std::string name;
    do {
        name = letter + std::to_string(++numbers_[letter]);
    } while (!names_.insert(name).second);
    return name;
}

}  // namespace kelvro
