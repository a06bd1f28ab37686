#include "optimize/start_matrix.h"

#include <Eigen/Eigenvalues>
#include <Eigen/SVD>
#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvro {

Matrix InverseOfDiagonal(const Vector& curvature, const MatrixTuning& tuning) {
    const double floor = std::max(tuning.smallestRelativeCurvature * LargestEntry(curvature),
                                  tuning.smallestCurvature);
    return curvature.cwiseAbs().cwiseMax(floor).cwiseInverse().asDiagonal();
}

namespace {

/// Mixed derivatives from one side beside the curvatures of the gradient.
Matrix OneSidedHessian(Evaluator& objective, const Vector& x, double f, const Gradient& gradient,
                       double h) {
    Matrix hessian = gradient.curvature.asDiagonal();
    Vector point = x;
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        point[i] = x[i] + h;
        for (Eigen::Index j = 0; j < i; ++j) {
            point[j] = x[j] + h;
            const double both = objective(point, CallKind::Hessian);
            const double mixed = (both - gradient.plus[i] - gradient.plus[j] + f) / (h * h);
            hessian(i, j) = hessian(j, i) = std::isfinite(mixed) ? mixed : 0;
            point[j] = x[j];
        }
        point[i] = x[i];
    }
    return hessian;
}

}  // namespace

Vector SecondDerivatives(Evaluator& objective, const Vector& x, double f, double h) {
    return DoubleSidedGradient(objective, x, f, h, CallKind::Hessian).curvature;
}

Matrix HessianAt(Evaluator& objective, const Vector& x, double f, const LocalOptions& options) {
    const double h = options.secondDifferenceStep;
    Gradient gradient = DoubleSidedGradient(objective, x, f, h, CallKind::Hessian);
    const Matrix above = OneSidedHessian(objective, x, f, gradient, h);
    std::swap(gradient.plus, gradient.minus);
    return (above + OneSidedHessian(objective, x, f, gradient, -h)) / 2;
}

Matrix PositiveInverse(const Matrix& hessian, const MatrixTuning& tuning) {
    if (hessian.size() == 0) return hessian;
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(hessian);
    const Vector magnitudes = solver.eigenvalues().cwiseAbs();
    const double floor = std::max(tuning.smallestRelativeEigenvalue * LargestEntry(magnitudes),
                                  tuning.smallestCurvature);
    return solver.eigenvectors() * magnitudes.cwiseMax(floor).cwiseInverse().asDiagonal() *
           solver.eigenvectors().transpose();
}

Vector SingularValues(const Matrix& matrix) {
    if (matrix.size() == 0) return {};  // no parameter has influence; Eigen crashes
    return Eigen::JacobiSVD<Matrix>(matrix).singularValues();
}

bool MayBeRankDeficient(const Vector& singularValues, const MatrixTuning& tuning) {
    return singularValues.size() > 0 &&
           singularValues.minCoeff() <= tuning.negligibleSingularValue * singularValues.maxCoeff();
}

}  // namespace kelvro
