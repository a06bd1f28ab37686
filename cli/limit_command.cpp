#include <CLI/CLI.hpp>
#include <cmath>

#include "cli/commands.h"
#include "cli/match_band.h"
#include "cli/match_report.h"
#include "cli/network_options.h"
#include "io/json_output.h"
#include "network/coverage.h"
#include "synthesis/limit.h"

namespace kelvro {

namespace {

struct LimitOptions {
    NetworkOptions terminations;
    std::vector<std::string> bands;
    bool json = false;
};

ExitCode ShowLimit(const LimitOptions& options, Session& session) {
    auto problem = NetworkOf(options.terminations, session);
    if (!problem) return session.fail(problem.status());
    Network& network = *problem;
    if (const auto wrong = TakeBands(options.bands, network)) return session.fail(*wrong);
    const auto& bands = network.bands;
    for (const FrequencyBand& band : bands) {
        if (const Status covered = CheckRange(network, band.low, band.high); !covered) {
            return session.fail({ExitCode::Refused, covered.message()});
        }
        KeepDataWarnings(network, band.low, band.high, session);
    }
    const auto limit = GainLimitOf(network.source, network.load, bands);
    if (!limit) return session.fail({ExitCode::Refused, limit.message()});
    if (options.json) {
        const double db = 10 * std::log10(limit->GT);
        session.out << JsonText({{"limit", JsonNumber(limit->GT)},
                                 {"limit_db", JsonNumber(db)},
                                 {"limit_is_estimate", limit->estimate}});
    } else {
        session.out << LimitText(*limit);
    }
    return ExitCode::Done;
}

}  // namespace

void AddLimitCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "limit", "How well a load can be matched over a band by any lossless network");
    auto options = std::make_shared<LimitOptions>();
    AddNetworkOptions(*command, options->terminations, false);
    command->add_option("--band", options->bands, "A band, from:to (70M:130M); may be repeated")
        ->type_name("LO:HI")
        ->take_all();
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = ShowLimit(*options, session); });
}

}  // namespace kelvro
