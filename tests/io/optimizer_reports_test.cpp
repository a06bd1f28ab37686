#include "io/optimizer_reports.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

namespace fs = std::filesystem;

TEST(OptimizerReports, ReplaceLongerOnesAndMakeTheirFolder) {
    const TemporaryFolder folder;
    const fs::path log = folder / "state" / "kelvro" / "opt.txt";
    PageOptimization optimization;
    optimization.log = std::string(10000, 'x');
    EXPECT_TRUE(KeepReports(optimization, {log.string(), ""}));
    EXPECT_EQ(ReadFile(log), optimization.log);
    optimization.log = "short\n";
    optimization.table = "1;2\n";
    const fs::path table = folder / "opt2.csv";
    EXPECT_TRUE(KeepReports(optimization, {log.string(), table.string()}));
    EXPECT_EQ(ReadFile(log), "short\n");
    EXPECT_EQ(ReadFile(table), "1;2\n");
}

TEST(OptimizerReports, NameTheFileThatCannotBeWritten) {
    const TemporaryFolder folder;
    PageOptimization optimization;
    optimization.log = "log\n";
    optimization.table = "table\n";
    for (const char* bad : {"/dev/full", "/", "/proc/nowhere/opt.txt"}) {
        const std::string named = "Cannot write \"" + std::string(bad) + "\": ";
        for (const OptimizerFiles& files :
             {OptimizerFiles{bad, ""}, OptimizerFiles{(folder / "log").string(), bad}})
            EXPECT_EQ(KeepReports(optimization, files).message().rfind(named, 0), 0U) << bad;
    }
    EXPECT_EQ(ReadFile(folder / "log"), "log\n");
}

TEST(OptimizerReports, WithoutRoomLeaveTheOldOneAndNothingElse) {
    const TemporaryFolder folder;
    WriteFile(folder / "opt.txt", "old\n");
    PageOptimization optimization;
    optimization.log = std::string(10000, 'x');
    for (const char* name : {"opt.txt", "new.txt"}) {
        const FullDisk full;
        EXPECT_FALSE(KeepReports(optimization, {(folder / name).string(), ""})) << name;
    }
    EXPECT_EQ(ReadFile(folder / "opt.txt"), "old\n");
    EXPECT_FALSE(fs::exists(folder / "new.txt"));
}

TEST(OptimizerReports, StandInTheFolderForStateOfTheUser) {
    const char* home = std::getenv("HOME");
    const std::string before = home ? home : "";
    setenv("HOME", "/home/someone", 1);
    setenv("XDG_STATE_HOME", "/var/state", 1);
    EXPECT_EQ(UserReports().log, "/var/state/kelvro/opt.txt");
    setenv("XDG_STATE_HOME", "relative", 1);  // does not count
    EXPECT_EQ(UserReports().table, "/home/someone/.local/state/kelvro/opt2.csv");
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(UserReports().log, "/home/someone/.local/state/kelvro/opt.txt");
    setenv("HOME", before.c_str(), 1);
}

}  // namespace
}  // namespace kelvro
