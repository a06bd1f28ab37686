#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

// Several frequencies in one number. `Four` and `Wide` compute lane by lane with the same
// operations as `double` in their place, so that all three give the same digits. No function of the
// C library is called, whose last digit depends on the processor.

namespace kelvro::lanes {

using Pair = double __attribute__((vector_size(16)));
using PairBits = std::int64_t __attribute__((vector_size(16)));
using Quad = double __attribute__((vector_size(32)));
using QuadBits = std::int64_t __attribute__((vector_size(32)));

// Registers are copied as such: as the bytes they are, a wide one would be copied in halves, for
// whose joining the processor waits. It also makes all functions, whatever instructions they are
// compiled for, pass them alike: by address.

/// Which lanes.
template <typename Bits>
struct RegisterMask {
    Bits bits;

    constexpr RegisterMask(const Bits& from) : bits(from) {}
    constexpr RegisterMask(const RegisterMask& from) : bits(from.bits) {}
    RegisterMask& operator=(const RegisterMask&) = delete;
};

/// As many numbers as one register of the processor holds.
template <typename Vector, typename Bits>
struct Register {
    static constexpr std::size_t size = sizeof(Vector) / sizeof(double);
    using Mask = RegisterMask<Bits>;
    Vector x;

    Register() = default;
    constexpr Register(double value) : x(value - Vector{}) {}
    constexpr Register(const Vector& values) : x(values) {}
    constexpr Register(const Register& from) : x(from.x) {}
    constexpr Register& operator=(const Register& from) {
        x = from.x;
        return *this;
    }

    static Register From(const double* from) {
        Vector x;
        __builtin_memcpy(&x, from, sizeof x);
        return x;
    }
    void to(double* into) const { __builtin_memcpy(into, &x, sizeof x); }
    double lane(std::size_t i) const { return x[i]; }

    Register operator-() const { return -x; }
    friend Register operator+(const Register& a, const Register& b) { return a.x + b.x; }
    friend Register operator-(const Register& a, const Register& b) { return a.x - b.x; }
    friend Register operator*(const Register& a, const Register& b) { return a.x * b.x; }
    friend Register operator/(const Register& a, const Register& b) { return a.x / b.x; }
    friend Mask operator<(const Register& a, const Register& b) { return a.x < b.x; }
    friend Mask operator==(const Register& a, const Register& b) { return a.x == b.x; }
};

/// Two registers at a time: while one waits for a result the other computes.
template <typename Half>
struct Twice {
    static constexpr std::size_t size = 2 * Half::size;
    struct Mask {
        typename Half::Mask low, high;
    };
    Half low, high;

    Twice() = default;
    constexpr Twice(double value) : low(value), high(value) {}
    constexpr Twice(const Half& first, const Half& second) : low(first), high(second) {}

    static Twice From(const double* from) {
        return {Half::From(from), Half::From(from + Half::size)};
    }
    void to(double* into) const {
        low.to(into);
        high.to(into + Half::size);
    }
    double lane(std::size_t i) const {
        return i < Half::size ? low.lane(i) : high.lane(i - Half::size);
    }

    Twice operator-() const { return {-low, -high}; }
    friend Twice operator+(const Twice& a, const Twice& b) {
        return {a.low + b.low, a.high + b.high};
    }
    friend Twice operator-(const Twice& a, const Twice& b) {
        return {a.low - b.low, a.high - b.high};
    }
    friend Twice operator*(const Twice& a, const Twice& b) {
        return {a.low * b.low, a.high * b.high};
    }
    friend Twice operator/(const Twice& a, const Twice& b) {
        return {a.low / b.low, a.high / b.high};
    }
    friend Mask operator<(const Twice& a, const Twice& b) {
        return {a.low < b.low, a.high < b.high};
    }
    friend Mask operator==(const Twice& a, const Twice& b) {
        return {a.low == b.low, a.high == b.high};
    }
};

/// Four numbers with the plain operations of any processor of its family.
using Four = Twice<Register<Pair, PairBits>>;
/// Four numbers in one register, where the processor has such; to be used only in functions that
/// are compiled for it.
using Wide = Register<Quad, QuadBits>;

// --- Functions of one number, of a register and of two -----------------------------------------

inline double Select(bool which, double yes, double no) {
    return which ? yes : no;
}
template <typename V, typename B>
Register<V, B> Select(const RegisterMask<B>& which, const Register<V, B>& yes,
                      const Register<V, B>& no) {
    return which.bits ? yes.x : no.x;
}
template <typename H>
Twice<H> Select(const typename Twice<H>::Mask& which, const Twice<H>& yes, const Twice<H>& no) {
    return {Select(which.low, yes.low, no.low), Select(which.high, yes.high, no.high)};
}

inline double SquareRoot(double x) {
    return std::sqrt(x);
}
template <typename V, typename B>
Register<V, B> SquareRoot(const Register<V, B>& from) {
    V root;
    for (std::size_t i = 0; i < from.size; ++i) root[i] = std::sqrt(from.x[i]);
    return root;
}
template <typename H>
Twice<H> SquareRoot(const Twice<H>& x) {
    return {SquareRoot(x.low), SquareRoot(x.high)};
}

inline double Absolute(double x) {
    return std::fabs(x);
}
template <typename V, typename B>
Register<V, B> Absolute(const Register<V, B>& from) {
    return (V)((B)from.x & INT64_MAX);
}
template <typename H>
Twice<H> Absolute(const Twice<H>& x) {
    return {Absolute(x.low), Absolute(x.high)};
}

/// The magnitude of x with the sign of `sign`.
inline double WithSign(double x, double sign) {
    return std::copysign(x, sign);
}
template <typename V, typename B>
Register<V, B> WithSign(const Register<V, B>& from, const Register<V, B>& sign) {
    return (V)(((B)from.x & INT64_MAX) | ((B)sign.x & INT64_MIN));
}
template <typename H>
Twice<H> WithSign(const Twice<H>& x, const Twice<H>& sign) {
    return {WithSign(x.low, sign.low), WithSign(x.high, sign.high)};
}

/// 2^n from n + 2^52 + 1023, whose last 11 bits are the exponent.
inline double PowerFromSum(double sum) {
    return std::bit_cast<double>(std::bit_cast<std::int64_t>(sum) << 52);
}
template <typename V, typename B>
Register<V, B> PowerFromSum(const Register<V, B>& sum) {
    return (V)((B)sum.x << 52);
}
template <typename H>
Twice<H> PowerFromSum(const Twice<H>& sum) {
    return {PowerFromSum(sum.low), PowerFromSum(sum.high)};
}

// --- Functions of all of them -------------------------------------------------------------------

/// The nearest whole number of |x| < 2^51: adding 1.5·2^52 leaves no place for a fraction.
template <typename T>
T Rounded(T x) {
    const T shift = 6755399441055744.0;
    return (x + shift) - shift;
}

/// 2^n of a whole number |n| < 1000, by its bits: no lane needs an instruction of its own.
template <typename T>
T PowerOfTwo(T n) {
    return PowerFromSum(n + T(4503599627370496.0 + 1023));
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
