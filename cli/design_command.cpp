#include <algorithm>
#include <iterator>

#include "analysis/achieved.h"
#include "cli/commands.h"
#include "cli/design_run.h"
#include "io/text_table.h"

namespace kelvro {

namespace {

std::string HumanDesign(const DesignRun& run) {
    TextRows rows;
    for (const ShownComponent& part : ShownComponents(run)) {
        const std::string nearest = WithUnit(part.series, part.unit);
        rows.push_back({part.shownName, WithUnit(part.text, part.unit), part.label,
                        nearest.empty() ? "" : "nearest " + nearest});
    }
    std::ranges::move(OutputRows(run.cycle, run.page()), std::back_inserter(rows));
    std::string text = Heading(run.state) + '\n' + AlignedTable(rows);
    if (const auto achieved = AchievedBy(run.cycle))
        text += "Achieved: " + AchievedText(*achieved, run.cycle.bandwidth) + '\n';
    return text;
}

ExitCode ReportDesign(const DesignOptions& options, Session& session) {
    const auto outcome = RunDesign(options, session);
    if (const auto* problem = std::get_if<Problem>(&outcome)) return session.fail(*problem);
    const auto& run = std::get<DesignRun>(outcome);
    if (options.json) {
        session.out << JsonText(JsonDesign(run));
    } else if (!run.refused()) {
        session.out << HumanDesign(run);
    }
    if (run.refused()) return session.fail({ExitCode::Refused, *run.cycle.message});
    return ExitCode::Done;
}

}  // namespace

void AddDesignCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("design", "Design one page and show its outputs");
    const auto options = AddDesignOptions(*command);
    AddJsonOption(*command, *options);
    command->callback([&session, options] { session.status = ReportDesign(*options, session); });
}

}  // namespace kelvro
