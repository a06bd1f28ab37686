#include "cli/optimizer_options.h"

#include <CLI/CLI.hpp>
#include <utility>
#include <vector>

#include "advise/keywords.h"
#include "analysis/goal.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

KeywordPreset PresetOf(const OptimizerOptions& options) {
    std::vector<std::string> arguments = {options.keywords};
    const LocalOptions defaults;
    if (!options.lineAccuracy.empty() || !options.lineCentre.empty()) {
        arguments.push_back(options.lineAccuracy.empty() ? FormatExact(defaults.lineAccuracy)
                                                         : options.lineAccuracy);
    }
    if (!options.lineCentre.empty()) arguments.push_back(options.lineCentre);
    return ReadKeywords(arguments);
}

}  // namespace

std::shared_ptr<OptimizerOptions> AddOptimizerOptions(CLI::App& command, const Session& session) {
    auto options = std::make_shared<OptimizerOptions>();
    options->design = AddDesignOptions(command, session);
    AddJsonOption(command, *options->design);
    command
        .add_option("--keywords", options->keywords,
                    "Presets, joined in one text: dfp hessian noclamp max xls noise nopt steep "
                    "single ssg dsg trans mruns thorough")
        ->type_name("TEXT");
    command
        .add_option("--line-accuracy", options->lineAccuracy,
                    "Accuracy of line searches (0=fast, 1=accurate)")
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command
        .add_option("--line-centre", options->lineCentre,
                    "Centre parameter of line searches (0.5=default, 0=short)")
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command.add_flag("--max-norm", options->maxNorm,
                     "Broadband designs: the worst point of the band counts, not the mean");
    command
        .add_option("--q-measure", options->qMeasure,
                    "Loaded Q by the drop of gain or by the slope of phase; as the settings file "
                    "has it, else by gain")
        ->check(CLI::IsMember({"gain", "phase"}));
    return options;
}

Outcome<PreparedDesign> PrepareDesign(const OptimizerOptions& options, Session& session) {
    DesignOptions calculated = *options.design;
    calculated.noOptimize = true;
    auto outcome = RunAcceptedDesign(calculated, session);
    if (!outcome) return outcome.status();
    auto& run = *outcome;
    if (!options.qMeasure.empty()) run.state.QByBandwidth = options.qMeasure == "gain";
    if (Goal(run.state, {}).size() == 0) {
        return Problem{ExitCode::Refused, "Page " + std::to_string(run.page().number) + " (" +
                                              std::string(run.page().caption) +
                                              ") has nothing to optimize."};
    }
    const KeywordPreset preset = PresetOf(options);
    PreparedDesign design{std::move(run), preset.settings};
    if (options.design->noOptimize) design.settings.disabled = true;
    if (options.maxNorm) design.settings.goal.maxNorm = true;
    return design;
}

}  // namespace kelvro
