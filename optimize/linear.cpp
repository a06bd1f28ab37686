#include "optimize/linear.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>
#include <limits>

#include "core/scalar.h"

namespace kelvro {

double AngleDegrees(const Vector& a, const Vector& b) {
    const double lengths = a.norm() * b.norm();
    if (!(lengths > 0)) return 0;
    return std::acos(std::clamp(a.dot(b) / lengths, -1.0, 1.0)) * kDegreesPerRadian;
}

double LargestEntry(const Vector& a) {
    return a.size() == 0 ? 0 : a.cwiseAbs().maxCoeff();
}

double SmallestEigenvalue(const Matrix& matrix) {
    if (matrix.size() == 0) return std::numeric_limits<double>::infinity();
    if (!matrix.allFinite()) return std::numeric_limits<double>::quiet_NaN();
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(matrix, Eigen::EigenvaluesOnly);
    return solver.eigenvalues()[0];
}

}  // namespace kelvro
