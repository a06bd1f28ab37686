#include "optimize/box.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace kelvro {

namespace {

// Steps onto a face end there but for rounding.
constexpr double kOnFace = 1e-9;

}  // namespace

bool Box::contains(const Vector& x) const {
    return distance(x) <= reach_ + kOnFace;
}

Vector Box::nearest(const Vector& x) const {
    return x.cwiseMax((centre_.array() - reach_).matrix())
        .cwiseMin((centre_.array() + reach_).matrix());
}

bool Box::blocks(const Vector& x, const Vector& direction, Eigen::Index i) const {
    const double offset = x[i] - centre_[i];
    return std::fabs(offset) >= reach_ - kOnFace && offset * direction[i] > 0;
}

double Box::room(const Vector& x, const Vector& direction) const {
    double room = std::numeric_limits<double>::infinity();
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        if (direction[i] == 0) continue;
        const double outward = std::copysign(x[i] - centre_[i], (x[i] - centre_[i]) * direction[i]);
        room = std::min(room, std::max(reach_ - outward, 0.0) / std::fabs(direction[i]));
    }
    return room;
}

Vector Box::direction(const Matrix& inverse, const Vector& x, const Vector& g) const {
    const Vector whole = -(inverse * g);
    std::vector<Eigen::Index> held;
    const auto hold = [&](const Vector& way) {
        const std::size_t before = held.size();
        for (Eigen::Index i = 0; i < x.size(); ++i) {
            if (blocks(x, way, i) && std::ranges::find(held, i) == held.end()) held.push_back(i);
        }
        return held.size() > before;
    };
    Vector S = whole;
    for (bool more = hold(-g) || hold(S); more; more = hold(S)) {
        // The parabola's minimum where the parameters of `held` stay: Schur complement of iH.
        const Vector pull = Matrix(inverse(held, held)).ldlt().solve(Vector(whole(held)));
        S = whole - Matrix(inverse(Eigen::all, held)) * pull;
        for (const Eigen::Index i : held) S[i] = 0;
    }
    return S;
}

Vector Box::freeGradient(const Vector& x, const Vector& g) const {
    Vector free = g;
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        if (blocks(x, -g, i)) free[i] = 0;
    }
    return free;
}

}  // namespace kelvro
