#pragma once

#include <Eigen/Core>

namespace kelvro {

using Vector = Eigen::VectorXd;
using Matrix = Eigen::MatrixXd;

/// Angle between two directions, degrees in [0, 180]; 0 where one of them has no length.
double AngleDegrees(const Vector& a, const Vector& b);

/// Largest |a_i|; 0 for an empty vector.
double LargestEntry(const Vector& a);

/// Smallest eigenvalue of a symmetric matrix; infinite for an empty one, NaN for one that is not
/// finite.
double SmallestEigenvalue(const Matrix& matrix);

}  // namespace kelvro
