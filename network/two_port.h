#pragma once

#include <array>
#include <complex>
#include <cstdint>
#include <optional>
#include <string_view>

// Two-port matrices: conversion between scattering, impedance, admittance and chain parameters with
// real reference resistances, one per port; two-ports in cascade; figures of merit.

namespace kelvro {

/// Elements 11, 12, 21, 22; of a chain matrix A, B, C, D.
struct Matrix2 {
    std::array<std::complex<double>, 4> m{};

    std::complex<double> determinant() const { return m[0] * m[3] - m[1] * m[2]; }
    bool finite() const;
};

enum class Parameters : std::uint8_t { S, Z, Y, ABCD };

/// "S", "Z", "Y", "ABCD", in the order of the numbers.
inline constexpr std::array<std::string_view, 4> kParameterNames{"S", "Z", "Y", "ABCD"};

/// Reference resistances of the ports, which scattering parameters refer to; both above 0.
struct Ports {
    double first = 50;
    double second = 50;
};

/// Scattering parameters of a matrix; nothing when they do not exist.
std::optional<Matrix2> ToScattering(Parameters kind, const Matrix2& matrix, Ports ports);
/// The way back; nothing when the two-port has no such matrix (a series element has no Z).
std::optional<Matrix2> FromScattering(Parameters kind, const Matrix2& s, Ports ports);

/// Scattering parameters of two two-ports one behind the other. The second port of `a` meets the
/// first of `b`; where their references differ the step between them is taken into account.
std::optional<Matrix2> Cascade(const Matrix2& a, Ports aPorts, const Matrix2& b, Ports bPorts);
/// The same two-port with scattering parameters that refer to other resistances.
std::optional<Matrix2> Renormalized(const Matrix2& s, Ports from, Ports to);

/// Figures of a two-port between its reference resistances.
struct TwoPortFigures {
    double gainDb;                        ///< 20·log|s21|
    double returnLossDb;                  ///< -20·log|s11|
    double stability;                     ///< Rollett's K; infinite for s12·s21 = 0
    double determinant;                   ///< |s11·s22 - s12·s21|
    double availableDb;                   ///< MAG for K >= 1, else MSG
    bool unconditional;                   ///< K > 1 and |determinant| < 1
    bool reciprocal;                      ///< s12 = s21
    std::complex<double> inputImpedance;  ///< with the second port terminated in its reference
};
TwoPortFigures FiguresOf(const Matrix2& s, Ports ports);

}  // namespace kelvro
