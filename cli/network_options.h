#pragma once

#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/session.h"
#include "network/network.h"

namespace kelvro {

/// A network as given on the command line: texts, or a project file whose terminations may be
/// replaced.
struct NetworkOptions {
    std::string file;
    std::string source;
    std::string load;
    std::vector<std::string> elements;
};

/// Declares --source and --load.
void AddTerminationOptions(CLI::App& command, NetworkOptions& options);
/// Declares --network, --source, --load and, if wanted, ELEMENT.
void AddNetworkOptions(CLI::App& command, NetworkOptions& options, bool elements);

/// The network of the options; remarks about its files go to the session. Texts that cannot be read
/// are wrong usage, files that cannot be read a failure.
Outcome<Network> NetworkOf(const NetworkOptions& options, Session& session);

/// The network as a project file; keys that others keep in that file stay.
Status SaveNetwork(const Network& network, const std::string& file);

/// Warnings of the session: where the data between two frequencies are coarse or active.
void KeepDataWarnings(const Network& network, double low, double high, Session& session);

}  // namespace kelvro
