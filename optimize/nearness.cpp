#include "optimize/nearness.h"

#include <cmath>
#include <utility>

namespace kelvro {

Nearness::Nearness(Vector origin, double most, double reach, double width, double tilt)
    : origin_(std::move(origin)),
      tilt_(Vector::LinSpaced(origin_.size(), 0, tilt)),
      square_(width * width) {
    const double farthest = static_cast<double>(origin_.size()) * reach * reach;
    scale_ = most / std::log1p(farthest / square_);
}

double Nearness::value(const Vector& x) const {
    const Vector way = x - origin_;
    return scale_ * std::log1p(way.squaredNorm() / square_) + tilt_.dot(way);
}

Vector Nearness::gradient(const Vector& x) const {
    const Vector way = x - origin_;
    return 2 * scale_ / (square_ + way.squaredNorm()) * way + tilt_;
}

}  // namespace kelvro
