#include "network/network.h"

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

/// Calls visit(part) for every part of an impedance or a ladder, const or not.
template <typename Of, typename Visit>
void VisitParts(Of& of, const Visit& visit) {
    if constexpr (std::is_same_v<std::remove_const_t<Of>, Impedance>) {
        if (auto* part = std::get_if<Part>(&of.is)) visit(*part);
        if (auto* group = std::get_if<Impedance::Group>(&of.is)) {
            for (auto& member : group->members) VisitParts(member, visit);
        }
    } else {
        for (auto& element : of) {
            if (auto* arm = std::get_if<Arm>(&element.is)) VisitParts(arm->impedance, visit);
            if (auto* coils = std::get_if<CoupledCoils>(&element.is)) {
                visit(coils->first);
                visit(coils->second);
            }
            if (auto* branch = std::get_if<Branch>(&element.is)) VisitParts(branch->ladder, visit);
        }
    }
}

PartLoss::Law Mirrored(PartLoss::Law law) {
    return law == PartLoss::Law::Page           ? PartLoss::Law::PageMirrored
           : law == PartLoss::Law::PageMirrored ? PartLoss::Law::Page
                                                : law;
}

}  // namespace

bool Impedance::Measured::operator==(const Measured& other) const {
    return SameData(data, other.data) && port == other.port && conjugate == other.conjugate;
}

bool MeasuredTwoPort::operator==(const MeasuredTwoPort& other) const {
    return SameData(data, other.data);
}

bool Branch::operator==(const Branch& other) const = default;

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
    std::vector<const Part*> parts;
    VisitParts(ladder, [&parts](const Part& part) { parts.push_back(&part); });
    return parts;
}

std::vector<Part*> PartsOf(std::vector<LadderElement>& ladder) {
    std::vector<Part*> parts;
    VisitParts(ladder, [&parts](Part& part) { parts.push_back(&part); });
    return parts;
}

std::vector<LadderElement> Dual(std::vector<LadderElement> ladder, double f0) {
    const double omega = kTwoPi * f0;
    for (Part* part : PartsOf(ladder)) {
        if (part->kind == PartKind::Resistor) continue;
        const bool inductor = part->kind == PartKind::Inductor;
        part->kind = inductor ? PartKind::Capacitor : PartKind::Inductor;
        part->value = 1 / (omega * omega * part->value);
        part->name = DualName(part->name);
        part->loss.law = Mirrored(part->loss.law);
    }
    return ladder;
}

}  // namespace kelvro
