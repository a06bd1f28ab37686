#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "cli/commands.h"
#include "cli/design_run.h"
#include "cli/tolerance_options.h"
#include "core/number_text.h"
#include "io/text_table.h"

namespace kelvro {

namespace {

constexpr int kMostRuns = 1'000'000;

struct AnalysisOptions {
    std::shared_ptr<DesignOptions> design;
    ToleranceOptions tolerance;
    int runs = 1000;
    std::string limitDb;
};

/// What was analysed, and what came of it.
struct Analysis {
    const Page& page;
    Tolerances tolerances;
    std::uint64_t seed;
    ToleranceReport report;
};

std::string DecibelText(double value) {
    return FormatFixed(8, 3, value) + " dB";
}

std::string Coefficient(double value) {
    return std::isfinite(value) ? FormatFixed(6, 3, value) : "     -";
}

std::string_view GroupName(ToleranceGroup group) {
    switch (group) {
        case ToleranceGroup::Capacitance:
            return "capacitance";
        case ToleranceGroup::Inductance:
            return "inductance";
        case ToleranceGroup::LineImpedance:
            return "line impedance";
        case ToleranceGroup::Resistance:
            return "resistance";
        case ToleranceGroup::None:
            break;
    }
    return "";
}

/// The part whose deviation, with or without its sign, tells most about the gain.
const PartInfluence& MostInfluential(const ToleranceReport& report) {
    const auto weight = [](const PartInfluence& influence) {
        return std::fmax(std::fabs(influence.correlation), std::fabs(influence.correlationOfSize));
    };
    return *std::ranges::max_element(report.parts, {}, weight);
}

std::string PartsText(const Analysis& analysis) {
    std::vector<std::vector<std::string>> rows{{"Part", "Tolerance", "Correlation", "of the size"}};
    for (const PartInfluence& influence : analysis.report.parts) {
        rows.push_back({influence.part.name,
                        FormatFixed(5, 1, analysis.tolerances.of(influence.part.group)) + " %",
                        Coefficient(influence.correlation),
                        Coefficient(influence.correlationOfSize)});
    }
    return "\nCorrelation of each part's deviation, and of the size of it, with GT at fo:\n" +
           AlignedTable(rows) + "Buy tighter first: " + MostInfluential(analysis.report).part.name +
           '\n';
}

std::string Text(const Analysis& analysis) {
    if (analysis.report.parts.empty()) {
        return "No part of this design has a tolerance: there is nothing to vary.\n";
    }
    const Spread& gain = analysis.report.gain;
    const auto good = static_cast<int>(std::lround(gain.yield * static_cast<double>(gain.count)));
    std::vector<std::vector<std::string>> rows{
        {"Nominal", DecibelText(analysis.report.nominalGain)},
        {"Minimum", DecibelText(gain.min)},
        {"5 percentile", DecibelText(gain.percentile5)},
        {"Mean", DecibelText(gain.mean)},
        {"95 percentile", DecibelText(gain.percentile95)},
        {"Maximum", DecibelText(gain.max)},
        {"Standard deviation", DecibelText(gain.deviation)},
        {"Yield", FormatFixed(8, 1, 100 * gain.yield) + " % (" + std::to_string(good) + " of " +
                      std::to_string(gain.count) + " at or above " +
                      FormatFixed(0, 2, analysis.report.limit) + " dB)"}};
    if (gain.finite < gain.count) {
        rows.push_back({"Not finite", std::to_string(gain.count - gain.finite)});
    }
    return "GT at fo, " + std::to_string(gain.count) + " runs with seed " +
           std::to_string(analysis.seed) + "\n\n" + AlignedTable(rows) + PartsText(analysis);
}

Json JsonParts(const Analysis& analysis) {
    Json parts = Json::array();
    for (const PartInfluence& influence : analysis.report.parts) {
        parts.push_back({{"name", influence.part.name},
                         {"group", GroupName(influence.part.group)},
                         {"tolerance_percent", analysis.tolerances.of(influence.part.group)},
                         {"correlation", JsonNumber(influence.correlation)},
                         {"correlation_of_size", JsonNumber(influence.correlationOfSize)}});
    }
    return parts;
}

Json Document(const Analysis& analysis, const Design& state) {
    const Spread& gain = analysis.report.gain;
    return {{"page", analysis.page.number},
            {"inputs", JsonInputs(state)},
            {"runs", gain.count},
            {"seed", analysis.seed},
            {"limit_db", JsonNumber(analysis.report.limit)},
            {"nominal_db", JsonNumber(analysis.report.nominalGain)},
            {"minimum_db", JsonNumber(gain.min)},
            {"mean_db", JsonNumber(gain.mean)},
            {"maximum_db", JsonNumber(gain.max)},
            {"standard_deviation_db", JsonNumber(gain.deviation)},
            {"percentile_5_db", JsonNumber(gain.percentile5)},
            {"percentile_95_db", JsonNumber(gain.percentile95)},
            {"yield", JsonNumber(gain.yield)},
            {"not_finite", gain.count - gain.finite},
            {"parts", JsonParts(analysis)}};
}

ExitCode ReportTolerance(const AnalysisOptions& options, Session& session) {
    const auto outcome = RunRespondingDesign(*options.design, session);
    if (!outcome) return session.fail(outcome.status());
    const DesignRun& run = *outcome;
    Analysis analysis{
        run.page(), options.tolerance.tolerances(), options.tolerance.seedOrClock(), {}};
    std::optional<double> limit;
    if (!options.limitDb.empty()) limit = ParseValue(options.limitDb);
    analysis.report =
        AnalyseTolerance(run.state, analysis.tolerances, options.runs, analysis.seed, limit);
    session.out << (options.design->json ? JsonText(Document(analysis, run.state))
                                         : Text(analysis));
    return ExitCode::Done;
}

}  // namespace

void AddToleranceCommand(CLI::App& app, Session& session) {
    CLI::App* command =
        app.add_subcommand("tolerance", "Spread of the gain at fo when parts deviate");
    auto options = std::make_shared<AnalysisOptions>();
    options->design = AddDesignOptions(*command, session);
    AddJsonOption(*command, *options->design);
    AddToleranceOptions(*command, options->tolerance);
    command->add_option("--runs", options->runs, "Number of runs")
        ->capture_default_str()
        ->check(CLI::Range(1, kMostRuns));
    command
        ->add_option("--limit-db", options->limitDb,
                     "Lowest GT at fo that counts as good (dB); default 1 dB below the nominal one")
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command->callback([&session, options] { session.status = ReportTolerance(*options, session); });
}

}  // namespace kelvro
