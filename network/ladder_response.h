#pragma once

#include <complex>
#include <span>
#include <vector>

#include "network/network.h"
#include "network/two_port.h"

// What a network does at a frequency. Power waves after K. Kurokawa, "Power waves and the
// scattering matrix", IEEE Trans. MTT-13, 1965: terminations may be complex.

namespace kelvro {

/// All values at one frequency. NaN where measured data end.
struct NetworkPoint {
    double f = 0;
    double GT = 0;                  ///< transducer power gain, a ratio
    std::complex<double> gammaIn;   ///< (Zin - ZS*)/(Zin + ZS)
    std::complex<double> gammaOut;  ///< (Zout - ZL*)/(Zout + ZL)
    std::complex<double> Zin;       ///< of ladder and load, seen by the source
    std::complex<double> Zout;      ///< of source and ladder, seen by the load
    std::complex<double> transfer;  ///< power-wave S21: |transfer|² = GT
    double groupDelay = 0;          ///< -dφ/dω of the transfer, s
    double dissipated = 0;          ///< 1 - |Γin|² - GT
};

/// The values of a sweep, one array per quantity (real and imaginary parts apart).
struct NetworkSweep {
    std::vector<double> f, GT, phase, groupDelay, dissipated, VSWR;  ///< phase in radians
    std::vector<double> gammaInRe, gammaInIm, gammaOutRe, gammaOutIm;
    std::vector<double> ZinRe, ZinIm, ZoutRe, ZoutIm;

    std::size_t size() const { return f.size(); }
    void resize(std::size_t points);
};

/// A network prepared for evaluation at many frequencies. Prepared once; evaluation allocates
/// nothing (sweeps only when they grow).
class LadderResponse {
  public:
    explicit LadderResponse(const Network& network);

    /// Chain matrix A, B, C, D of the ladder alone.
    Matrix2 chain(double f) const;
    /// Scattering parameters to real references.
    std::optional<Matrix2> scattering(double f, Ports ports) const;
    double GT(double f) const;
    NetworkPoint at(double f) const;
    /// Everything at all frequencies; valid until the next call.
    const NetworkSweep& sweep(std::span<const double> f);

  private:
    Network network_;
    NetworkSweep sweep_;
};

}  // namespace kelvro
