#pragma once

// Numbers inside the algorithm that no window offers. Each has its default and the reason for it;
// who optimizes another kind of function may choose others. "Measured" refers to random designs as
// bench_corpus draws them and to the grid of bench_smoothness.

namespace kelvro {

/// The search along a direction: bracketing by halving and parabolas.
struct LineSearchTuning {
    /// Armijo: a step has to bring this part of what the slope promises. The usual value.
    double sufficientDecrease = 1e-4;
    /// Weak Wolfe: at its end the slope must not be steeper than this part of the first one. Loose,
    /// as each test costs a gradient.
    double sufficientLevelling = 0.6;
    int mostGradients = 4;
    /// A parabola may shorten a step to a tenth, or to a half at most.
    double strongestContraction = 0.1;
    double weakestContraction = 0.5;
    /// It may lengthen a step fourfold; further ones go on threefold while that pays.
    double firstExpansion = 4;
    double furtherExpansion = 3;
    int mostExpansions = 8;
    /// Brackets below this are at the resolution of the parameters.
    double smallestBracket = 1e-10;
    /// First steps that the parabola sees off by more than this factor are worth a warning, ...
    double badStartStep = 10;
    /// ... those within this one a word of praise.
    double goodStartStep = 2;
    /// A search of at least so many steps is looked at for what troubled it: turns up and down, and
    /// changes of f this many times what the slope says.
    int troubledSteps = 6;
    int manyTurns = 3;
    double largeChange = 30;
};

/// Start matrices.
struct MatrixTuning {
    /// Curvatures are taken as at least this part of the largest one: a step along a flat direction
    /// stays within what the differences have seen.
    double smallestRelativeCurvature = 1e-3;
    /// The same for the eigenvalues of a full Hessian, which are known better.
    double smallestRelativeEigenvalue = 1e-5;
    double smallestCurvature = 1e-6;
    /// Singular values below this part of the largest one are none: differences do not show them.
    double negligibleSingularValue = 1e-9;
};

/// One descent.
struct DescentTuning {
    /// Limit to the change of a parameter in one iteration: a factor of 1.65 at first, doubled
    /// while steps that reach it pay off. Wider ones jump over the minimum that is nearest.
    double firstStepLimit = 0.5;
    double largestStepLimit = 1;
    double stepLimitGrowth = 2;
    /// Curvatures above, in dB where all parameters count by their logarithm, are those of a narrow
    /// valley. Its walls turn faster than updates learn: the matrix is taken from the real Hessian
    /// in each iteration. Measured, 30: fewer designs jump with their inputs than at 300.
    double narrowCurvature = 30;
    /// The matrix has to have seen some steps before y·(iH·y) and what it promises mean anything.
    int fewestUpdates = 3;
    /// Iterations in a row without a gain that end a descent.
    int mostStalls = 3;
    /// y·s and y·(iH·y) below this cannot be divided by.
    double smallestDivisor = 1e-18;
    // Limits on f that go with the limit on |g|: where curvature is of order one, a gradient of the
    // limit leaves limit²/2 to be gained. In units of limit², times the scale of f.
    double littleReduction = 10;  ///< an iteration below brings nothing new
    double littlePromise =
        2;  ///< a step that promises less, after a modest reduction, is too small
    double modestReduction = 50;
    double smallYs = 3;   ///< y·s below this, with a little reduction, ends a descent
    double smallVy = 10;  ///< likewise for y·(iH·y)
    double stall = 0.1;   ///< iterations below are a stall
    /// A good point from which an iteration moves no parameter by more than this for a little
    /// reduction ends the descent.
    double unnoticedStep = 0.001;
    /// Where changes count, a good point has to be this part of the limit on |g| flat, so that it
    /// is one place: what they count is a curvature of a tenth. Others are not worth the calls.
    double nearLimitPart = 0.1;
    /// A descent is beaten when three times the reduction of its last four iterations does not take
    /// it below the value it has to reach.
    int lookBack = 4;
    double lookAhead = 3;
};

/// The last steps to a minimum.
struct RefinementTuning {
    int mostSteps = 60;
    /// The limit to the change of a parameter in one step, and how tries in vain shorten it.
    double firstStepLimit = 0.5;
    double largestStepLimit = 1;
    double contraction = 0.25;
    int mostTries = 10;
    /// A step below is the last one, and one below the other is none: parts are given to five
    /// digits.
    double lastStep = 1e-6;
    double smallestStep = 1e-9;
    /// What f may be off by for rounding, dB.
    double rounding = 1e-10;
    /// Steps below leave second derivatives as they are.
    double sameHessian = 1e-3;
    /// Step of second differences: smaller than for others, as beside curvatures of 1e5 those of
    /// 0.1 are to be seen, which the fourth derivatives hide at 1e-4.
    double differenceStep = 2e-5;
    /// A direction is a wall where its curvature is this part of the largest.
    double steepPart = 0.01;
    /// Looks for a minimum on the other side of a crease, the steps of each, and how far from this
    /// one it may be: beyond, it is another design.
    int mostCrossings = 2;
    int mostStepsBeyond = 12;
    double farthestBeyond = 1;
    /// Ways back onto a crease after each step.
    int corrections = 2;
    /// Squared slope of a crease's offset, dB, below which there is none.
    double smallestSlope = 1e-12;
    /// As differences of that step know them.
    MatrixTuning matrix = {.smallestRelativeEigenvalue = 1e-8, .smallestCurvature = 1e-3};
};

/// Further descents of a run.
struct SearchTuning {
    /// Parts of the iterations after which no other descent begins inside the box, inside the wider
    /// one, and at all: the rest is for the last one, as half a descent is no minimum.
    double insidePart = 0.5;
    double widerPart = 0.65;
    double widestPart = 0.8;
    /// Beyond the reach a run looks only where the lowest value within it is this much, in dB,
    /// above all that is possible: at a sixth of the power a network serves nobody, nearer ones are
    /// those that were asked for. Measured, 1500 random designs: 92 % end within a factor of ten
    /// with 1 dB here, 95 % with 5 and 97 % with 8. The formulas of pages 1, 3 and 4 lose 10 to 25
    /// dB there, as their Q is too low for the resistances.
    double lookBeyond = 8;
    /// How much farther the wider box reaches, in factors: 10 becomes 100, ...
    double wider = 2;
    /// ... and the largest one 10^4: parts beyond are open or short circuits.
    double widest = 4;
    /// Descents from further starts in one box that lower the goal by nothing worth having, after
    /// which the search there ends.
    int mostVain = 4;
    int mostVainThorough = 30;
    /// Starts of one run at most. Where no descent takes an iteration, as under a wide limit on
    /// |g|, the limit on iterations ends nothing.
    int mostStarts = 200;
    /// Points drawn for one start, and sweeps over the axes that move each of them down, ...
    int draws = 3;
    int sweeps = 2;
    /// ... with so many looks to each side, in steps of this; half of it in the next sweep.
    int looks = 3;
    double look = 0.8;
    /// Distance from which on a change of the parts counts less. Measured: of 828 designs 29 jump
    /// by more than 1 % of a part with 0.2, 22 with 0.3, 28 with 0.5.
    double nearWidth = 0.3;
    /// What the later parameters count more than the earlier ones, dB for the last one by a factor
    /// of e: of the twins that a symmetric network may have it chooses one, which rounding would.
    double tilt = 1e-3;
    /// Half the width of the cube that points are drawn from where there is no box: a factor of
    /// a thousand.
    double widestDraw = 6.9;
};

/// What the report finds worth a word. No step depends on these.
struct RemarkTuning {
    /// A change of f this small relative to f leaves a gradient entry fewer than four good digits.
    double smallestRelativeChange = 1e-12;
    /// Slopes on both sides of a point that differ by more degrees: a kink or a strong curvature.
    double kinkedAngle = 2;
    /// Parts of |g| by which the single-sided formula may be off, without and with a mild word.
    double singleSidedOff = 0.03;
    double singleSidedSlightlyOff = 0.01;
    /// A direction nearly along the contour, degrees from the steepest descent, ...
    double extremeAngle = 85;
    /// ... and a step so many times what the matrix foresaw: it has learned nothing there.
    double unusuallyLargeStep = 100;
    /// Half the digits of a double are gone in a matrix of this ratio of eigenvalues.
    double extremeEigenvalueRatio = 1e6;
    /// dB that an uncertain parameter may cost: nobody measures less.
    double uncertaintyGoal = 0.01;
    /// A parameter that moved by 1 % in the last iteration had not arrived: parts are sold so.
    double stillMoving = 0.01;
    /// dB at fo that a refined design may lose without a word.
    double notedLoss = 0.5;
};

/// The two runs of a page.
struct RunTuning {
    /// Different start values lie beside the calculated components by 5 %, the tolerance of parts.
    double startOffset = 0.05;
    /// The second run refines: it starts where the first one ended and has to find something to
    /// do, so its limit on |g| is this part of the first one's.
    double secondRunPart = 0.1;
    /// Rounded to ten digits the goal changes in steps; differences have to be wide against them:
    /// the third root of the noise 1e-10, as for any central difference.
    double noisyDifferenceStep = 1e-3;
};

/// All of them.
struct Tuning {
    LineSearchTuning line;
    MatrixTuning matrix;
    DescentTuning descent;
    RefinementTuning refinement;
    SearchTuning search;
    RemarkTuning remark;
    RunTuning run;
};

}  // namespace kelvro
