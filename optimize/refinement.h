#pragma once

#include <array>

#include "optimize/box.h"
#include "optimize/descent.h"
#include "optimize/search_run.h"

namespace kelvro {

/// The last steps to a minimum: Newton's, from real second derivatives, and where the function has
/// a crease there, along it. Quasi-Newton steps end beside a crease and anywhere on the floor of a
/// flat valley; these end at its one lowest place, so that the same design comes out whatever the
/// last digits of the input are. The crease is an equality constraint of a quadratic programme
/// (Nocedal, Wright, "Numerical Optimization", ch. 18, with second-order corrections).
class Refinement {
  public:
    /// From the end of a descent, inside the box. Gives up when it will not get below `rival`.
    Refinement(SearchRun& run, const Box& box, DescentResult from, double rival);

    /// Never above where it began.
    DescentResult finish();

  private:
    /// Of both sides and of the offset between them.
    using Values = std::array<double, 3>;

    struct Step {
        Vector s;
        bool alongCrease = false;
        Matrix steep = {};   ///< inverse curvature of the steep directions alone
        Vector normal = {};  ///< of the crease, of the parameters that can move
    };

    Values valuesAt(const Vector& x, CallKind kind);
    int sideOf(const Values& values) const {
        return fixedSide_ >= 0 ? fixedSide_ : (values[2] < 0 ? 0 : 1);
    }
    double valueOf(const Values& values) const {
        return values[static_cast<std::size_t>(sideOf(values))];
    }
    int side() const { return sideOf(at_); }
    bool derive(Vector x, std::array<Vector, 3>& g);
    bool deriveTwice();
    Step propose() const;
    Step newton(int side) const;
    Step alongCrease() const;
    Step solve(const Vector& g, const Matrix& H, bool onCrease) const;
    bool hold(std::vector<bool>& held, const Vector& way) const;
    void addNewton(Step& step, const Matrix& Z, const Vector& g, const Matrix& H) const;
    bool staysOn(int side, const Step& step) const;
    double clipping(const Vector& s) const;
    bool advance(Step step);
    Values correct(Vector& x, const Step& step);
    Values descendWalls(Vector& x, const Step& step, const Values& from);
    bool mirror();
    bool crossOver();
    bool mayCross() const;
    void descend();
    bool accept(const Vector& x, const Values& values, const Step& step, int tries);

    SearchRun& run_;
    const Box& box_;
    const RefinementTuning& tuning_;
    DescentResult result_;
    const double rival_;
    Values at_{};
    std::array<Vector, 3> g_;
    std::array<Matrix, 3> H_;
    bool creased_ = false;
    int fixedSide_ = -1;  ///< the function is that of one side alone; -1: of both
    double radius_;
    double lastStep_;
    bool beaten_ = false;
    std::vector<double> falls_ = {};  ///< f after each step
};

}  // namespace kelvro
