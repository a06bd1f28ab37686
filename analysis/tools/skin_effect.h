#pragma once

#include <cmath>
#include <numbers>

#include "analysis/tools/physics.h"

// Skin effect in a thick conductor without magnetism; conductivity in S/m.

namespace kelvro {

inline constexpr double kCopperConductivity = 5.8e7;  ///< annealed, 20 °C (IACS)

/// Depth at which the current density has fallen to 1/e.
inline double SkinDepth(double f, double conductivity) {
    return 1 / std::sqrt(std::numbers::pi * f * kVacuumPermeability * conductivity);
}

/// Resistance of a square of the surface.
inline double SurfaceResistance(double f, double conductivity) {
    return 1 / (conductivity * SkinDepth(f, conductivity));
}

}  // namespace kelvro
