#include <CLI/Option.hpp>
#include <memory>

#include "advise/guide.h"
#include "cli/commands.h"
#include "cli/design_options.h"
#include "core/number_text.h"

namespace kelvro {

void AddGuideCommand(CLI::App& app, Session& session) {
    struct Options {
        std::string parameters = "10";
        GuideSituation situation;
        bool badStart = false;
    };
    CLI::App* command = app.add_subcommand(
        "guide", "Advice: a local or a global optimizer, and how many simulations to expect");
    auto options = std::make_shared<Options>();
    command->add_option("--n", options->parameters, "Number of parameters")
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command->add_flag("--bad-start", options->badStart, "Starting point is probably bad");
    command->add_flag("--nonlinear", options->situation.nonlinear,
                      "Goal to parameter variation highly nonlinear");
    command->add_flag("--difficult", options->situation.difficult,
                      "Difficult correlations, many trade-offs");
    command->callback([&session, options] {
        options->situation.parameters = ParseValue(options->parameters);
        options->situation.goodStartPoint = !options->badStart;
        session.out << GuideAdvice(options->situation) << '\n';
    });
}

}  // namespace kelvro
