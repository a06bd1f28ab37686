#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "analysis/trace.h"

namespace kelvro {

/// Declares "--trace": keys of traces, several with commas. `what` begins its description.
CLI::Option* AddTraceOption(CLI::App& command, std::vector<std::string>& keys,
                            const std::string& what);

/// The rows of keys that the option accepted, each once.
TraceList TracesOf(const std::vector<std::string>& keys);

}  // namespace kelvro
