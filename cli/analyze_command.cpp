#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/network_options.h"
#include "cli/sweep_options.h"
#include "io/network_report.h"

namespace kelvro {

namespace {

struct AnalyzeOptions {
    NetworkOptions network;
    SweepOptions sweep;
    std::string save;
    bool json = false;
};

ExitCode Analyze(const AnalyzeOptions& options, Session& session) {
    const auto read = NetworkOf(options.network, session);
    if (!read) return session.fail(read.status());
    const auto& network = *read;
    const auto frequencies = FrequenciesOf(options.sweep, network);
    if (!frequencies) return session.fail(frequencies.status());
    const auto& f = *frequencies;
    KeepDataWarnings(network, f.front(), f.back(), session);
    LadderResponse response(network);
    const NetworkSweep& sweep = response.sweep(f);
    session.out << (options.json ? SweepJson(sweep) : SweepTable(sweep));
    if (options.save.empty()) return ExitCode::Done;
    const Status saved = SaveNetwork(network, options.save);
    return saved ? ExitCode::Done : session.fail({ExitCode::Failed, saved.message()});
}

}  // namespace

void AddAnalyzeCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "analyze", "Gain, reflections and impedances of a network of any shape over frequency");
    auto options = std::make_shared<AnalyzeOptions>();
    AddNetworkOptions(*command, options->network, true);
    AddSweepOptions(*command, options->sweep);
    command->add_option("--save", options->save, "Keep the network as a project file (.kelvro)")
        ->type_name("FILE");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([&session, options] { session.status = Analyze(*options, session); });
}

}  // namespace kelvro
