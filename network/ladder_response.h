#pragma once

#include <complex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "network/ladder_program.h"
#include "network/network.h"
#include "network/two_port.h"

// What a network does at a frequency. Power waves after K. Kurokawa, "Power waves and the
// scattering matrix", IEEE Trans. MTT-13, 1965: terminations may be complex.

namespace kelvro {

/// All values at one frequency. NaN where measured data end. An impedance beyond all limits (an
/// open) is 1e60 Ω, so that everything reckoned from it stays a number.
struct NetworkPoint {
    double f = 0;
    double GT = 0;                  ///< transducer power gain; NaN where two reactances resonate
    std::complex<double> gammaIn;   ///< (Zin - ZS*)/(Zin + ZS)
    std::complex<double> gammaOut;  ///< (Zout - ZL*)/(Zout + ZL)
    std::complex<double> Zin;       ///< of ladder and load, seen by the source
    std::complex<double> Zout;      ///< of source and ladder, seen by the load
    std::complex<double> transfer;  ///< power-wave S21: |transfer|² = GT
    /// -dφ/dω of the transfer, s. Exact but for measured data, whose slope is the difference over
    /// ±1e-6 of the frequency, one-sided where the data end.
    double groupDelay = 0;
    double dissipated = 0;  ///< 1 - |Γin|² - GT; of branched networks with what their branches take
};

/// The values of a sweep, one array per quantity (real and imaginary parts apart).
struct NetworkSweep {
    /// phase of the transfer in radians, (-π, π]; VSWR at the source, infinite from |Γin| = 1
    std::vector<double> f, GT, phase, groupDelay, dissipated, VSWR;
    std::vector<double> gammaInRe, gammaInIm, gammaOutRe, gammaOutIm;
    std::vector<double> ZinRe, ZinIm, ZoutRe, ZoutIm;

    std::size_t size() const { return f.size(); }
    void resize(std::size_t points);
    bool operator==(const NetworkSweep&) const = default;
};

/// Peak values behind an element of the ladder, the current flowing on towards the load.
struct NodeValue {
    std::complex<double> voltage;  ///< V to ground
    std::complex<double> current;  ///< A
};

/// Voltages and currents along the ladder.
struct NodeValues {
    /// One more than the ladder has elements: the first between source and ladder, number i + 1
    /// behind element i, the last at the load.
    std::vector<NodeValue> nodes;

    /// Peak voltage across, and current through, what element i puts in series or across.
    NodeValue part(std::size_t i, Place place) const;
};

/// A network prepared for evaluation at many frequencies. Prepared once; evaluation allocates
/// nothing (sweeps only when they grow). f = 0 counts as 1 µHz.
class LadderResponse {
  public:
    explicit LadderResponse(const Network& network);

    /// Chain matrix A, B, C, D of the ladder alone; not finite where nothing passes the ladder.
    Matrix2 chain(double f) const;
    /// Scattering parameters to real references.
    std::optional<Matrix2> scattering(double f, Ports ports) const;
    /// Twice the load's voltage over the source's: a lossless match between resistances has the
    /// magnitude √(RL/RS).
    std::complex<double> voltageTransfer(double f) const;
    double GT(double f) const;
    NetworkPoint at(double f) const;
    /// Everything at all frequencies; valid until the next call.
    const NetworkSweep& sweep(std::span<const double> f);
    /// Along the ladder when the source gives `availablePower`, W.
    NodeValues nodes(double f, double availablePower = 1) const;

  private:
    LadderProgram program_;
    std::size_t elements_;
    NetworkSweep sweep_;
};

}  // namespace kelvro
