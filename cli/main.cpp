#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <span>
#include <string_view>

#include "cli/command_line.h"
#include "cli/surroundings.h"

namespace {

bool NeedsQt(std::span<const char* const> arguments) {
    constexpr std::string_view simulation = "--ngspice";
    return !arguments.empty() && (arguments.front() == std::string_view("plot") ||
                                  std::ranges::find(arguments, simulation) != arguments.end());
}

/// Turns into the program that also draws and runs ngspice, which takes the same arguments. It
/// stands beside this one, or where an installation keeps what users do not start themselves. Comes
/// back only when it is at neither place. All other commands start in a quarter of the time without
/// Qt.
void TurnIntoPictures(char** argv) {
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    for (const char* place : {"kelvro-pictures", "../libexec/kelvro/kelvro-pictures"}) {
        execv((folder / place).c_str(), argv);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (NeedsQt({argv + 1, argv + argc})) TurnIntoPictures(argv);
    kelvro::PrepareStreams();
    return kelvro::RunCommandLine({argv + 1, argv + argc}, std::cout, std::cerr,
                                  isatty(STDERR_FILENO) != 0);
}
