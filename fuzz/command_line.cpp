// Arguments of any kind, one a line: a result or lines on the error stream, and an exit code of the
// manual. Every argument is read as it stands, but for what makes a command compute for long.

#include "cli/command_line.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

#include "fuzz/require.h"

using namespace kelvro;

namespace {

// ---------------------------------------------------------------- what takes long

/// An option that makes its command take long.
struct Effort {
    std::string_view command;
    std::string_view option;
    int enough;    ///< of what it counts; 0: a flag, which is left out
    int bearable;  ///< once in a while
    bool anyway;   ///< without the option its command takes long too
};

constexpr Effort kEfforts[] = {
    {"response", "--points", 5, 99, true}, {"export", "--points", 5, 99, true},
    {"analyze", "--points", 5, 99, true},  {"tolerance", "--runs", 5, 99, true},
    {"plot", "--mc", 2, 99, false},        {"tour", "--cities", 5, 20, true},
    {"tour", "--mc", 0, 1, false},         {"match", "--parts", 1, 3, true},
    {"match", "--threads", 1, 3, true},    {"propose", "--search", 0, 1, false},
};

constexpr std::string_view kOptimizing[] = {"design",   "response", "export", "tolerance",
                                            "optimize", "propose",  "plot",   "table"};

/// Lowers the number behind an option, where the program would take it.
void Lower(std::string& text, int most) {
    char* end = nullptr;
    const long long number = std::strtoll(text.c_str(), &end, 0);
    constexpr long long kHonoured = 10'000'000;
    if (*end == '\0' && number > most && number <= kHonoured) text = std::to_string(most);
}

/// Leaves of an effort what is `most` in all arguments. Was it named?
bool Limit(std::vector<std::string>& arguments, const Effort& effort, int most) {
    if (most == 0) {
        return std::erase_if(arguments, [&](const std::string& argument) {
                   return argument.substr(0, argument.find('=')) == effort.option;
               }) > 0;
    }
    bool named = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (!arguments[i].starts_with(effort.option)) continue;
        named = true;
        const auto equals = arguments[i].find('=');
        if (equals != std::string::npos) {
            std::string value = arguments[i].substr(equals + 1);
            Lower(value, most);
            arguments[i].replace(equals + 1, std::string::npos, value);
        } else if (effort.enough > 0 && i + 1 < arguments.size()) {
            Lower(arguments[i + 1], most);
        }
    }
    return named;
}

/// One input in so many may do more: optimize one page, or search for seconds.
std::size_t RarityOfWhole(std::string_view command) {
    constexpr std::string_view seconds[] = {"limit", "match", "propose", "tour"};
    if (std::ranges::find(seconds, command) != std::end(seconds)) return 4096;
    return command == "optimize" ? 512 : 64;
}

/// What is run in place of an input.
struct Command {
    std::vector<std::string> arguments;
    bool watched = false;  ///< by somebody who soon has seen enough
};

Command Bearable(std::vector<std::string> arguments, std::size_t hash) {
    if (arguments.empty()) return {};
    const std::string name = arguments[0];
    const bool whole = hash % RarityOfWhole(name) == 0;
    std::vector<std::string> added;
    for (const Effort& effort : kEfforts) {
        if (effort.command != name) continue;
        const bool named = Limit(arguments, effort, whole ? effort.bearable : effort.enough);
        if (!named && !whole && effort.anyway)
            added.insert(added.end(), {std::string(effort.option), std::to_string(effort.enough)});
    }
    if (!whole && std::ranges::find(kOptimizing, name) != std::end(kOptimizing))
        added.emplace_back("--no-optimize");
    arguments.insert(arguments.begin() + 1, added.begin(), added.end());
    // A band that is none, behind those that are read, in place of seconds of integrals.
    if (!whole && name == "limit") arguments.insert(arguments.end(), {"--band", "2:1"});
    return {std::move(arguments), !whole && name == "match"};
}

// ---------------------------------------------------------------- files

namespace fs = std::filesystem;

