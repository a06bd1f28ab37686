#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>

#include "cli/commands.h"

namespace kelvro {

namespace {

struct Command {
    std::string_view name;
    void (*add)(CLI::App&, Session&);
};

constexpr Command kCommands[] = {
    {"number", AddNumberCommand},
    {"series", AddSeriesCommand},
    {"pages", AddPagesCommand},
    {"design", AddDesignCommand},
    {"response", AddResponseCommand},
    {"export", AddExportCommand},
    {"tour", AddTourCommand},
    {"guide", AddGuideCommand},
    {"propose", AddProposeCommand},
    {"plot", AddPlotCommand},
    {"table", AddTableCommand},
    {"tolerance", AddToleranceCommand},
    {"goal", AddGoalCommand},
    {"optimize", AddOptimizeCommand},
    {"touchstone", AddTouchstoneCommand},
    {"analyze", AddAnalyzeCommand},
    {"match", AddMatchCommand},
    {"limit", AddLimitCommand},
};

/// Commands whose arguments are texts of any kind: "-2e2" is a number there and no option.
constexpr std::string_view kTextCommands[] = {"number", "series"};

/// Marks the arguments of text commands as texts: all of them stand behind one "--".
std::vector<std::string> WithTextsMarked(std::vector<std::string> args) {
    const bool texts = args.size() > 1 &&
                       std::ranges::find(kTextCommands, args[0]) != std::ranges::end(kTextCommands);
    if (!texts || args[1] == "--help" || args[1] == "-h") return args;
    if (const auto mark = std::ranges::find(args, "--"); mark != args.end()) args.erase(mark);
    args.insert(args.begin() + 1, "--");
    return args;
}

/// Can an argument stand first: a command or one of the program's own options?
bool IsKnown(const CLI::App& app, const std::string& name) {
    if (name.starts_with('-')) return app.get_option_no_throw(name) != nullptr;
    return std::ranges::find(kCommands, name, &Command::name) != std::end(kCommands);
}

/// An empty name is a variable of a script that was not set: it would read or keep nothing.
void RefuseEmptyFileNames(CLI::App& app) {
    const auto problem = [](const std::string& file) -> std::string {
        return file.empty() ? "no file name" : "";
    };
    for (CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
        for (CLI::Option* option : command->get_options())
            if (option->get_type_name() == "FILE") option->check(problem);
    }
}

ExitCode Parse(CLI::App& app, Session& session, std::vector<std::string> args) {
    if (!args.empty() && !IsKnown(app, args[0])) {
        const std::string kind = args[0].starts_with('-') ? "option" : "command";
        return session.fail({ExitCode::Usage, "'" + args[0] + "' is no " + kind + "; see --help"});
    }
    args = WithTextsMarked(std::move(args));
    std::ranges::reverse(args);  // the parser takes its arguments from the end
    try {
        app.parse(std::move(args));
        return session.status;
    } catch (const CLI::Success& success) {  // --help and --version
        app.exit(success, session.out, session.err);
        return ExitCode::Done;
    } catch (const CLI::ParseError& error) {
        return session.fail({ExitCode::Usage, error.what()});
    } catch (const std::exception& error) {
        return session.fail({ExitCode::Failed, error.what()});
    }
}

}  // namespace

void DeclareCommands(CLI::App& app, Session& session) {
    app.name("kelvro-cli");
    app.description("Designs matching networks, attenuators and PA output networks.");
    app.set_version_flag("--version", "kelvro-cli " KELVRO_VERSION);
    app.require_subcommand(1);
    app.footer("Numbers carry engineering prefixes: 10M, 4.7k, 100n, 2,2u.");
    const std::string_view first =
        session.args.empty() ? std::string_view() : std::string_view(session.args[0]);
    const bool help = first == "--help" || first == "-h";
    for (const Command& command : kCommands) {
        if (help || command.name == first) command.add(app, session);
    }
    RefuseEmptyFileNames(app);
}

int RunCommandLine(std::vector<std::string> args, std::ostream& out, std::ostream& err,
                   bool terminal, QtServices qt) {
    Session session{.out = out, .err = err, .qt = qt, .terminal = terminal, .args = args};
    CLI::App app;
    DeclareCommands(app, session);
    ExitCode code = Parse(app, session, args);
    out.flush();
    if (!out && code == ExitCode::Done) {
        code = session.fail({ExitCode::Failed, "the output could not be written"});
    }
    session.tellWarnings();
    return static_cast<int>(code);
}

}  // namespace kelvro
