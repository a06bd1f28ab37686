#include "optimize/refinement.h"

#include <Eigen/Eigenvalues>
#include <Eigen/QR>
#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

/// Columns: the directions that leave the held parameters where they are and, to first order, the
/// crease's offset.
Matrix FreeDirections(Eigen::Index n, const std::vector<bool>& held, const Vector* offset) {
    std::vector<Eigen::Index> free;
    for (Eigen::Index i = 0; i < n; ++i) {
        if (!held[static_cast<std::size_t>(i)]) free.push_back(i);
    }
    const auto m = static_cast<Eigen::Index>(free.size());
    Matrix axes = Matrix::Zero(n, m);
    for (Eigen::Index k = 0; k < m; ++k) axes(free[static_cast<std::size_t>(k)], k) = 1;
    if (!offset || m == 0) return axes;
    const Eigen::HouseholderQR<Matrix> qr(Matrix(axes.transpose() * *offset));
    const Matrix all = qr.householderQ() * Matrix::Identity(m, m);
    return axes * all.rightCols(m - 1);
}

}  // namespace

Refinement::Refinement(SearchRun& run, const Box& box, DescentResult from, double rival)
    : run_(run),
      box_(box),
      tuning_(run.options.tuning.refinement),
      result_(std::move(from)),
      rival_(rival),
      radius_(tuning_.firstStepLimit),
      lastStep_(std::numeric_limits<double>::infinity()) {}

Refinement::Values Refinement::valuesAt(const Vector& x, CallKind kind) {
    const Sides sides = run_.objective.sides(x, kind);
    return {sides.below, sides.above, sides.offset};
}

/// First derivatives of all three; false where one does not exist.
bool Refinement::derive(Vector x, std::array<Vector, 3>& g) {
    const double h = run_.options.differenceStep;
    for (Vector& gk : g) gk.resize(x.size());
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        const double xi = x[i];
        x[i] = xi + h;
        const Values plus = valuesAt(x, CallKind::Gradient);
        x[i] = xi - h;
        const Values minus = valuesAt(x, CallKind::Gradient);
        x[i] = xi;
        for (std::size_t k = 0; k < g.size(); ++k) g[k][i] = (plus[k] - minus[k]) / (2 * h);
    }
    return std::ranges::all_of(g, [](const Vector& gk) { return gk.allFinite(); });
}

/// Second derivatives, mixed ones from both sides as for other Hessians.
bool Refinement::deriveTwice() {
    const double h = std::max(tuning_.differenceStep, run_.options.differenceStep);
    const Eigen::Index n = result_.at.x.size();
    for (Matrix& H : H_) H.setZero(n, n);
    for (const double step : {h, -h}) {
        Vector x = result_.at.x;
        std::vector<Values> single(static_cast<std::size_t>(n));
        for (Eigen::Index i = 0; i < n; ++i) {
            const double xi = x[i];
            x[i] = xi + step;
            const Values& own = single[static_cast<std::size_t>(i)] =
                valuesAt(x, CallKind::Hessian);
            for (std::size_t k = 0; k < H_.size(); ++k) H_[k](i, i) += (own[k] - at_[k]) / (h * h);
            for (Eigen::Index j = 0; j < i; ++j) {
                const double xj = x[j];
                x[j] = xj + step;
                const Values both = valuesAt(x, CallKind::Hessian);
                x[j] = xj;
                const Values& other = single[static_cast<std::size_t>(j)];
                for (std::size_t k = 0; k < H_.size(); ++k) {
                    H_[k](i, j) += (both[k] - own[k] - other[k] + at_[k]) / (2 * h * h);
                    H_[k](j, i) = H_[k](i, j);
                }
            }
            x[i] = xi;
        }
    }
    return std::ranges::all_of(H_, [](const Matrix& H) { return H.allFinite(); });
}

