#include "optimize/page_optimizer.h"

#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "analysis/goal.h"
#include "optimize/report.h"

namespace kelvro {

namespace {

constexpr double kStartOffset = 0.05;  // of different start values: 5 % of each component
// The second run refines: it starts where the first one ended and has to find something to do.
constexpr double kSecondRunPart = 0.1;
// Rounded to ten digits the goal changes in steps; differences have to be wide against them.
constexpr double kNoisyDifferenceStep = 1e-3;

/// A file to write from its beginning, or to append to. An old one is written over and not emptied
/// first: file systems flush files that are replaced in that way when they are closed, which takes
/// longer than the run.
std::FILE* OpenReport(const std::string& path, bool append) {
    if (append) return std::fopen(path.c_str(), "ab");
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    return file ? file : std::fopen(path.c_str(), "wb");
}

/// Cuts off what an old, longer report has left behind.
std::error_code CutTo(const std::string& path, std::size_t size) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return {};
    const auto old = std::filesystem::file_size(path, error);
    if (!error && old > size) std::filesystem::resize_file(path, size, error);
    return error;
}

/// Writes the text in one piece; the system's reason when that fails. An empty path writes nothing.
std::optional<std::string> WriteText(const std::string& path, const std::string& text,
                                     bool append) {
    if (path.empty()) return std::nullopt;
    errno = 0;
    std::FILE* file = OpenReport(path, append);
    const auto problem = [&](int reason) { return path + ": " + std::strerror(reason); };
    if (!file) return problem(errno);
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const int reason = errno;
    if (std::fclose(file) != 0) return problem(errno);
    if (!written) return problem(reason);
    const std::error_code error = append ? std::error_code() : CutTo(path, text.size());
    if (error) return path + ": " + error.message();
    return std::nullopt;
}

/// Offsets with alternating signs; the second run starts on the other side.
Eigen::VectorXd OffsetStart(std::size_t size, int run) {
    Eigen::VectorXd x(static_cast<Eigen::Index>(size));
    for (Eigen::Index i = 0; i < x.size(); ++i) {
        x[i] = (i + run) % 2 == 0 ? kStartOffset : -kStartOffset;
    }
    return x;
}

std::span<const double> AsSpan(const Eigen::VectorXd& x) {
    return {x.data(), static_cast<std::size_t>(x.size())};
}

/// The runs of one page, their reports, and the best point.
class PageRuns {
  public:
    PageRuns(const Design& design, const OptimizerSettings& settings, const OptimizerFiles& files)
        : settings_(WithRuntimeChoices(design, settings, files)),
          files_(files),
          page_(design.page),
          goal_(design, settings_.goal) {
        result_.components = design.components;
    }

    PageOptimization run() {
        if (goal_.size() == 0) return std::move(result_);
        const auto begin = std::chrono::steady_clock::now();
        result_.page = page_;
        best_ = Eigen::VectorXd::Zero(static_cast<Eigen::Index>(goal_.size()));
        result_.status = PageOptimization::Status::Finished;
        const int runs = settings_.singleRun ? 1 : 2;
        for (int i = 0; i < runs && result_.status == PageOptimization::Status::Finished; ++i) {
            runOnce(i, runs);
        }
        leaveBest();
        result_.calls = goal_.calls();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        result_.milliseconds = time.count();
        return std::move(result_);
    }

  private:
    static OptimizerSettings WithRuntimeChoices(const Design& design, OptimizerSettings settings,
                                                const OptimizerFiles& files) {
        settings.goal.phaseSlope = settings.goal.phaseSlope || !design.QByBandwidth;
        if (settings.goal.noise) settings.local.differenceStep = kNoisyDifferenceStep;
        settings.local.recordCalls = settings.writeTable && !files.table.empty();
        settings.local.finalHessian = settings.local.finalHessian || !files.log.empty();
        return settings;
    }

    void runOnce(int index, int runs) {
        const Eigen::VectorXd start =
            settings_.differentStartValues ? OffsetStart(goal_.size(), index) : best_;
        LocalOptions options = settings_.local;
        if (index > 0) {
            options.gradientLimit *= kSecondRunPart;
            options.thorough = true;
        }
        const Eigen::VectorXd calculated = Eigen::VectorXd::Zero(start.size());
        result_.runs.push_back(MinimizeLocally(goal_, start, options, calculated));
        const Summary& summary = result_.runs.back();
        if (index == 0) result_.startGoal = result_.achievedGoal = calculatedGoal(summary);
        const bool firstValue = std::isfinite(summary.f) && !std::isfinite(result_.achievedGoal);
        if (summary.f < result_.achievedGoal || firstValue) {
            result_.achievedGoal = summary.f;
            best_ = summary.x;
        }
        report(summary, index, runs);
    }

    /// Runs from the calculated design have evaluated it.
    double calculatedGoal(const Summary& first) {
        if (!settings_.differentStartValues) return first.start().f;
        return goal_.value(AsSpan(best_), CallKind::Evaluation);
    }

    void report(const Summary& summary, int index, int runs) {
        const RunOrigin origin = runs == 1    ? RunOrigin::Single
                                 : index == 0 ? RunOrigin::FirstOfTwo
                                              : RunOrigin::SecondOfTwo;
        std::string log;
        if (!files_.log.empty()) {
            if (index == 0) log += ReportHead(settings_, files_.table);
            log += RunText(summary, settings_, origin, page_);
            if (index + 1 == runs) log += ClosingText(result_.bestRun(), settings_);
        }
        auto error = WriteText(files_.log, log, index > 0);
        if (!error && settings_.local.recordCalls) {
            const std::string head = index == 0 ? TableHead(settings_) : std::string();
            error = WriteText(files_.table, head + TableRows(summary, rows_ + 1), index > 0);
            rows_ += static_cast<int>(summary.table.size());
        }
        if (!error) return;
        result_.status = PageOptimization::Status::Aborted;
        result_.error = *error;
    }

    /// An aborted run leaves the design as it was calculated.
    void leaveBest() {
        if (result_.status == PageOptimization::Status::Aborted) {
            result_.achievedGoal = result_.startGoal;
        } else if (!best_.isZero(0)) {  // exp(0)·start is not the start to the bit in every form
            result_.components = goal_.components(AsSpan(best_));
        }
    }

    const OptimizerSettings settings_;
    const OptimizerFiles& files_;
    const int page_;
    Goal goal_;
    Eigen::VectorXd best_;
    PageOptimization result_;
    int rows_ = 0;
};

}  // namespace

PageOptimization OptimizePage(const Design& design, const OptimizerSettings& settings,
                              const OptimizerFiles& files) {
    if (!settings.disabled) return PageRuns(design, settings, files).run();
    PageOptimization untouched;
    untouched.components = design.components;
    return untouched;
}

OptimizerServices::OptimizerServices(OptimizerSettings presets, OptimizerFiles reports)
    : settings(presets), files(std::move(reports)) {}

Slots OptimizerServices::optimize(const Design& design) {
    last_ = OptimizePage(design, settings, files);
    return last_.components;
}

}  // namespace kelvro
