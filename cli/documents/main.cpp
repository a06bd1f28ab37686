// Writes what an installation brings besides the programs: kelvro-documents FOLDER DATE

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/commands.h"
#include "cli/manual_page.h"

namespace {

/// Were all documents written?
bool WriteDocuments(const std::filesystem::path& folder, const std::string& date) {
    using namespace kelvro;
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
           write("kelvro-cli.bash", BashCompletion(app));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    try {
        return WriteDocuments(argv[1], argv[2]) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelvro-documents: %s\n", error.what());
        return 1;
    }
}
