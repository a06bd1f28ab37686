// The command-line program with Qt: kelvro-cli turns into it for commands that draw or run ngspice.

#include <unistd.h>

#include <iostream>

#include "cli/command_line.h"
#include "cli/pictures.h"
#include "cli/surroundings.h"
#include "io/class_e_simulation.h"

int main(int argc, char** argv) {
    kelvro::PrepareStreams();
    return kelvro::RunCommandLine({argv + 1, argv + argc}, std::cout, std::cerr,
                                  isatty(STDERR_FILENO) != 0,
                                  {kelvro::WritePicture, kelvro::CompareWithNgspice});
}
