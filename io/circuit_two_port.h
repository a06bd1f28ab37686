#pragma once

#include <complex>

#include "design/circuit.h"
#include "design/design.h"
#include "network/two_port.h"

namespace kelvro {

/// Losses of a network's inductors and capacitors.
struct ElementLosses {
    double tangent = 0;     ///< 1/Q of every part; 0: lossless
    bool mirrored = false;  ///< the network is built interchanged, and so are its losses

    /// The losses of the design's parts: the combined element Q, also where the page itself
    /// computes with ideal parts. None in networks of resistors and in models that bring their own
    /// loss.
    static ElementLosses Of(const Design& state);

    /// Impedance of an inductor or a capacitor at f, ohm. Series loss in inductors and parallel
    /// loss in capacitors; the other way round in interchanged networks. Resistors are what they
    /// are.
    std::complex<double> impedance(const Element& element, double f) const;
};

/// A circuit as two-port from the source's side (behind R1) to the load's (before R2). One-ports
/// stand across the line. The balun's other output is terminated in `otherLoad`; of a class-E stage
/// it is the network between the switch and the load, the supply being ground.
class CircuitTwoPort {
  public:
    CircuitTwoPort(Circuit circuit, ElementLosses losses, double fo, double otherLoad);

    /// Has this kind of circuit two ports?
    static bool Exists(Topology topology);

    /// Chain matrix A, B, C, D at f > 0.
    Matrix2 chain(double f) const;

  private:
    Matrix2 ladder(double f) const;
    Matrix2 element(const Element& element, double f) const;
    Matrix2 coupledCoils(double f) const;
    std::complex<double> arm(double f) const;
    std::complex<double> otherBranch(double f) const;

    Circuit circuit_;
    ElementLosses losses_;
    double fo_;
    double otherLoad_;
};

}  // namespace kelvro
