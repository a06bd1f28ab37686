#pragma once

#include <functional>
#include <string>
#include <vector>

#include "analysis/response.h"
#include "design/design.h"
#include "optimize/settings.h"

namespace kelvro {

/// What the last optimization of a page did.
struct PageOptimization {
    enum class Status : std::uint8_t {
        NotRun,  ///< the page has nothing to optimize, or the settings disable it
        Finished,
    };

    Status status = Status::NotRun;
    int page = 0;
    Slots components;           ///< those of the best point, or as they were given
    std::vector<Summary> runs;  ///< one or two
    int delivered = 0;          ///< the run whose result the components are, counted from 0
    double milliseconds = 0;    ///< both runs and their texts
    double startGoal = 0;       ///< goal of the calculated design
    double achievedGoal = 0;    ///< goal of the design as it was left

    std::string log;    ///< the report of the runs; empty where none was asked for
    std::string table;  ///< all calls; empty where none was asked for
    /// What a user has to know of the result, as "far from the calculated design: C1 × 0.02".
    std::vector<std::string> warnings;
    /// All of them in one line.
    std::string warning() const;
    /// Why the texts could not be kept; set by whoever tried.
    std::string reportProblem;

    CallCounts calls;        ///< all calls of the goal
    int iterations() const;  ///< of all runs
    /// The run that reached the result. There has to be one.
    const Summary& bestRun() const { return runs[static_cast<std::size_t>(delivered)]; }
};

/// Optimizes the components of a design with the settings. Computes and says; keeps nothing.
PageOptimization OptimizePage(const Design& design, const OptimizerSettings& settings);

/// Services of a calculation with the optimizer at work.
class OptimizerServices : public ResponseServices {
  public:
    /// Keeps the texts of an optimization.
    using Reports = std::function<Status(const PageOptimization&)>;

    explicit OptimizerServices(OptimizerSettings settings = {}, Reports reports = {});

    Slots optimize(const Design& design) override;

    OptimizerSettings settings;
    Reports reports;
    /// The last optimization that ran; windows and the status panel read it.
    const PageOptimization& last() const { return last_; }

  private:
    PageOptimization last_;
};

}  // namespace kelvro
