#pragma once

#include "optimize/linear.h"

namespace kelvro {

/// The points no parameter of which is farther from a centre than a reach. Searches inside it meet
/// its faces: a parameter on a face can go along it and back inside, not out.
class Box {
  public:
    /// An infinite reach leaves all space inside.
    Box(Vector centre, double reach) : centre_(std::move(centre)), reach_(reach) {}

    const Vector& centre() const { return centre_; }
    double reach() const { return reach_; }
    /// Largest change of a parameter against the centre.
    double distance(const Vector& x) const { return LargestEntry(x - centre_); }
    bool contains(const Vector& x) const;
    Vector nearest(const Vector& x) const;

    /// Would parameter i leave the box in this direction?
    bool blocks(const Vector& x, const Vector& direction, Eigen::Index i) const;
    /// The largest t with x + t·direction inside; infinite where nothing ends the way.
    double room(const Vector& x, const Vector& direction) const;
    /// The quasi-Newton direction -iH·g of the parameters that are free: those that it or -g would
    /// take out of the box stay on its face, and the others go to the minimum that remains.
    Vector direction(const Matrix& inverse, const Vector& x, const Vector& g) const;
    /// g without the entries whose descent leads out of the box: zero at a minimum inside it.
    Vector freeGradient(const Vector& x, const Vector& g) const;

  private:
    Vector centre_;
    double reach_;
};

}  // namespace kelvro
