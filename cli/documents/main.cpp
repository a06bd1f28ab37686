// Writes what an installation brings besides the programs: kelvro-documents FOLDER DATE

#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/commands.h"
#include "cli/manual_page.h"

int main(int argc, char** argv) {
    using namespace kelvro;
    if (argc != 3) return 2;
    const std::filesystem::path folder(argv[1]);
    const std::string date = argv[2];
    const std::array<std::string, 1> everything{"--help"};
    Session session{.out = std::cout, .err = std::cerr, .args = everything};
    CLI::App app;
    DeclareCommands(app, session);
    const auto write = [&folder](const char* name, const std::string& text) {
        std::ofstream file(folder / name, std::ios::binary);
        file << text << std::flush;
        return file.good();
    };
    return write("kelvro-cli.1", ManualPage(app, date)) &&
                   write("kelvro.1", WindowManualPage(date)) &&
                   write("kelvro-cli.bash", BashCompletion(app))
               ? 0
               : 1;
}
