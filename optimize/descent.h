#pragma once

#include <vector>

#include "optimize/line_search.h"
#include "optimize/search_run.h"

namespace kelvro {

/// The best minimum found so far, as a competitor of a descent.
struct Rival {
    Vector x;
    double f;
};

/// Why a descent ended.
enum class DescentEnd : std::uint8_t {
    MaxIterations,
    GradientTooSmall,
    YsTooSmall,
    VyTooSmall,
    StepTooSmall,
    Beaten,  ///< it will not reach the rival
    Known,   ///< it leads to the rival
};

struct DescentResult {
    Position at;
    Matrix inverse;  ///< approximation of the inverse Hessian
    DescentEnd end = DescentEnd::MaxIterations;
    int iterations = 0;
    bool creased = false;  ///< a crease had to be followed
};

/// Limits on f that go with the limit on |g|: where curvature is of order one, a gradient of the
/// limit leaves limit²/2 to be gained. All grow with the scale of f.
struct DescentLimits {
    explicit DescentLimits(double gradientLimit);

    double reduction;  ///< an iteration below brings nothing new
    double promise;    ///< a step that promises less, after a small reduction, is too small
    double modest;     ///< the reduction before such a step
    double ys;         ///< y·s below this, with a small reduction, ends a descent
    double vy;         ///< likewise for y·(iH·y)
    double stall;      ///< iterations below this, several in a row, are a stall
};

/// A quasi-Newton descent from a point to a minimum near by.
class Descent {
  public:
    /// With a rival the descent gives up when it is going to lose.
    Descent(SearchRun& run, Position start, Matrix inverse, const Rival* rival = nullptr);

    DescentResult finish();

  private:
    bool iterate();
    Vector direction();
    bool take(LineOutcome outcome);
    bool closeToEnd() const { return stalls_ > 0; }
    bool confirmGradient();
    bool promisesLittle(const Vector& S) const;
    bool changeTooSmall(const Vector& s, const Vector& y, double reduction);
    bool stalled(double reduction);
    bool meetsRival();
    bool followCrease();
    void update(const Vector& s, const Vector& y);
    void adaptStepLimit(const LineOutcome& outcome);
    void setInverse(Matrix inverse);
    void setInverse(Matrix inverse, double smallestEigenvalue);
    bool isStiff() const;
    bool end(DescentEnd reason);

    SearchRun& run_;
    const Rival* rival_;
    DescentLimits limits_;
    DescentResult result_;
    Vector curvature_;  ///< fxx of the last double-sided gradient
    double steepestCurvature_ = 0;
    double stepLimit_;
    bool limitRaised_ = false;  ///< by the last step
    int stalls_ = 0;
    double lastReduction_ = 0;
    double lastT_ = 0;  ///< of steepest descent
    std::vector<double> history_;
};

/// Starts of descents: gradient and matrix at a point. The first start of a run takes its matrix
/// from the diagonal or, on demand, from the full Hessian; later ones always from the full Hessian,
/// whose calls they repay.
struct DescentStart {
    Position at;
    Matrix inverse;
};
DescentStart StartFromHessian(SearchRun& run, const Vector& x, double f);

}  // namespace kelvro
