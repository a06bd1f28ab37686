#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/design_run.h"
#include "cli/range_options.h"
#include "io/atomic_file.h"
#include "plot/response_table.h"

namespace kelvro {

namespace {

struct TableOptions {
    std::shared_ptr<DesignOptions> design;
    RangeOptions range;
    std::string file;
};

ExitCode WriteTable(const TableOptions& options, Session& session) {
    const auto range = RangeOf(options.range, {});
    if (!range) return session.fail(range.status());
    const auto [from, to] = *range;
    const auto outcome = RunRespondingDesign(*options.design, session);
    if (!outcome) return session.fail(outcome.status());
    const Design& state = outcome->state;
    const std::string table = ResponseTable(state, from, to, !options.range.linear);
    const Status written = WriteAtomically(options.file, table);
    if (!written) return session.fail({ExitCode::Failed, written.message()});
    return ExitCode::Done;
}

}  // namespace

void AddTableCommand(CLI::App& app, Session& session) {
    CLI::App* command =
        app.add_subcommand("table", "Response table of a design: 513 points of GT, V and phase");
    auto options = std::make_shared<TableOptions>();
    options->design = AddDesignOptions(*command, session);
    AddRangeOptions(*command, options->range, true);
    command->add_option("-o,--output", options->file, "File to write (usually .tab)")
        ->required()
        ->type_name("FILE");
    command->callback([&session, options] { session.status = WriteTable(*options, session); });
}

}  // namespace kelvro
