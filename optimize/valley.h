#pragma once

#include "optimize/search_run.h"

namespace kelvro {

/// Directions as steep as this wall a valley in.
inline constexpr double kWallCurvature = 50;

/// A point of a line or a valley and its value.
struct ValuedPoint {
    Vector x;
    double f;
};

/// A valley between steep walls, which may stand in several directions. Its calls count as those of
/// the line search.
class Valley {
  public:
    /// `across` has the directions of the walls as its columns, unit vectors. `gain` is what is
    /// worth a step: it sets the distance of the points that find the floor.
    Valley(SearchRun& run, Matrix across, const Vector& curvatures, double gain);

    /// The point moved to the floor: to the minimum of a parabola across, for each wall in turn.
    ValuedPoint onFloor(ValuedPoint point) const;

    /// From the floor at `from` over the floor at `first` on, `along` being the way between them
    /// but for the part across: the lowest of points at doubling distances along the tangent, bent
    /// by the square.
    ValuedPoint farther(const Vector& from, const ValuedPoint& first, const Vector& along) const;

    /// The part of a way that leads across the valley.
    Vector across(const Vector& way) const { return across_ * (across_.transpose() * way); }

    double value(const Vector& x) const { return run_.objective(x, CallKind::LineSearch); }

  private:
    ValuedPoint onFloor(ValuedPoint point, Eigen::Index wall) const;

    SearchRun& run_;
    Matrix across_;
    Vector probes_;
    double gain_;
};

}  // namespace kelvro
