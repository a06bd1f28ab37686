#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/session.h"

namespace kelvro {

/// Runs the command-line program: `args` are its arguments without the program's name. Results go
/// to `out`, problems as one line to `err`, which also shows the progress of long commands when it
/// is a terminal. Returns the exit code (see
/// ExitCode). Never throws.
int RunCommandLine(std::vector<std::string> args, std::ostream& out, std::ostream& err,
                   bool terminal = false, QtServices qt = {});

}  // namespace kelvro
