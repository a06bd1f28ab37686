#pragma once

#include <CLI/App.hpp>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/session.h"
#include "core/series.h"
#include "design/design.h"
#include "design/page.h"

namespace kelvro {

/// The inputs of one design as given on the command line: texts, as they would be typed into the
/// window's fields. Commands that work on a design share these options.
struct DesignOptions {
    std::string page;                           ///< number or key
    std::map<std::string, std::string> inputs;  ///< input texts by option name; empty: not given
    std::vector<std::string> takes;             ///< NAME=VALUE
    std::vector<std::string> checks;            ///< NAME or NAME=WEIGHT, check boxes of pages
    std::vector<std::string> cleared;           ///< names of check boxes that are not ticked
    std::string series;
    std::string ini;  ///< settings file to start from
    bool swapLC = false;
    bool noOptimize = false;
    bool json = false;
    bool everyPage = false;  ///< the inputs are for pages to choose from
};

/// Declares one option per input field of the pages' table (--r1 ... --ibg), --ini and
/// --no-optimize: the inputs without a page. The result lives as long as the command. Of the many
/// inputs those that the session does not mention are left out.
std::shared_ptr<DesignOptions> AddInputOptions(CLI::App& command, const Session& session);

/// The same with PAGE, --swap-lc, --check and --take.
std::shared_ptr<DesignOptions> AddDesignOptions(CLI::App& command, const Session& session);

/// Declares --series, for commands that show standard values.
void AddSeriesOption(CLI::App& command, DesignOptions& options);

/// Declares --json.
void AddJsonOption(CLI::App& command, DesignOptions& options);

/// The design state of the options: defaults or the settings file, then the page is entered, then
/// the inputs, each
/// clamped to its field's limits. No component is designed or taken yet. What the user should know
/// besides goes to the session's error stream.
Outcome<Design> StateOf(const DesignOptions& options, Session& session);

/// The standard series of the options.
Series SeriesOf(const DesignOptions& options);

/// A text NAME=VALUE split at its first '='; without one the value is empty.
std::pair<std::string, std::string> SplitAtEquals(const std::string& text);

// Checks for options; an empty text means fine (the form that CLI::Option::check takes).
std::string NumberProblem(const std::string& text);
std::string PositiveNumberProblem(const std::string& text);
std::string SeriesProblem(const std::string& text);

}  // namespace kelvro
