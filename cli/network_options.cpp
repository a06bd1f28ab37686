#include "cli/network_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

#include "io/data_files.h"
#include "io/project_file.h"
#include "network/coverage.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

/// What became of a text: files that cannot be read are no wrong usage.
Problem TextProblem(const DataFiles& files, const std::string& where, const Status& status) {
    return {files.failed() ? ExitCode::Failed : ExitCode::Usage, where + ": " + status.message()};
}

Outcome<Project> FromFile(const NetworkOptions& options, Session& session) {
    auto project = ReadProject(options.file);
    if (!project.ok()) return Problem{ExitCode::Failed, project.message()};
    for (const DataProblem& problem : project->dataProblems)
        if (!problem.missing) session.warn(problem.what);
    for (const std::string& message : project->messages) session.warn(message);
    return std::move(project).value();
}

/// Data that the network needs and the project could not read.
Status CheckThere(const Network& network, const Project& project) {
    for (const auto& data : DataOf(network)) {
        const auto problem =
            std::ranges::find(project.dataProblems, data->name, &DataProblem::name);
        if (data->f.empty() && problem != project.dataProblems.end())
            return Status::Failure(data->name + ": " + problem->what);
    }
    return {};
}

}  // namespace

void AddTerminationOptions(CLI::App& command, NetworkOptions& options) {
    command
        .add_option("--source", options.source,
                    "Impedance of the source: 50, 12-j45, amp.s2p:2, 'amp.s2p(cubic):2'")
        ->type_name("Z");
    command
        .add_option("--load", options.load,
                    "Impedance of the load: 50 | C=2p, antenna.s1p, "
                    "'antenna.s1p(polar)' read so between its samples (linear, polar, cubic)")
        ->type_name("Z");
}

void AddNetworkOptions(CLI::App& command, NetworkOptions& options, bool elements) {
    CLI::Option* file = command.add_option("--network", options.file, "A project file (.kelvro)")
                            ->type_name("FILE");
    AddTerminationOptions(command, options);
    if (!elements) return;
    command
        .add_option(
            "ELEMENT", options.elements,
            "Elements from source to load: 'series: L=20n', 'shunt: C=16p | L=18n', 'line: "
            "Z=50, deg=90@2.4G', 'open: …', 'short: …', 'transformer: n=2', 'coupled: "
            "L1=1u, L2=1u, k=0.9', 'part: coil.s2p', 'part: coil.s2p(polar)'. A word behind "
            "a measured file says how it is read between its samples: linear, polar or "
            "cubic")
        ->type_name("")
        ->excludes(file);
}

Outcome<Network> NetworkOf(const NetworkOptions& options, Session& session) {
    Network network;
    Project project;
    if (!options.file.empty()) {
        auto read = FromFile(options, session);
        if (!read) return read.status();
        project = std::move(*read);
        network = project.network;
    } else if (options.source.empty() || options.load.empty()) {
        const char* missing = options.source.empty() ? "--source" : "--load";
        return Problem{ExitCode::Usage, std::string(missing) + " is required"};
    }
    DataFiles files;
    for (const auto& [name, text, end] : {std::tuple{"--source", &options.source, &network.source},
                                          std::tuple{"--load", &options.load, &network.load}}) {
        if (text->empty()) continue;
        auto read = ParseTermination(*text, files.loader());
        if (!read.ok()) return TextProblem(files, name, read.status());
        *end = std::move(*read);
    }
    for (const std::string& text : options.elements) {
        auto read = ParseElement(text, files.loader());
        if (!read.ok()) return TextProblem(files, '"' + text + '"', read.status());
        network.ladder.push_back(std::move(*read));
    }
    const Status there = CheckThere(network, project);
    if (!there) return Problem{ExitCode::Failed, options.file + " needs " + there.message()};
    for (const std::string& warning : files.warnings()) session.warn(warning);
    return network;
}

Status SaveNetwork(const Network& network, const std::string& file) {
    Project project;
    if (std::filesystem::exists(file)) {
        auto before = ReadProject(file);
        if (!before) return before.status();
        project = std::move(*before);
    }
    project.network = network;
    return WriteProject(file, project, project.checksum).status();
}

void KeepDataWarnings(const Network& network, double low, double high, Session& session) {
    for (const auto& data : DataOf(network)) {
        for (const std::string& warning : DataWarnings(*data, low, high)) session.warn(warning);
    }
}

}  // namespace kelvro
