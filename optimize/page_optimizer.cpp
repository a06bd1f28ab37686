#include "optimize/page_optimizer.h"

#include <chrono>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

#include "analysis/goal.h"
#include "core/number_text.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "optimize/report.h"
#include "optimize/worst_gain.h"

namespace kelvro {

namespace {

/// Offsets with alternating signs; the second run starts on the other side.
Eigen::VectorXd OffsetStart(std::size_t size, int run, double offset) {
    Eigen::VectorXd x(static_cast<Eigen::Index>(size));
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        x[i] = (i + run) % 2 == 0 ? offset : -offset;
    }
    return x;
}

std::span<const double> AsSpan(const Eigen::VectorXd& x) {
    return {x.data(), static_cast<std::size_t>(x.size())};
}

/// The part whose value has changed most, where that is by more than the reach.
std::string FarWarning(const Design& before, const Slots& components, double reach) {
    Design after = before;
    after.components = components;
    std::string warning;
    double farthest = reach * (1 + 1e-9);
    for (const PartRef& part : PartsOf(before)) {
        const double ratio = part.built(after) / part.built(before);
        const double change = std::fabs(std::log(ratio));
        if (!std::isfinite(change) || change <= farthest) continue;
        farthest = change;
        warning = "far from the calculated design: " + part.name(before) + " × " +
                  FormatEngShort(1, ratio);
    }
    return warning;
}

/// What the design has lost at fo for the rest of its band, where that is worth a word.
std::string LossWarning(const Design& before, const Slots& components, double noted) {
    Design after = before;
    after.components = components;
    if (!PageOf(before).transfer) return {};
    const double more =
        Response(before).relativeDb(before.fo) - Response(after).relativeDb(before.fo);
    if (!(more > noted)) return {};
    return FormatFixed(0, 2, more) + " dB more loss at fo than the calculated design";
}

/// Does the best network near by serve badly, where farther ones have not been looked for?
std::string_view NoMatchWarning(const Summary& run, const Goal& goal, const LocalOptions& options) {
    const double lowest = goal.lowerBound();
    if (run.good || run.outOfReach || options.thorough || run.descents == 1) return {};
    if (!std::isfinite(lowest) || run.f <= lowest + options.farGain) return {};
    return "no good match near the calculated design; the thorough search looks farther";
}

/// The runs of one page, their reports, and the best point.
class PageRuns {
  public:
    PageRuns(const Design& design, const OptimizerSettings& settings)
        : design_(design),
          settings_(WithRuntimeChoices(settings, design.page)),
          goal_(design, settings_.goal) {
        result_.components = design.components;
    }

    PageOptimization run() {
        if (goal_.size() == 0) return std::move(result_);
        const auto begin = std::chrono::steady_clock::now();
        result_.page = design_.page;
        result_.status = PageOptimization::Status::Finished;
        runOnce(0);
        if (!settings_.singleRun) runOnce(1);
        deliver();
        if (settings_.writeLog) writeLog();
        if (settings_.writeTable) writeTable();
        result_.calls = goal_.calls();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        result_.milliseconds = time.count();
        return std::move(result_);
    }

  private:
    static OptimizerSettings WithRuntimeChoices(OptimizerSettings settings, int page) {
        // The parameters of test functions are no ratios of parts.
        if (PageOf(page).goal.test) {
            settings.local.reach = std::numeric_limits<double>::infinity();
        }
        // Of designs as good the nearest is the one that was asked for.
        if (!PageOf(page).goal.test) settings.local.nearness = settings.local.asGood;
        if (settings.goal.noise) {
            settings.local.differenceStep = settings.local.tuning.run.noisyDifferenceStep;
            settings.local.secondDifferenceStep = settings.local.differenceStep;
        }
        settings.local.recordCalls = settings.writeTable;
        settings.local.finalHessian = settings.local.finalHessian || settings.writeLog;
        return settings;
    }

    Eigen::VectorXd calculated() const {
        return Eigen::VectorXd::Zero(static_cast<Eigen::Index>(goal_.size()));
    }

