#pragma once

#include "analysis/goal.h"
#include "optimize/local_optimizer.h"

namespace kelvro {

/// Makes the worst gain of a ladder between two edges as high as it can be: max-min by sequential
/// linear programming with exact gradients, as a worst of many has an edge where quasi-Newton steps
/// end. `design` is what the goal was made of, which has to count its worst gain. From `start`,
/// with every parameter within the options' reach of `origin`; a thorough search goes on from
/// points all over a wider box. The report's G are the gradients of the gains that hold the worst
/// one down, each by how much it does. Never ends above the start.
Summary MinimizeWorstLoss(Goal& goal, const Design& design, const Eigen::VectorXd& start,
                          const LocalOptions& options, const Eigen::VectorXd& origin);

}  // namespace kelvro
