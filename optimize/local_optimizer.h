#pragma once

#include <Eigen/Core>
#include <numbers>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/objective.h"
#include "optimize/trace.h"
#include "optimize/tuning.h"

// A quasi-Newton minimizer for functions of up to 64 numbers that are cheap, smooth almost
// everywhere and known by their values only. Parameters are expected to be of order one: the
// finite-difference step and the step limits are absolute.

namespace kelvro {

enum class GradientChoice : std::uint8_t { Automatic, SingleSided, DoubleSided };

/// What steers a run. Every field has its default, its range and its reason.
struct LocalOptions {
    /// |g| below which a run ends; >= 0. A goal in dB changes by less than 0.01 per step of e.
    double gradientLimit = 0.01;
    /// 1..199. Designs with two to four components need ten to thirty.
    int maxIterations = 80;
    /// Direction -g instead of -iH·g; slow, for comparison.
    bool steepestDescent = false;
    GradientChoice gradient = GradientChoice::Automatic;
    /// Start matrix from the full finite-difference Hessian instead of its diagonal.
    bool enhancedStartMatrix = false;
    /// No limit to the change of a parameter in one iteration.
    bool noClampings = false;
    /// Compare the difference formulas and warn where they disagree; costs no calls.
    bool gradientChecks = true;
    /// DFP update instead of BFGS; known to recover more slowly from bad curvature.
    bool dfp = false;
    /// 0..1: 0 ends a line search at the first good point, 1 seeks its minimum.
    double lineAccuracy = 0.5;
    /// 0..1: where the first trial step lies relative to the expected minimum; 0.5 is on it, 0
    /// short of it.
    double lineCentre = 0.5;
    /// Step of the differences, > 0. Parameters are logarithms, so this is a relative change.
    /// Small, as curvatures of 1e6 occur and f is good to 1e-15; noisy functions need 1e-4 and
    /// more.
    double differenceStep = 5e-7;
    /// Step of second differences, > 0: wider, as rounding counts by its square.
    double secondDifferenceStep = 1e-4;
    /// Where the first minimum is not a good one, look for others from further starts.
    bool furtherStarts = true;
    /// Another number, other further starts.
    int sequence = 0;
    /// Look for the lowest value of all, wherever it lies and however many descents it takes.
    bool thorough = false;
    /// Largest change of a parameter against the origin, > 0: a factor of ten, beyond which a
    /// network is no longer the one that was calculated.
    double reach = std::numbers::ln10;
    /// A minimum this much above the lowest one is as good: 0.2 dB are within the tolerances of
    /// parts, and the nearer network is the one that was asked for.
    double asGood = 0.2;
    /// A minimum out of reach is taken where nothing within it comes this near. 1 dB is worth
    /// another network.
    double farGain = 1;
    /// What a change of all parameters by the reach counts while a run looks for its minimum, see
    /// Nearness; 0: nothing.
    double nearness = 0;
    /// Real Hessian at the end of the run, for reports; costs 2n² calls or fewer.
    bool finalHessian = false;
    /// Keep every call for a table.
    bool recordCalls = false;
    Tuning tuning = {};
};

/// What ended a run, in the priority of the tests.
enum class StopReason : std::uint8_t {
    MaxIterations,
    GradientTooSmall,
    YsTooSmall,
    VyTooSmall,
    StepTooSmall
};

/// One function call of a recorded run.
struct CallRecord {
    CallKind kind;
    double f;
    Eigen::VectorXd x;
};

/// State behind one iteration, or at the start of a descent.
struct IterationRecord {
    int iteration = 0;
    int descent = 0;       ///< which start it came from, counted from 0
    bool isStart = false;  ///< of a descent: no step has been taken
    CallCounts calls;      ///< since the start of the run
    double f = 0;
    double reduction = 0;  ///< of f in this iteration
    double gradientLength = 0;
    Eigen::VectorXd x;
    Eigen::VectorXd g;
    Eigen::VectorXd direction;  ///< S that led here
    Eigen::VectorXd step;       ///< x less the previous x
    double angleToDescent = 0;  ///< between -g and S at the previous point, degrees
    double angleToOldGradient = 0;
    int lineSteps = 0;  ///< trial points of the line search
    double t = 0;       ///< accepted step parameter
    int clampings = 0;
    bool doubleSided = false;
    std::vector<Note> notes;  ///< what was noticed on the way, in order
};

/// Result of a run.
struct Summary {
    StopReason stop = StopReason::MaxIterations;
    int iterations = 0;
    CallCounts calls;
    int singleSidedGradients = 0;
    int doubleSidedGradients = 0;
    int warnings = 0;

    // The delivered minimum: all of one point.
    Eigen::VectorXd x;
    double f = 0;
    Eigen::VectorXd g;
    double gradientLength = 0;
    /// As the updates left it; rows and columns of parameters without influence are 0.
    Eigen::MatrixXd inverseHessian;
    std::optional<Eigen::MatrixXd> finalHessian;  ///< by finite differences at x
    double distance = 0;        ///< largest change of a parameter against the origin
    bool outOfReach = false;    ///< beyond the reach, as nothing within it came near enough
    std::vector<bool> onLimit;  ///< parameters that the reach holds back
    bool good = false;          ///< as the objective judges it
    int delivered = 0;          ///< the descent that found it, counted from 0
    /// f still falls from here, by less than a change of the parameters or a wish counts.
    bool notWorthTheWay = false;
    /// Of max-min steps: there are no line searches and no matrices, and g is the sum of the
    /// gradients that hold the worst value down, each by how much it does.
    bool maxMin = false;
    /// Of max-min steps, where a report is asked for: how far each parameter alone may be off, to
    /// the worse side, for the decibels that the report's uncertainties are made for.
    Eigen::VectorXd uncertainties;

    int descents = 0;                      ///< starts made
    double initialStep = 0;                ///< first t
    std::vector<IterationRecord> history;  ///< history[0] is the start, history.back() the end
    std::vector<Note> closingNotes;        ///< of a search after the last iteration, in vain
    std::vector<bool> active;              ///< false: the parameter has no influence

    Eigen::VectorXd startDiagonal;                ///< fxx at the start, empty where not taken
    std::optional<Eigen::MatrixXd> startHessian;  ///< of the enhanced start matrix
    Eigen::VectorXd startSingularValues;          ///< of the start Hessian
    std::vector<CallRecord> table;                ///< filled when calls are recorded

    const IterationRecord& start() const { return history.front(); }
};

/// Minimizes from `start`. Never returns a point worse than the start; never lets a value that is
/// not finite into its matrix. A start without a finite value ends at once with its own point.
/// One descent is the rule. Where its minimum is not a good one, others follow from further starts
/// within reach of `origin`, which is the start unless given, and of the minima found the one
/// nearest to it is delivered of those that are as good as the lowest.
Summary MinimizeLocally(Objective& objective, const Eigen::VectorXd& start,
                        const LocalOptions& options,
                        const std::optional<Eigen::VectorXd>& origin = std::nullopt);

}  // namespace kelvro
