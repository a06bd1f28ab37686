#pragma once

#include <string>

#include "analysis/goal_options.h"
#include "optimize/local_optimizer.h"

namespace kelvro {

/// The settings of the optimizer that windows, command line and calculation share. The defaults are
/// those of the set-up window.
struct OptimizerSettings {
    /// Designs stay as calculated.
    bool disabled = false;
    LocalOptions local = {};
    GoalOptions goal = {};
    /// One run instead of two; the second run starts from the best point of the first.
    bool singleRun = true;
    /// Runs start beside the calculated design, so that their results show its accuracy.
    bool differentStartValues = false;
    /// Write a report of the runs.
    bool writeLog = false;
    /// Write a table of every goal call, of which the report says that it is in this file.
    bool writeTable = false;
    std::string tableName = "opt2.csv";
};

}  // namespace kelvro
