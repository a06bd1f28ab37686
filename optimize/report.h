#pragma once

#include <string>

#include "optimize/settings.h"

// The text report "opt.txt" and the call table "opt2.csv", written from what a run left behind. All
// wording of the optimizer stands here.

namespace kelvro {

enum class RunOrigin : std::uint8_t { FirstOfTwo, SecondOfTwo, Single };

/// The settings lines that both files begin with, lines ended by a line feed.
std::string SettingsText(const OptimizerSettings& settings);

/// What the text report says once before the first run; `tableName` is named when a table is
/// written; empty for none.
std::string ReportHead(const OptimizerSettings& settings, std::string_view tableName);

/// One run from its origin to the end-of-run summary.
std::string RunText(const Summary& run, const OptimizerSettings& settings, RunOrigin origin,
                    int page);

/// What stands behind the last run, from the one that reached the result: uncertainty of the
/// parameters and the goal. A parameter's uncertainty is the change that worsens the goal by 0.01
/// with all others following.
std::string ClosingText(const Summary& best, const OptimizerSettings& settings);

/// Head of the call table, and the rows of one run; `firstId` numbers them on from earlier runs.
std::string TableHead(const OptimizerSettings& settings);
std::string TableRows(const Summary& run, int firstId);

}  // namespace kelvro
