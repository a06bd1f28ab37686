#include "network/part.h"

#include <cmath>

#include "core/scalar.h"
#include "network/part_form.h"

namespace kelvro {

namespace {

/// 1/Q; 0 where no Q is given.
double Tangent(const PartLoss& loss) {
    return loss.law != PartLoss::Law::Lossless && loss.Q > 0 ? 1 / loss.Q : 0;
}

/// Splits a reactance into the coefficients of resistance and reactance that the part's law makes
/// of it. The page's lossy frequency is s/ω = 1/Q + j, and -1/Q + j at the mirrored frequency,
/// which is negative: in inductors and in mirrored capacitors the loss stands in series, else in
/// parallel.
struct Split {
    double reactance;
    double linear = 0;  ///< resistance proportional to the reactance
    double root = 0;    ///< growing more slowly by √ω than the reactance
    double other = 0;   ///< growing more slowly by ω
};
Split SplitOf(const Part& part, double reactance) {
    using Law = PartLoss::Law;
    const double tangent = Tangent(part.loss);
    const double omega = kTwoPi * part.loss.f;
    const Law parallel = part.kind == PartKind::Inductor ? Law::PageMirrored : Law::Page;
    if (part.loss.law == parallel) reactance /= 1 + tangent * tangent;
    switch (part.loss.law) {
        case Law::ProportionalQ:
            return {reactance, 0, 0, reactance * tangent * omega};
        case Law::RootQ:
            return {reactance, 0, reactance * tangent * std::sqrt(omega)};
        default:
            return {reactance, reactance * tangent};
    }
}

PartForm FormOfCoil(const Part& part) {
    const double L = part.value;
    const Split split = SplitOf(part, L);
    PartForm form;
    form.r = part.loss.ESR + split.other;
    form.rRoot = split.root;
    form.rLinear = split.linear;
    form.xLinear = split.reactance;
    const double omega = kTwoPi * part.loss.SRF;
    if (omega > 0 && L != 0) form.across = 1 / (omega * omega * L);
    return form;
}

PartForm FormOfCapacitor(const Part& part) {
    const double S = 1 / part.value;
    const Split split = SplitOf(part, S);
    PartForm form{PartForm::Kind::Capacitor};
    form.r = part.loss.ESR;
    form.rLinear = split.linear;
    form.rRoot = split.root;
    form.rSquare = split.other;
    form.xInverse = -split.reactance;
    const double omega = kTwoPi * part.loss.SRF;
    if (omega > 0) form.xLinear = S / (omega * omega);
    return form;
}

}  // namespace

PartForm PartForm::Of(const Part& part) {
    const bool capacitor = part.kind == PartKind::Capacitor;
    if (capacitor ? part.value == 0 : std::isinf(part.value)) return {Kind::Open};
    PartForm form;
    if (part.kind == PartKind::Resistor) {
        form.r = part.value;
        return form;
    }
    form = capacitor ? FormOfCapacitor(part) : FormOfCoil(part);
    const double x = capacitor ? form.xInverse : form.xLinear;
    form.proportional = form.r == 0 && form.rRoot == 0 && form.rSquare == 0 && form.across == 0 &&
                        x != 0 && (!capacitor || form.xLinear == 0);
    if (form.proportional) {
        const double norm = form.rLinear * form.rLinear + x * x;
        form.g = form.rLinear / norm;
        form.b = -x / norm;
    }
    return form;
}

bool PartForm::passive() const {
    return r >= 0 && rRoot >= 0 && rLinear >= 0 && rSquare >= 0;
}

bool PartForm::lossy() const {
    return kind != Kind::Open && passive() && (r > 0 || rRoot > 0 || rLinear > 0 || rSquare > 0);
}

bool PartForm::hasImpedance() const {
    return kind != Kind::Open && (across == 0 || lossy());
}

bool PartForm::hasAdmittance() const {
    if (kind == Kind::Open || lossy()) return true;
    if (!passive()) return false;
    return (xLinear == 0) != (xInverse == 0);
}

Immittance immittance(const Part& part, double f) {
    using X = lanes::Complex<double>;
    const auto [voltage, current] = PartForm::Of(part).pair<X>(Powers<double>::Of(kTwoPi * f));
    return {{voltage.re, voltage.im}, {current.re, current.im}};
}

std::complex<double> impedance(const Part& part, double f) {
    return immittance(part, f).impedance();
}

std::string_view UnitOf(PartKind kind) {
    switch (kind) {
        case PartKind::Resistor:
            return "Ω";
        case PartKind::Inductor:
            return "H";
        case PartKind::Capacitor:
            return "F";
    }
    return "";
}

char LetterOf(PartKind kind) {
    switch (kind) {
        case PartKind::Resistor:
            return 'R';
        case PartKind::Inductor:
            return 'L';
        case PartKind::Capacitor:
            return 'C';
    }
    return '?';
}

std::string DualName(std::string_view name) {
    std::string dual(name);
    if (!dual.empty() && (dual[0] == 'L' || dual[0] == 'C')) dual[0] = dual[0] == 'L' ? 'C' : 'L';
    return dual;
}

std::string_view DualUnit(std::string_view unit) {
    return unit == "H" ? "F" : unit == "F" ? "H" : unit;
}

}  // namespace kelvro
