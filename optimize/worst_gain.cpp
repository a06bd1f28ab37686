#include "optimize/worst_gain.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>
#include <variant>
#include <vector>

#include "core/random.h"
#include "core/scalar.h"
#include "design/page_network.h"
#include "design/pages.h"
#include "optimize/box.h"
#include "optimize/equal_ripple.h"
#include "optimize/ladder_model.h"
#include "optimize/linear.h"
#include "optimize/max_min.h"

namespace kelvro {

namespace {

constexpr double kDecibels = 10 / std::numbers::ln10;  ///< of one neper of power
/// Half the square of a small gradient is what is left to be gained; a hundredth of that is not
/// worth a step.
constexpr double kLeastGain = 0.005;
constexpr double kFirstRadius = 0.1;  ///< of a step, nepers
constexpr std::uint64_t kSeed = 11;

std::span<const double> AsSpan(const Vector& x) {
    return {x.data(), static_cast<std::size_t>(x.size())};
}

// ---------------------------------------------------------------- the gains

/// A ladder of single parts without its values, and ln of these: ω0·L/R0 and ω0·C·R0.
struct LadderPoint {
    Stages stages;
    std::vector<double> u;
};

LadderPoint PointOf(const Design& design, double R0) {
    const Network network = PageOf(design).networks(design).front();
    LadderPoint point;
    for (const LadderElement& element : network.ladder) {
        const auto& arm = std::get<Arm>(element.is);
        const auto& part = std::get<Part>(arm.impedance.is);
        const bool inductor = part.kind == PartKind::Inductor;
        const double omega = kTwoPi * design.fo;
        point.stages.push_back({arm.place, inductor ? StageKind::L : StageKind::C});
        point.u.push_back(std::log(omega * part.value * (inductor ? 1 / R0 : R0)));
    }
    return point;
}

/// Gains in dB and their gradients over the parameters of a page's goal, of which the logarithms of
/// the parts are linear functions.
class BandGains : public MaxMinGoal {
  public:
    BandGains(Goal& goal, const Design& design, bool recordCalls)
        : goal_(goal), record_(recordCalls) {
        const double R0 = std::sqrt(design.R1 * design.R2);
        const PartLoss loss = PagePart(PartKind::Inductor, {}, design, 1.0).loss;
        grid_ = GridOf(design.R1, design.R2, {loss, loss}, R0, design.fo, goal.bandFrequencies());
        const auto at = [&](const Vector& x) {
            Design moved = design;
            moved.components = goal.components(AsSpan(x));
            return PointOf(moved, R0);
        };
        const auto size = static_cast<Eigen::Index>(goal.size());
        auto centre = at(Vector::Zero(size));
        for (Eigen::Index j = 0; j < size; ++j) {
            columns_.push_back(at(Vector::Unit(size, j)).u);
            for (std::size_t k = 0; k < centre.u.size(); ++k) columns_.back()[k] -= centre.u[k];
        }
        stages_ = std::move(centre.stages);
        centre_ = std::move(centre.u);
    }

    void rows(std::span<const double> x, LinearRows& rows) override {
        evaluate(grid_, x, rows);
        count(CallKind::LineSearch);
        if (!record_) return;
        const double f = -std::ranges::min(rows.values);
        table_.push_back({CallKind::LineSearch, f,
                          Eigen::Map<const Vector>(x.data(), static_cast<Eigen::Index>(x.size()))});
    }
    void someRows(std::span<const std::size_t> which, std::span<const double> x,
                  LinearRows& rows) override {
        Gather(grid_, which, some_);
        evaluate(some_, x, rows);
        count(CallKind::Hessian);
    }

    /// The parameters of the ladder of equal ripple, which is the best one without losses; empty
    /// where there is none.
    Vector equalRipple(const Design& design) const {
        const FrequencyBand band = WorstGainBand(design).value();
        const std::vector<double> values =
            EqualRippleLadder(design.R2 / design.R1, band, static_cast<int>(stages_.size()) / 2);
        if (values.size() != centre_.size()) return {};
        const double toR0 = std::log(grid_.R0 / design.R1);
        const double toF0 = std::log(grid_.f0 / std::sqrt(band.low * band.high));
        const auto size = static_cast<Eigen::Index>(values.size());
        Matrix M(size, size);
        Vector u(size);
        for (Eigen::Index k = 0; k < size; ++k) {
            const auto at = static_cast<std::size_t>(k);
            const double sign = stages_[at].kind == StageKind::L ? 1 : -1;
            u[k] = std::log(values[at]) - sign * toR0 + toF0 - centre_[at];
            for (Eigen::Index j = 0; j < size; ++j)
                M(k, j) = columns_[static_cast<std::size_t>(j)][at];
        }
        return M.partialPivLu().solve(u);
    }

