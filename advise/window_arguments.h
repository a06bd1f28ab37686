#pragma once

#include <span>
#include <string>
#include <vector>

namespace kelvro {

/// An argument of the window program, as its help and its manual page show it.
struct WindowArgument {
    std::string text;
    std::string meaning;
};

/// Options and the project file first, then the keywords' place.
std::vector<WindowArgument> WindowArguments();

/// How the window program was called.
struct WindowCall {
    bool help = false;
    bool version = false;
    bool splash = true;
    std::vector<std::string> others;  ///< files and keywords
};

/// Sorts the arguments behind the program's name.
WindowCall ReadWindowArguments(std::span<const std::string> arguments);

/// What --help prints.
std::string WindowHelp();

}  // namespace kelvro
