#include "optimize/update.h"

namespace kelvro {

Matrix UpdatedInverse(const Matrix& inverse, const Vector& s, const Vector& y, bool dfp) {
    const double ys = y.dot(s);
    const Vector v = inverse * y;
    const double yv = y.dot(v);
    const Matrix ss = s * s.transpose() / ys;
    if (dfp) return inverse + ss - v * v.transpose() / yv;
    const Matrix vs = v * s.transpose();
    return inverse + (1 + yv / ys) * ss - (vs + vs.transpose()) / ys;
}

}  // namespace kelvro
