#pragma once

#include <string_view>

#include "analysis/tools/line_parameters.h"
#include "analysis/tools/skin_effect.h"

// Attenuation of transmission lines by their conductors and their dielectric, in Np/m.

namespace kelvro {

/// What a line is made of, besides its permittivity.
struct LineMaterials {
    double conductivity = kCopperConductivity;  ///< S/m
    double roughness = 0;                       ///< rms height of the metal's surface, m
    double lossTangent = 0;                     ///< of the dielectric
};

struct LineLosses {
    double conductor;  ///< NaN for coplanar lines and for strips without thickness
    double dielectric;

    /// The parts that are known.
    double total() const;
};

/// Losses at a frequency; NaN for what makes no line.
LineLosses LossesOf(const LineShape& shape, const LineMaterials& materials, double f);

/// Quality factor of a long resonator made of the line: half of phase constant over attenuation.
double LineQuality(const LineShape& shape, const LineLosses& losses, double f);

/// Why the losses are doubtful; empty within the range of validity.
std::string_view LossCaution(const LineShape& shape, const LineMaterials& materials, double f);

}  // namespace kelvro
