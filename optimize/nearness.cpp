#include "optimize/nearness.h"

#include <cmath>
#include <utility>

namespace kelvro {

Nearness::Nearness(Vector origin, double most, double reach, double width)
    : origin_(std::move(origin)), square_(width * width) {
    const double farthest = static_cast<double>(origin_.size()) * reach * reach;
    scale_ = most / std::log1p(farthest / square_);
}

double Nearness::value(const Vector& x) const {
    return scale_ * std::log1p((x - origin_).squaredNorm() / square_);
}

Vector Nearness::gradient(const Vector& x) const {
    const Vector way = x - origin_;
    return 2 * scale_ / (square_ + way.squaredNorm()) * way;
}

}  // namespace kelvro
