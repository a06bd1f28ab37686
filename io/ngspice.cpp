#include "io/ngspice.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <vector>

#include "core/number_text.h"

namespace kelvro {

namespace {

namespace fs = std::filesystem;

constexpr const char* kMissing =
    "ngspice is not installed; Debian's package has the same name: apt install ngspice";

/// "name = 1.2e+03 from= ...", the one form of all measurements.
void ReadMeasurement(const std::string& line, Measurements& found) {
    std::istringstream words(line);
    std::string name;
    std::string equals;
    std::string number;
    if (!(words >> name >> equals >> number) || equals != "=") return;
    if (!ParseNumber(number).noDigits) found[name] = ParseValue(number);
}

/// " 2  2e+07  1.26993  ...": number, frequency, amplitude.
void ReadHarmonic(const std::string& line, Measurements& found) {
    std::istringstream words(line);
    std::string number;
    std::string frequency;
    std::string amplitude;
    if (!(words >> number >> frequency >> amplitude)) return;
    if (number.find_first_not_of("0123456789") != std::string::npos) return;
    found["harmonic" + number] = ParseValue(amplitude);
}

/// The first line that names an error, else the last line of all.
std::string Complaint(const std::string& output) {
    std::istringstream lines(output);
    std::string last = "it printed nothing";
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Error") || line.starts_with("Fatal")) return line;
        if (line.find_first_not_of(" \t\r*-") != std::string::npos) last = line;
    }
    return last;
}

/// A folder of its own, gone with all it holds at the end of its life.
class OwnFolder {
  public:
    OwnFolder() {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "kelvro-XXXXXX").string();
        if (::mkdtemp(name.data()) != nullptr) path_ = name;
    }
    ~OwnFolder() {
        std::error_code error;
        if (!path_.empty()) fs::remove_all(path_, error);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

/// A running program, whose output comes through a pipe. What still runs at the end of its life is
/// killed.
class Child {
  public:
    /// Starts `arguments`, the first of which is looked for in the user's path, in a folder.
    /// \return the system's error, 0 where there is none.
    int start(std::vector<std::string> arguments, const fs::path& folder) {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return errno;
        output_ = ends[0];
        std::vector<char*> words;
        words.reserve(arguments.size() + 1);
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        ::posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
        // A program that ignores the loss of its reader would hand that on.
        sigset_t usual;
        ::sigemptyset(&usual);
        ::sigaddset(&usual, SIGPIPE);
        posix_spawnattr_t attributes;
        ::posix_spawnattr_init(&attributes);
        ::posix_spawnattr_setsigdefault(&attributes, &usual);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        const int error =
            ::posix_spawnp(&pid_, words[0], &actions, &attributes, words.data(), environ);
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        if (error != 0) pid_ = -1;
        return error;
    }
    ~Child() {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
        if (output_ >= 0) ::close(output_);
    }
    Child() = default;
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Takes what the program prints, for `milliseconds` at most; false once it has ended.
    bool listen(int milliseconds) {
        // Between the end of what is printed and that of the program is less than a millisecond.
        if (read(closed_ ? 1 : milliseconds)) return true;
        // What it left running may hold the pipe open; its own end counts.
        if (::waitpid(pid_, &status_, WNOHANG) != pid_) return true;
        pid_ = -1;
        while (read(0)) {
        }
        return false;
    }

    const std::string& printed() const { return printed_; }
    bool succeeded() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }

  private:
    /// Is there more to read?
    bool read(int milliseconds) {
        pollfd waiting{closed_ ? -1 : output_, POLLIN, 0};
        if (::poll(&waiting, 1, milliseconds) <= 0) return false;
        std::array<char, 4096> part;
        const ssize_t size = ::read(output_, part.data(), part.size());
        closed_ = size <= 0;
        if (!closed_) printed_.append(part.data(), static_cast<std::size_t>(size));
        return !closed_;
    }

    pid_t pid_ = -1;
    int output_ = -1;
    bool closed_ = false;
    int status_ = 0;
    std::string printed_;
};

/// All that the program printed, or why it did not come to its end.
Result<std::string> OutputOf(Child& child, const std::stop_token& stop, int seconds) {
    constexpr int patience = 50;  // ms between looks at the stop token
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (child.listen(patience)) {
        if (stop.stop_requested()) return Status::Failure("ngspice was stopped");
        if (std::chrono::steady_clock::now() > end) {
            return Status::Failure("ngspice was still busy after " + std::to_string(seconds) +
                                   " s and was stopped");
        }
    }
    if (!child.succeeded()) return Status::Failure("ngspice failed: " + Complaint(child.printed()));
    return child.printed();
}

}  // namespace

Measurements MeasurementsIn(const std::string& output) {
    Measurements found;
    bool fourier = false;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Fourier analysis")) fourier = true;
        if (fourier) {
            ReadHarmonic(line, found);
        } else {
            ReadMeasurement(line, found);
        }
    }
    return found;
}

Result<Measurements> RunNgspice(const std::string& netlist, const std::stop_token& stop,
                                int seconds) {
    const OwnFolder folder;
    const fs::path deck = folder.path() / "deck.cir";
    if (folder.path().empty() ||
        !(std::ofstream(deck, std::ios::binary) << netlist << std::flush)) {
        return Status::Failure("The netlist cannot be written: " +
                               std::make_error_code(static_cast<std::errc>(errno)).message());
    }
    Child child;
    // -n: the user's own start-up files change no result.
    const int error = child.start({"ngspice", "-n", "-b", deck.string()}, folder.path());
    if (error == ENOENT) return Status::Failure(kMissing);
    if (error != 0) {
        return Status::Failure("ngspice cannot be started: " +
                               std::make_error_code(static_cast<std::errc>(error)).message());
    }
    const auto output = OutputOf(child, stop, seconds);
    if (!output) return output.status();
    Measurements found = MeasurementsIn(*output);
    if (found.empty()) return Status::Failure("ngspice measured nothing: " + Complaint(*output));
    return found;
}

}  // namespace kelvro
