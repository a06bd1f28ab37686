#pragma once

#include <array>
#include <cstdint>

namespace kelvro {

/// What the optimizer notices while it works. The report turns notes into text; `value` and
/// `index` hold what the text names.
enum class NoteKind : std::uint8_t {
    // start matrix
    StartMatrixFromFxx,
    StartMatrixFromFxy,
    CurvatureNotPositive,  ///< index: parameter
    HessianRankDeficient,
    // gradient
    SwitchedToDoubleSided,  ///< flags: reasons; value: {|g| limit, 100 · step}
    SwitchedToSingleSided,
    DoubleSidedUsed,
    DoubleSidedInaccurate,  ///< index: parameter; value[0]: angle difference, degrees
    SingleSidedOffBy3Percent,
    SingleSidedOffBy1Percent,
    SingleSidedUsed,
    SingleSidedInaccurate,  ///< index: parameter
    // line search
    StepReduced,  ///< value[0]: t
    StartStepBad,
    StartStepGood,
    LineSearchTrouble,  ///< flags: reasons
    LineSearchSingleSided,
    // update
    MatrixReset,          ///< value[0]: smallest eigenvalue
    MatrixStillPositive,  ///< value[0]: smallest eigenvalue
    MatrixFromHessian,
    // refinement
    NewtonStep,
    CreaseStep,
    // remarks on an iteration as a whole
    AngleExtreme,
    StepsBelowDifference,  ///< flags: 1 = single-sided gradient in use
    LineSearchQuiteTooMany,
    LineSearchQuiteMany,
    StepUnusuallyLarge,
    StepZero,
};

struct Note {
    NoteKind kind;
    int index = 0;  ///< parameter, counted from 1
    unsigned flags = 0;
    std::array<double, 2> value{};
};

/// Reasons of SwitchedToDoubleSided, in the order in which they are named.
enum DoubleSidedReason : unsigned {
    kCloseToEnd = 1,
    kGradientSmall = 2,
    kStepsSmall = 4,
    kGradientBelowDifference = 8,
};

/// Reasons of LineSearchTrouble, in the order in which they are named.
enum LineSearchReason : unsigned {
    kOscillation = 1,
    kLargeIncrease = 2,  ///< df far above t times the slope
    kLargeDecrease = 4,
};

/// Is the note a warning, which the run counts?
bool IsWarning(const Note& note);

}  // namespace kelvro
