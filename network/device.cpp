// Formulas: G. Gonzalez, Microwave Transistor Amplifiers, 2nd ed., chapter 3, and D. M. Pozar,
// Microwave Engineering, chapter 12, which agree; µ: M. L. Edwards, J. H. Sinsky, "A New Criterion
// for Linear 2-Port Stability Using a Single Geometrically Derived Parameter", IEEE Trans. MTT-40
// (1992).

#include "network/device.h"

#include <cmath>
#include <limits>

namespace kelvro {

namespace {

using Cx = std::complex<double>;

/// The two-port seen from its other end.
Matrix2 Turned(const Matrix2& s) {
    return {{s.m[3], s.m[2], s.m[1], s.m[0]}};
}

/// S22 - Δ·S11*: the load's side of the formulas; the source's is that of the turned two-port.
Cx LoadTerm(const Matrix2& s) {
    return s.m[3] - s.determinant() * std::conj(s.m[0]);
}

double Mu(const Matrix2& s) {
    return (1 - std::norm(s.m[0])) / (std::abs(LoadTerm(s)) + std::abs(s.m[1] * s.m[2]));
}

/// Reflection of port 1 with a load at port 2.
Cx InputReflection(const Matrix2& s, Cx load) {
    return s.m[0] + s.m[1] * s.m[2] * load / (1.0 - s.m[3] * load);
}

/// The load of the simultaneous match, written so that a vanishing term gives the centre.
Cx MatchedLoad(const Matrix2& s) {
    const Cx C = LoadTerm(s);
    const double B = 1 + std::norm(s.m[3]) - std::norm(s.m[0]) - std::norm(s.determinant());
    return 2.0 * std::conj(C) / (B + std::sqrt(std::max(0.0, B * B - 4 * std::norm(C))));
}

ReflectionCircle Circle(Cx centre, double radius) {
    if (std::isfinite(radius)) return {centre, radius};
    return {centre, std::numeric_limits<double>::infinity()};
}

}  // namespace

DeviceFigures DeviceFiguresOf(const Matrix2& s) {
    const TwoPortFigures figures = FiguresOf(s, {});
    DeviceFigures device;
    device.K = figures.stability;
    device.determinant = figures.determinant;
    device.mu = Mu(s);
    device.muPrime = Mu(Turned(s));
    device.unconditional = figures.unconditional;
    device.availableGain = std::pow(10.0, figures.availableDb / 10);
    if (device.unconditional) {
        const Cx source = MatchedLoad(Turned(s));
        const Cx load = MatchedLoad(s);
        device.match = SimultaneousMatch{source, load, TransducerGain(s, source, load)};
    }
    return device;
}

StabilityCircle StabilityCircleOf(const Matrix2& s, DeviceSide side) {
    if (side == DeviceSide::Source) return StabilityCircleOf(Turned(s), DeviceSide::Load);
    const double scale = std::norm(s.m[3]) - std::norm(s.determinant());
    StabilityCircle circle{
        Circle(std::conj(LoadTerm(s)) / scale, std::abs(s.m[1] * s.m[2] / scale))};
    // The centre of the chart is stable where |S11| < 1.
    const bool holdsCentre = std::abs(circle.centre) < circle.radius;
    circle.stableInside = holdsCentre == (std::abs(s.m[0]) < 1);
    return circle;
}

std::optional<ReflectionCircle> GainCircleOf(const Matrix2& s, DeviceSide side, double gain) {
    if (side == DeviceSide::Source) {
        // The available gain over |S21|² is the operating gain of the turned two-port over |S12|².
        const Matrix2 turned = Turned(s);
        const Matrix2 alike{{turned.m[0], s.m[1], s.m[2], turned.m[3]}};
        return GainCircleOf(alike, DeviceSide::Load, gain);
    }
    const double g = gain / std::norm(s.m[2]);
    const double cross = std::abs(s.m[1] * s.m[2]);
    // 2·K·|S12·S21|, which stays finite without feedback.
    const double twoK = 1 - std::norm(s.m[0]) - std::norm(s.m[3]) + std::norm(s.determinant());
    const double scale = 1 + g * (std::norm(s.m[3]) - std::norm(s.determinant()));
    double square = 1 - twoK * g + cross * cross * g * g;
    if (std::abs(square) < 1e-12) square = 0;  // the largest gain is a point
    if (!(gain > 0) || !(square >= 0)) return std::nullopt;
    return Circle(g * std::conj(LoadTerm(s)) / scale, std::sqrt(square) / std::abs(scale));
}

double OperatingGain(const Matrix2& s, Cx load) {
    return std::norm(s.m[2]) * (1 - std::norm(load)) /
           ((1 - std::norm(InputReflection(s, load))) * std::norm(1.0 - s.m[3] * load));
}

double AvailableGain(const Matrix2& s, Cx source) {
    const Cx output = InputReflection(Turned(s), source);
    return std::norm(s.m[2]) * (1 - std::norm(source)) /
           ((1 - std::norm(output)) * std::norm(1.0 - s.m[0] * source));
}

double TransducerGain(const Matrix2& s, Cx source, Cx load) {
    const Cx loop =
        (1.0 - s.m[0] * source) * (1.0 - s.m[3] * load) - s.m[1] * s.m[2] * source * load;
    return std::norm(s.m[2]) * (1 - std::norm(source)) * (1 - std::norm(load)) / std::norm(loop);
}

}  // namespace kelvro
