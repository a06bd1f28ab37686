#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>

#include "analysis/achieved.h"
#include "cli/commands.h"
#include "cli/design_run.h"
#include "io/class_e_comparison.h"
#include "io/exports.h"
#include "io/text_table.h"

namespace kelvro {

namespace {

struct ReportOptions {
    std::shared_ptr<DesignOptions> design;
    bool ngspice = false;
};

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
    const TextRows harmonics = HarmonicRows(run.cycle);
    if (!harmonics.empty()) text += "\nHarmonics of the load current\n" + AlignedTable(harmonics);
    return text;
}

Json JsonComparison(const std::vector<ComparedValue>& values) {
    Json rows = Json::array();
    for (const ComparedValue& value : values) {
        rows.push_back({{"name", value.name},
                        {"unit", value.unit},
                        {"computed", JsonNumber(value.computed)},
                        {"simulated", JsonNumber(value.simulated)}});
    }
    return rows;
}

/// The exported netlist of the design, run; nothing where that is not asked for.
Result<std::vector<ComparedValue>> Comparison(const ReportOptions& options, const DesignRun& run,
                                              const Session& session) {
    if (!options.ngspice || run.refused()) return std::vector<ComparedValue>();
    const bool given = !options.design->takes.empty();
    const auto prepared =
        PrepareExport(run.state, {.componentsGiven = given, .series = run.series});
    if (!prepared) return prepared.status();
    if (!session.qt.compareStage) {
        return Status::Failure(
            "ngspice is run by the program kelvro-pictures, which is not installed");
    }
    return session.qt.compareStage(*prepared, {});
}

ExitCode ReportDesign(const ReportOptions& options, Session& session) {
    const auto outcome = RunDesign(*options.design, session);
    if (!outcome) return session.fail(outcome.status());
    const auto& run = *outcome;
    const auto compared = Comparison(options, run, session);
    const bool beside = compared && !compared->empty();
    if (options.design->json) {
        Json document = JsonDesign(run);
        if (beside) document["ngspice"] = JsonComparison(*compared);
        session.out << JsonText(document);
    } else if (!run.refused()) {
        session.out << HumanDesign(run);
        if (beside) {
            session.out << "\nParts with the element Q, computed and simulated\n"
                        << AlignedTable(ComparisonRows(*compared));
        }
    }
    if (run.refused()) return session.fail({ExitCode::Refused, *run.cycle.message});
    if (!compared) return session.fail({ExitCode::Failed, compared.message()});
    return ExitCode::Done;
}

}  // namespace

void AddDesignCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("design", "Design one page and show its outputs");
    auto options = std::make_shared<ReportOptions>();
    options->design = AddDesignOptions(*command, session);
    AddSeriesOption(*command, *options->design);
    AddJsonOption(*command, *options->design);
    command->add_flag("--ngspice", options->ngspice,
                      "Run the netlist of a class-E stage in ngspice and show both side by side");
    command->callback([&session, options] { session.status = ReportDesign(*options, session); });
}

}  // namespace kelvro
