// Netlists handed to the simulator as a program of its own, and what it prints read back.

#include "io/ngspice.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <thread>

#include "../temporary_folder.h"

namespace kelvro {
namespace {

/// An environment variable with another value until the end of the block.
class Environment {
  public:
    Environment(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) {
        qputenv(name, value);
    }
    ~Environment() { before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    const char* name_;
    QByteArray before_;
};

/// A folder with an "ngspice" that does what the shell lines say.
class FakeSimulator {
  public:
    explicit FakeSimulator(const std::string& lines) {
        const std::filesystem::path program = folder_ / "ngspice";
        std::ofstream(program) << "#!/bin/sh\n" << lines << '\n';
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }
    QByteArray path() const {
        return QByteArray::fromStdString(folder_.path().string()) + ":/usr/bin:/bin";
    }

  private:
    TemporaryFolder folder_;
};

TEST(NgspiceRun, MeasuresWhatTheNetlistAsksFor) {
    // 1 V peak at 1 kHz behind a divider of two, squared up by a harmonic of a tenth.
    const auto found = RunNgspice(R"(divider
V1 a 0 SIN(0 1 1k)
V2 b a SIN(0 0.1 3k)
R1 b out 1k
R2 out 0 1k
.tran 1u 5m 0 1u
.meas tran rms RMS v(out) FROM=0 TO=5m
.meas tran never FIND v(out) AT=9m
.four 1k v(out)
.end
)");
    ASSERT_TRUE(found) << found.message();
    EXPECT_NEAR(found->at("rms"), std::sqrt((0.5 * 0.5 + 0.05 * 0.05) / 2), 1e-4);
    EXPECT_NEAR(found->at("harmonic1"), 0.5, 1e-4);
    EXPECT_NEAR(found->at("harmonic3"), 0.05, 1e-4);
    EXPECT_FALSE(found->contains("never"));
}

TEST(NgspiceRun, SaysInOneLineWhyThereIsNothing) {
    const auto messageWith = [](const std::string& lines, int seconds = 60) {
        const FakeSimulator simulator(lines);
        const Environment path("PATH", simulator.path());
        return RunNgspice("title\n.end\n", {}, seconds).message();
    };
    EXPECT_EQ(messageWith("echo 'Error: no such device'; exit 1"),
              "ngspice failed: Error: no such device");
    EXPECT_EQ(messageWith("echo nothing asked"), "ngspice measured nothing: nothing asked");
    EXPECT_EQ(messageWith("kill -9 $$"), "ngspice failed: it printed nothing");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(messageWith("exec sleep 30", 1), "ngspice was still busy after 1 s and was stopped");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    const Environment path("PATH", "/nonexistent");
    EXPECT_EQ(RunNgspice("title\n.end\n").message(),
              "ngspice is not installed; Debian's package has the same name: apt install ngspice");
}

TEST(NgspiceRun, EndsWhenItIsAskedTo) {
    const FakeSimulator simulator("exec sleep 30");
    const Environment path("PATH", simulator.path());
    std::stop_source stop;
    const auto start = std::chrono::steady_clock::now();
    std::jthread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        stop.request_stop();
    });
    EXPECT_EQ(RunNgspice("title\n.end\n", stop.get_token()).message(), "ngspice was stopped");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

/// Names of folders are no shell's business: the netlist is found where the temporary folder has a
/// name full of characters that a shell would read.
TEST(NgspiceRun, IsStartedWithoutAShell) {
    const TemporaryFolder folder;
    const std::filesystem::path odd = folder / "a b'$(touch x);\"";
    std::filesystem::create_directory(odd);
    const Environment temporary("TMPDIR", QByteArray::fromStdString(odd.string()));
    const auto found = RunNgspice("title\nV1 a 0 DC 2\n.tran 1 2\n.meas tran m MAX v(a)\n.end\n");
    ASSERT_TRUE(found) << found.message();
    EXPECT_EQ(found->at("m"), 2);
    EXPECT_TRUE(std::filesystem::is_empty(odd));
}

}  // namespace
}  // namespace kelvro
