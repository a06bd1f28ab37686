#include "optimize/equal_ripple.h"

#include <cmath>
#include <complex>

#include "core/scalar.h"

namespace kelvro {

namespace {

using Real = long double;
using Cx = std::complex<Real>;

constexpr Real kPi = static_cast<Real>(kTwoPi) / 2;

/// Coefficients from the constant on, times (s - root).
std::vector<Cx> Times(const std::vector<Cx>& polynomial, Cx root) {
    std::vector<Cx> product(polynomial.size() + 1);
    for (std::size_t i = 0; i < polynomial.size(); ++i) {
        product[i + 1] += polynomial[i];
        product[i] -= root * polynomial[i];
    }
    return product;
}

/// 1/GT = 1 + ε²·T², T the Chebyshev polynomial of x, which runs from -1 to 1 over the band with
/// the square of the frequency.
class EqualRipple {
  public:
    EqualRipple(Real ratio, const FrequencyBand& band, int sections) : n_(sections) {
        const Real low = static_cast<Real>(band.low) / band.high;  // the square of low/ω0
        middle_ = (low + 1 / low) / 2;
        half_ = (1 / low - low) / 2;
        // The direct connection at f = 0.
        const Real loss = (ratio - 1) * (ratio - 1) / (4 * ratio);
        const Real atZero = std::cosh(n_ * std::acosh(middle_ / half_));
        inverseRipple_ = atZero / std::sqrt(loss);
    }

    /// Denominator of the reflection: its roots in the left half plane.
    std::vector<Real> denominator() const {
        std::vector<Cx> polynomial = {1};
        const Real width = std::asinh(inverseRipple_) / n_;
        for (int k = 0; k < 2 * n_; ++k) {
            const Cx x = std::cos(Cx((2 * k + 1) * kPi / (2 * n_), width));
            const Cx s = std::sqrt(-(middle_ + half_ * x));
            polynomial = Times(polynomial, s.real() < 0 ? s : -s);
        }
        return realPart(polynomial);
    }

    /// Numerator: no reflection where T is 0.
    std::vector<Real> numerator() const {
        std::vector<Cx> polynomial = {1};
        for (int k = 0; k < n_; ++k) {
            const Real x = std::cos((2 * k + 1) * kPi / (2 * n_));
            const Cx s(0, std::sqrt(middle_ + half_ * x));
            polynomial = Times(Times(polynomial, s), -s);
        }
        return realPart(polynomial);
    }

  private:
    static std::vector<Real> realPart(const std::vector<Cx>& polynomial) {
        std::vector<Real> real;
        real.reserve(polynomial.size());
        for (const Cx& coefficient : polynomial) real.push_back(coefficient.real());
        return real;
    }

    int n_;
    Real middle_;  ///< of the squares of the edges over ω0
    Real half_;
    Real inverseRipple_;  ///< 1/ε
};

}  // namespace

std::vector<double> EqualRippleLadder(double ratio, const FrequencyBand& band, int sections) {
    const EqualRipple response(ratio, band, sections);
    // Zin/R1 = (D + N)/(D - N), taken apart by continued fractions.
    std::vector<Real> over = response.denominator();
    const std::vector<Real> N = response.numerator();
    std::vector<Real> under = over;
    for (std::size_t i = 0; i < N.size(); ++i) {
        over[i] += N[i];
        under[i] -= N[i];
    }
    under.pop_back();
    std::vector<double> values;
    while (!under.empty()) {
        const Real value = over.back() / under.back();
        if (!(value > 0) || !std::isfinite(value)) return {};
        values.push_back(static_cast<double>(value));
        for (std::size_t i = 0; i < under.size(); ++i) over[i + 1] -= value * under[i];
        // The degree falls by two: what is left of the second coefficient is rounding.
        over.resize(over.size() - 2);
        std::swap(over, under);
    }
    return values;
}

}  // namespace kelvro
