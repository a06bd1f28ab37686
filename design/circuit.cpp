#include "design/circuit.h"

#include "core/scalar.h"

namespace kelvro {

ToleranceGroup Element::group() const {
    switch (kind) {
        case ElementKind::Capacitor:
            return ToleranceGroup::Capacitance;
        case ElementKind::Inductor:
            return ToleranceGroup::Inductance;
        case ElementKind::Line:
            return ToleranceGroup::LineImpedance;
        case ElementKind::Resistor:
            return ToleranceGroup::Resistance;
        default:
            return ToleranceGroup::None;
    }
}

std::string_view Element::unit() const {
    switch (kind) {
        case ElementKind::Capacitor:
            return "F";
        case ElementKind::Inductor:
        case ElementKind::Choke:
            return "H";
        case ElementKind::Resistor:
        case ElementKind::Line:
            return "Ω";
        case ElementKind::Switch:
            break;
    }
    return "";
}

Circuit Dual(const Circuit& circuit, double fo) {
    Circuit dual = circuit;
    const double omega = kTwoPi * fo;
    for (Element& element : dual.elements) {
        if (element.kind != ElementKind::Inductor && element.kind != ElementKind::Capacitor)
            continue;
        element.kind =
            element.kind == ElementKind::Inductor ? ElementKind::Capacitor : ElementKind::Inductor;
        element.value = 1 / (omega * omega * element.value);
        element.name = DualName(element.name);
    }
    return dual;
}

std::string DualLabel(std::string_view label) {
    constexpr std::string_view inductance = "Inductance ";
    constexpr std::string_view capacitance = "Capacitance ";
    if (label.starts_with(inductance)) {
        return std::string(capacitance) + DualName(label.substr(inductance.size()));
    }
    if (label.starts_with(capacitance)) {
        return std::string(inductance) + DualName(label.substr(capacitance.size()));
    }
    return std::string(label);
}

}  // namespace kelvro
