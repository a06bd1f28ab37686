#pragma once

#include "optimize/linear.h"

namespace kelvro {

/// The inverse Hessian after a step s on which the gradient changed by y. BFGS:
///   iH + (1 + y'iHy/y's)·ss'/y's - (iHy·s' + s·(iHy)')/y's,
/// DFP: iH + ss'/y's - iHy·(iHy)'/y'iHy (Nocedal, Wright, "Numerical Optimization", eq. 6.17 and
/// 6.15). Positive definite matrices stay so for y's > 0; y's = 0 must not come in.
Matrix UpdatedInverse(const Matrix& inverse, const Vector& s, const Vector& y, bool dfp);

}  // namespace kelvro