    void runOnce(int index) {
        LocalOptions options = settings_.local;
        const RunTuning& tuning = settings_.local.tuning.run;
        if (index > 0) options.gradientLimit *= tuning.secondRunPart;
        options.sequence = index;
        const Eigen::VectorXd start = settings_.differentStartValues
                                          ? OffsetStart(goal_.size(), index, tuning.startOffset)
                                      : index > 0 ? result_.runs[0].x
                                                  : calculated();
        const Eigen::VectorXd origin = calculated();
        result_.runs.push_back(goal_.countsWorstGain()
                                   ? MinimizeWorstLoss(goal_, design_, start, options, origin)
                                   : MinimizeLocally(goal_, start, options, origin));
    }

    /// The second run has begun where the first one ended, and is lower. Where the first one is as
    /// good it is delivered if it is nearer to the calculated design. No run that has ended above
    /// the calculated design is: those with start values beside it may.
    void deliver() {
        const double start = calculatedGoal();
        result_.startGoal = result_.achievedGoal = start;
        const Summary* best = nullptr;
        for (const Summary& run : result_.runs) {
            if (run.f > start || !std::isfinite(run.f)) continue;
            const double gain = best ? best->f - run.f : 1;
            const bool isAsGood = best && std::fabs(gain) <= settings_.local.asGood;
            if (isAsGood ? run.distance <= best->distance : gain > 0) best = &run;
        }
        if (!best) return;
        result_.delivered = static_cast<int>(best - result_.runs.data());
        result_.achievedGoal = best->f;
        // exp(0)·start is not the start to the bit in every form.
        if (best->x.isZero(0)) return;
        result_.components = goal_.components(AsSpan(best->x));
        warn(FarWarning(design_, result_.components, settings_.local.reach));
        warn(LossWarning(design_, result_.components, settings_.local.tuning.remark.notedLoss));
        warn(NoMatchWarning(*best, goal_, settings_.local));
    }

    void warn(std::string_view text) {
        if (!text.empty()) result_.warnings.emplace_back(text);
    }

    /// Runs from the calculated design have evaluated it.
    double calculatedGoal() {
        if (!settings_.differentStartValues) return result_.runs[0].start().f;
        const Eigen::VectorXd x = calculated();
        return goal_.value(AsSpan(x), CallKind::Evaluation);
    }

    RunOrigin origin(std::size_t run) const {
        if (result_.runs.size() == 1) return RunOrigin::Single;
        return run == 0 ? RunOrigin::FirstOfTwo : RunOrigin::SecondOfTwo;
    }

    void writeLog() {
        result_.log = ReportHead(settings_, settings_.writeTable ? settings_.tableName : "");
        for (std::size_t i = 0; i < result_.runs.size(); ++i) {
            OptimizerSettings settings = settings_;
            if (i > 0) settings.local.gradientLimit *= settings.local.tuning.run.secondRunPart;
            result_.log += RunText(result_.runs[i], settings, origin(i), design_.page);
        }
        result_.log += ClosingText(result_.bestRun(), settings_);
        for (const std::string& text : result_.warnings) result_.log += "Warning : " + text + '\n';
    }

    void writeTable() {
        result_.table = TableHead(settings_);
        int id = 1;
        for (const Summary& run : result_.runs) {
            result_.table += TableRows(run, id);
            id += static_cast<int>(run.table.size());
        }
    }

    const Design& design_;
    const OptimizerSettings settings_;
    Goal goal_;
    PageOptimization result_;
};

}  // namespace

PageOptimization OptimizePage(const Design& design, const OptimizerSettings& settings) {
    if (!settings.disabled) return PageRuns(design, settings).run();
    PageOptimization untouched;
    untouched.components = design.components;
    return untouched;
}

std::string PageOptimization::warning() const {
    std::string line;
    for (const std::string& text : warnings) line += (line.empty() ? "" : ", ") + text;
    return line;
}

int PageOptimization::iterations() const {
    int sum = 0;
    for (const Summary& run : runs) sum += run.iterations;
    return sum;
}

OptimizerServices::OptimizerServices(OptimizerSettings presets, Reports keep)
    : settings(std::move(presets)), reports(std::move(keep)) {}

Slots OptimizerServices::optimize(const Design& design) {
    settings.writeLog = static_cast<bool>(reports);
    last_ = OptimizePage(design, settings);
    if (reports && last_.status == PageOptimization::Status::Finished) {
        last_.reportProblem = reports(last_).message();
    }
    return last_.components;
}

}  // namespace kelvro
