#include "cli/manual_page.h"

#include <array>
#include <utility>
#include <vector>

#include "advise/window_arguments.h"
#include "cli/session.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr std::array<std::pair<ExitCode, const char*>, 4> kExitCodes = {{
    {ExitCode::Done, "Done."},
    {ExitCode::Failed, "A file or the output could not be read or written."},
    {ExitCode::Usage, "Wrong options, a text without digits, an unknown page or component."},
    {ExitCode::Refused, "The page refuses the design, or data do not cover what is asked."},
}};

/// A text as roff shows it: hyphens that can be copied, no requests by accident.
std::string Roff(std::string_view text) {
    std::string roff;
    if (text.starts_with('.') || text.starts_with('\'')) roff = "\\&";
    for (const char c : text) {
        if (c == '\\') {
            roff += "\\e";
        } else if (c == '-') {
            roff += "\\-";
        } else if (c == '\n') {
            roff += "\n.br\n";
        } else {
            roff += c;
        }
    }
    return roff;
}

std::string Head(const std::string& name, const std::string& date, const std::string& summary) {
    std::string upper;
    for (const char c : name) upper += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return ".TH " + upper + " 1 " + date + " \"Kelvro " KELVRO_VERSION "\" \"User Commands\"\n" +
           ".SH NAME\n" + name + " \\- " + Roff(summary) + "\n";
}

std::string Entry(const std::string& term, const std::string& type, const std::string& meaning) {
    return ".TP\n\\fB" + Roff(term) + "\\fR" + (type.empty() ? "" : " \\fI" + Roff(type) + "\\fR") +
           "\n" + Roff(meaning) + "\n";
}

std::vector<const CLI::App*> Commands(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

bool IsPositional(const CLI::Option& option) {
    return option.get_positional();
}

std::string OptionEntry(const CLI::Option& option) {
    const std::string name = option.get_name(IsPositional(option), true);
    const bool flag = option.get_expected_max() == 0;
    return Entry(name, flag ? "" : option.get_type_name(), option.get_description());
}

std::string CommandSection(const CLI::App& command) {
    std::string text = ".SS " + Roff(command.get_name()) + "\n" + Roff(command.get_description());
    text += '\n';
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_name() != "--help") text += OptionEntry(*option);
    }
    const std::string footer = command.get_footer();
    const bool own = !footer.empty() && footer != command.get_parent()->get_footer();
    if (own) text += ".PP\n" + Roff(footer) + "\n";
    return text;
}

/// All that can stand behind the command besides texts of the user.
std::string Words(const CLI::App& command) {
    std::string words;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) words += " --" + name;
        if (!IsPositional(*option) || option->get_name(true) != "PAGE") continue;
        for (const Page& page : Pages()) words += ' ' + std::string(page.key);
    }
    return words.empty() ? words : words.substr(1);
}

}  // namespace

std::string ManualPage(const CLI::App& app, const std::string& date) {
    std::string text = Head("kelvro-cli", date, app.get_description());
    text +=
        ".SH SYNOPSIS\n.B kelvro\\-cli\n.I COMMAND\n[\\fIARGUMENTS\\fR]\n"
        ".SH DESCRIPTION\nThe calculations of\n.BR kelvro (1)\nwithout a window. Results go to the "
        "standard output, problems as one line to the standard error.\n.PP\n" +
        Roff(app.get_footer()) + "\n.SH OPTIONS\n";
    for (const CLI::Option* option : app.get_options()) text += OptionEntry(*option);
    text += ".SH COMMANDS\nEvery command explains itself with\n.BR \\-\\-help .\n";
    for (const CLI::App* command : Commands(app)) text += CommandSection(*command);
    text += ".SH EXIT STATUS\n";
    for (const auto& [code, meaning] : kExitCodes) {
        text += Entry(std::to_string(static_cast<int>(code)), "", meaning);
    }
    return text + ".SH SEE ALSO\n.BR kelvro (1),\n.BR ngspice (1)\n";
}

std::string WindowManualPage(const std::string& date) {
    std::string text = Head("kelvro", date, "design impedance-matching networks in a window");
    text +=
        ".SH SYNOPSIS\n.B kelvro\n[\\fIARGUMENTS\\fR]\n"
        ".SH DESCRIPTION\nDesigns radio\\-frequency matching networks, resistive attenuators and "
        "the output networks of power amplifiers. The manual opens with F1.\n.SH ARGUMENTS\n";
    for (const auto& [term, meaning] : WindowArguments()) text += Entry(term, "", meaning);
    text += ".SH FILES\n";
    text += Entry("$XDG_CONFIG_HOME/kelvro/kelvro.ini", "",
                  "Inputs of the last design, written when the window closes.");
    return text + ".SH SEE ALSO\n.BR kelvro\\-cli (1)\n";
}

std::string BashCompletion(const CLI::App& app) {
    std::string first = "--help --version";
    std::string cases;
    for (const CLI::App* command : Commands(app)) {
        first += ' ' + command->get_name();
        cases += "        " + command->get_name() + ") words=\"" + Words(*command) + "\" ;;\n";
    }
    return "# bash completion for kelvro-cli\n\n"
           "_kelvro_cli() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} words\n"
           "    case ${COMP_WORDS[1]} in\n" +
           cases + "        *) words=\"\" ;;\n    esac\n" +
           "    [ \"$COMP_CWORD\" -gt 1 ] || words=\"" + first + "\"\n" +
           "    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
           "}\n"
           "complete -o default -F _kelvro_cli kelvro-cli\n";
}

}  // namespace kelvro
