#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "optimize/evaluator.h"
#include "optimize/gradient.h"
#include "optimize/linear.h"
#include "optimize/local_optimizer.h"

// What the parts of a run share.

namespace kelvro {

/// A point with all that is known there.
struct Position {
    Vector x;
    double f = 0;
    Gradient gradient;
};

/// How a step was found.
struct StepData {
    Vector direction;
    double t = 0;
    int lineSteps = 0;
    int clampings = 0;
};

class SearchRun {
  public:
    SearchRun(Objective& judge, Evaluator& objective, const LocalOptions& options,
              Summary& summary);

    Evaluator& objective;
    LocalOptions options;
    GradientSource gradients;

    bool iterationsLeft() const { return summary_.iterations < options.maxIterations; }
    /// A position as it is without what its distance and the wishes count, and the other way round.
    Position plain(Position at);
    Position counted(Position at);
    /// The start of a descent.
    void recordStart(const Position& counted);
    /// One iteration: its record takes the notes collected since the last one.
    void record(const Position& from, const Position& to, const StepData& step);
    /// Start matrix from the second derivatives at x alone.
    Matrix diagonalInverseAt(const Vector& x, double f);
    /// What the objective itself says of a point of the active parameters.
    bool isGood(const Vector& x);
    double lowerBound() const { return judge_.lowerBound(); }
    /// Notes on what happens, in order.
    std::vector<Note>& notes() { return notes_; }
    /// Scale of differences of f: 1, or the root of |f| where f is large. In proportion to |f| the
    /// limits would stop descents of large sums too early.
    static double scale(double f) { return std::sqrt(std::max(1.0, std::fabs(f))); }

  private:
    void evaluate(Position& at);

    Objective& judge_;
    Summary& summary_;
    std::vector<Note> notes_;
    Position lastPlain_;  ///< each point is asked for as an end and as the next start
};

}  // namespace kelvro
