#pragma once

#include <CLI/App.hpp>

#include "cli/session.h"

// The commands of the program. Each one lives in a file of its own: its function declares the
// command's options and sets a callback that stores the exit code in the session. A new command is
// one file, one line here and one in the table of command_line.cpp.

namespace kelvro {

/// Gives `app` its name, its own options and the command that the session's arguments name; all
/// commands where help lists them.
void DeclareCommands(CLI::App& app, Session& session);

void AddNumberCommand(CLI::App& app, Session& session);
void AddSeriesCommand(CLI::App& app, Session& session);
void AddPagesCommand(CLI::App& app, Session& session);
void AddDesignCommand(CLI::App& app, Session& session);
void AddResponseCommand(CLI::App& app, Session& session);
void AddExportCommand(CLI::App& app, Session& session);
void AddTourCommand(CLI::App& app, Session& session);
void AddGuideCommand(CLI::App& app, Session& session);
void AddProposeCommand(CLI::App& app, Session& session);
void AddPlotCommand(CLI::App& app, Session& session);
void AddTableCommand(CLI::App& app, Session& session);
void AddGoalCommand(CLI::App& app, Session& session);
void AddOptimizeCommand(CLI::App& app, Session& session);
void AddToleranceCommand(CLI::App& app, Session& session);
void AddAnalyzeCommand(CLI::App& app, Session& session);
void AddMatchCommand(CLI::App& app, Session& session);
void AddLimitCommand(CLI::App& app, Session& session);
void AddTouchstoneCommand(CLI::App& app, Session& session);

}  // namespace kelvro
