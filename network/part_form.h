#pragma once

#include "network/lanes.h"
#include "network/part.h"

// What a part is at every frequency, as coefficients: the shape that all evaluations share, at one
// frequency or at several, with slopes or without.

namespace kelvro {

/// Powers of the angular frequency that parts ask for.
template <typename T>
struct Powers {
    T omega, inverse, root, inverseRoot;

    static Powers Of(T omega) {
        const T inverse = T(1.0) / omega;
        const T root = lanes::SquareRoot(omega);
        return {omega, inverse, root, root * inverse};
    }
};

/// A ratio voltage/current.
template <typename X>
struct PairOf {
    X voltage, current;
};

struct PartForm {
    enum class Kind : std::uint8_t {
        Open,
        Coil,       ///< R = r + rRoot·√ω + rLinear·ω, X = xLinear·ω; resistors too
        Capacitor,  ///< R = r + rLinear/ω + rRoot/ω^1.5 + rSquare/ω², X = xInverse/ω + xLinear·ω
    };
    Kind kind = Kind::Coil;
    double r = 0, rRoot = 0, rLinear = 0, rSquare = 0;
    double xLinear = 0, xInverse = 0;
    double across = 0;  ///< capacitance across all that, F
    /// 1/Z = (g + jb)/ω of a coil, (g + jb)·ω of a capacitor, where the law is that simple.
    bool proportional = false;
    double g = 0, b = 0;

    static PartForm Of(const Part& part);

    /// Re Z >= 0, and > 0, at every frequency.
    bool passive() const;
    bool lossy() const;
    /// Is Z (of a part that is no open), or 1/Z, a finite number at every frequency?
    bool hasImpedance() const;
    bool hasAdmittance() const;

    /// Z of what stands beside `across`; not of an open.
    template <typename X, typename T = typename X::Real>
    X branch(const Powers<T>& at) const {
        if (kind == Kind::Capacitor) {
            const T R = T(r) + at.inverse * (T(rLinear) + T(rRoot) * at.inverseRoot +
                                             T(rSquare) * at.inverse);
            const T X_ = T(xInverse) * at.inverse + T(xLinear) * at.omega;
            const T squared = at.inverse * at.inverse;
            return X::Of({R, X_}, {-squared * (T(rLinear) + T(1.5 * rRoot) * at.inverseRoot +
                                               T(2 * rSquare) * at.inverse),
                                   T(xLinear) - T(xInverse) * squared});
        }
        return X::Of({T(r) + T(rRoot) * at.root + T(rLinear) * at.omega, T(xLinear) * at.omega},
                     {T(rLinear) + T(0.5 * rRoot) * at.inverseRoot, T(xLinear)});
    }

    /// 1 + jωC·Z, by which the capacitance across divides the impedance.
    template <typename X, typename T = typename X::Real>
    X divisor(const Powers<T>& at, const X& Z) const {
        return X::Of(1) + X::Of({T(0.0), T(across) * at.omega}, {T(0.0), T(across)}) * Z;
    }

    template <typename X, typename T = typename X::Real>
    PairOf<X> pair(const Powers<T>& at) const {
        if (kind == Kind::Open) return {X::Of(1), X::Of(0)};
        const X Z = branch<X>(at);
        return {Z, across == 0 ? X::Of(1) : divisor(at, Z)};
    }
    /// Where hasImpedance().
    template <typename X, typename T = typename X::Real>
    X impedance(const Powers<T>& at) const {
        const X Z = branch<X>(at);
        return across == 0 ? Z : Z * divisor(at, Z).reciprocal();
    }
    /// Where hasAdmittance().
    template <typename X, typename T = typename X::Real>
    X admittance(const Powers<T>& at) const {
        if (kind == Kind::Open) return X::Of(0);
        if (proportional) {
            const T power = kind == Kind::Coil ? at.inverse : at.omega;
            const T slope = kind == Kind::Coil ? -(at.inverse * at.inverse) : T(1.0);
            return X::Of({T(g) * power, T(b) * power}, {T(g) * slope, T(b) * slope});
        }
        const X Z = branch<X>(at);
        const X Y = Z.reciprocal();
        return across == 0 ? Y : Y + X::Of({T(0.0), T(across) * at.omega}, {T(0.0), T(across)});
    }
};

}  // namespace kelvro
