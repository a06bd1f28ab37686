#include "network/two_port.h"

#include <cmath>

namespace kelvro {

namespace {

using Number = std::complex<double>;

constexpr Matrix2 kIdentity{{1, 0, 0, 1}};

Matrix2 operator*(const Matrix2& a, const Matrix2& b) {
    const auto& [a11, a12, a21, a22] = a.m;
    const auto& [b11, b12, b21, b22] = b.m;
    return {{a11 * b11 + a12 * b21, a11 * b12 + a12 * b22, a21 * b11 + a22 * b21,
             a21 * b12 + a22 * b22}};
}

Matrix2 operator+(const Matrix2& a, const Matrix2& b) {
    return {{a.m[0] + b.m[0], a.m[1] + b.m[1], a.m[2] + b.m[2], a.m[3] + b.m[3]}};
}

Matrix2 operator-(const Matrix2& a, const Matrix2& b) {
    return {{a.m[0] - b.m[0], a.m[1] - b.m[1], a.m[2] - b.m[2], a.m[3] - b.m[3]}};
}

Matrix2 Diagonal(double first, double second) {
    return {{first, 0, 0, second}};
}

std::optional<Matrix2> IfFinite(const Matrix2& matrix) {
    if (!matrix.finite()) return std::nullopt;
    return matrix;
}

/// Nothing for a matrix that is singular to the digits of its elements.
std::optional<Matrix2> Inverse(const Matrix2& matrix) {
    const auto& [a, b, c, d] = matrix.m;
    const Number determinant = matrix.determinant();
    const double size = std::abs(a * d) + std::abs(b * c);
    if (!(std::abs(determinant) > 1e-13 * size)) return std::nullopt;
    return IfFinite({{d / determinant, -b / determinant, -c / determinant, a / determinant}});
}

/// diag(1/sqrt z)·matrix·diag(sqrt z): from voltages to waves.
Matrix2 ToWaves(const Matrix2& matrix, Ports ports) {
    const double root = std::sqrt(ports.second / ports.first);
    return {{matrix.m[0], matrix.m[1] * root, matrix.m[2] / root, matrix.m[3]}};
}

Matrix2 FromWaves(const Matrix2& matrix, Ports ports) {
    return ToWaves(matrix, {ports.second, ports.first});
}

/// The junction of two lines as a two-port; the first port refers to `from`, the second to `to`.
Matrix2 Step(double from, double to) {
    const double reflection = (to - from) / (to + from);
    const double transmission = 2 * std::sqrt(from * to) / (to + from);
    return {{reflection, transmission, transmission, -reflection}};
}

/// Elimination of the two waves between the ports that meet.
std::optional<Matrix2> Joined(const Matrix2& a, const Matrix2& b) {
    const Number loop = 1.0 - a.m[3] * b.m[0];
    return IfFinite({{a.m[0] + a.m[1] * b.m[0] * a.m[2] / loop, a.m[1] * b.m[1] / loop,
                      a.m[2] * b.m[2] / loop, b.m[3] + b.m[2] * a.m[3] * b.m[1] / loop}});
}

/// D. A. Frickey, "Conversions Between S, Z, Y, h, ABCD, and T Parameters which are Valid for
/// Complex Source and Load Impedances", IEEE Trans. MTT-42 (1994), pp. 205-211, table I for real
/// references.
std::optional<Matrix2> ChainToScattering(const Matrix2& chain, Ports ports) {
    const auto& [A, B, C, D] = chain.m;
    const auto [z1, z2] = ports;
    const Number sum = A * z2 + B + C * z1 * z2 + D * z1;
    const double root = 2 * std::sqrt(z1 * z2);
    return IfFinite({{(A * z2 + B - C * z1 * z2 - D * z1) / sum, chain.determinant() * root / sum,
                      root / sum, (-A * z2 + B - C * z1 * z2 + D * z1) / sum}});
}

std::optional<Matrix2> ScatteringToChain(const Matrix2& s, Ports ports) {
    const auto& [s11, s12, s21, s22] = s.m;
    const auto [z1, z2] = ports;
    const Number scale = 2.0 * s21 * std::sqrt(z1 * z2);
    const Number cross = s12 * s21;
    return IfFinite({{z1 * ((1.0 + s11) * (1.0 - s22) + cross) / scale,
                      z1 * z2 * ((1.0 + s11) * (1.0 + s22) - cross) / scale,
                      ((1.0 - s11) * (1.0 - s22) - cross) / scale,
                      z2 * ((1.0 - s11) * (1.0 + s22) + cross) / scale}});
}

}  // namespace

bool Matrix2::finite() const {
    for (const Number& x : m) {
        if (!std::isfinite(x.real()) || !std::isfinite(x.imag())) return false;
    }
    return true;
}

/// Z and Y after K. Kurokawa, "Power Waves and the Scattering Matrix", IEEE Trans. MTT-13 (1965),
/// pp. 194-202: S = F·(Z - Zo)·(Z + Zo)^-1·F^-1 with F = diag(1/sqrt(Zo)); with Y = Z^-1 the same
/// is (1 - Zo·Y)·(1 + Zo·Y)^-1 between the factors.
std::optional<Matrix2> ToScattering(Parameters kind, const Matrix2& matrix, Ports ports) {
    if (kind == Parameters::S) return IfFinite(matrix);
    if (kind == Parameters::ABCD) return ChainToScattering(matrix, ports);
    const Matrix2 reference = Diagonal(ports.first, ports.second);
    const bool impedance = kind == Parameters::Z;
    const Matrix2 plus = impedance ? matrix + reference : kIdentity + reference * matrix;
    const Matrix2 minus = impedance ? matrix - reference : kIdentity - reference * matrix;
    const auto inverse = Inverse(plus);
    if (!inverse) return std::nullopt;
    return IfFinite(ToWaves(minus * *inverse, ports));
}

std::optional<Matrix2> FromScattering(Parameters kind, const Matrix2& s, Ports ports) {
    if (kind == Parameters::S) return IfFinite(s);
    if (kind == Parameters::ABCD) return ScatteringToChain(s, ports);
    const Matrix2 bare = FromWaves(s, ports);
    const bool impedance = kind == Parameters::Z;
    const auto inverse = Inverse(impedance ? kIdentity - bare : kIdentity + bare);
    if (!inverse) return std::nullopt;
    const Matrix2 product =
        impedance ? *inverse * (kIdentity + bare) : *inverse * (kIdentity - bare);
    const Matrix2 reference = Diagonal(ports.first, ports.second);
    return IfFinite(impedance ? product * reference
                              : Diagonal(1 / ports.first, 1 / ports.second) * product);
}

std::optional<Matrix2> Cascade(const Matrix2& a, Ports aPorts, const Matrix2& b, Ports bPorts) {
    const auto stepped = Joined(a, Step(aPorts.second, bPorts.first));
    return stepped ? Joined(*stepped, b) : std::nullopt;
}

std::optional<Matrix2> Renormalized(const Matrix2& s, Ports from, Ports to) {
    const auto first = Joined(Step(to.first, from.first), s);
    return first ? Joined(*first, Step(from.second, to.second)) : std::nullopt;
}

/// J. M. Rollett, "Stability and Power-Gain Invariants of Linear Twoports", IRE Trans. CT-9 (1962),
/// pp. 29-32.
TwoPortFigures FiguresOf(const Matrix2& s, Ports ports) {
    const auto& [s11, s12, s21, s22] = s.m;
    const double cross = std::abs(s12 * s21);
    const double determinant = std::abs(s.determinant());
    // K·cross stays finite for two-ports without feedback, and so does MAG written with it.
    const double numerator = (1 - std::norm(s11) - std::norm(s22) + determinant * determinant) / 2;
    const double k = numerator / cross;
    const bool matchable = numerator >= cross;
    const double root = matchable ? std::sqrt(numerator * numerator - cross * cross) : 0;
    const double available =
        matchable ? std::norm(s21) / (numerator + root) : std::abs(s21) / std::abs(s12);
    return {20 * std::log10(std::abs(s21)),
            -20 * std::log10(std::abs(s11)),
            k,
            determinant,
            10 * std::log10(available),
            k > 1 && determinant < 1,
            std::abs(s12 - s21) <= 1e-9 * (std::abs(s12) + std::abs(s21)),
            ports.first * (1.0 + s11) / (1.0 - s11)};
}

}  // namespace kelvro
