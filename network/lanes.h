#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

// Several frequencies in one number. `Four` computes lane by lane with the plain operations of any
// processor of its family; the same source text with `double` in its place gives the same digits.
// No function of the C library is called, whose last digit depends on the processor.

namespace kelvro::lanes {

using Pair = double __attribute__((vector_size(16)));
using PairMask = std::int64_t __attribute__((vector_size(16)));

/// Which lanes.
struct FourMask {
    PairMask low, high;
};

/// Four numbers.
struct Four {
    static constexpr std::size_t size = 4;
    Pair low, high;

    Four() = default;
    constexpr Four(double x) : low{x, x}, high{x, x} {}
    constexpr Four(Pair first, Pair second) : low(first), high(second) {}

    static Four From(const double* x) { return {Pair{x[0], x[1]}, Pair{x[2], x[3]}}; }
    void to(double* x) const {
        x[0] = low[0];
        x[1] = low[1];
        x[2] = high[0];
        x[3] = high[1];
    }
    double lane(std::size_t i) const { return i < 2 ? low[i] : high[i - 2]; }

    Four operator-() const { return {-low, -high}; }
    friend Four operator+(Four a, Four b) { return {a.low + b.low, a.high + b.high}; }
    friend Four operator-(Four a, Four b) { return {a.low - b.low, a.high - b.high}; }
    friend Four operator*(Four a, Four b) { return {a.low * b.low, a.high * b.high}; }
    friend Four operator/(Four a, Four b) { return {a.low / b.low, a.high / b.high}; }
    friend FourMask operator<(Four a, Four b) { return {a.low < b.low, a.high < b.high}; }
    friend FourMask operator==(Four a, Four b) { return {a.low == b.low, a.high == b.high}; }
};

inline double Select(bool which, double yes, double no) {
    return which ? yes : no;
}
inline Four Select(FourMask which, Four yes, Four no) {
    return {which.low ? yes.low : no.low, which.high ? yes.high : no.high};
}

inline double SquareRoot(double x) {
    return std::sqrt(x);
}
inline Four SquareRoot(Four x) {
    return {Pair{std::sqrt(x.low[0]), std::sqrt(x.low[1])},
            Pair{std::sqrt(x.high[0]), std::sqrt(x.high[1])}};
}

inline double Absolute(double x) {
    return std::fabs(x);
}
inline Four Absolute(Four x) {
    constexpr PairMask kNoSign{INT64_MAX, INT64_MAX};
    return {(Pair)((PairMask)x.low & kNoSign), (Pair)((PairMask)x.high & kNoSign)};
}

/// The magnitude of x with the sign of `sign`.
inline double WithSign(double x, double sign) {
    return std::copysign(x, sign);
}
inline Four WithSign(Four x, Four sign) {
    constexpr PairMask kSign{INT64_MIN, INT64_MIN};
    const Four size = Absolute(x);
    return {(Pair)((PairMask)size.low | ((PairMask)sign.low & kSign)),
            (Pair)((PairMask)size.high | ((PairMask)sign.high & kSign))};
}

/// The nearest whole number of |x| < 2^51: adding 1.5·2^52 leaves no place for a fraction.
template <typename T>
T Rounded(T x) {
    const T shift = 6755399441055744.0;
    return (x + shift) - shift;
}

/// 2^n of a whole number |n| < 1000, by squaring: no lane needs an instruction of its own.
template <typename T>
T PowerOfTwo(T n) {
    const T shift = 4503599627370496.0 + 1023;  // the sum's last 11 bits are the exponent
    if constexpr (sizeof(T) == sizeof(double)) {
        const double sum = n + shift;
        std::int64_t bits;
        __builtin_memcpy(&bits, &sum, sizeof bits);
        bits <<= 52;
        double power;
        __builtin_memcpy(&power, &bits, sizeof power);
        return power;
    } else {
        const T sum = n + shift;
        return {(Pair)((PairMask)sum.low << 52), (Pair)((PairMask)sum.high << 52)};
    }
}

/// c[0]·x^n + ... + c[n].
template <typename T, std::size_t n>
T Horner(T x, const double (&c)[n]) {
    T sum = c[0];
    for (std::size_t i = 1; i < n; ++i) sum = sum * x + T(c[i]);
    return sum;
}

/// Angle of x + jy in (-π, π], to 3e-16; 0 for 0 + j0. S. L. Moshier, Cephes Mathematical Library:
/// atan, with the range reduced to |t| <= tan(π/8) by one division.
template <typename T>
[[gnu::always_inline]] inline T ArcTangent(T y, T x) {
    constexpr double p[] = {-8.750608600031904122785e-1, -1.615753718733365076637e1,
                            -7.500855792314704667340e1, -1.228866684490136173410e2,
                            -6.485021904942025371773e1};
    constexpr double q[] = {1.0,
                            2.485846490142306297962e1,
                            1.650270098316988542046e2,
                            4.328810604912902668951e2,
                            4.853903996359136964868e2,
                            1.945506571482613964425e2};
    constexpr double kEighth = 0.41421356237309503;  // tan(π/8)
    constexpr double kPi = 3.14159265358979312;
    const T ax = Absolute(x);
    const T ay = Absolute(y);
    const auto steep = ax < ay;
    const T big = Select(steep, ay, ax);
    const T small = Select(steep, ax, ay);
    const auto wide = big * T(kEighth) < small;
    const T over = Select(wide, small - big, small);
    const T under = Select(wide, small + big, big);
    const T t = over / Select(under == T(0.0), T(1.0), under);
    const T z = t * t;
    const T base = Select(wide, T(kPi / 4), T(0.0));
    T angle = base + (t * (z * (Horner(z, p) / Horner(z, q))) + t);
    angle = Select(steep, T(kPi / 2) - angle, angle);
    angle = Select(WithSign(T(1.0), x) < T(0.0), T(kPi) - angle, angle);
    return WithSign(angle, y);
}

template <typename T>
struct SineCosine {
    T sine, cosine;
};

/// To 3e-16 for |x| < 1e5. Cephes: sin and cos on |r| <= π/4, behind a reduction with π/2 in three
/// parts.
template <typename T>
SineCosine<T> SineAndCosine(T x) {
    constexpr double s[] = {1.58962301576546568060e-10, -2.50507477628578072866e-8,
                            2.75573136213857245213e-6,  -1.98412698295895385996e-4,
                            8.33333333332211858878e-3,  -1.66666666666666307295e-1};
    constexpr double c[] = {-1.13585365213876817300e-11, 2.08757008419747316778e-9,
                            -2.75573141792967388112e-7,  2.48015872888517045348e-5,
                            -1.38888888888730564116e-3,  4.16666666666665929218e-2};
    const T turns = Rounded(x * T(0.63661977236758134));
    const T r = ((x - turns * T(2 * 7.85398125648498535156e-1)) -
                 turns * T(2 * 3.77489470793079817668e-8)) -
                turns * T(2 * 2.69515142907905952645e-15);
    const T z = r * r;
    const T sine = r + r * z * Horner(z, s);
    const T cosine = T(1.0) - T(0.5) * z + z * z * Horner(z, c);
    const T quadrant = turns - T(4.0) * Rounded(turns * T(0.25));  // -2 .. 2
    const auto odd = Absolute(quadrant) == T(1.0);
    const T first = Select(odd, cosine, sine);
    const T second = Select(odd, sine, cosine);
    // Quadrants 1, 2, 3 (as -1): sine c, -s, -c; cosine -s, -c, s.
    const auto half = Absolute(quadrant) == T(2.0);
    return {Select(half, -first, Select(quadrant == T(-1.0), -first, first)),
            Select(half, -second, Select(quadrant == T(1.0), -second, second))};
}

/// e^-x for x >= 0, to 3e-16; 0 from x = 690. Cephes: exp.
template <typename T>
T Decay(T x) {
    constexpr double p[] = {1.26177193074810590878e-4, 3.02994407707441961300e-2,
                            9.99999999999999999910e-1};
    constexpr double q[] = {3.00198505138664455042e-6, 2.52448340349684104192e-3,
                            2.27265548208155028766e-1, 2.00000000000000000005e0};
    const auto gone = T(690.0) < x;
    const T negative = -Select(gone, T(0.0), x);
    const T n = Rounded(negative * T(1.4426950408889634));
    const T r = (negative - n * T(6.93145751953125e-1)) - n * T(1.42860682030941723212e-6);
    const T z = r * r;
    const T odd = r * Horner(z, p);
    const T power = T(1.0) + T(2.0) * (odd / (Horner(z, q) - odd));
    return Select(gone, T(0.0), power * PowerOfTwo(n));
}

/// A complex number; products are the plain formulas.
template <typename T>
struct Complex {
    using Real = T;
    T re, im;

