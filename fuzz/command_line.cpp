// Arguments of any kind, one a line: a result or one line on the error stream, and an exit code of
// the manual.

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <vector>

#include "cli/command_line.h"
#include "fuzz/require.h"

using namespace kelvro;

namespace {

std::vector<std::string> ArgumentsOf(std::string_view text) {
    std::vector<std::string> arguments;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) arguments.push_back(line);
    return arguments;
}

/// Files stay in the fuzzer's own folder, and nothing counts to millions.
bool IsHarmless(const std::string& argument) {
    const auto digits = std::ranges::count_if(
        argument, [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; });
    const bool count = argument.starts_with("--points") || argument.starts_with("--runs") ||
                       argument.starts_with("--mc");
    return argument.find('/') == std::string::npos && argument.find("..") == std::string::npos &&
           !(count && argument.find('=') != std::string::npos && digits > 6);
}

bool AreHarmless(const std::vector<std::string>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!IsHarmless(arguments[i])) return false;
        const bool counts = i > 0 && (arguments[i - 1] == "--points" ||
                                      arguments[i - 1] == "--runs" || arguments[i - 1] == "--mc");
        if (counts && arguments[i].size() > 3) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const auto folder =
        std::filesystem::temp_directory_path() / ("kelvro-fuzz-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    static const auto left = folder;
    std::atexit([] {
        std::error_code error;
        std::filesystem::remove_all(left, error);
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto arguments = ArgumentsOf(TextOf(data, size));
    if (!AreHarmless(arguments)) return -1;
    std::ostringstream out;
    std::ostringstream err;
    const int code = RunCommandLine(arguments, out, err);
    Require(code >= 0 && code <= 3, "an exit code of the manual", err.str());
    Require(code == 0 || !err.str().empty(), "a failure says why");
    return 0;
}