    const CallCounts& calls() const { return calls_; }
    std::vector<CallRecord> takeTable() { return std::move(table_); }

  private:
    void count(CallKind kind) {
        calls_.add(kind);
        goal_.count(kind);
    }

    void evaluate(const ModelGrid& grid, std::span<const double> x, LinearRows& rows) {
        u_ = centre_;
        for (std::size_t j = 0; j < x.size(); ++j) {
            for (std::size_t k = 0; k < u_.size(); ++k) u_[k] += x[j] * columns_[j][k];
        }
        model_.rows(grid, stages_, u_, inner_);
        rows.variables = x.size();
        rows.values.resize(grid.size());
        rows.gradients.resize(grid.size() * x.size());
        for (std::size_t i = 0; i < grid.size(); ++i) {
            rows.values[i] = kDecibels * inner_.values[i];
            const auto slopes = inner_.gradient(i);
            for (std::size_t j = 0; j < x.size(); ++j) {
                double sum = 0;
                for (std::size_t k = 0; k < slopes.size(); ++k) sum += slopes[k] * columns_[j][k];
                rows.gradients[i * x.size() + j] = kDecibels * sum;
            }
        }
    }

    Goal& goal_;
    ModelGrid grid_, some_;
    Stages stages_;
    std::vector<double> centre_;                ///< u of x = 0
    std::vector<std::vector<double>> columns_;  ///< u of each unit parameter, less that
    std::vector<double> u_;
    LadderModel model_;
    LinearRows inner_;
    CallCounts calls_;
    bool record_;
    std::vector<CallRecord> table_;
};

// ---------------------------------------------------------------- a run

/// The descents of one run.
class WorstGainRun {
  public:
    WorstGainRun(Goal& goal, const Design& design, const LocalOptions& options,
                 const Vector& origin)
        : options_(options),
          origin_(origin),
          gains_(goal, design, options.recordCalls),
          equalRipple_(gains_.equalRipple(design)),
          reach_(options.thorough ? options.tuning.search.widestDraw : options.reach) {}

    Summary find(const Vector& start) {
        summary_.f = std::numeric_limits<double>::infinity();
        summary_.maxMin = true;
        summary_.good = true;
        summary_.active.assign(static_cast<std::size_t>(start.size()), true);
        descend(start);
        if (options_.thorough) descendFromFurther();
        summary_.distance = LargestEntry(summary_.x - origin_);
        summary_.calls = gains_.calls();
        summary_.table = gains_.takeTable();
        if (summary_.history.size() > 1) summary_.initialStep = 1;
        return std::move(summary_);
    }

  private:
    void descend(const Vector& start) {
        // A second run may begin where the first one has left the box.
        boxAround(std::max(reach_, LargestEntry(start - origin_)));
        isStart_ = true;
        MaxMinPoint point{.x = {start.begin(), start.end()}, .radius = kFirstRadius};
        const double limit = options_.gradientLimit;
        MaxMinOptions options{
            .mostSteps = 0,
            .leastGain = kLeastGain * limit * limit,
            .watch = [this](const MaxMinPoint& at, std::span<const double> g) { record(at, g); }};
        solver_.improve(gains_, box_, options, point);
        const bool went = summary_.descents == 0 && goToEqualRipple(point);
        options.mostSteps = options_.maxIterations - summary_.iterations - (went ? 1 : 0);
        solver_.improve(gains_, box_, options, point);
        take(point, point.radius < options.leastRadius);
        ++summary_.descents;
    }

    void boxAround(double reach) {
        box_ = {};
        for (const double centre : origin_) {
            box_.low.push_back(centre - reach);
            box_.high.push_back(centre + reach);
        }
    }

    /// Losses move the best ladder, but not far. Linear steps from the calculated one creep along a
    /// bent valley: eight elements had not arrived after eighty. The way there is an iteration;
    /// false where the point is as good.
    bool goToEqualRipple(MaxMinPoint& point) {
        if (equalRipple_.size() == 0) return false;
        MaxMinPoint ladder{.x = {equalRipple_.begin(), equalRipple_.end()}, .radius = kFirstRadius};
        for (std::size_t j = 0; j < ladder.x.size(); ++j)
            ladder.x[j] = std::clamp(ladder.x[j], box_.low[j], box_.high[j]);
        LinearRows rows;
        gains_.rows(ladder.x, rows);
        if (!(std::ranges::min(rows.values) > point.worst)) return false;
        point = std::move(ladder);
        return true;
    }