    /// From a number and its slope, which only Sloped keeps.
    static Complex Of(Complex value, Complex) { return value; }
    static Complex Of(double real) { return {T(real), T(0.0)}; }
    Complex plain() const { return *this; }

    Complex operator-() const { return {-re, -im}; }
    friend Complex operator+(Complex a, Complex b) { return {a.re + b.re, a.im + b.im}; }
    friend Complex operator-(Complex a, Complex b) { return {a.re - b.re, a.im - b.im}; }
    friend Complex operator*(Complex a, Complex b) {
        return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
    }
    friend Complex operator*(T a, Complex b) { return {a * b.re, a * b.im}; }
    Complex conjugate() const { return {re, -im}; }
    T norm() const { return re * re + im * im; }
    Complex reciprocal() const {
        const T scale = T(1.0) / norm();
        return {re * scale, -(im * scale)};
    }
};

/// A complex number and its slope over the angular frequency.
template <typename T>
struct Sloped {
    using Real = T;
    Complex<T> value, slope;

    static Sloped Of(Complex<T> value, Complex<T> slope) { return {value, slope}; }
    static Sloped Of(double real) { return {Complex<T>::Of(real), Complex<T>::Of(0.0)}; }
    Complex<T> plain() const { return value; }

    Sloped operator-() const { return {-value, -slope}; }
    friend Sloped operator+(Sloped a, Sloped b) { return {a.value + b.value, a.slope + b.slope}; }
    friend Sloped operator-(Sloped a, Sloped b) { return {a.value - b.value, a.slope - b.slope}; }
    friend Sloped operator*(Sloped a, Sloped b) {
        return {a.value * b.value, a.value * b.slope + a.slope * b.value};
    }
    friend Sloped operator*(T a, Sloped b) { return {a * b.value, a * b.slope}; }
    Sloped reciprocal() const {
        const Complex<T> inverse = value.reciprocal();
        return {inverse, -(inverse * inverse * slope)};
    }
};

}  // namespace kelvro::lanes
