// Matches between two terminations: exact ones at a frequency (--at), the best over bands (--band).

#include <CLI/CLI.hpp>
#include <cmath>

#include "cli/commands.h"
#include "cli/design_options.h"
#include "cli/match_options.h"

namespace kelvro {

namespace {

ExitCode Match(const MatchOptions& options, Session& session) {
    // A project brings its bands along.
    const bool banded = !options.band.bands.empty();
    if (banded ? !options.at.empty() : options.at.empty() && options.ends.file.empty()) {
        return session.fail({ExitCode::Usage, "either --at or --band is required"});
    }
    const bool exact = !options.at.empty();
    if (const auto wrong = exact ? RefuseGiven(options.onlyBand, "only with --band, not --at")
                                 : RefuseGiven(options.onlyExact, "only with --at"))
        return session.fail(*wrong);
    if (exact) return MatchAtFrequency(options, session);
    auto problem = NetworkOf(options.ends, session);
    if (!problem) return session.fail(problem.status());
    return MatchBands(*std::move(problem), options.band, options.json, session);
}

}  // namespace

void AddMatchCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("match", "Networks that match a load to a source");
    auto options = std::make_shared<MatchOptions>();
    AddNetworkOptions(*command, options->ends, false);
    command->add_option("--at", options->at, "Match exactly at this frequency (Hz)")
        ->check(PositiveNumberProblem)
        ->type_name("NUMBER");
    const OptionList common = DeclaredOptions(*command);
    AddExactMatchOptions(*command, *options);
    options->onlyExact = DeclaredSince(*command, common);
    const OptionList exact = DeclaredOptions(*command);
    AddMatchBandOptions(*command, options->band);
    options->onlyBand = DeclaredSince(*command, exact);
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = Match(*options, session); });
}

}  // namespace kelvro
