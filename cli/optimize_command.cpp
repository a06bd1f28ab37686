#include <CLI/CLI.hpp>

#include "analysis/achieved.h"
#include "cli/commands.h"
#include "cli/optimizer_options.h"
#include "core/number_text.h"
#include "io/optimizer_reports.h"
#include "io/text_table.h"
#include "optimize/page_optimizer.h"

namespace kelvro {

namespace {

constexpr int kMostIterations = 199;

struct OptimizeCommand {
    std::shared_ptr<OptimizerOptions> options;
    int maxIterations = 0;      ///< 0: not given
    std::string gradientLimit;  ///< empty: not given
    bool twoRuns = false;
    bool thorough = false;
    OptimizerFiles files;
};

/// A design before and after its optimization.
struct OptimizedDesign {
    DesignRun before;
    DesignRun after;
    PageOptimization optimization;

    int warnings() const {
        int sum = 0;
        for (const Summary& run : optimization.runs) sum += run.warnings;
        return sum;
    }
};

std::string_view StopName(StopReason stop) {
    switch (stop) {
        case StopReason::MaxIterations:
            return "max. number of iterations reached";
        case StopReason::GradientTooSmall:
            return "gradient too small";
        case StopReason::YsTooSmall:
            return "YS too small";
        case StopReason::VyTooSmall:
            return "VY too small";
        case StopReason::StepTooSmall:
            return "stepsize too small";
    }
    return "";
}

Json JsonComponentValues(const DesignRun& run) {
    Json values = Json::object();
    for (const ShownComponent& part : ShownComponents(run)) {
        values[part.name] = JsonNumber(part.value);
    }
    return values;
}

Json Document(const OptimizedDesign& design) {
    Json goal = nullptr;
    if (design.optimization.status == PageOptimization::Status::Finished) {
        const CallCounts calls = design.optimization.calls;
        const Summary& best = design.optimization.bestRun();
        goal = {{"start", JsonNumber(design.optimization.startGoal)},
                {"final", JsonNumber(design.optimization.achievedGoal)},
                {"gradient", JsonNumber(best.gradientLength)},
                {"iterations", design.optimization.iterations()},
                {"calls_line_search", calls.of(CallKind::LineSearch)},
                {"calls_gradient", calls.of(CallKind::Gradient)},
                {"calls", calls.total()},
                {"warnings", design.warnings()},
                {"starts", best.descents},
                {"good", best.good},
                {"warning", design.optimization.warning()},
                {"stop", StopName(best.stop)}};
    }
    return {{"goal", goal},
            {"before", JsonComponentValues(design.before)},
            {"after", JsonComponentValues(design.after)},
            {"achieved", JsonAchieved(design.after.cycle)}};
}

/// A sentence of its own.
std::string FarText(const std::string& warning) {
    return warning.empty() ? std::string() : "Warning: " + warning + '\n';
}

std::string GoalText(const OptimizedDesign& design) {
    if (design.optimization.status != PageOptimization::Status::Finished) {
        return "Optimization is disabled.\n";
    }
    const CallCounts calls = design.optimization.calls;
    const Summary& best = design.optimization.bestRun();
    return AlignedTable({{"Goal at start", FormatFixed(0, 6, design.optimization.startGoal)},
                         {"Goal reached", FormatFixed(0, 6, design.optimization.achievedGoal)},
                         {"|g|", FormatEngShort(4, best.gradientLength)},
                         {"Iterations", std::to_string(design.optimization.iterations())},
                         {"Calls in line search", std::to_string(calls.of(CallKind::LineSearch))},
                         {"Calls in gradient", std::to_string(calls.of(CallKind::Gradient))},
                         {"Calls", std::to_string(calls.total())},
                         {"Warnings", std::to_string(design.warnings())},
                         {"Stopped", std::string(StopName(best.stop))}}) +
           FarText(design.optimization.warning());
}

std::string HumanText(const OptimizedDesign& design) {
    TextRows rows = {{"Component", "before", "after"}};
    const auto before = ShownComponents(design.before);
    const auto after = ShownComponents(design.after);
    for (std::size_t i = 0; i < before.size() && i < after.size(); ++i) {
        rows.push_back({after[i].shownName, WithUnit(before[i].text, before[i].unit),
                        WithUnit(after[i].text, after[i].unit)});
    }
    const std::string components = rows.size() > 1 ? AlignedTable(rows) + '\n' : std::string();
    std::string text = Heading(design.after.state) + "\n\n" + components + GoalText(design);
    if (const auto achieved = AchievedBy(design.after.cycle))
        text += "Achieved: " + AchievedText(*achieved, design.after.cycle.bandwidth) + '\n';
    return text;
}

OptimizerSettings SettingsOf(const OptimizeCommand& command, const PreparedDesign& design) {
    OptimizerSettings settings = design.settings;
    if (command.maxIterations > 0) settings.local.maxIterations = command.maxIterations;
    if (!command.gradientLimit.empty()) {
        settings.local.gradientLimit = ParseValue(command.gradientLimit);
    }
    if (command.twoRuns) settings.singleRun = false;
    if (command.thorough) settings.local.thorough = true;
    settings.writeLog = !command.files.log.empty();
    settings.writeTable = !command.files.table.empty();
    settings.tableName = command.files.table;
    return settings;
}

ExitCode Optimize(const OptimizeCommand& command, Session& session) {
    auto outcome = PrepareDesign(*command.options, session);
    if (!outcome) return session.fail(outcome.status());
    const auto& prepared = *outcome;
    OptimizedDesign design{prepared.run, prepared.run, {}};
    Design& optimized = design.after.state;
    design.optimization = OptimizePage(optimized, SettingsOf(command, prepared));
    optimized.components = design.optimization.components;
    const Status kept = KeepReports(design.optimization, command.files);
    ResponseServices services;
    design.after.cycle = ShowComponents(optimized, services);
    session.out << (command.options->design->json ? JsonText(Document(design)) : HumanText(design));
    return kept ? ExitCode::Done : session.fail({ExitCode::Failed, kept.message()});
}

}  // namespace

void AddOptimizeCommand(CLI::App& app, Session& session) {
    CLI::App* command =
        app.add_subcommand("optimize", "Optimize one page and show what the optimizer did");
    auto optimize = std::make_shared<OptimizeCommand>();
    optimize->options = AddOptimizerOptions(*command, session);
    command->add_option("--max-iterations", optimize->maxIterations, "Limit of each run")
        ->check(CLI::Range(1, kMostIterations));
    command
        ->add_option("--gradient-limit", optimize->gradientLimit,
                     "Length of the gradient below which a run ends (10m)")
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command->add_flag("--two-runs", optimize->twoRuns,
                      "A second run refines the first one's result");
    command->add_flag("--thorough", optimize->thorough,
                      "Look everywhere for the lowest goal; the design may end far from the "
                      "calculated one");
    command->add_option("--log", optimize->files.log, "Report of the runs")->type_name("FILE");
    command->add_option("--table", optimize->files.table, "Table of all goal calls")
        ->type_name("FILE");
    command->callback([&session, optimize] { session.status = Optimize(*optimize, session); });
}

}  // namespace kelvro
