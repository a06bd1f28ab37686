#include "advise/window_arguments.h"

#include <algorithm>

#include "advise/keywords.h"

namespace kelvro {

std::vector<WindowArgument> WindowArguments() {
    return {
        {"--no-splash", "Show the window at once, without the splash screen"},
        {"--help", "Print these lines and exit"},
        {"--version", "Print the version and exit"},
        {"FILE", "Open a design; a project or measured data in the Network window"},
        {"KEYWORDS", "Preset the optimizer; several may be joined: " + KeywordList()},
        {"ACCURACY", "Behind the keywords: accuracy of the line search, 0 to 1"},
        {"CENTRE", "Behind the accuracy: centre of the line search, 0 to 1"},
    };
}

WindowCall ReadWindowArguments(std::span<const std::string> arguments) {
    WindowCall call;
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "-h") {
            call.help = true;
        } else if (argument == "--version") {
            call.version = true;
        } else if (argument == "--no-splash") {
            call.splash = false;
        } else {
            call.others.push_back(argument);
        }
    }
    return call;
}

std::string WindowHelp() {
    const std::vector<WindowArgument> arguments = WindowArguments();
    std::size_t width = 0;
    for (const WindowArgument& argument : arguments) width = std::max(width, argument.text.size());
    std::string help = "Usage: kelvro [ARGUMENTS]\n\n";
    for (const auto& [text, meaning] : arguments) {
        help.append("  ").append(text).append(width + 2 - text.size(), ' ').append(meaning);
        help += '\n';
    }
    return help;
}

}  // namespace kelvro
