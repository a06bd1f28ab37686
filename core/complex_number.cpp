#include "core/complex_number.h"

#include <cmath>
#include <numbers>

#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kSmallestDivisor = 1e-20;

double CartesianAngle(double re, double im) {
    if (im == 0) return re < 0 ? 180 : 0;
    if (re == 0) return im < 0 ? -90 : 90;
    const double angle = ArcTangentDegrees(im / re);
    if (re > 0) return angle;
    return im < 0 ? angle - 180 : angle + 180;
}

double Radians(double degrees) {
    return std::numbers::pi * degrees / 180;
}

}  // namespace

double Complex::real() const {
    return form == Form::Cartesian ? a : a * std::cos(Radians(b));
}

double Complex::imaginary() const {
    return form == Form::Cartesian ? b : a * std::sin(Radians(b));
}

double Complex::modulus() const {
    if (form == Form::Polar) return a;
    const long double re = a;
    const long double im = b;
    return static_cast<double>(std::sqrt(re * re + im * im));
}

double Complex::argument() const {
    return toPolar().b;
}

Complex Complex::toCartesian() const {
    return Cartesian(real(), imaginary());
}

Complex Complex::toPolar() const {
    return form == Form::Polar ? *this : Polar(modulus(), CartesianAngle(a, b));
}

Complex Complex::switched() const {
    return form == Form::Polar ? toCartesian() : toPolar();
}

Complex operator+(Complex x, Complex y) {
    return Complex::Cartesian(x.real() + y.real(), x.imaginary() + y.imaginary());
}

Complex operator-(Complex x, Complex y) {
    return Complex::Cartesian(x.real() - y.real(), x.imaginary() - y.imaginary());
}

Complex operator*(Complex x, Complex y) {
    if (x.form == Complex::Form::Polar && y.form == Complex::Form::Polar) {
        return Complex::Polar(x.a * y.a, x.b + y.b);
    }
    x = x.toCartesian();
    y = y.toCartesian();
    return Complex::Cartesian(x.a * y.a - x.b * y.b, x.a * y.b + x.b * y.a);
}

Complex operator/(Complex x, Complex y) {
    x = x.toPolar();
    y = y.toPolar();
    double angle = x.b - y.b;
    if (angle > 360) angle -= 360;
    if (angle < -360) angle += 360;
    return Complex::Polar(x.a / (y.a == 0 ? kSmallestDivisor : y.a), angle);
}

Complex operator+(double x, Complex z) {
    return Complex::Cartesian(x + z.real(), z.imaginary());
}

Complex operator-(double x, Complex z) {
    return Complex::Cartesian(x - z.real(), -z.imaginary());
}

Complex Reciprocal(Complex z) {
    z = z.toPolar();
    return Complex::Polar(1 / z.a, -z.b);
}

}  // namespace kelvro
