#pragma once

#include <Eigen/Core>
#include <algorithm>
#include <initializer_list>

namespace kelvro {

inline Eigen::VectorXd Point(std::initializer_list<double> values) {
    Eigen::VectorXd x(static_cast<Eigen::Index>(values.size()));
    std::copy(values.begin(), values.end(), x.begin());
    return x;
}

inline double Square(double x) {
    return x * x;
}

}  // namespace kelvro
