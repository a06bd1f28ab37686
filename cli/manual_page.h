#pragma once

#include <CLI/App.hpp>
#include <string>

// What an installation tells about the program, made of the tables that --help is made of.

namespace kelvro {

/// The manual page in section 1, as roff. `date` is "2026-11-22".
std::string ManualPage(const CLI::App& app, const std::string& date);

/// The manual page of the window program.
std::string WindowManualPage(const std::string& date);

/// Completion of commands, options and page names for bash.
std::string BashCompletion(const CLI::App& app);

}  // namespace kelvro
