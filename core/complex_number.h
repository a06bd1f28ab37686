#pragma once

#include <cstdint>

namespace kelvro {

/// A complex number in cartesian or polar form; angles are degrees. Operations take their operands
/// by value, in either form, and never fail.
struct Complex {
    enum class Form : std::uint8_t { Cartesian = 0, Polar = 1 };

    Form form = Form::Cartesian;
    double a = 0;  ///< real part, or modulus
    double b = 0;  ///< imaginary part, or angle in degrees

    static Complex Cartesian(double re, double im) { return {Form::Cartesian, re, im}; }
    static Complex Polar(double modulus, double degrees) { return {Form::Polar, modulus, degrees}; }

    double real() const;
    double imaginary() const;
    double modulus() const;
    /// Angle in degrees: in (-180, 180] from cartesian form, 0 for zero.
    double argument() const;

    Complex toCartesian() const;
    Complex toPolar() const;
    /// The other form.
    Complex switched() const;
};

Complex operator+(Complex x, Complex y);
Complex operator-(Complex x, Complex y);
/// Polar when both operands are polar, else cartesian.
Complex operator*(Complex x, Complex y);
/// Polar. A modulus of exactly 0 divides as 1e-20 instead of failing.
Complex operator/(Complex x, Complex y);
Complex operator+(double x, Complex z);
Complex operator-(double x, Complex z);
/// Polar; 1/0 follows the floating-point rules.
Complex Reciprocal(Complex z);

}  // namespace kelvro
