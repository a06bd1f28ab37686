#pragma once

#include <cmath>
#include <limits>

#include "network/lanes.h"

// A number together with a bound of its rounding error, grown by every operation (N. J. Higham,
// "Accuracy and Stability of Numerical Algorithms", section 3.3). The ladder's own formulas run on
// it as on any other number, and tell at each network what of their result is certain. To be
// included before the formulas, which look for the functions below.

namespace kelvro::lanes {

struct Bounded {
    static constexpr std::size_t size = 1;
    /// Where numbers grew or shrank out of the range of a double since this was last cleared.
    static inline bool leftRange = false;

    double value = 0;
    double error = 0;  ///< |value - exact value| is at most that; infinite where nothing is known

    Bounded() = default;
    /// Constants and coefficients are rounded themselves.
    Bounded(double constant) : value(constant), error(kUnit * std::fabs(constant)) {}

    /// A computed value, whose operands leave an error of `inherited`.
    static Bounded Of(double value, double inherited) {
        Bounded number;
        number.value = value;
        number.error = inherited + kUnit * std::fabs(value);
        return number;
    }
    static Bounded From(const double* values) { return values[0]; }
    double lane(std::size_t) const { return value; }

    Bounded operator-() const {
        Bounded negative = *this;
        negative.value = -value;
        return negative;
    }
    friend Bounded operator+(Bounded a, Bounded b) {
        return Within(a.value + b.value, a.error + b.error, false);
    }
    friend Bounded operator-(Bounded a, Bounded b) { return a + -b; }
    friend Bounded operator*(Bounded a, Bounded b) {
        const bool zero = a.value == 0 || b.value == 0;
        return Within(
            a.value * b.value,
            Times(a.error, std::fabs(b.value) + b.error) + Times(std::fabs(a.value), b.error),
            !zero);
    }
    friend Bounded operator/(Bounded a, Bounded b) {
        const double ratio = a.value / b.value;
        const double least = std::fabs(b.value) - b.error;
        if (b.value == 0 || !(least > 0)) return Of(ratio, kInfinite);
        return Within(ratio, (a.error + Times(std::fabs(ratio), b.error)) / least, a.value != 0);
    }
    friend bool operator<(Bounded a, Bounded b) { return a.value < b.value; }
    friend bool operator==(Bounded a, Bounded b) { return a.value == b.value; }

    static constexpr double kUnit = std::numeric_limits<double>::epsilon();
    static constexpr double kInfinite = std::numeric_limits<double>::infinity();

  private:
    /// Nothing times an unknown is nothing.
    static double Times(double a, double b) { return a == 0 || b == 0 ? 0 : a * b; }

    /// Of finite operands. Small numbers have fewer digits, and at last none.
    static Bounded Within(double value, double inherited, bool shrinks) {
        const double magnitude = std::fabs(value);
        if (magnitude > std::numeric_limits<double>::max() ||
            (shrinks && magnitude < std::numeric_limits<double>::min())) {
            leftRange = true;
        }
        return Of(value, inherited);
    }
};

inline Bounded Select(bool which, Bounded yes, Bounded no) {
    return which ? yes : no;
}

inline Bounded Absolute(Bounded x) {
    x.value = std::fabs(x.value);
    return x;
}

inline Bounded SquareRoot(Bounded x) {
    const double root = std::sqrt(x.value);
    return Bounded::Of(root, x.error == 0 ? 0 : x.error / root);
}

/// The range reduction of the sine keeps its digits up to 1e5, and some up to 1e9.
template <>
inline SineCosine<Bounded> SineAndCosine(Bounded x) {
    const auto [sine, cosine] = SineAndCosine(x.value);
    const double size = std::fabs(x.value);
    const double reduced = size < 1e5 ? 4 * Bounded::kUnit : 4 * Bounded::kUnit * size;
    const double error = size < 1e9 ? x.error + reduced : Bounded::kInfinite;
    return {Bounded::Of(sine, error), Bounded::Of(cosine, error)};
}

template <>
inline Bounded Decay(Bounded x) {
    const double value = Decay(x.value);
    const double error = x.error < 0.5 ? value * (2 * x.error + 4 * Bounded::kUnit) : 1;
    return Bounded::Of(value, error);
}

}  // namespace kelvro::lanes