/// Holds the parameters that a way would take out of the box; false where it holds no more.
bool Refinement::hold(std::vector<bool>& held, const Vector& way) const {
    bool more = false;
    for (Eigen::Index i = 0; i < way.size(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        if (held[k] || !box_.blocks(result_.at.x, way, i)) continue;
        held[k] = more = true;
    }
    return more;
}

/// The step to the minimum of the parabola with g and H, of which steps out of the box are none,
/// and where wanted onto the crease.
Refinement::Step Refinement::solve(const Vector& g, const Matrix& H, bool onCrease) const {
    const Eigen::Index n = g.size();
    const Vector& offset = g_[2];
    std::vector<bool> held(static_cast<std::size_t>(n), false);
    hold(held, onCrease ? Vector(g.dot(offset) / offset.squaredNorm() * offset - g) : Vector(-g));
    Step step;
    step.alongCrease = onCrease;
    do {
        step.s.setZero(n);
        step.steep.setZero(n, n);
        Matrix lagrange = H;
        if (onCrease) {
            step.normal = offset;
            for (Eigen::Index i = 0; i < n; ++i) {
                if (held[static_cast<std::size_t>(i)]) step.normal[i] = 0;
            }
            const double square = step.normal.squaredNorm();
            if (!(square > tuning_.smallestSlope)) return step;
            step.s = -at_[2] / square * step.normal;
            lagrange -= g.dot(step.normal) / square * H_[2];
        }
        const Matrix Z = FreeDirections(n, held, onCrease ? &offset : nullptr);
        if (Z.cols() == 0) return step;
        addNewton(step, Z, g + lagrange * step.s, lagrange);
    } while (hold(held, step.s));
    return step;
}

/// Newton's step in the directions of Z, downhill where the curvature is negative.
void Refinement::addNewton(Step& step, const Matrix& Z, const Vector& g, const Matrix& H) const {
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(Matrix(Z.transpose() * H * Z));
    const Vector& values = solver.eigenvalues();
    const double largest = LargestEntry(values);
    const double floor = std::max(tuning_.matrix.smallestRelativeEigenvalue * largest,
                                  tuning_.matrix.smallestCurvature);
    for (Eigen::Index k = 0; k < values.size(); ++k) {
        const Vector v = Z * solver.eigenvectors().col(k);
        const double way = -v.dot(g) / std::max(std::fabs(values[k]), floor);
        step.s += way * v;
        if (values[k] > tuning_.steepPart * largest) {
            step.steep += v * v.transpose() / values[k];
        }
    }
}

Refinement::Step Refinement::newton(int side) const {
    const auto k = static_cast<std::size_t>(side);
    return solve(g_[k], H_[k], false);
}

Refinement::Step Refinement::alongCrease() const {
    const auto k = static_cast<std::size_t>(side());
    return solve(g_[k], H_[k], true);
}

/// The part of a step that limits leave.
double Refinement::clipping(const Vector& s) const {
    const double largest = LargestEntry(s);
    if (!(largest > 0)) return 1;
    return std::min({1.0, radius_ / largest, box_.room(result_.at.x, s)});
}

bool Refinement::staysOn(int side, const Step& step) const {
    const double offset = at_[2] + clipping(step.s) * g_[2].dot(step.s);
    return (offset < 0 ? 0 : 1) == side;
}

/// Each side's own step where it stays there, else the one along the crease between them.
Refinement::Step Refinement::propose() const {
    Step own = newton(side());
    if (!creased_ || fixedSide_ >= 0 || staysOn(side(), own)) return own;
    Step other = newton(1 - side());
    return staysOn(1 - side(), other) ? other : alongCrease();
}

/// Brings a point back onto the crease, which is curved.
Refinement::Values Refinement::correct(Vector& x, const Step& step) {
    Values values = valuesAt(x, CallKind::LineSearch);
    if (!step.alongCrease) return values;
    Vector normal = step.normal;
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        if (box_.blocks(x, step.s, i)) normal[i] = 0;
    }
    const double square = normal.squaredNorm();
    if (!(square > tuning_.smallestSlope)) return values;
    for (int i = 0; i < tuning_.corrections && std::isfinite(values[2]); ++i) {
        x = box_.nearest(x - values[2] / square * normal);
        values = valuesAt(x, CallKind::LineSearch);
    }
    return values;
}

/// Valleys bend: where a step has run up the wall, the steep directions lead down again.
Refinement::Values Refinement::descendWalls(Vector& x, const Step& step, const Values& from) {
    const auto k = static_cast<std::size_t>(sideOf(from));
    std::array<Vector, 3> g = g_;
    if (!derive(x, g)) return from;
    Vector way = -(step.steep * g[k]);
    if (step.alongCrease) way += step.steep * (g[k].dot(g[2]) / g[2].squaredNorm() * g[2]);
    const double largest = LargestEntry(way);
    if (!(largest > 0)) return from;
    Vector lower = x + std::min({1.0, radius_ / largest, box_.room(x, way)}) * way;
    const Values values = correct(lower, step);
    if (!(valueOf(values) < valueOf(from))) return from;
    x = std::move(lower);
    return values;
}

bool Refinement::advance(Step step) {
    const double before = valueOf(at_);
    for (int tries = 1; tries <= tuning_.mostTries; ++tries) {
        const double t = clipping(step.s);
        const double length = t * LargestEntry(step.s);
        if (!(length > tuning_.smallestStep)) return false;
        Vector x = result_.at.x + t * step.s;
        Values values = correct(x, step);
        const double promised = -0.5 * t * step.s.dot(g_[static_cast<std::size_t>(side())]);
        if (length > tuning_.sameHessian && std::isfinite(valueOf(values)) &&
            valueOf(values) > before - 0.5 * std::max(promised, 0.0)) {
            values = descendWalls(x, step, values);
        }
        const double after = valueOf(values);
        // So near to the end rounding hides what a step gains.
        const double rounding = length < tuning_.lastStep ? tuning_.rounding : 0;
        if (std::isfinite(after) && after < before + rounding) {
            if (t < 1 && tries == 1) radius_ = std::min(2 * radius_, tuning_.largestStepLimit);
            // A face that ends a step says nothing about the minimum.
            const bool atFace = t < 1 && length < 0.99 * radius_;
            return accept(x, values, step, tries) && (atFace || length > tuning_.lastStep);
        }
        const bool crossed = sideOf(values) != side();
        if (creased_ && fixedSide_ < 0 && crossed && !step.alongCrease) {
            step = alongCrease();
            continue;
        }
        radius_ = tuning_.contraction * std::min(length, radius_);
        step = propose();
    }
    return false;
}

