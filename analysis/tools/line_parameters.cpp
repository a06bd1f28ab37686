#include "analysis/tools/line_parameters.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "analysis/tools/inverse.h"
#include "analysis/tools/physics.h"

namespace kelvro {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool Positive(double x) {
    return x > 0 && std::isfinite(x);
}

/// Exact for round concentric conductors without loss.
LineParameters Coax(const LineShape& line) {
    if (!(line.height > line.width)) return {kNone, kNone};
    const double impedance = kWaveImpedance / (2 * kPi * std::sqrt(line.permittivity)) *
                             std::log(line.height / line.width);
    return {impedance, line.permittivity};
}

// ---------------------------------------------------------------- microstrip

/// E. Hammerstad, O. Jensen, "Accurate Models for Microstrip Computer-Aided Design", IEEE MTT-S
/// Digest 1980, pp. 407-409, eq. 1 and 2: impedance in air of a strip of width u·h; within 0.01 %
/// for u <= 1 and 0.03 % for u <= 1000.
double MicrostripInAir(double u) {
    const double f = 6 + (2 * kPi - 6) * std::exp(-std::pow(30.666 / u, 0.7528));
    return kWaveImpedance / (2 * kPi) * std::log(f / u + std::hypot(1, 2 / u));
}

/// The same, eq. 3 to 5: within 0.2 % for 0.01 <= u <= 100 and er <= 128.
double MicrostripPermittivity(double u, double er) {
    const double u4 = std::pow(u, 4);
    const double a = 1 + std::log((u4 + std::pow(u / 52, 2)) / (u4 + 0.432)) / 49 +
                     std::log1p(std::pow(u / 18.1, 3)) / 18.7;
    const double b = 0.564 * std::pow((er - 0.9) / (er + 3), 0.053);
    return (er + 1) / 2 + (er - 1) / 2 * std::pow(1 + 10 / u, -a * b);
}

/// The same, eq. 6 to 9: strips of finite thickness count as wider ones.
LineParameters Microstrip(const LineShape& line) {
    const double u = line.width / line.height;
    const double t = line.thickness / line.height;
    const double er = line.permittivity;
    double wider = 0;
    if (t > 0) {
        const double coth = 1 / std::tanh(std::sqrt(6.517 * u));
        wider = t / kPi * std::log1p(4 * std::numbers::e / (t * coth * coth));
    }
    const double inAir = u + wider;
    const double mixed = u + wider / 2 * (1 + 1 / std::cosh(std::sqrt(er - 1)));
    const double z = MicrostripInAir(mixed);
    const double effective = MicrostripPermittivity(mixed, er);
    const double ratio = MicrostripInAir(inAir) / z;
    return {z / std::sqrt(effective), effective * ratio * ratio};
}

/// M. Kirschning, R. H. Jansen, "Accurate Model for Effective Dielectric Constant of Microstrip
/// with Validity up to Millimetre-Wave Frequencies", Electronics Letters 18 (1982), pp. 272-273:
/// within 0.6 % for 0.1 <= w/h <= 100, er <= 20 and h up to 0.13 wavelengths in air.
double DispersedPermittivity(const LineShape& line, double atRest, double f) {
    const double u = line.width / line.height;
    const double er = line.permittivity;
    const double fh = f * 1e-9 * line.height * 1e2;  // GHz·cm
    const double p1 = 0.27488 + (0.6315 + 0.525 / std::pow(1 + 0.157 * fh, 20)) * u -
                      0.065683 * std::exp(-8.7513 * u);
    const double p2 = 0.33622 * -std::expm1(-0.03442 * er);
    const double p3 = 0.0363 * std::exp(-4.6 * u) * -std::expm1(-std::pow(fh / 3.87, 4.97));
    const double p4 = 1 + 2.751 * -std::expm1(-std::pow(er / 15.916, 8));
    const double p = p1 * p2 * std::pow((0.1844 + p3 * p4) * 10 * fh, 1.5763);
    return er - (er - atRest) / (1 + p);
}

// ---------------------------------------------------------------- stripline

/// H. A. Wheeler, "Transmission-Line Properties of a Stripline Between Parallel Planes", IEEE
/// Trans. MTT-26 (1978), pp. 866-876: within 0.5 % for a strip up to ten times as wide as its
/// distance to the planes, centred between them.
LineParameters Stripline(const LineShape& line) {
    if (!(line.thickness < line.height)) return {kNone, kNone};
    const double x = line.thickness / line.height;
    const double space = line.height - line.thickness;
    double wider = 0;
    if (x > 0) {
        const double m = 2 / (1 + 2.0 / 3 * x / (1 - x));
        const double edge = std::pow(x / (2 - x), 2) +
                            std::pow(0.0796 * x / (line.width / line.height + 1.1 * x), m);
        wider = x / (kPi * (1 - x)) * (1 - std::log(edge) / 2);
    }
    const double a = 8 / kPi / (line.width / space + wider);
    const double impedance = kWaveImpedance / (4 * kPi * std::sqrt(line.permittivity)) *
                             std::log1p(a / 2 * (a + std::sqrt(a * a + 6.27)));
    return {impedance, line.permittivity};
}

// ---------------------------------------------------------------- coplanar lines

/// A modulus with its complement, each computed without the other so that neither loses digits.
struct Modulus {
    double k;
    double complement;
};

double ArithmeticGeometricMean(double a, double b) {
    for (int i = 0; i < 64 && std::fabs(a - b) > 1e-15 * a; ++i) {
        const double mean = (a + b) / 2;
        b = std::sqrt(a * b);
        a = mean;
    }
    return a;
}

/// K(k)/K(k') of complete elliptic integrals of the first kind, by K(k) = π/(2·agm(1, k')).
double EllipticRatio(Modulus m) {
    return ArithmeticGeometricMean(1, m.k) / ArithmeticGeometricMean(1, m.complement);
}

/// Moduli of the line in free space, sinh(A)/sinh(B) on a substrate, tanh(A)/tanh(B) over a ground
/// plane; A = π·width/(4h), B = π·(width + 2·gap)/(4h). Exponentials with falling arguments only.
struct CoplanarModuli {
    Modulus open;
    Modulus substrate;
    Modulus grounded;
};

CoplanarModuli ModuliOf(const LineShape& line) {
    const double total = line.width + 2 * line.gap;
    const double A = kPi * line.width / (4 * line.height);
    const double B = kPi * total / (4 * line.height);
    const auto fall = [](double x) { return -std::expm1(-2 * x); };  // 1 - e^(-2x)
    const auto rise = [](double x) { return 1 + std::exp(-2 * x); };
    const double product = std::sqrt(fall(A + B) * fall(B - A));
    return {
        {line.width / total, std::sqrt(2 * line.gap * (line.width + total)) / total},
        {std::exp(A - B) * fall(A) / fall(B), product / fall(B)},
        {std::tanh(A) / std::tanh(B), 2 * std::exp(-A) * product / (rise(A) * fall(B))},
    };
}

/// G. Ghione, C. Naldi, "Analytical Formulas for Coplanar Lines in Hybrid and Monolithic MICs",
/// Electronics Letters 20 (1984), pp. 179-181; thin metal, air above and below the substrate.
LineParameters Coplanar(const LineShape& line) {
    const CoplanarModuli m = ModuliOf(line);
    const double air = EllipticRatio(m.open);
    const double filling = EllipticRatio(m.substrate) / air / 2;
    const double effective = 1 + (line.permittivity - 1) * filling;
    return {kWaveImpedance / (4 * air * std::sqrt(effective)), effective};
}

/// G. Ghione, C. Naldi, "Coplanar Waveguides for MMIC Applications: Effect of Upper Shielding,
/// Conductor Backing, Finite-Extent Ground Planes, and Line-to-Line Coupling", IEEE Trans. MTT-35
/// (1987), pp. 260-267; thin metal, air above, ground plane below the substrate.
LineParameters GroundedCoplanar(const LineShape& line) {
    const CoplanarModuli m = ModuliOf(line);
    const double air = EllipticRatio(m.open);
    const double ground = EllipticRatio(m.grounded);
    const double effective = (air + line.permittivity * ground) / (air + ground);
    return {kWaveImpedance / (2 * std::sqrt(effective) * (air + ground)), effective};
}

bool Sound(const LineShape& line) {
    const bool gap = line.type == LineType::Coplanar || line.type == LineType::GroundedCoplanar;
    return Positive(line.width) && Positive(line.height) && (!gap || Positive(line.gap)) &&
           line.thickness >= 0 && line.permittivity >= 1 && std::isfinite(line.permittivity);
}

}  // namespace

