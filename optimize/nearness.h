#pragma once

#include "optimize/linear.h"

namespace kelvro {

/// What a change of the parameters counts while a run looks for its minimum: something at first,
/// less and less the farther it goes, and never more than minima may differ that are as good. In a
/// flat valley it keeps the end near the origin, and in one place; of designs as good it makes the
/// nearest one the lowest.
class Nearness {
  public:
    /// `most`: what the largest change counts, that of all parameters by `reach`. `tilt`: what a
    /// rise of the last parameter by one counts beside, and the ones before it the less.
    Nearness(Vector origin, double most, double reach, double width, double tilt = 0);

    double value(const Vector& x) const;
    Vector gradient(const Vector& x) const;

  private:
    Vector origin_;
    Vector tilt_;
    double scale_;
    double square_;  ///< of the distance from which on it counts less
};

}  // namespace kelvro
