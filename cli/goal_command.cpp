#include <CLI/CLI.hpp>

#include "analysis/goal.h"
#include "cli/commands.h"
#include "cli/optimizer_options.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

struct GoalCommand {
    std::shared_ptr<OptimizerOptions> options;
    std::vector<std::string> x;
};

/// One text with the numbers of all parts: "0.1,0" and "0.2" make three.
std::vector<double> Numbers(const std::vector<std::string>& texts) {
    std::vector<double> numbers;
    numbers.reserve(texts.size());
    for (const std::string& text : texts) numbers.push_back(ParseValue(text));
    return numbers;
}

ExitCode ReportGoal(const GoalCommand& command, Session& session) {
    auto outcome = PrepareDesign(*command.options, session);
    if (!outcome) return session.fail(outcome.status());
    auto& [run, settings] = *outcome;
    Goal goal(run.state, settings.goal);
    std::vector<double> x = Numbers(command.x);
    if (x.empty()) x.assign(goal.size(), 0.0);
    if (x.size() != goal.size()) {
        return session.fail({ExitCode::Usage, "--x: page " + std::string(run.page().key) + " has " +
                                                  std::to_string(goal.size()) +
                                                  " parameters, not " + std::to_string(x.size())});
    }
    const double f = goal.value(x, CallKind::Evaluation);
    if (command.options->design->json) {
        session.out << JsonText({{"x", x}, {"f", JsonNumber(f)}});
    } else {
        session.out << FormatExact(f) << '\n';
    }
    return ExitCode::Done;
}

}  // namespace

void AddGoalCommand(CLI::App& app, Session& session) {
    CLI::App* command =
        app.add_subcommand("goal", "Value that the optimizer makes small, of a calculated design");
    auto goal = std::make_shared<GoalCommand>();
    goal->options = AddOptimizerOptions(*command, session);
    command
        ->add_option("--x", goal->x,
                     "Parameters: logarithms of the components relative to the calculated ones, or "
                     "those of the page's test function; all 0 where not given")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(NumberProblem)
        ->type_name("A,B,...");
    command->callback([&session, goal] { session.status = ReportGoal(*goal, session); });
}

}  // namespace kelvro
