#pragma once

#include <complex>
#include <optional>

#include "network/two_port.h"

// Two-ports as active devices: stability, power gains and the circles that show them on a Smith
// chart. Scattering parameters and reflections refer to the same real resistances.

namespace kelvro {

/// A circle in a plane of reflections. Where it is a line, its radius is infinite.
struct ReflectionCircle {
    std::complex<double> centre;
    double radius = 0;
};

/// Reflections of a termination at which the other port is on the edge of stability.
struct StabilityCircle : ReflectionCircle {
    bool stableInside = false;  ///< which side of it is stable
};

enum class DeviceSide : unsigned char { Source, Load };

/// Terminations that match both ports at once, and the gain there.
struct SimultaneousMatch {
    std::complex<double> source;
    std::complex<double> load;
    double gain = 0;
};

/// What a device is at one frequency.
struct DeviceFigures {
    double K = 0;            ///< J. M. Rollett, IRE Trans. CT-9 (1962)
    double determinant = 0;  ///< |S11·S22 - S12·S21|
    double mu = 0;           ///< distance of the nearest unstable load from the centre
    double muPrime = 0;      ///< of the nearest unstable source
    bool unconditional = false;
    double availableGain = 0;                ///< MAG where K >= 1, else MSG; a ratio
    std::optional<SimultaneousMatch> match;  ///< of an unconditionally stable device
};
DeviceFigures DeviceFiguresOf(const Matrix2& s);

/// Edge of stability in the plane of the source's or the load's reflection.
StabilityCircle StabilityCircleOf(const Matrix2& s, DeviceSide side);

/// Loads of the operating power gain `gain` (a ratio), or sources of that available power gain;
/// nothing where no termination gives it.
std::optional<ReflectionCircle> GainCircleOf(const Matrix2& s, DeviceSide side, double gain);

/// Power gains, ratios: into the load to what enters, available behind the device to what the
/// source has, into the load to what the source has.
double OperatingGain(const Matrix2& s, std::complex<double> load);
double AvailableGain(const Matrix2& s, std::complex<double> source);
double TransducerGain(const Matrix2& s, std::complex<double> source, std::complex<double> load);

}  // namespace kelvro
