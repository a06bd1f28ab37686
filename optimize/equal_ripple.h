#pragma once

#include <vector>

#include "network/network.h"

namespace kelvro {

/// The lossless low-pass ladder between resistances whose gain has equal ripples in a band: the one
/// whose worst gain there is highest. G. L. Matthaei, "Tables of Chebyshev impedance-transforming
/// networks of low-pass filter form", Proc. IEEE 52 (1964), 939-963; closed form, any band.
/// `ratio`: load over source, above 1; `sections` of a series inductor and a shunt capacitor, from
/// the source. Returns ω0·L/R1 and ω0·C·R1 in turn, ω0 in the geometric middle of the band; empty
/// where rounding leaves no such ladder, as for bands narrower than about 1 %.
std::vector<double> EqualRippleLadder(double ratio, const FrequencyBand& band, int sections);

}  // namespace kelvro
