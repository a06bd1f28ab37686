// Matches between two terminations: exact ones at a frequency (--at).

#include <CLI/CLI.hpp>
#include <cmath>

#include "cli/commands.h"
#include "cli/match_options.h"

namespace kelvro {

namespace {

ExitCode Match(const MatchOptions& options, Session& session) {
    if (options.at.empty()) return session.fail({ExitCode::Usage, "--at is required"});
    return MatchAtFrequency(options, session);
}

}  // namespace

void AddMatchCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("match", "Networks that match a load to a source");
    auto options = std::make_shared<MatchOptions>();
    AddTerminationOptions(*command, options->ends);
    AddExactMatchOptions(*command, *options);
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = Match(*options, session); });
}

}  // namespace kelvro
