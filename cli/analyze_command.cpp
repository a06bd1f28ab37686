#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/network_options.h"
#include "cli/sweep_options.h"
#include "io/network_report.h"
#include "io/project_file.h"

namespace kelvro {

namespace {

struct AnalyzeOptions {
    NetworkOptions network;
    SweepOptions sweep;
    std::string save;
    bool json = false;
};

/// The network as a project file; keys that others keep in that file stay.
std::optional<Problem> Save(const Network& network, const std::string& file) {
    Project project;
    if (std::filesystem::exists(file)) {
        auto before = ReadProject(file);
        if (!before.ok()) return Problem{ExitCode::Failed, before.message()};
        project = std::move(*before);
    }
    project.network = network;
    const Status saved = WriteProject(file, project);
    if (saved.ok()) return std::nullopt;
    return Problem{ExitCode::Failed, saved.message()};
}

ExitCode Analyze(const AnalyzeOptions& options, Session& session) {
    const auto read = NetworkOf(options.network, session);
    if (const auto* problem = std::get_if<Problem>(&read)) return session.fail(*problem);
    const auto& network = std::get<Network>(read);
    const auto frequencies = FrequenciesOf(options.sweep, network);
    if (const auto* problem = std::get_if<Problem>(&frequencies)) return session.fail(*problem);
    const auto& f = std::get<std::vector<double>>(frequencies);
    TellDataWarnings(network, f.front(), f.back(), session);
    LadderResponse response(network);
    const NetworkSweep& sweep = response.sweep(f);
    session.out << (options.json ? SweepJson(sweep) : SweepTable(sweep));
    if (options.save.empty()) return ExitCode::Done;
    const auto problem = Save(network, options.save);
    return problem ? session.fail(*problem) : ExitCode::Done;
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
