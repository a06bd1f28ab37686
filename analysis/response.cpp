#include "analysis/response.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr double kLowestRelativeFrequency = 1e-6;  // guard of the mirrored frequency at f = 0
constexpr double kSmallestDivisor = 1e-20;
constexpr double kSmallestMagnitude = 1e-300;

// std::complex products check for NaN and infinity on every call; these are the plain formulas.
inline Cx Product(Cx x, Cx y) {
    return {x.real() * y.real() - x.imag() * y.imag(), x.real() * y.imag() + x.imag() * y.real()};
}

inline Cx Quotient(Cx x, Cx y) {
    const double scale = std::max(std::fabs(y.real()), std::fabs(y.imag()));
    if (scale == 0) return x / kSmallestDivisor;
    const Cx unit = y / scale;
    const double norm = unit.real() * unit.real() + unit.imag() * unit.imag();
    return Product(x / scale, {unit.real() / norm, -unit.imag() / norm});
}

/// s^power for the small powers of the network functions.
inline Cx PowerOf(Cx s, int power) {
    Cx result{1, 0};
    for (int i = 0; i < power; ++i) result = Product(result, s);
    return result;
}

double MirroredFrequency(double f, double fo) {
    const double lowest = kLowestRelativeFrequency * fo;
    const double guarded = std::fabs(f) < lowest ? std::copysign(lowest, f) : f;
    return -fo * fo / guarded;
}

}  // namespace

Response::Response(const Design& design)
    : transfer_(PageOf(design).transfer ? PageOf(design).transfer(design) : Transfer{}),
      mirrored_(PageOf(design).showsDuals(design)),
      fo_(design.fo),
      G2_(1 / design.R2),
      R1_(design.R1),
      lossTangent_(LossTangent(design)),
      ideal_(std::sqrt(design.R2 / design.R1)) {
    if (transfer_.ladder) ladder_.emplace(*transfer_.ladder);
    const Page& page = PageOf(design);
    const bool own = page.refersToItself && page.refersToItself(design);
    referenceDb_ = MagnitudeDb(own ? magnitude(fo_) : MatchedRatio(design));
}

std::complex<double> Response::transfer(double f) const {
    if (mirrored_) f = MirroredFrequency(f, fo_);
    const double omega = kTwoPi * f;
    // Mirrored frequencies are negative; the loss term turns with them and stays dissipative.
    const Cx s{(mirrored_ ? -omega : omega) * lossTangent_, omega};
    switch (transfer_.form) {
        case Transfer::Form::Polynomial:
            return polynomial(s);
        case Transfer::Form::Line:
            return line(s);
        case Transfer::Form::Ladder:
            // Of a real network the response at a negative frequency is the conjugate.
            return f < 0 ? std::conj(ladder_->voltageTransfer(-f)) : ladder_->voltageTransfer(f);
        case Transfer::Form::Ideal:
            break;
    }
    return {ideal_, 0};
}

std::complex<double> Response::polynomial(Cx s) const {
    const auto& a = transfer_.a;
    const Cx s2 = Product(s, s);
    Cx denominator = a[0] + a[1] * s;
    denominator += a[2] * s2;
    denominator += a[3] * Product(s2, s);
    denominator += a[4] * Product(s2, s2);
    return 2.0 * Quotient(transfer_.numerator * PowerOf(s, transfer_.power), denominator);
}

std::complex<double> Response::line(Cx s) const {
    const Cx angle = s * (std::numbers::pi / 2 / (kTwoPi * fo_));
    // cosh and sinh less their growing factor, which would overflow on long lossy lines.
    const double sign = angle.real() < 0 ? -1 : 1;
    const Cx decay = std::exp(-sign * angle);
    const Cx decay2 = Product(decay, decay);
    const Cx cosh = 0.5 * (1.0 + decay2);
    const Cx sinh = 0.5 * sign * (1.0 - decay2);
    const double straight = 1 + R1_ * G2_;  // A + D·R1·G2 of the chain matrix
    const double crossed = transfer_.ZL * G2_ + R1_ / transfer_.ZL;  // B·G2 + C·R1
    return 2.0 * Quotient(decay, straight * cosh + crossed * sinh);
}

Complex Response::value(double f) const {
    const Cx H = transfer(f);
    return Complex::Cartesian(H.real(), H.imag());
}

double Response::magnitude(double f) const {
    return Magnitude(transfer(f));
}

double Response::phase(double f) const {
    return PhaseDegrees(transfer(f));
}

double Response::magnitudeDb(double f) const {
    return MagnitudeDb(magnitude(f));
}

double Response::relativeDb(double f) const {
    return magnitudeDb(f) - referenceDb_;
}

double Response::groupDelay(double f) const {
    // A resonance of loaded Q is f/Q wide: within it the cubic term of the difference comes to
    // (2·Q·1e-7)². The rounding of the phase, 1e-16 of a turn, stays below 1e-9 of 2·Q/ω.
    constexpr double kRelativeStep = 1e-7;
    const double step = kRelativeStep * f;
    const Cx turned = transfer(f + step) * std::conj(transfer(f - step));
    return -std::arg(turned) / (2 * kTwoPi * step);
}

double Magnitude(Cx H) {
    return std::sqrt(H.real() * H.real() + H.imag() * H.imag());
}

double PhaseDegrees(Cx H) {
    return Complex::Cartesian(H.real(), H.imag()).argument();
}

double MagnitudeDb(double magnitude) {
    return 20 * std::log10(std::max(magnitude, kSmallestMagnitude));
}

double ResponseServices::responseMagnitude(const Design& design, double f) {
    return Response(design).magnitude(f);
}

}  // namespace kelvro
