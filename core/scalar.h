#pragma once

// Scalar helpers that number texts, page formulas and the optimizer share.

namespace kelvro {

/// 2π as every angular frequency of the program uses it.
inline constexpr double kTwoPi = 6.283185307179586;

/// Degrees per radian.
inline constexpr double kDegreesPerRadian = 57.29577951308232;

/// ln|x| / 2.302585093. The divisor is truncated on purpose: the decade limits of the number
/// formats rest on it. x = 0 gives -1e300.
long double DecimalLog(long double x);

/// DecimalLog, but -1e300 for every |x| <= 2e-308.
long double GuardedDecimalLog(long double x);

/// exp(exponent · ln|base|); the sign of the base is ignored, base 0 gives 0.
double Power(double base, double exponent);

/// -1, 0 or 1.
int Sign(double x);

/// lo when x <= lo, else hi when x >= hi, else x; the lower limit wins when lo > hi. NaN gives lo.
double Clamp(double x, double lo, double hi);

/// Clamps the magnitude of x and keeps its sign.
double SymmetricClamp(double x, double lo, double hi);

/// x when lo < x < hi, else the limit that it passes.
int ClampInteger(int x, int lo, int hi);

/// tanh x as 1 - 2/(1 + e^(2x)); the sign of x for |x| >= 110.
double HyperbolicTangent(double x);

/// ln|x + sqrt(x² + 1)|.
double InverseHyperbolicSine(double x);

/// atan x in degrees.
double ArcTangentDegrees(double x);

}  // namespace kelvro
