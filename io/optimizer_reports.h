#pragma once

#include <string>

#include "core/result.h"
#include "optimize/page_optimizer.h"

namespace kelvro {

/// Files that keep what an optimization has to say; an empty path keeps nothing.
struct OptimizerFiles {
    std::string log;
    std::string table;
};

/// opt.txt and opt2.csv in the user's folder for state of programs: $XDG_STATE_HOME/kelvro, without
/// that variable ~/.local/state/kelvro.
OptimizerFiles UserReports();

/// Writes log and table where there are any, each as a whole, folders included. A failure names the
/// first that cannot be written. The design does not depend on it.
Status KeepReports(const PageOptimization& optimization, const OptimizerFiles& files);

}  // namespace kelvro
