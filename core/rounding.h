#pragma once

// Readable values: ranges and steps of plots, steps of spin buttons. Each helper keeps the sign of
// its argument; 0 stays 0 and what is not finite stays as it is.

namespace kelvro {

/// The 1-2-5 value at or above |v|: StepUp125(0.031) is 0.05, of 600 is 1000.
double StepUp125(double v);

/// |v| rounded up to one significant digit.
double RoundUpSig1(double v);

/// The second form of the same rounding; the recentring of a plot's origin tries both.
double RoundUpSig1b(double v);

/// |v| rounded down to one significant digit.
double RoundDownSig1(double v);

/// One click of a spin button: x moved up by the sweep factor f, to a round value where one lies
/// within reach. 0 becomes f - 1; f outside (1, 2) multiplies.
double SpinStepUp(double x, double f);

/// The mirror image: 0 becomes 1 - f; f outside (1, 2) divides.
double SpinStepDown(double x, double f);

/// One step up for a direction above 0, else down: what spin buttons, cursor keys and the wheel do.
double SpinStep(double x, int direction, double f);

}  // namespace kelvro
