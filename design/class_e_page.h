#pragma once

#include "design/class_e.h"
#include "design/design.h"

namespace kelvro {

/// The stage that the design's components make: without losses, as the page computes it, or with
/// the combined element Q of all parts but the choke, as it is exported.
ClassEStage ClassEStageOf(const Design& design, bool lossy);

}  // namespace kelvro
