#include "network/tunable.h"

#include <type_traits>

namespace kelvro {

namespace {

using Quantity = Tunable::Quantity;

/// The parts of one element in the order of PartsOf, to read or to write as the element is.
template <typename Element>
auto PartsAt(Element& element) {
    using Pointer = std::conditional_t<std::is_const_v<Element>, const Part*, Part*>;
    std::vector<Pointer> parts;
    const auto collect = [&parts](const auto& self, auto& impedance) -> void {
        if (auto* part = std::get_if<Part>(&impedance.is)) parts.push_back(part);
        if (auto* group = std::get_if<Impedance::Group>(&impedance.is)) {
            for (auto& member : group->members) self(self, member);
        }
    };
    if (auto* arm = std::get_if<Arm>(&element.is)) collect(collect, arm->impedance);
    if (auto* coils = std::get_if<CoupledCoils>(&element.is))
        parts = {&coils->first, &coils->second};
    return parts;
}

template <typename Ladder>
auto* NumberAt(Ladder& ladder, const Tunable& at) {
    auto& element = ladder[at.element];
    switch (at.quantity) {
        case Quantity::LineAngle:
            return &std::get<Line>(element.is).length.degrees;
        case Quantity::LineLength:
            return &std::get<Line>(element.is).length.metres;
        case Quantity::LineImpedance:
            return &std::get<Line>(element.is).Z0;
        case Quantity::Turns:
            return &std::get<Transformer>(element.is).n;
        case Quantity::Coupling:
            return &std::get<CoupledCoils>(element.is).k;
        case Quantity::PartValue:
            break;
    }
    return &PartsAt(element)[at.part]->value;
}

/// Null where the number has no tolerance.
template <typename Ladder>
auto* ToleranceAt(Ladder& ladder, const Tunable& at) {
    auto& element = ladder[at.element];
    if (at.quantity == Quantity::PartValue) return &PartsAt(element)[at.part]->tolerance;
    return at.quantity == Quantity::LineImpedance ? &std::get<Line>(element.is).tolerance : nullptr;
}

Quantity LengthOf(const Line& line) {
    return line.length.atHertz > 0 ? Quantity::LineAngle : Quantity::LineLength;
}

/// Letter and number of an element that nobody named, counted from the source.
std::string Numbered(char letter, const Tunable& at) {
    return letter + std::to_string(at.element + 1);
}

}  // namespace

std::vector<Tunable> TunablesOf(const std::vector<LadderElement>& ladder) {
    std::vector<Tunable> all;
    for (std::size_t i = 0; i < ladder.size(); ++i) {
        const std::size_t parts = PartsAt(ladder[i]).size();
        for (std::size_t part = 0; part < parts; ++part)
            all.push_back({i, part, Quantity::PartValue});
        if (const auto* line = std::get_if<Line>(&ladder[i].is)) {
            all.push_back({i, 0, LengthOf(*line)});
            all.push_back({i, 0, Quantity::LineImpedance});
        }
        if (std::holds_alternative<Transformer>(ladder[i].is))
            all.push_back({i, 0, Quantity::Turns});
        if (std::holds_alternative<CoupledCoils>(ladder[i].is))
            all.push_back({i, 0, Quantity::Coupling});
    }
    return all;
}

double ValueOf(const std::vector<LadderElement>& ladder, const Tunable& at) {
    return *NumberAt(ladder, at);
}

void SetValue(std::vector<LadderElement>& ladder, const Tunable& at, double value) {
    *NumberAt(ladder, at) = value;
}

const Part* PartAt(const std::vector<LadderElement>& ladder, const Tunable& at) {
    return at.quantity == Quantity::PartValue ? PartsAt(ladder[at.element])[at.part] : nullptr;
}

void ReplacePart(std::vector<LadderElement>& ladder, const Tunable& at, Part part) {
    *PartsAt(ladder[at.element])[at.part] = std::move(part);
}

bool CanHaveTolerance(const Tunable& at) {
    return at.quantity == Quantity::PartValue || at.quantity == Quantity::LineImpedance;
}

double ToleranceOf(const std::vector<LadderElement>& ladder, const Tunable& at) {
    const double* own = ToleranceAt(ladder, at);
    return own ? *own : 0;
}

void SetTolerance(std::vector<LadderElement>& ladder, const Tunable& at, double percent) {
    *ToleranceAt(ladder, at) = percent;
}

std::string NameOf(const std::vector<LadderElement>& ladder, const Tunable& at) {
    if (const Part* part = PartAt(ladder, at)) {
        return part->name.empty() ? Numbered(LetterOf(part->kind), at) : part->name;
    }
    if (const auto* line = std::get_if<Line>(&ladder[at.element].is)) {
        const std::string name = line->name.empty() ? Numbered('T', at) : line->name;
        return at.quantity == Quantity::LineImpedance ? name + " Z0" : name;
    }
    return at.quantity == Quantity::Turns ? Numbered('N', at) : Numbered('K', at);
}

std::string_view UnitOf(const std::vector<LadderElement>& ladder, const Tunable& at) {
    switch (at.quantity) {
        case Quantity::PartValue:
            return UnitOf(PartAt(ladder, at)->kind);
        case Quantity::LineAngle:
            return "°";
        case Quantity::LineLength:
            return "m";
        case Quantity::LineImpedance:
            return "Ω";
        case Quantity::Turns:
        case Quantity::Coupling:
            break;
    }
    return "";
}

ValueRange RangeOf(const std::vector<LadderElement>& ladder, const Tunable& at) {
    switch (at.quantity) {
        case Quantity::PartValue:
            switch (PartAt(ladder, at)->kind) {
                case PartKind::Resistor:
                    return {1e-6, 1e9};
                case PartKind::Inductor:
                    return {1e-15, 1e3};
                case PartKind::Capacitor:
                    return {1e-18, 1};
            }
            break;
        case Quantity::LineAngle:
            return {1e-3, 3600};
        case Quantity::LineLength:
            return {1e-6, 1e6};
        case Quantity::LineImpedance:
            return {0.1, 1e4};
        case Quantity::Turns:
            return {1e-3, 1e3};
        case Quantity::Coupling:
            return {0.01, 1};
    }
    return {0, 0};
}

}  // namespace kelvro
