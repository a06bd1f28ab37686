#pragma once

#include "optimize/evaluator.h"
#include "optimize/gradient.h"
#include "optimize/linear.h"

// First approximations of the inverse Hessian.

namespace kelvro {

/// diag(1/|fxx,i|). Entries that are not positive say nothing about the distance to a minimum;
/// their magnitude still sets the scale. Entries far below the largest one are raised, so that no
/// step becomes extreme.
Matrix InverseOfDiagonal(const Vector& curvature);

/// Full Hessian by differences of step h around x: the double-sided gradient's curvatures and
/// n(n-1)/2 further calls for the mixed derivatives, from one side.
Matrix MixedDerivatives(Evaluator& objective, const Vector& x, double f, const Gradient& gradient,
                        double h);

/// Step of the differences for second derivatives: larger than that of the gradient, as rounding
/// counts by its square.
double HessianStep(const LocalOptions& options);

struct HessianResult {
    Matrix hessian;
    Gradient gradient;
};

/// Gradient and Hessian at x with the step of second derivatives.
HessianResult HessianAt(Evaluator& objective, const Vector& x, double f,
                        const LocalOptions& options);

/// The same with mixed derivatives from both sides: the flat directions beside steep ones come out
/// right, which decides on their sign.
HessianResult BothSidedHessianAt(Evaluator& objective, const Vector& x, double f,
                                 const LocalOptions& options);

/// Inverse of a symmetric matrix with its eigenvalues taken positive: directions of negative
/// curvature are searched as far as their curvature is strong.
Matrix PositiveInverse(const Matrix& hessian);

/// Singular values, largest first.
Vector SingularValues(const Matrix& matrix);

/// Is a singular value negligible?
bool MayBeRankDeficient(const Vector& singularValues);

}  // namespace kelvro
