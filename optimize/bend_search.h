#pragma once

#include "optimize/line_search.h"

namespace kelvro {

/// Follows a curved valley beyond the end of a line search. Where some directions are far steeper
/// than the others, straight steps soon climb the valley's side and have to stay short. The point
/// that the line search found is set back to the valley's floor across, which tells how the floor
/// bends, and longer steps are tried along that parabola. Returns the outcome unchanged where there
/// is no such valley or nothing to gain.
LineOutcome FollowBend(SearchRun& run, const Matrix& inverse, const Position& from,
                       LineOutcome outcome, bool closeToEnd);

}  // namespace kelvro