LineParameters Analyse(const LineShape& shape) {
    if (!Sound(shape)) return {kNone, kNone};
    switch (shape.type) {
        case LineType::Coax:
            return Coax(shape);
        case LineType::Microstrip:
            return Microstrip(shape);
        case LineType::Stripline:
            return Stripline(shape);
        case LineType::Coplanar:
            return Coplanar(shape);
        case LineType::GroundedCoplanar:
            return GroundedCoplanar(shape);
    }
    return {kNone, kNone};
}

double EffectivePermittivity(const LineShape& shape, double f) {
    const double atRest = Analyse(shape).permittivity;
    if (shape.type != LineType::Microstrip || !Positive(f)) return atRest;
    return DispersedPermittivity(shape, atRest, f);
}

double WidthFor(LineShape shape, double impedance) {
    const auto impedanceOf = [&](double width) {
        shape.width = width;
        return Analyse(shape).impedance;
    };
    const double scale = shape.height;
    if (!Positive(scale)) return kNone;
    const double widest = shape.type == LineType::Coax ? std::nextafter(scale, 0) : 1e4 * scale;
    return InverseOf(impedanceOf, impedance, 1e-6 * scale, widest);
}

/// Coax: cutoff of TE11 (N. Marcuvitz, "Waveguide Handbook", 1951, section 2.4; within 8 % for any
/// ratio of diameters). Strips: transverse resonance below the strip (G. D. Vendelin, "Limitations
/// on Stripline Q", Microwave Journal 13 (1970), pp. 63-69).
double ModeLimit(const LineShape& shape) {
    if (!std::isfinite(Analyse(shape).impedance)) return kNone;
    const double c = kSpeedOfLight / std::sqrt(shape.permittivity);
    switch (shape.type) {
        case LineType::Coax:
            return 2 * c / (kPi * (shape.width + shape.height));
        case LineType::Microstrip:
            return c / (2 * shape.width + 0.8 * shape.height);
        case LineType::Stripline:
            return c / (2 * shape.width + kPi / 2 * shape.height);
        default:
            return kNone;
    }
}