/// To the mirror image of the point beyond the crease; false where that is far.
bool Refinement::mirror() {
    const Vector way = -2 * at_[2] / g_[2].squaredNorm() * g_[2];
    if (!(LargestEntry(way) < tuning_.farthestBeyond)) return false;
    result_.at.x = box_.nearest(result_.at.x + way);
    at_ = valuesAt(result_.at.x, CallKind::LineSearch);
    lastStep_ = std::numeric_limits<double>::infinity();
    radius_ = tuning_.firstStepLimit;
    return std::isfinite(valueOf(at_)) && derive(result_.at.x, g_);
}

/// The other side of a crease may have a minimum next to this one: which of them is found must not
/// depend on the side that a descent has come from.
bool Refinement::crossOver() {
    const auto saved = std::tuple(result_, at_, g_, H_, lastStep_, radius_);
    const Position& from = std::get<0>(saved).at;
    const double before = valueOf(at_);
    const int target = fixedSide_ = 1 - side();
    bool more = mirror();
    for (int i = 0; more && i < tuning_.mostStepsBeyond; ++i) {
        more = (lastStep_ <= tuning_.sameHessian || deriveTwice()) && advance(newton(side()));
    }
    fixedSide_ = -1;
    const Vector way = result_.at.x - from.x;
    const double after = valueOf(at_);
    if (side() == target && after < before - tuning_.rounding &&
        LargestEntry(way) < tuning_.farthestBeyond) {
        run_.notes().push_back({.kind = NoteKind::NewtonStep});
        run_.record(from, result_.at, {way, 1, 1, 0});
        return true;
    }
    std::tie(result_, at_, g_, H_, lastStep_, radius_) = saved;
    return false;
}

bool Refinement::accept(const Vector& x, const Values& values, const Step& step, int tries) {
    const Position before = result_.at;
    lastStep_ = LargestEntry(x - before.x);
    at_ = values;
    result_.at.x = x;
    result_.at.f = valueOf(values);
    result_.onCrease = step.alongCrease;
    const bool exists = derive(x, g_);
    if (exists) {
        Gradient gradient;
        gradient.g = g_[static_cast<std::size_t>(side())];
        gradient.length = gradient.g.norm();
        gradient.doubleSided = true;
        result_.at.gradient = std::move(gradient);
    } else {
        result_.at.gradient = run_.gradients.computeDoubleSided(x, result_.at.f, run_.notes());
    }
    if (fixedSide_ >= 0) return exists;
    run_.notes().push_back(
        {.kind = step.alongCrease ? NoteKind::CreaseStep : NoteKind::NewtonStep});
    run_.record(before, result_.at, {x - before.x, 1, tries, 0});
    return exists;
}

void Refinement::descend() {
    for (int i = 0; i < tuning_.mostSteps && run_.iterationsLeft(); ++i) {
        creased_ = g_[2].squaredNorm() > tuning_.smallestSlope;
        if (lastStep_ > tuning_.sameHessian && !deriveTwice()) break;
        if (!advance(propose())) break;
        falls_.push_back(result_.at.f);
        if (IsBeaten(falls_, rival_, run_.options.tuning.descent)) {
            beaten_ = true;
            break;
        }
    }
}

bool Refinement::mayCross() const {
    return creased_ && !result_.onCrease && !beaten_ && run_.iterationsLeft();
}

DescentResult Refinement::finish() {
    at_ = valuesAt(result_.at.x, CallKind::Evaluation);
    if (!std::isfinite(valueOf(at_)) || !derive(result_.at.x, g_)) return std::move(result_);
    const Vector start = result_.at.x;
    descend();
    for (int i = 0; i < tuning_.mostCrossings && mayCross() && crossOver(); ++i) descend();
    if (beaten_) result_.end = DescentEnd::Beaten;
    if (beaten_ || result_.at.x == start) return std::move(result_);
    const auto k = static_cast<std::size_t>(side());
    result_.inverse = PositiveInverse(H_[k], run_.options.tuning.matrix);
    const bool flat = result_.at.gradient.length < run_.options.gradientLimit;
    result_.end = flat                    ? DescentEnd::GradientTooSmall
                  : run_.iterationsLeft() ? DescentEnd::StepTooSmall
                                          : DescentEnd::MaxIterations;
    return std::move(result_);
}

}  // namespace kelvro
