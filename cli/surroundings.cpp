#include "cli/surroundings.h"

#include <csignal>
#include <iostream>

namespace kelvro {

void PrepareStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    std::ios::sync_with_stdio(false);
}

}  // namespace kelvro
