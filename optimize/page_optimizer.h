#pragma once

#include <string>
#include <vector>

#include "analysis/response.h"
#include "design/design.h"
#include "optimize/settings.h"

namespace kelvro {

/// Files that a run writes; an empty path writes nothing. The table is written only when the
/// settings ask for it.
struct OptimizerFiles {
    std::string log = "opt.txt";
    std::string table = "opt2.csv";
};

/// What the last optimization of a page did.
struct PageOptimization {
    enum class Status : std::uint8_t {
        NotRun,  ///< the page has nothing to optimize, or the settings disable it
        Finished,
        Aborted,  ///< a report could not be written; the design stayed as calculated
    };

    Status status = Status::NotRun;
    int page = 0;
    Slots components;           ///< those of the best point, or as they were given
    std::string error;          ///< the system's reason of an aborted run
    std::vector<Summary> runs;  ///< one or two
    double milliseconds = 0;    ///< both runs and their reports
    double startGoal = 0;       ///< goal of the calculated design
    double achievedGoal = 0;    ///< goal of the design as it was left

    CallCounts calls;        ///< all calls of the goal
    int iterations() const;  ///< of all runs
    /// The run that reached the lowest goal, of equal ones the last. There has to be one.
    const Summary& bestRun() const;
};

/// Optimizes the components of a design with the settings, and writes the reports.
PageOptimization OptimizePage(const Design& design, const OptimizerSettings& settings,
                              const OptimizerFiles& files);

/// Services of a calculation with the optimizer at work.
class OptimizerServices : public ResponseServices {
  public:
    explicit OptimizerServices(OptimizerSettings settings = {}, OptimizerFiles files = {});

    Slots optimize(const Design& design) override;

    OptimizerSettings settings;
    OptimizerFiles files;
    /// The last optimization that ran; windows and the status panel read it.
    const PageOptimization& last() const { return last_; }

  private:
    PageOptimization last_;
};

}  // namespace kelvro
