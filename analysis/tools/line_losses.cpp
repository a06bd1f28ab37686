#include "analysis/tools/line_losses.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace kelvro {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
/// Below this many skin depths of metal the current no longer keeps to one surface.
constexpr double kLeastDepths = 3;

bool IsStrip(const LineShape& line) {
    return line.type == LineType::Microstrip || line.type == LineType::Stripline;
}

/// The line in air behind walls that have all stepped back by `depth`.
double ImpedanceBehind(LineShape line, double depth) {
    line.permittivity = 1;
    line.width -= 2 * depth;
    line.height += 2 * depth;
    if (IsStrip(line)) line.thickness -= 2 * depth;
    return Analyse(line).impedance;
}

/// H. A. Wheeler, "Formulas for the Skin Effect", Proc. IRE 30 (1942), pp. 412-424: the resistance
/// of walls is their surface resistance over µ0 times the change of the inductance per step back of
/// the walls; L = Z/c in air. Exact for coax; for strips as good as the impedance's formula follows
/// the thickness: 1 to 15 % from the formulas of Pucel et al. and of Hammerstad and Jensen.
double ConductorLoss(const LineShape& line, double impedance, double surfaceResistance) {
    if (line.type != LineType::Coax && !(IsStrip(line) && line.thickness > 0)) return kNone;
    double step = std::min(line.width, line.height);
    if (IsStrip(line)) step = std::min(step, line.thickness);
    step *= 1e-4;
    const double slope = (ImpedanceBehind(line, step) - ImpedanceBehind(line, -step)) / (2 * step);
    return surfaceResistance * slope / (2 * impedance * kWaveImpedance);
}

/// E. Hammerstad, O. Jensen, "Accurate Models for Microstrip Computer-Aided Design", IEEE MTT-S
/// Digest 1980, pp. 407-409, after measurements of S. P. Morgan 1949: rough surfaces of rms height
/// r lose up to twice as much as smooth ones.
double RoughnessFactor(double roughness, double skinDepth) {
    const double r = roughness / skinDepth;
    return 1 + 2 / kPi * std::atan(1.4 * r * r);
}

/// K. C. Gupta, R. Garg, I. J. Bahl, "Microstrip Lines and Slotlines", 1979, section 2.4: the
/// dielectric takes part with the filling factor (eeff - 1)/(er - 1); 1 for a filled line.
double DielectricLoss(double permittivity, double effective, double lossTangent, double f) {
    const double wave = 2 * kPi * f / kSpeedOfLight;
    const double filling = permittivity > 1 ? (effective - 1) / (permittivity - 1) : 1;
    return wave / 2 * permittivity * filling / std::sqrt(effective) * lossTangent;
}

}  // namespace

double LineLosses::total() const {
    return std::isnan(conductor) ? dielectric : conductor + dielectric;
}

LineLosses LossesOf(const LineShape& shape, const LineMaterials& materials, double f) {
    const LineParameters line = Analyse(shape);
    const bool sound = std::isfinite(line.impedance) && f > 0 && std::isfinite(f) &&
                       materials.conductivity > 0 && materials.roughness >= 0 &&
                       materials.lossTangent >= 0;
    if (!sound) return {kNone, kNone};
    const double rough = RoughnessFactor(materials.roughness, SkinDepth(f, materials.conductivity));
    return {
        rough * ConductorLoss(shape, line.impedance, SurfaceResistance(f, materials.conductivity)),
        DielectricLoss(shape.permittivity, line.permittivity, materials.lossTangent, f)};
}

double LineQuality(const LineShape& shape, const LineLosses& losses, double f) {
    const double phase = 2 * kPi * f * std::sqrt(EffectivePermittivity(shape, f)) / kSpeedOfLight;
    return phase / (2 * losses.total());
}

std::string_view LossCaution(const LineShape& shape, const LineMaterials& materials, double f) {
    const double least = kLeastDepths * SkinDepth(f, materials.conductivity);
    if (shape.type == LineType::Coax && shape.width < 2 * least) {
        return "Inner conductor below six skin depths: its loss is higher.";
    }
    if (IsStrip(shape) && shape.thickness > 0 && shape.thickness < least) {
        return "Metal below three skin depths: its loss is higher.";
    }
    return {};
}

}  // namespace kelvro
