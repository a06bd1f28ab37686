#include "cli/given_options.h"

#include <CLI/Option.hpp>
#include <algorithm>

namespace kelvro {

OptionList DeclaredOptions(const CLI::App& command) {
    return command.get_options();
}

OptionList DeclaredSince(const CLI::App& command, const OptionList& before) {
    OptionList options = DeclaredOptions(command);
    std::erase_if(options, [&](const CLI::Option* option) {
        return std::ranges::find(before, option) != before.end();
    });
    return options;
}

std::optional<Problem> RefuseGiven(const OptionList& options, const std::string& reason) {
    std::string names;
    for (const CLI::Option* option : options) {
        if (option->count() > 0) names += (names.empty() ? "" : ", ") + option->get_name();
    }
    if (names.empty()) return {};
    return Problem{ExitCode::Usage, names + ": " + reason};
}

}  // namespace kelvro
