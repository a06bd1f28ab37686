#include "optimize/start_matrix.h"

#include <Eigen/Eigenvalues>
#include <Eigen/SVD>
#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvro {

namespace {

// Raising small curvatures keeps the first step within reach of what the differences have seen.
constexpr double kSmallestRelativeCurvature = 1e-3;
constexpr double kSmallestRelativeEigenvalue = 1e-5;
constexpr double kSmallestCurvature = 1e-6;
constexpr double kNegligibleSingularValue = 1e-9;
constexpr double kSmallestHessianStep = 1e-4;

}  // namespace

Matrix InverseOfDiagonal(const Vector& curvature) {
    const double floor =
        std::max(kSmallestRelativeCurvature * LargestEntry(curvature), kSmallestCurvature);
    return curvature.cwiseAbs().cwiseMax(floor).cwiseInverse().asDiagonal();
}

double HessianStep(const LocalOptions& options) {
    return std::max(kSmallestHessianStep, options.differenceStep);
}

Matrix MixedDerivatives(Evaluator& objective, const Vector& x, double f, const Gradient& gradient,
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

HessianResult HessianAt(Evaluator& objective, const Vector& x, double f,
                        const LocalOptions& options) {
    const double h = HessianStep(options);
    Gradient gradient = DoubleSidedGradient(objective, x, f, h, CallKind::Hessian);
    Matrix hessian = MixedDerivatives(objective, x, f, gradient, h);
    return {std::move(hessian), std::move(gradient)};
}

HessianResult BothSidedHessianAt(Evaluator& objective, const Vector& x, double f,
                                 const LocalOptions& options) {
    HessianResult result = HessianAt(objective, x, f, options);
    Gradient mirrored = result.gradient;
    std::swap(mirrored.plus, mirrored.minus);
    result.hessian += MixedDerivatives(objective, x, f, mirrored, -HessianStep(options));
    result.hessian /= 2;
    return result;
}

Matrix PositiveInverse(const Matrix& hessian) {
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(hessian);
    const Vector magnitudes = solver.eigenvalues().cwiseAbs();
    const double floor =
        std::max(kSmallestRelativeEigenvalue * LargestEntry(magnitudes), kSmallestCurvature);
    return solver.eigenvectors() * magnitudes.cwiseMax(floor).cwiseInverse().asDiagonal() *
           solver.eigenvectors().transpose();
}

Vector SingularValues(const Matrix& matrix) {
    return Eigen::JacobiSVD<Matrix>(matrix).singularValues();
}

bool MayBeRankDeficient(const Vector& singularValues) {
    return singularValues.size() > 0 &&
           singularValues.minCoeff() <= kNegligibleSingularValue * singularValues.maxCoeff();
}

}  // namespace kelvro
