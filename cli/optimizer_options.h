#pragma once

#include <CLI/App.hpp>
#include <memory>
#include <string>

#include "cli/design_options.h"
#include "cli/design_run.h"
#include "optimize/settings.h"

namespace kelvro {

/// What steers the optimizer on the command line.
struct OptimizerOptions {
    std::shared_ptr<DesignOptions> design;
    std::string keywords;  ///< as the window takes them: "dfp", "steep", ...
    std::string lineAccuracy;
    std::string lineCentre;
    bool maxNorm = false;
    std::string qMeasure;  ///< "gain" or "phase"; empty: as the design has it
};

/// Declares the options of a design, --json, --keywords and --max-norm.
std::shared_ptr<OptimizerOptions> AddOptimizerOptions(CLI::App& command, const Session& session);

/// A calculated design, not optimized yet, with the settings for it.
struct PreparedDesign {
    DesignRun run;
    OptimizerSettings settings;
};

/// Problems are those of a design, and a page with nothing to optimize.
Outcome<PreparedDesign> PrepareDesign(const OptimizerOptions& options, Session& session);

}  // namespace kelvro
