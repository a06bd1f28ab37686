#include "network/network.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "core/scalar.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr double kLightSpeed = 299'792'458;  // m/s, by definition
constexpr Immittance kOpen{1, 0};
constexpr Immittance kShort{0, 1};

template <typename Pointer>
bool SameData(const Pointer& a, const Pointer& b) {
    return a == b || (a && b && *a == *b);
}

Immittance Missing() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    return {Cx{nan, nan}, 1};
}

/// Z = 1/Y11 of a measured two-port: D. A. Frickey, IEEE Trans. MTT-42 (1994), table I.
Immittance SecondPortGrounded(const std::array<Cx, 4>& s, double reference) {
    const Cx cross = s[1] * s[2];
    return {reference * ((1.0 + s[0]) * (1.0 + s[3]) - cross), (1.0 - s[0]) * (1.0 + s[3]) + cross};
}

Immittance At(const Impedance::Measured& measured, double f) {
    if (!measured.data) return Missing();
    const PortData& data = *measured.data;
    const auto s = data.at(f);
    if (!s) return Missing();
    const bool second = data.ports == 2 && measured.port == 2;
    const double reference = data.reference[second ? 1 : 0];
    Immittance found =
        data.ports == 2 && measured.port == 0
            ? SecondPortGrounded(*s, reference)
            : Immittance{reference * (1.0 + (*s)[second ? 3 : 0]), 1.0 - (*s)[second ? 3 : 0]};
    if (measured.conjugate) found = {std::conj(found.voltage), std::conj(found.current)};
    return found;
}

Immittance At(const Impedance::Constant& constant, double) {
    return {constant.ohm, 1};
}

Immittance At(const Part& part, double f) {
    return immittance(part, f);
}

/// An empty series is a short, an empty parallel circuit an open.
Immittance At(const Impedance::Group& group, double f) {
    if (group.members.empty()) return group.parallel ? kOpen : kShort;
    Immittance whole = immittance(group.members.front(), f);
    for (std::size_t i = 1; i < group.members.size(); ++i) {
        const Immittance next = immittance(group.members[i], f);
        whole = Normalized(group.parallel ? InParallel(whole, next) : InSeries(whole, next));
    }
    return whole;
}

/// What stands at a place of the ladder: exactly one of part and line.
template <typename PartPointer, typename LinePointer>
struct Found {
    PartPointer part;
    LinePointer line;
    Place place;
    bool atSupply;
    bool branch;
};

/// Calls visit(found) for everything of an impedance.
template <typename ImpedanceOf, typename Visit>
void VisitImpedance(ImpedanceOf& impedance, const auto& found, const Visit& visit) {
    auto here = found;
    if (auto* part = std::get_if<Part>(&impedance.is)) {
        here.part = part;
        visit(here);
    } else if (auto* group = std::get_if<Impedance::Group>(&impedance.is)) {
        here.place = group->parallel ? Place::Shunt : Place::Series;
        for (auto& member : group->members) VisitImpedance(member, here, visit);
    }
}

/// Calls visit(found) for every part and line of a ladder, const or not.
template <typename Ladder, typename Visit>
void VisitLadder(Ladder& ladder, bool branch, const Visit& visit) {
    constexpr bool fixed = std::is_const_v<Ladder>;
    using PartPointer = std::conditional_t<fixed, const Part*, Part*>;
    using LinePointer = std::conditional_t<fixed, const Line*, Line*>;
    using Here = Found<PartPointer, LinePointer>;
    for (auto& element : ladder) {
        if (auto* arm = std::get_if<Arm>(&element.is)) {
            const Place place = arm->atSupply ? Place::Series : arm->place;
            const Here here{nullptr, nullptr, place, arm->atSupply, branch};
            VisitImpedance(arm->impedance, here, visit);
        } else if (auto* line = std::get_if<Line>(&element.is)) {
            const bool through = line->form == Line::Form::Through;
            visit(Here{nullptr, line, through ? Place::Series : Place::Shunt, false, branch});
        } else if (auto* coils = std::get_if<CoupledCoils>(&element.is)) {
            visit(Here{&coils->first, nullptr, Place::Shunt, false, branch});
            visit(Here{&coils->second, nullptr, Place::Shunt, false, branch});
        }
    }
    for (auto& element : ladder) {
        if (auto* side = std::get_if<Branch>(&element.is)) VisitLadder(side->ladder, true, visit);
    }
}

