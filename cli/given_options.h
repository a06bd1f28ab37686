#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/session.h"

// Options that mean nothing beside others are refused: who gives one expects that it counts.

namespace kelvro {

using OptionList = std::vector<const CLI::Option*>;

/// What is declared so far.
OptionList DeclaredOptions(const CLI::App& command);

/// What was declared since then.
OptionList DeclaredSince(const CLI::App& command, const OptionList& before);

/// Wrong usage where one of the options was given: "--q, --topology: only with --at" for the reason
/// "only with --at".
std::optional<Problem> RefuseGiven(const OptionList& options, const std::string& reason);

}  // namespace kelvro
