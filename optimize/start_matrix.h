#pragma once

#include "optimize/evaluator.h"
#include "optimize/gradient.h"
#include "optimize/linear.h"

// First approximations of the inverse Hessian.

namespace kelvro {

/// diag(1/|fxx,i|). Entries that are not positive say nothing about the distance to a minimum;
/// their magnitude still sets the scale. Entries far below the largest one are raised, so that no
/// step becomes extreme.
Matrix InverseOfDiagonal(const Vector& curvature, const MatrixTuning& tuning);

/// Second derivatives along each parameter by differences of step h: two calls each.
Vector SecondDerivatives(Evaluator& objective, const Vector& x, double f, double h);

/// Full Hessian at x by differences of the options' step for second derivatives, mixed ones from
/// both sides, so that the flat directions beside steep ones come out right: n² + n calls.
Matrix HessianAt(Evaluator& objective, const Vector& x, double f, const LocalOptions& options);

/// Inverse of a symmetric matrix with its eigenvalues taken positive: directions of negative
/// curvature are searched as far as their curvature is strong.
Matrix PositiveInverse(const Matrix& hessian, const MatrixTuning& tuning);

/// Singular values, largest first.
Vector SingularValues(const Matrix& matrix);

/// Is a singular value negligible?
bool MayBeRankDeficient(const Vector& singularValues, const MatrixTuning& tuning);

}  // namespace kelvro
