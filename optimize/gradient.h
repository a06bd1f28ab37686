#pragma once

#include <vector>

#include "optimize/evaluator.h"
#include "optimize/linear.h"
#include "optimize/local_optimizer.h"
#include "optimize/trace.h"

// Gradients by finite differences and the rule that chooses their formula.

namespace kelvro {

struct Gradient {
    Vector g;
    double length = 0;
    bool doubleSided = false;
    // Of the double-sided formula only:
    Vector plus = {};       ///< f(x + h·ei)
    Vector minus = {};      ///< f(x - h·ei)
    Vector curvature = {};  ///< second derivatives fxx,i
};

/// (f(x + h·ei) - f(x - h·ei))/(2h): two calls for each parameter. Where one side does not exist
/// the other one serves alone; where none does the entry is 0.
Gradient DoubleSidedGradient(Evaluator& objective, const Vector& x, double f, double h,
                             CallKind kind = CallKind::Gradient);

/// (f(x + h·ei) - f(x))/h: one call for each parameter; a side that does not exist costs another.
Gradient SingleSidedGradient(Evaluator& objective, const Vector& x, double f, double h);

/// What is known before a gradient is computed.
struct GradientSituation {
    double gradientLength = 0;  ///< |g| of the last gradient
    double largestStep = 0;     ///< max |dxi| of the last iteration
    bool closeToEnd = false;
};

/// The reasons (DoubleSidedReason) that speak for the double-sided formula; 0 for none.
unsigned DoubleSidedReasons(const GradientSituation& situation, const LocalOptions& options);

/// |g| below which the double-sided formula is chosen.
double DoubleSidedLimit(const LocalOptions& options);

/// Chooses the formula and computes gradients, counts them and notes what there is to say.
class GradientSource {
  public:
    GradientSource(Evaluator& objective, const LocalOptions& options)
        : objective_(objective), options_(options) {}

    Gradient compute(const Vector& x, double f, const GradientSituation& situation,
                     std::vector<Note>& notes);
    /// Double-sided whatever the rule says, as start matrices need it.
    Gradient computeDoubleSided(const Vector& x, double f, std::vector<Note>& notes);

    /// Gradients of starts are no iterations: the next one does not switch from them.
    void beginDescent() { wasDoubleSided_ = false; }

    int singleSided() const { return singleSided_; }
    int doubleSided() const { return doubleSided_; }

  private:
    bool choose(const GradientSituation& situation, std::vector<Note>& notes);
    void checkDoubleSided(const Gradient& gradient, double f, std::vector<Note>& notes) const;

    Evaluator& objective_;
    const LocalOptions& options_;
    bool wasDoubleSided_ = false;
    int singleSided_ = 0;
    int doubleSided_ = 0;
};

}  // namespace kelvro
