#include "cli/session.h"

#include <algorithm>

namespace kelvro {

void Session::tell(std::string line) {
    // Texts of users may hold line ends; the report stays one line.
    std::ranges::replace(line, '\n', ' ');
    err << "kelvro-cli: " << line << '\n';
}

ExitCode Session::fail(const Problem& problem) {
    tell(problem.text);
    return problem.code;
}

}  // namespace kelvro
