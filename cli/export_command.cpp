#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/design_run.h"
#include "cli/given_options.h"
#include "cli/network_options.h"
#include "cli/sweep_options.h"
#include "core/number_text.h"
#include "design/pages.h"
#include "io/atomic_file.h"
#include "io/exports.h"
#include "io/network_exports.h"

namespace kelvro {

namespace {

struct ExportOptions {
    std::shared_ptr<DesignOptions> design;
    NetworkOptions network;
    std::string format = "listing";
    std::string from;
    std::string to;
    std::string z0;
    std::string file;
    ExportRange range;
    bool eSeries = false;

    // What goes with one of the two, or with some formats.
    OptionList onlyPage, onlyNetwork, onlyRange, onlyReference;
};

std::string FormatKeys() {
    std::string keys;
    for (const ExportFormat& format : ExportFormats()) {
        keys += (keys.empty() ? "" : ", ") + std::string(format.key);
    }
    return keys;
}

std::string FormatProblem(const std::string& key) {
    return FindExportFormat(key) ? "" : "'" + key + "' is no format; " + FormatKeys();
}

/// The frequencies and the reference that were given; the others lie around fo.
ExportRange RangeOf(const ExportOptions& options, double fo) {
    ExportRange range = ExportRange::Around(fo);
    range.points = options.range.points;
    if (!options.from.empty()) range.from = ParseValue(options.from);
    if (!options.to.empty()) range.to = ParseValue(options.to);
    if (!options.z0.empty()) range.z0 = ParseValue(options.z0);
    return range;
}

Outcome<std::string> ContentOf(const ExportOptions& options, const ExportFormat& format,
                               Session& session) {
    const auto outcome = RunAcceptedDesign(*options.design, session);
    if (!outcome) return outcome.status();
    const auto& run = *outcome;
    if (!format.available(run.page())) {
        return Problem{ExitCode::Usage, "page " + std::string(run.page().key) +
                                            " has no export of the format " +
                                            std::string(format.key)};
    }
    const ExportRange range = RangeOf(options, run.state.fo);
    if (const Status usable = CheckRange(range); !usable) {
        return Problem{ExitCode::Usage, usable.message()};
    }
    const bool given = !options.design->takes.empty();
    const auto prepared = PrepareExport(run.state, {options.eSeries, given, run.series});
    if (!prepared) return Problem{ExitCode::Refused, prepared.message()};
    return format.content(*prepared, range);
}

/// A network of a project file; its range is that of its bands, its frequency or its data.
Outcome<std::string> NetworkContentOf(const ExportOptions& options, Session& session) {
    const auto read = NetworkOf(options.network, session);
    if (!read) return read.status();
    const auto& network = *read;
    const NetworkFormat& format = *FindNetworkFormat(options.format);
    ExportRange range = RangeOf(options, 0);
    if (!format.range) return format.content(network, range);
    const SweepOptions sweep{{options.from, options.to, false}, options.range.points};
    const auto frequencies = FrequenciesOf(sweep, network);
    if (!frequencies) return frequencies.status();
    range.from = frequencies->front();
    range.to = frequencies->back();
    if (const Status usable = CheckRange(range); !usable) {
        return Problem{ExitCode::Usage, usable.message()};
    }
    return format.content(network, range);
}

/// Options that say nothing about what is exported, or to this format.
std::optional<Problem> UselessOptions(const ExportOptions& options, bool network) {
    const std::string format = "not for the format " + options.format;
    const NetworkFormat& ofNetworks = *FindNetworkFormat(options.format);
    const ExportFormat& ofPages = *FindExportFormat(options.format);
    const Page* page = FindPage(options.design->page);
    auto wrong = network ? RefuseGiven(options.onlyPage, "only with PAGE")
                         : RefuseGiven(options.onlyNetwork, "only with --network");
    const bool range = network ? ofNetworks.range : page == nullptr || ofPages.range(*page);
    if (!wrong && !range) wrong = RefuseGiven(options.onlyRange, format);
    const bool reference = network ? ofNetworks.reference : ofPages.reference;
    if (!wrong && !reference) wrong = RefuseGiven(options.onlyReference, format);
    return wrong;
}

Outcome<std::string> AnyContentOf(const ExportOptions& options, Session& session) {
    const bool page = !options.design->page.empty();
    const bool network = !options.network.file.empty();
    if (page == network) return Problem{ExitCode::Usage, "either PAGE or --network is required"};
    if (const auto wrong = UselessOptions(options, network)) return *wrong;
    return network ? NetworkContentOf(options, session)
                   : ContentOf(options, *FindExportFormat(options.format), session);
}

ExitCode Export(const ExportOptions& options, Session& session) {
    const auto outcome = AnyContentOf(options, session);
    if (!outcome) return session.fail(outcome.status());
    const auto& content = *outcome;
    if (options.file.empty()) {
        session.out << content;
        return ExitCode::Done;
    }
    const Status written = WriteAtomically(options.file, content);
    if (!written) return session.fail({ExitCode::Failed, written.message()});
    return ExitCode::Done;
}

void AddRangeOptions(CLI::App& command, ExportOptions& options) {
    const OptionList others = DeclaredOptions(command);
    command.add_option("--from", options.from, "First frequency (Hz); default fo/sqrt(10)")
        ->check(PositiveNumberProblem)
        ->type_name("NUMBER");
    command.add_option("--to", options.to, "Last frequency (Hz); default fo·sqrt(10)")
        ->check(PositiveNumberProblem)
        ->type_name("NUMBER");
    command.add_option("--points", options.range.points, "Number of frequencies")
        ->capture_default_str()
        ->check(CLI::Range(2, kMostExportPoints));
    options.onlyRange = DeclaredSince(command, others);
    options.onlyReference = {
        command
            .add_option("--z0", options.z0,
                        "Reference resistance of the two-port (ohm); default 50")
            ->check(PositiveNumberProblem)
            ->type_name("NUMBER")};
}

}  // namespace

void AddExportCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "export", "Design or network in a form that other tools read: " + FormatKeys());
    auto options = std::make_shared<ExportOptions>();
    const OptionList none = DeclaredOptions(*command);
    options->design = AddDesignOptions(*command, session);
    AddSeriesOption(*command, *options->design);
    command->add_flag("--e-series", options->eSeries,
                      "All elements take the nearest values of the standard series");
    CLI::Option* page = command->get_option("PAGE")->required(false);
    options->onlyPage = DeclaredSince(*command, none);
    std::erase(options->onlyPage, page);
    const OptionList ofPages = DeclaredOptions(*command);
    AddNetworkOptions(*command, options->network, false);
    options->onlyNetwork = DeclaredSince(*command, ofPages);
    command->add_option("--format", options->format, "One of: " + FormatKeys())
        ->capture_default_str()
        ->check(FormatProblem)
        ->type_name("FORMAT");
    AddRangeOptions(*command, *options);
    command->add_option("-o,--output", options->file, "File to write instead of the output")
        ->type_name("FILE");
    command->callback([&session, options] { session.status = Export(*options, session); });
}

}  // namespace kelvro