constexpr std::pair<const char*, const char*> kFiles[] = {
    {"a.s1p", "# MHz S RI R 50\n1 .1 .2\n9 .2 .1\n"},
    {"a.s2p", "# MHz S RI R 50\n1 .1 .2 .3 0 .3 0 .1 0\n9 .2 .1 .4 0 .4 0 .1 0\n"},
    {"a.kelvro",
     R"({"version": 1, "network": {"source": "50", "ladder": ["series: L=1u"], "load": "12-j45",)"
     R"( "bands": [{"low": 1e6, "high": 2e6}]}, "data": {}})"},
    {"a.ini", "[Variablen]\nfo=5M\nR1=75\nTyp=2\n"},
    {"own.txt", "C: 10p 22p  # there\nL: 27n 33n\n"},
};

/// The folder in which the fuzzer runs. What one input leaves there no other one finds.
class OwnFolder {
  public:
    OwnFolder() {
        // In memory, where there is one: programs wait until their files are on the disk.
        const fs::path memory = "/dev/shm";
        const fs::path place = fs::is_directory(memory) ? memory : fs::temp_directory_path();
        folder_ = place / ("kelvro-fuzz-" + std::to_string(::getpid()));
        fs::create_directories(folder_);
        fs::current_path(folder_);
        fill();
    }
    ~OwnFolder() {
        std::error_code error;
        fs::remove_all(folder_, error);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    void restore() {
        if (seen() == filled_) return;
        for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry.path());
        fill();
    }

  private:
    /// A file that is replaced as a whole is another one.
    using Seen = std::map<std::string, ino_t>;

    static Seen seen() {
        Seen seen;
        DIR* folder = ::opendir(".");
        while (const dirent* entry = ::readdir(folder)) seen.emplace(entry->d_name, entry->d_ino);
        ::closedir(folder);
        return seen;
    }
    void fill() {
        for (const auto& [name, content] : kFiles) std::ofstream(folder_ / name) << content;
        filled_ = seen();
    }

    fs::path folder_;
    Seen filled_;
};

/// Does every path in an argument begin in the folder? "-o/x" and "--save=/x" do not.
bool StaysInside(const std::string& argument) {
    const auto leaves = [&](std::size_t slash) {
        const bool first = slash == 2 && argument[0] == '-' && argument[1] != '-';
        return first || slash == 0 ||
               std::isalnum(static_cast<unsigned char>(argument[slash - 1])) == 0;
    };
    for (std::size_t i = argument.find('/'); i != std::string::npos; i = argument.find('/', i + 1))
        if (leaves(i)) return false;
    return argument.find("..") == std::string::npos;
}

// ---------------------------------------------------------------- the program

std::vector<std::string> ArgumentsOf(std::string_view text) {
    std::vector<std::string> arguments;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        std::ranges::replace(line, '\0',
                             '\n');  // no argument holds the one, any may hold the other
        arguments.push_back(line);
    }
    return arguments;
}

/// All that is drawn without drawing it.
Status TakePicture(const Picture&, int, int, const std::string&) {
    return {};
}

/// The error stream of somebody who ends a search as soon as it shows how far it is.
class Impatient : public std::stringbuf {
  public:
    explicit Impatient(bool watches) : watches_(watches) {}

  protected:
    int sync() override {
        if (std::exchange(watches_, false)) std::raise(SIGINT);
        return std::stringbuf::sync();
    }

  private:
    bool watches_;
};

/// The program's name stands before every line, behind what showed the progress.
bool AreRemarks(std::string text) {
    const auto progress = text.rfind("\r\x1b[K");
    if (progress != std::string::npos) text.erase(0, progress + 4);
    const auto controls = [](unsigned char c) { return c < 0x20; };
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with("kelvro-cli: ") || std::ranges::any_of(line, controls)) return false;
    return text.empty() || text.back() == '\n';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static OwnFolder folder;
    const std::string_view text = TextOf(data, size);
    const auto arguments = ArgumentsOf(text);
    if (!std::ranges::all_of(arguments, StaysInside)) return -1;
    const Command command = Bearable(arguments, std::hash<std::string_view>{}(text));
    std::ostringstream out;
    Impatient remarks(command.watched);
    std::ostream err(&remarks);
    const int code =
        RunCommandLine(command.arguments, out, err, command.watched, {.writePicture = TakePicture});
    folder.restore();
    Require(code >= 0 && code <= 3, "an exit code of the manual", remarks.str());
    Require(code == 0 || !remarks.str().empty(), "a failure says why");
    Require(AreRemarks(remarks.str()), "each remark is a line", remarks.str());
    return 0;
}