    void descendFromFurther() {
        UniformStream random(kSeed + static_cast<std::uint64_t>(options_.sequence));
        const SearchTuning& tuning = options_.tuning.search;
        for (int i = 0; i < tuning.mostVainThorough; ++i) {
            if (summary_.iterations >= options_.maxIterations) return;
            Vector start = origin_;
            for (double& xi : start) xi += options_.reach * (2 * random.next() - 1);
            descend(start);
        }
    }

    void record(const MaxMinPoint& at, std::span<const double> gradient) {
        IterationRecord record;
        record.x = Eigen::Map<const Vector>(at.x.data(), static_cast<Eigen::Index>(at.x.size()));
        record.g =
            -Eigen::Map<const Vector>(gradient.data(), static_cast<Eigen::Index>(gradient.size()));
        record.gradientLength = record.g.norm();
        record.f = -at.worst;
        record.descent = summary_.descents;
        record.isStart = std::exchange(isStart_, false);
        record.direction = record.step = Vector::Zero(record.x.size());
        if (!record.isStart) {
            const IterationRecord& before = summary_.history.back();
            // A step that was refused: the point is the same, its gradient that of a smaller step.
            if (before.x == record.x) {
                summary_.history.back().g = record.g;
                summary_.history.back().gradientLength = record.gradientLength;
                return;
            }
            ++summary_.iterations;
            record.step = record.direction = record.x - before.x;
            record.reduction = before.f - record.f;
            record.angleToDescent = AngleDegrees(-before.g, record.direction);
            record.angleToOldGradient = AngleDegrees(before.g, record.g);
            record.t = 1;
            record.lineSteps =
                gains_.calls().of(CallKind::LineSearch) - before.calls.of(CallKind::LineSearch);
        }
        record.iteration = summary_.iterations;
        record.calls = gains_.calls();
        summary_.history.push_back(std::move(record));
    }

    void take(const MaxMinPoint& point, bool radiusTooSmall) {
        const IterationRecord& last = summary_.history.back();
        if (!(last.f < summary_.f) && summary_.descents > 0) return;
        summary_.x = last.x;
        summary_.f = last.f;
        summary_.g = last.g;
        summary_.gradientLength = last.gradientLength;
        summary_.delivered = summary_.descents;
        summary_.stop = !point.settled   ? StopReason::MaxIterations
                        : radiusTooSmall ? StopReason::StepTooSmall
                                         : StopReason::GradientTooSmall;
        const Box box(origin_, reach_);
        summary_.onLimit.clear();
        for (Eigen::Index i = 0; i < last.x.size(); ++i) {
            summary_.onLimit.push_back(box.blocks(last.x, -last.g, i));
        }
    }

    const LocalOptions& options_;
    const Vector& origin_;
    BandGains gains_;
    const Vector equalRipple_;
    const double reach_;
    ParameterBox box_;
    MaxMinSolver solver_;
    Summary summary_;
    bool isStart_ = true;
};

/// The change of one parameter to one side that raises a worst loss by a cost; at most a factor of
/// e.
double ChangeThatCosts(Goal& goal, Vector x, Eigen::Index i, double sign, double cost) {
    const double from = x[i];
    const auto costAt = [&](double change) {
        x[i] = from + sign * change;
        return goal.value({x.data(), static_cast<std::size_t>(x.size())}, CallKind::Evaluation);
    };
    const double limit = costAt(0) + cost;
    double low = 0;
    double high = 1e-4;
    while (high < 1 && costAt(high) < limit) low = std::exchange(high, 2 * high);
    for (int k = 0; k < 12; ++k) {
        const double middle = (low + high) / 2;
        (costAt(middle) < limit ? low : high) = middle;
    }
    return low;
}

/// There is an edge at the minimum and no matrix: one side of each parameter tells.
Vector Uncertainties(Goal& goal, const Vector& x, double cost) {
    Vector changes(x.size());
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        changes[i] =
            std::min(ChangeThatCosts(goal, x, i, 1, cost), ChangeThatCosts(goal, x, i, -1, cost));
    }
    return changes;
}

}  // namespace

Summary MinimizeWorstLoss(Goal& goal, const Design& design, const Eigen::VectorXd& start,
                          const LocalOptions& options, const Eigen::VectorXd& origin) {
    Summary summary = WorstGainRun(goal, design, options, origin).find(start);
    if (options.finalHessian) {
        summary.uncertainties =
            Uncertainties(goal, summary.x, options.tuning.remark.uncertaintyGoal);
    }
    return summary;
}

}  // namespace kelvro
