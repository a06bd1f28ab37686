#pragma once

#include "optimize/search_run.h"

namespace kelvro {

/// Trial points of one line search at most.
inline constexpr int kLineSearchLimit = 20;

struct LineOutcome {
    bool moved = false;  ///< a point below the start was found
    Position end;        ///< with its gradient, where moved
    StepData step;
    bool atStepLimit = false;  ///< the step limit ended the search
    bool shortened = false;    ///< a longer trial step did not serve
};

/// Minimum of the parabola through f(0) with its slope and f(t); +infinity where it has none.
double ParabolaMinimum(double f0, double slope, double t, double ft);

/// Searches along S from a point, with slope S·g < 0, for a step that lowers f enough and levels
/// the slope: bracketing by halving and parabolas, in the manner of a weak Wolfe search, which also
/// ends properly at kinks. No parameter moves by more than `largestStep` (infinite for no limit).
/// The gradient at accepted points comes from the run, so their calls count there.
LineOutcome SearchLine(SearchRun& run, const Position& from, const Vector& S, double largestStep,
                       bool closeToEnd);

/// The same with the first trial step given instead of t = 1.
LineOutcome SearchLine(SearchRun& run, const Position& from, const Vector& S, double firstStep,
                       double largestStep, bool closeToEnd);

}  // namespace kelvro
