#pragma once

#include <array>
#include <complex>
#include <optional>

#include "core/complex_number.h"
#include "design/cycle.h"
#include "design/design.h"
#include "design/transfer.h"
#include "network/ladder_response.h"

namespace kelvro {

/// The frequency response of a design's network: the voltage across the load referred to half the
/// source voltage, so that a lossless match has |H| = sqrt(R2/R1). Built once per design, then
/// evaluated at many frequencies; evaluation allocates nothing. f in Hz, any finite value; f = 0 on
/// a mirrored page counts as 1e-6·fo.
class Response {
  public:
    explicit Response(const Design& design);

    Complex value(double f) const;  ///< cartesian
    double magnitude(double f) const;
    double phase(double f) const;        ///< degrees, (-180, 180]
    double magnitudeDb(double f) const;  ///< 20·log10|H|
    double relativeDb(double f) const;   ///< transducer gain GT: magnitudeDb less the reference
    /// -dφ/dω in seconds, as the difference over 2e-7·f: exact to 1e-6 up to a loaded Q of 10^4.
    double groupDelay(double f) const;

    /// The same in the form that loops use.
    std::complex<double> transfer(double f) const;

    double referenceDb() const { return referenceDb_; }

  private:
    std::complex<double> polynomial(std::complex<double> s) const;
    std::complex<double> line(std::complex<double> s) const;

    Transfer transfer_;
    std::optional<LadderResponse> ladder_;
    bool mirrored_;
    double fo_;
    double G2_;
    double R1_;
    double lossTangent_;  ///< 1/Qc
    double ideal_;        ///< sqrt(R2/R1)
    double referenceDb_;
};

/// |H| of a value of Response::transfer, and its phase in degrees, (-180, 180].
double Magnitude(std::complex<double> H);
double PhaseDegrees(std::complex<double> H);

/// 20·log10 of a magnitude; 0 gives a large negative number, never minus infinity.
double MagnitudeDb(double magnitude);

/// Services of a calculation that evaluates the response and leaves the components as designed.
class ResponseServices : public CycleServices {
  public:
    double responseMagnitude(const Design& design, double f) override;
    Slots optimize(const Design& design) override { return design.components; }
};

}  // namespace kelvro
