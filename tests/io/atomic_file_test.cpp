#include "io/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "tests/temporary_folder.h"

namespace kelvro {
namespace {

namespace fs = std::filesystem;

using Save = Status (*)(const QString& path, const QByteArray& content);

Status ToDisk(const QString& path, const QByteArray& content) {
    return WriteAtomically(path, content);
}

Status ForReports(const QString& path, const QByteArray& content) {
    return WriteAtomically(path, content, Survives::Kill);
}

Status ByWayOfTmp(const QString& path, const QByteArray& content) {
    return WriteByWayOf(QStringLiteral("TMP"), path, content);
}

class KilledSave : public testing::TestWithParam<Save> {
  protected:
    /// A process of its own saves; the system kills it as soon as a file grows over 4096 bytes.
    int signalThatEnded(const fs::path& target, const QByteArray& content) const {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit small{4096, 4096};
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_FSIZE, &small);
            ::setrlimit(RLIMIT_CORE, &none);
            std::signal(SIGXFSZ, SIG_DFL);
            (void)GetParam()(QString::fromStdString(target.string()), content);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

    static std::string content(const fs::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    TemporaryFolder folder_;
};

TEST_P(KilledSave, LeavesTheOldFileAndDoesNotDisturbTheNextSave) {
    const fs::path target = folder_ / "plot.wmf";
    std::ofstream(target, std::ios::binary) << "the old picture";
    const QByteArray picture(100000, 'x');
    ASSERT_EQ(signalThatEnded(target, picture), SIGXFSZ);
    EXPECT_EQ(content(target), "the old picture");

    EXPECT_TRUE(GetParam()(QString::fromStdString(target.string()), picture));
    EXPECT_EQ(content(target), picture.toStdString());
    for (const auto& entry : fs::directory_iterator(folder_.path()))
        EXPECT_EQ(entry.path(), target) << "what the killed process had begun";
}

INSTANTIATE_TEST_SUITE_P(Ways, KilledSave, testing::Values(ToDisk, ForReports, ByWayOfTmp));

}  // namespace
}  // namespace kelvro
