#pragma once

// Constants of nature that coils and lines share (CODATA 2018), in SI units.

namespace kelvro {

inline constexpr double kSpeedOfLight = 299792458.0;
inline constexpr double kVacuumPermeability = 1.25663706212e-6;
inline constexpr double kVacuumPermittivity = 8.8541878128e-12;
inline constexpr double kWaveImpedance = kVacuumPermeability * kSpeedOfLight;

}  // namespace kelvro
