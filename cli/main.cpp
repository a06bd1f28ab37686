#include <unistd.h>

#include <iostream>

#include "cli/command_line.h"

int main(int argc, char** argv) {
    return kelvro::RunCommandLine({argv + 1, argv + argc}, std::cout, std::cerr,
                                  isatty(STDERR_FILENO) != 0);
}
