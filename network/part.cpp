#include "network/part.h"

#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

/// 1/Q at f of the laws that put |X|/Q in series.
double SeriesTangent(const PartLoss& loss, double f) {
    if (!(loss.Q > 0)) return 0;
    switch (loss.law) {
        case PartLoss::Law::ConstantQ:
            return 1 / loss.Q;
        case PartLoss::Law::ProportionalQ:
            return loss.f / (loss.Q * f);
        case PartLoss::Law::RootQ:
            return std::sqrt(loss.f / f) / loss.Q;
        default:
            return 0;
    }
}

/// value·voltage over current; an infinite value leaves an open.
Immittance Proportional(double value, Cx voltage, Cx current) {
    if (std::isinf(value)) return {voltage, 0};
    return {value * voltage, current};
}

/// The reactance with the loss of its law. The page's lossy frequency is s/ω = 1/Q + j, and -1/Q +
/// j at the mirrored frequency, which is negative.
Immittance Reactance(const Part& part, double f) {
    const PartLoss& loss = part.loss;
    const bool inductor = part.kind == PartKind::Inductor;
    const bool page = loss.law == PartLoss::Law::Page;
    const bool mirrored = loss.law == PartLoss::Law::PageMirrored;
    const double tangent = !(page || mirrored) ? SeriesTangent(loss, f)
                           : loss.Q > 0        ? 1 / loss.Q
                                               : 0;
    const double size = kTwoPi * f * part.value;  // X of an inductor, B of a capacitor
    if (inductor) {
        return mirrored ? Proportional(size, 1, {tangent, -1})
                        : Proportional(size, {tangent, 1}, 1);
    }
    const Immittance C =
        page ? Proportional(size, {tangent, 1}, 1) : Proportional(size, 1, {tangent, -1});
    return {C.current, C.voltage};  // as an admittance
}

/// What the self-resonance adds: the reactance that a part meets there, ωL·(SRF/f)² in magnitude.
Immittance Parasitic(const Part& part, double f) {
    const double ratio = f / part.loss.SRF;
    const double size = kTwoPi * f * part.value;
    if (part.kind == PartKind::Inductor) return Proportional(size, 1, {0, ratio * ratio});
    const Immittance C = Proportional(size, 1, {0, ratio * ratio});
    return {C.current, C.voltage};
}

}  // namespace

Immittance immittance(const Part& part, double f) {
    if (part.kind == PartKind::Resistor) return {part.value, 1};
    Immittance whole = Reactance(part, f);
    if (part.loss.ESR != 0) whole = InSeries(whole, {part.loss.ESR, 1});
    // A part of value 0 is a short or an open whatever would stand beside it.
    if (!(part.loss.SRF > 0) || part.value == 0) return whole;
    const Immittance parasitic = Parasitic(part, f);
    return part.kind == PartKind::Inductor ? InParallel(whole, parasitic)
                                           : InSeries(whole, parasitic);
}

std::complex<double> impedance(const Part& part, double f) {
    return immittance(part, f).impedance();
}

std::string_view UnitOf(PartKind kind) {
    switch (kind) {
        case PartKind::Inductor:
            return "H";
        case PartKind::Capacitor:
            return "F";
        case PartKind::Resistor:
            break;
    }
    return "Ω";
}

char LetterOf(PartKind kind) {
    return kind == PartKind::Inductor ? 'L' : kind == PartKind::Capacitor ? 'C' : 'R';
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