std::string_view Caution(const LineShape& shape, double f) {
    const double u = shape.width / shape.height;
    const auto outside = [](double x, double lo, double hi) { return !(x >= lo && x <= hi); };
    switch (shape.type) {
        case LineType::Microstrip:
            if (outside(u, 0.01, 100)) return "Outside 0.01 <= w/h <= 100.";
            if (outside(shape.permittivity, 1, 128)) return "Outside er <= 128.";
            if (shape.thickness > shape.width) return "The strip is thicker than wide.";
            if (f * shape.height > 0.13 * kSpeedOfLight || outside(u, 0.1, 100)) {
                return "Dispersion holds for w/h >= 0.1 and h below 0.13 wavelengths.";
            }
            break;
        case LineType::Stripline:
            if (shape.width > 10 * (shape.height - shape.thickness)) {
                return "Outside w <= 10 (b - t).";
            }
            break;
        case LineType::GroundedCoplanar:
            // A finite-difference solution lies 1 % lower at s = h and 3 % lower at s = 2h.
            if (shape.gap > shape.height) return "Gap above h: the impedance reads high.";
            break;
        default:
            break;
    }
    return f > ModeLimit(shape) ? "Above the limit of the next mode." : std::string_view();
}

const std::vector<LineDescription>& LineTypes() {
    static const std::vector<LineDescription> types{
        {LineType::Coax, "Coaxial line", "Inner conductor d", "Outer conductor D", "", "",
         "Exact for round concentric conductors."},
        {LineType::Microstrip, "Microstrip", "Strip width w", "Substrate height h", "",
         "Metal thickness t",
         "Hammerstad and Jensen 1980: 0.01 <= w/h <= 100, er <= 128, within 0.2 %; dispersion by "
         "Kirschning and Jansen 1982: er <= 20, within 0.6 %."},
        {LineType::Stripline, "Stripline", "Strip width w", "Plane distance b", "",
         "Metal thickness t", "Wheeler 1978: w <= 10 (b - t), within 0.5 %; centred strip."},
        {LineType::Coplanar, "Coplanar", "Strip width w", "Substrate height h", "Gap s", "",
         "Ghione and Naldi 1984: thin metal, wide grounds, nothing below the substrate."},
        {LineType::GroundedCoplanar, "Coplanar over ground", "Strip width w", "Substrate height h",
         "Gap s", "",
         "Ghione and Naldi 1987: thin metal, wide grounds joined to the plane below, s <= h."},
    };
    return types;
}

LineConstants ConstantsOf(const LineParameters& line) {
    const double velocity = kSpeedOfLight / std::sqrt(line.permittivity);
    return {velocity, line.impedance / velocity, 1 / (line.impedance * velocity)};
}

}  // namespace kelvro
