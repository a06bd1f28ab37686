// Matches between two terminations: exact ones at a frequency (--at), the best over bands (--band).

#include <CLI/CLI.hpp>
#include <cmath>

#include "cli/commands.h"
#include "cli/match_options.h"

namespace kelvro {

namespace {

ExitCode Match(const MatchOptions& options, Session& session) {
    // A project brings its bands along.
    const bool banded = !options.band.bands.empty();
    if (banded ? !options.at.empty() : options.at.empty() && options.ends.file.empty()) {
        return session.fail({ExitCode::Usage, "either --at or --band is required"});
    }
    if (!options.at.empty() && !options.band.output.empty())
        return session.fail({ExitCode::Usage, "--output is for --band"});
    if (!options.at.empty()) return MatchAtFrequency(options, session);
    auto problem = NetworkOf(options.ends, session);
    if (!problem) return session.fail(problem.status());
    return MatchBands(*std::move(problem), options.band, options.json, session);
}

}  // namespace

void AddMatchCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("match", "Networks that match a load to a source");
    auto options = std::make_shared<MatchOptions>();
    AddNetworkOptions(*command, options->ends, false);
    AddExactMatchOptions(*command, *options);
    AddMatchBandOptions(*command, options->band);
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = Match(*options, session); });
}

}  // namespace kelvro
