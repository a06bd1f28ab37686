#include "optimize/line_scan.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace kelvro {

namespace {

// Far enough for a factor of a thousand, in steps that notice most dips, or nearly all of them.
constexpr double kReach = 7;
constexpr double kCoarseStep = 0.5;
constexpr double kFineStep = 0.3;
constexpr int kRefinements = 2;
// Trial points this near to the middle of a bracket, relative to it, would not narrow it.
constexpr double kTooNear = 0.02;
constexpr double kAside = 0.1;
constexpr double kSameValue = 0.02;
constexpr Eigen::Index kFewParameters = 4;

struct Sample {
    double t;
    double f;
};

/// Three points of a line, the middle one lowest.
struct Bracket {
    Sample left;
    Sample middle;
    Sample right;

    /// Where to look next: the minimum of the parabola, or beside the middle when that is there.
    double trial() const;
    void narrow(const Sample& sample);
};

double Bracket::trial() const {
    const double toLeft = middle.t - left.t;
    const double toRight = middle.t - right.t;
    const double overRight = middle.f - right.f;
    const double overLeft = middle.f - left.f;
    const double t = middle.t - 0.5 * (toLeft * toLeft * overRight - toRight * toRight * overLeft) /
                                    (toLeft * overRight - toRight * overLeft);
    if (std::fabs(t - middle.t) >= kTooNear * (right.t - left.t)) return t;
    return middle.t - kAside * (-toRight > toLeft ? toRight : toLeft);
}

void Bracket::narrow(const Sample& sample) {
    const bool beyond = sample.t > middle.t;
    if (sample.f < middle.f) {
        (beyond ? left : right) = middle;
        middle = sample;
    } else {
        (beyond ? right : left) = sample;
    }
}

class Line {
  public:
    Line(SearchRun& run, const Vector& origin, const Vector& direction)
        : run_(run),
          origin_(origin),
          direction_(direction),
          step_(run.options.thorough ? kFineStep : kCoarseStep) {}

    Vector at(double t) const { return origin_ + t * direction_; }
    Sample sample(double t) const { return {t, run_.objective(at(t), CallKind::LineSearch)}; }
    /// The bracket's minimum, nearly.
    Sample lowest(Bracket bracket) const;
    void collectDips(double f, std::vector<ValuedPoint>& dips) const;

  private:
    SearchRun& run_;
    const Vector& origin_;
    Vector direction_;
    double step_;
};

Sample Line::lowest(Bracket bracket) const {
    for (int i = 0; i < kRefinements; ++i) {
        const double t = bracket.trial();
        if (!(t > bracket.left.t && t < bracket.right.t)) break;
        bracket.narrow(sample(t));
    }
    return bracket.middle;
}

void Line::collectDips(double f, std::vector<ValuedPoint>& dips) const {
    // The centre's own dip does not count: f there is taken as the lowest possible.
    Bracket window{{0, -std::numeric_limits<double>::infinity()}, {0, f}, {0, f}};
    for (int i = 1; i * step_ < kReach; ++i) {
        window.right = sample(i * step_);
        if (window.middle.f < window.left.f && window.middle.f <= window.right.f) {
            const Sample dip = lowest(window);
            dips.push_back({at(dip.t), dip.f});
        }
        window.left = window.middle;
        window.middle = window.right;
    }
    if (window.middle.f < window.left.f) dips.push_back({at(window.middle.t), window.middle.f});
}

}  // namespace

std::vector<ValuedPoint> DipsAlongLines(SearchRun& run, const Vector& centre, double f,
                                        const std::vector<Vector>& directions, std::size_t most) {
    std::vector<ValuedPoint> dips;
    for (const Vector& direction : directions) {
        Line(run, centre, direction).collectDips(f, dips);
        Line(run, centre, -direction).collectDips(f, dips);
    }
    std::stable_sort(dips.begin(), dips.end(),
                     [](const ValuedPoint& a, const ValuedPoint& b) { return a.f < b.f; });
    const auto alike = [](const ValuedPoint& a, const ValuedPoint& b) {
        return b.f < a.f + kSameValue * SearchRun::scale(a.f);
    };
    dips.erase(std::unique(dips.begin(), dips.end(), alike), dips.end());
    if (dips.size() > most) dips.resize(most);
    return dips;
}

ValuedPoint LowestOnLine(SearchRun& run, const ValuedPoint& from, const Vector& direction,
                         double reach, double step) {
    const Line line(run, from.x, direction);
    const int count = static_cast<int>(std::round(reach / step));
    std::vector<Sample> samples;
    for (int i = -count; i <= count; ++i) {
        samples.push_back(i == 0 ? Sample{0, from.f} : line.sample(i * step));
    }
    const auto lowest = std::ranges::min_element(samples, {}, &Sample::f);
    const bool atEnd = lowest == samples.begin() || lowest + 1 == samples.end();
    const Sample found = atEnd ? *lowest : line.lowest({*(lowest - 1), *lowest, *(lowest + 1)});
    return {line.at(found.t), found.f};
}

std::vector<Vector> Diagonals(Eigen::Index parameters) {
    const bool few = parameters <= kFewParameters;
    const unsigned count = 1U << (std::clamp<Eigen::Index>(parameters, 1, kFewParameters) - 1);
    std::vector<Vector> directions;
    for (unsigned pattern = 0; pattern < count; ++pattern) {
        Vector direction(parameters);
        for (Eigen::Index i = 0; i < parameters; ++i) {
            const auto bit = static_cast<unsigned>(i);
            // Of more parameters, the patterns of a Hadamard matrix: no two alike.
            const int down =
                few ? static_cast<int>(pattern >> bit & 1U) : std::popcount(pattern & bit) & 1;
            direction[i] = down != 0 ? -1 : 1;
        }
        directions.push_back(std::move(direction));
    }
    return directions;
}

}  // namespace kelvro
