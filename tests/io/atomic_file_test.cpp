#include "io/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>

#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

namespace fs = std::filesystem;

using Save = Status (*)(const fs::path& path, std::string_view content);

Status ToDisk(const fs::path& path, std::string_view content) {
    return WriteAtomically(path, content);
}

Status ForReports(const fs::path& path, std::string_view content) {
    return WriteAtomically(path, content, Survives::Kill);
}

Status ByWayOfTmp(const fs::path& path, std::string_view content) {
    return WriteByWayOf("TMP", path, content);
}

class KilledSave : public testing::TestWithParam<Save> {
  protected:
    /// A process of its own saves; the system kills it as soon as a file grows over 4096 bytes.
    int signalThatEnded(const fs::path& target, std::string_view content) const {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit small{4096, 4096};
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_FSIZE, &small);
            ::setrlimit(RLIMIT_CORE, &none);
            std::signal(SIGXFSZ, SIG_DFL);
            (void)GetParam()(target, content);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

    TemporaryFolder folder_;
};

TEST_P(KilledSave, LeavesTheOldFileAndDoesNotDisturbTheNextSave) {
    const fs::path target = folder_ / "plot.wmf";
    WriteFile(target, "the old picture");
    const std::string picture(100000, 'x');
    ASSERT_EQ(signalThatEnded(target, picture), SIGXFSZ);
    EXPECT_EQ(ReadFile(target), "the old picture");

    EXPECT_TRUE(GetParam()(target, picture));
    EXPECT_EQ(ReadFile(target), picture);
    for (const auto& entry : fs::directory_iterator(folder_.path()))
        EXPECT_EQ(entry.path(), target) << "what the killed process had begun";
}

TEST_P(KilledSave, GoesWhereLinksLeadAndKeepsThePermissions) {
    const fs::path target = folder_ / "kept";
    const fs::path link = folder_ / "link";
    fs::create_symlink("kept", link);
    EXPECT_TRUE(GetParam()(link, "new")) << "a link that leads to nothing yet";
    EXPECT_EQ(ReadFile(target), "new");
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(GetParam()(link, "newer"));
    EXPECT_EQ(ReadFile(target), "newer");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(fs::is_symlink(link));
}

INSTANTIATE_TEST_SUITE_P(Ways, KilledSave, testing::Values(ToDisk, ForReports, ByWayOfTmp));

}  // namespace
}  // namespace kelvro
