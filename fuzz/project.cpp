// Project files of strangers: read or refused in one line; what is read is written as a file that
// holds the same.

#include "io/project_file.h"

#include "fuzz/require.h"

using namespace kelvro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(TextOf(data, size));
    // Links lead nowhere, not even into the folders of this machine.
    if (text.find("path") != std::string::npos && text.find('/') != std::string::npos) return -1;
    const auto project = ParseProject(text, "/nonexistent", "a.kelvro");
    if (!project) {
        Require(!project.message().empty(), "a refusal says why");
        return 0;
    }
    if (project->readOnly) return 0;
    const std::string written = ProjectText(*project, "/nonexistent");
    const auto again = ParseProject(written, "/nonexistent", "a.kelvro");
    Require(again.ok(), "a written project is read", again.message() + '\n' + written);
    Require(ProjectText(*again, "/nonexistent") == written, "and written as before", written);
    return 0;
}
