// The real program, every command: where output and files cannot be written, and what nobody means.
// It ends with an exit code of the manual, says one line, and leaves nothing behind.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

struct Ending {
    int code = -1;  ///< negative where a signal ended it
    std::string said;
};

std::string Joined(const Arguments& arguments) {
    std::string text;
    for (const std::string& argument : arguments) text += " '" + argument + '\'';
    return text;
}

/// Runs the program with an open file as its output; what it says goes through a file, which holds
/// any number of lines.
Ending RunProgram(Arguments arguments, int output) {
    arguments.insert(arguments.begin(), CLI_PROGRAM);
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    const TemporaryFolder folder;
    const std::string said = folder / "said";
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, said.c_str(), O_CREAT | O_WRONLY,
                                       0600);
    pid_t child = 0;
    int status = 0;
    if (::posix_spawn(&child, words[0], &actions, nullptr, words.data(), environ) == 0)
        ::waitpid(child, &status, 0);
    ::posix_spawn_file_actions_destroy(&actions);
    std::ifstream text(said);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            {std::istreambuf_iterator<char>(text), {}}};
}

void ExpectOneLine(const Ending& ending, const std::string& of) {
    EXPECT_EQ(std::ranges::count(ending.said, '\n'), 1) << of << ": " << ending.said;
    EXPECT_TRUE(ending.said.starts_with("kelvro-cli: ")) << of << ": " << ending.said;
}

const std::string kData = TEST_DATA "/touchstone/impedance.s1p";

TEST(Walk, OutputThatCannotBeWrittenEndsEveryCommandWithItsLine) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    ::close(pipe[0]);
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    for (const Arguments& arguments : std::vector<Arguments>{
             {"--help"},
             {"number", "4k7"},
             {"series", "E12", "5"},
             {"pages"},
             {"design", "pi"},
             {"response", "pi", "--from", "1M", "--to", "1G", "--points", "200001"},
             {"export", "pi"},
             {"tour", "--cities", "10"},
             {"guide"},
             {"propose"},
             {"tolerance", "pi", "--runs", "10"},
             {"goal", "pi"},
             {"optimize", "pi"},
             {"touchstone", kData},
             {"analyze", "--source", "50", "--load", '"' + kData + '"'},
             {"match", "--at", "1M", "--source", "50", "--load", "5"},
             {"limit", "--band", "1M:2M", "--source", "50", "--load", "5"}}) {
        for (const int output : {pipe[1], full}) {
            const Ending ending = RunProgram(arguments, output);
            EXPECT_EQ(ending.code, 1) << Joined(arguments);
            ExpectOneLine(ending, Joined(arguments));
        }
    }
    ::close(full);
    ::close(pipe[1]);
}

TEST(Walk, FilesThatCannotBeWrittenAreAFailureThatLeavesNothing) {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    for (const Arguments& command : std::vector<Arguments>{
             {"table", "pi", "--from", "1M", "--to", "1G", "-o"},
             {"export", "pi", "-o"},
             {"plot", "pi", "-o"},
             {"optimize", "pi", "--log"},
             {"optimize", "pi", "--table"},
             {"analyze", "--source", "5", "--load", "5", "--from", "1M", "--to", "2M", "--save"},
             {"match", "--band", "1M:2M", "--source", "50", "--load", "5", "--parts", "1", "-o"}}) {
        const TemporaryFolder folder;
        std::ofstream(folder / "file") << "kept";
        fs::create_directory(folder / "folder.png");
        fs::create_symlink("/dev/full", folder / "full.png");
        for (const char* name : {"file/a.png", "folder.png", "full.png"}) {
            Arguments arguments = command;
            arguments.push_back(folder / name);
            const Ending ending = RunProgram(arguments, nowhere);
            EXPECT_EQ(ending.code, 1) << Joined(arguments);
            ExpectOneLine(ending, Joined(arguments));
        }
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 3) << Joined(command);
        EXPECT_TRUE(fs::is_empty(folder / "folder.png")) << Joined(command);
    }
    ::close(nowhere);
}

struct Nonsense {
    Arguments arguments;
    int code;
};

/// What one option says against another one, or of what is not there, is told and not passed over.
TEST(Walk, WhatNobodyMeansEndsWithItsCode) {
    const Arguments ends{"--source", "50", "--load", "5"};
    const auto with = [](Arguments first, const Arguments& more) {
        first.insert(first.end(), more.begin(), more.end());
        return first;
    };
    const Arguments at = with({"match", "--at", "1M"}, ends);
    const Arguments response{"response", "pi", "--from", "1M", "--to", "1G"};
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    for (const auto& [arguments, code] : std::vector<Nonsense>{
             {{""}, 2},
             {{"pages", "7"}, 2},
             {{"series", "E12", ""}, 2},
             {{"guide", "--n", ""}, 2},
             {{"tour", "--cities", "99999999999"}, 2},
             {{"tour", "--mc", "--seed", "5"}, 2},
             {{"goal", "pi", "--x", "1,2,3,4,5,6"}, 2},
             {{"design", ""}, 2},
             {{"design", "pi", "--ibg", "5m"}, 2},
             {{"design", "pi", "--check", "nothing"}, 2},
             {{"optimize", "pi", "--max-iterations", "-1"}, 2},
             {{"tolerance", "pi", "--runs", "1e99"}, 2},
             {{"propose", "--q", "5", "--bandwidth", "1M"}, 2},
             {with(response, {"--points", "99999999999999999999"}), 2},
             {with(response, {"--series", "E12"}), 2},
             {with(response, {"--to", "1e999"}), 2},
             {{"plot", "pi", "--envelope", "-o", "a.png"}, 2},
             {{"plot", "pi", "--seed", "1", "-o", "a.png"}, 2},
             {{"plot", "pi", "--size", "1x1", "-o", "a.png"}, 2},
             {{"plot", "pi", "-o", "a.tiff"}, 2},
             {{"export", "pi", "--source", "50"}, 2},
             {{"export", "pi", "--from", "1M"}, 2},
             {{"export", "pi", "--format", "csv", "--z0", "75"}, 2},
             {{"export", "pi", "--network", "a.kelvro"}, 2},
             {{"export", "--network", "a.kelvro", "--r1", "75"}, 2},
             {{"touchstone", kData, "--at", "1.5G"}, 2},
             {{"touchstone", kData, "--gain", "5"}, 2},
             {{"touchstone", TEST_DATA "/touchstone/references.s2p", "--gain", "5"}, 2},
             {with(at, {"--parts", "3"}), 2},
             {with(at, {"-o", "a.kelvro"}), 2},
             {with(at, {"--dc", "block", "--seed", "7"}), 2},
             {with({"match", "--band", "1M:2M", "--topology", "pi"}, ends), 2},
             {with({"match", "--band", "1M:2M", "--series", "E12", "--own", "a"}, ends), 2},
             {with({"limit", "--band", "1M"}, ends), 2},
             {with({"analyze", "--from", "1e-999", "--to", "1M"}, ends), 2},
             // A remark on what was read is no line of its own beside the failure.
             {{"design", "1", "--r1", "200", "--r2", "50", "--ini", "/no.ini"}, 3},
             {{"match", "--at", "9G", "--source", "50", "--load", '"' + kData + '"'}, 3}}) {
        const Ending ending = RunProgram(arguments, nowhere);
        EXPECT_EQ(ending.code, code) << Joined(arguments);
        ExpectOneLine(ending, Joined(arguments));
    }
    ::close(nowhere);
}

}  // namespace
}  // namespace kelvro
