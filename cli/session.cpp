#include "cli/session.h"

#include <algorithm>

namespace kelvro {

namespace {

void Tell(std::ostream& err, std::string line) {
    // Texts may hold line ends, those of strangers also what controls a terminal; the report stays
    // one line.
    const auto controls = [](unsigned char c) { return c < 0x20 || c == 0x7F; };
    std::ranges::replace_if(line, controls, ' ');
    err << "kelvro-cli: " << line << '\n';
}

}  // namespace

bool Session::mentions(std::string_view name) const {
    return std::ranges::any_of(args, [name](std::string_view arg) {
        if (arg == "--help" || arg == "-h") return true;
        if (!arg.starts_with("--")) return false;
        return arg.substr(2, arg.find('=') - 2) == name;
    });
}

void Session::progress(std::string_view text) {
    constexpr std::string_view wipe = "\r\x1b[K";
    if (terminal) err << wipe << text << std::flush;
}

ExitCode Session::fail(const Problem& problem) {
    std::string text = problem.text;
    for (const std::string& warning : warnings) text += " (warning: " + warning + ')';
    warnings.clear();
    Tell(err, std::move(text));
    return problem.code;
}

void Session::tellWarnings() {
    for (const std::string& warning : warnings) Tell(err, "warning: " + warning);
    warnings.clear();
}

}  // namespace kelvro
