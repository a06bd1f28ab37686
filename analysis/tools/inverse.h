#pragma once

#include <functional>

namespace kelvro {

/// The x between lo and hi (0 < lo < hi) at which a monotone function, rising or falling, takes the
/// target value. NaN when it does not reach the target there. Bisection of ln x with a fixed cap.
double InverseOf(const std::function<double(double)>& function, double target, double lo,
                 double hi);

}  // namespace kelvro