/// The ladder and the terminations' named parts.
template <typename Of, typename Visit>
void VisitNetwork(Of& network, const Visit& visit) {
    VisitLadder(network.ladder, false, visit);
    using Pointer = decltype(std::get_if<Part>(&network.load.is));
    using LinePointer = std::conditional_t<std::is_const_v<Of>, const Line*, Line*>;
    for (auto* end : {&network.source, &network.load}) {
        const Found<Pointer, LinePointer> here{nullptr, nullptr, Place::Shunt, false, false};
        VisitImpedance(*end, here, [&visit](const auto& found) {
            if (!found.part->name.empty()) visit(found);
        });
    }
}

template <typename PartPointer>
std::vector<PartPointer> Parts(auto& ladder) {
    std::vector<PartPointer> parts;
    VisitLadder(ladder, false, [&parts](const auto& found) {
        if (found.part) parts.push_back(found.part);
    });
    return parts;
}

PartLoss::Law Mirrored(PartLoss::Law law) {
    return law == PartLoss::Law::Page           ? PartLoss::Law::PageMirrored
           : law == PartLoss::Law::PageMirrored ? PartLoss::Law::Page
                                                : law;
}

}  // namespace

bool Impedance::isNothing() const {
    const auto* group = std::get_if<Group>(&is);
    return group && group->parallel && group->members.empty();
}

bool Impedance::Measured::operator==(const Measured& other) const {
    return SameData(data, other.data) && port == other.port && conjugate == other.conjugate;
}

bool MeasuredTwoPort::operator==(const MeasuredTwoPort& other) const {
    return SameData(data, other.data);
}

// Spelled out: clang 14 does not come to an end with the default of a record that holds itself.
bool Branch::operator==(const Branch& other) const {
    return ladder == other.ladder && load == other.load;
}

Immittance immittance(const Impedance& of, double f) {
    return std::visit([f](const auto& is) { return At(is, f); }, of.is);
}

std::complex<double> impedance(const Impedance& of, double f) {
    return immittance(of, f).impedance();
}

double LineLength::angle(double f) const {
    if (degrees != 0) return degrees / kDegreesPerRadian * (f / atHertz);
    return kTwoPi * f * metres * std::sqrt(er) / kLightSpeed;
}

double LineLength::length() const {
    if (degrees == 0) return metres;
    return degrees / 360 * kLightSpeed / (atHertz * std::sqrt(er));
}

LadderElement SeriesArm(Impedance arm, std::string node) {
    return {Arm{Place::Series, std::move(arm)}, std::move(node)};
}

LadderElement ShuntArm(Impedance arm) {
    return {Arm{Place::Shunt, std::move(arm)}};
}

std::vector<const Part*> PartsOf(const std::vector<LadderElement>& ladder) {
    return Parts<const Part*>(ladder);
}

std::vector<Part*> PartsOf(std::vector<LadderElement>& ladder) {
    return Parts<Part*>(ladder);
}

std::vector<ListedPart> ListOf(const Network& network) {
    std::vector<ListedPart> list;
    VisitNetwork(network, [&list](const auto& found) {
        const auto& [part, line, place, atSupply, branch] = found;
        list.push_back({part ? part->kind : PartKind::Resistor, line != nullptr, atSupply, branch,
                        place, part ? part->name : line->name, part ? part->value : line->Z0});
    });
    return list;
}

std::vector<double*> ValuesOf(Network& network) {
    std::vector<double*> values;
    VisitNetwork(network, [&values](const auto& found) {
        values.push_back(found.part ? &found.part->value : &found.line->Z0);
    });
    return values;
}

double PageTangent(const Network& network) {
    double largest = 0;
    VisitLadder(network.ladder, false, [&largest](const auto& found) {
        if (found.line) {
            largest = std::max(largest, found.line->tangent);
        } else if (const PartLoss& loss = found.part->loss;
                   loss.Q > 0 &&
                   (loss.law == PartLoss::Law::Page || loss.law == PartLoss::Law::PageMirrored)) {
            largest = std::max(largest, 1 / loss.Q);
        }
    });
    return largest;
}

bool HasBranch(const Network& network) {
    return std::ranges::any_of(network.ladder, [](const LadderElement& element) {
        return std::holds_alternative<Branch>(element.is);
    });
}

std::vector<LadderElement> Dual(std::vector<LadderElement> ladder, double f0) {
    const double omega = kTwoPi * f0;
    for (Part* part : PartsOf(ladder)) {
        switch (part->kind) {
            case PartKind::Resistor:
                continue;
            case PartKind::Inductor:
                part->kind = PartKind::Capacitor;
                break;
            case PartKind::Capacitor:
                part->kind = PartKind::Inductor;
                break;
        }
        part->value = 1 / (omega * omega * part->value);
        part->name = DualName(part->name);
        part->loss.law = Mirrored(part->loss.law);
    }
    return ladder;
}

Network Dual(Network network, double f0) {
    network.ladder = Dual(std::move(network.ladder), f0);
    return network;
}

}  // namespace kelvro
