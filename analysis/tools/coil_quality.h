#pragma once

#include "analysis/tools/coils.h"
#include "analysis/tools/skin_effect.h"

// What a single-layer solenoid in free air loses, and where it resonates with itself.

namespace kelvro {

/// Resistance at a frequency: of the straight wire by skin effect, times what the neighbouring
/// turns add. NaN outside the table of measured factors (length of 0.2 to 10 diameters, round wire
/// not thicker than the pitch) and for wire below six skin depths.
double Resistance(const Solenoid& coil, double f, double conductivity = kCopperConductivity);

/// Capacitance that makes the coil resonate with its inductance, one end earthed; within 8 % of
/// the measured coils, 0.1 to 50 diameters long; NaN outside.
double SelfCapacitance(const Solenoid& coil);

/// Frequency at which they resonate.
double SelfResonance(double inductance, double capacitance);

}  // namespace kelvro
