#include "io/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>

namespace kelvro {

namespace {

namespace fs = std::filesystem;

constexpr int kMostNames = 1000;
constexpr int kMostLinks = 40;  // in a row, as in the system
constexpr mode_t kReadWrite = 0666;
constexpr mode_t kPermissions = 0777;

Status Failed(std::errc error) {
    return Status::Failure(std::make_error_code(error).message());
}

/// Of the last system call.
Status Failed() {
    return Failed(static_cast<std::errc>(errno));
}

/// An open file; closed at the end of its life.
class OpenFile {
  public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    explicit operator bool() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }

    /// A full disk takes a part first; what does not fit then tells the reason.
    Status write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t written = ::write(descriptor_, content.data(), content.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return written < 0 ? Failed() : Failed(std::errc::io_error);
            content.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }
    Status sync(Survives survives) {
        return survives == Survives::PowerCut && ::fsync(descriptor_) != 0 ? Failed() : Status();
    }
    /// Some file systems tell only here that something did not arrive.
    Status close() { return ::close(std::exchange(descriptor_, -1)) == 0 ? Status() : Failed(); }

  private:
    int descriptor_;
};

/// Where a save ends: behind all links, the last of which may lead to nothing yet.
struct Target {
    explicit Target(fs::path given) : path(std::move(given)) {
        for (int i = 0; i < kMostLinks && fs::is_symlink(path, ignored_); ++i) {
            const fs::path link = fs::read_symlink(path, ignored_);
            path = path.parent_path() / link;  // an absolute one replaces all
        }
        exists = ::stat(path.c_str(), &info) == 0;
    }

    /// Neither a regular file nor missing: a device, a pipe or a folder.
    bool isSpecial() const { return exists && !S_ISREG(info.st_mode); }
    bool isLocked() const { return exists && ::access(path.c_str(), W_OK) != 0; }
    mode_t permissions() const { return info.st_mode & kPermissions; }
    fs::path folder() const { return path.has_parent_path() ? path.parent_path() : "."; }

    fs::path path;
    bool exists = false;
    struct stat info = {};

  private:
    std::error_code ignored_;
};

/// What the rest of TakeName does between two names, with system calls only: it runs in a process
/// of its own beside a parent that stands still.
bool Link(const char* open, const char* path, const char* second, Survives survives) {
    const auto link = [open](const char* name) {
        return ::linkat(AT_FDCWD, open, AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
    };
    if (link(path)) return true;
    if (errno != EEXIST || !link(second)) return false;
    // ext4 sends a file that is renamed over another one to the disk at once, 1.4 ms; what changes
    // places with the other one takes its time.
    const bool exchanged = survives == Survives::Kill &&
                           ::renameat2(AT_FDCWD, second, AT_FDCWD, path, RENAME_EXCHANGE) == 0;
    const bool taken = exchanged || ::rename(second, path) == 0;
    if (exchanged || !taken) ::unlink(second);
    return taken;
}

/// Gives an open file without a name the name `path`, in place of what has it, by way of the name
/// `second`. False where that is not possible. A child does it, so that a kill of this process in
/// between does not leave the second name behind.
bool TakeName(int file, const fs::path& path, const fs::path& second, Survives survives) {
    const std::string open = "/proc/self/fd/" + std::to_string(file);
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t child = ::vfork();
    if (child == 0) ::_exit(Link(open.c_str(), path.c_str(), second.c_str(), survives) ? 0 : 1);
    int status = 1;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (child < 0) return Link(open.c_str(), path.c_str(), second.c_str(), survives);
    return status == 0;
}

/// Writes a file that has no name until it is complete, so that a process that is killed leaves
/// nothing behind. Nothing where the file system does not know such files.
std::optional<Status> WriteUnnamed(const Target& target, std::string_view content,
                                   const fs::path& second, Survives survives) {
    if (target.isLocked()) return {};
    OpenFile file(::open(target.folder().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kReadWrite));
    if (!file) return {};
    if (Status status = file.write(content); !status) return status;
    if (target.exists) (void)::fchmod(file.descriptor(), target.permissions());
    if (Status status = file.sync(survives); !status) return status;
    if (!TakeName(file.descriptor(), target.path, second, survives)) return {};
    return Status();
}

/// Devices and pipes cannot be replaced, only written to.
Status WriteDirectly(const fs::path& path, std::string_view content) {
    OpenFile file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file) return Failed();
    if (Status status = file.write(content); !status) return status;
    return file.close();
}

/// Writes the file `name`, which is new, and gives it the name of the target.
Status WriteNamed(const Target& target, std::string_view content, const fs::path& name,
                  Survives survives) {
    OpenFile file(::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kReadWrite));
    if (!file) return Failed();
    Status status = file.write(content);
    if (target.exists) (void)::fchmod(file.descriptor(), target.permissions());
    if (status) status = file.sync(survives);
    if (status) status = file.close();
    if (status && ::rename(name.c_str(), target.path.c_str()) != 0) status = Failed();
    if (!status) ::unlink(name.c_str());
    return status;
}

/// By way of a second name where the file cannot do without any.
Status Replace(const Target& target, std::string_view content, const fs::path& second,
               Survives survives) {
    if (const auto done = WriteUnnamed(target, content, second, survives)) return *done;
    if (target.isLocked()) return Failed(std::errc::permission_denied);
    return WriteNamed(target, content, second, survives);
}

/// Of files that are to be written as a whole, those that are none.
std::optional<Status> WriteSpecial(const Target& target, std::string_view content) {
    if (target.path.empty()) return Status::Failure("No file name");
    if (!target.isSpecial()) return {};
    return WriteDirectly(target.path, content);
}

/// "base.suffix", or "base-2.suffix" and so on where that exists; empty when all are taken.
fs::path FreeName(const std::string& base, const std::string& suffix) {
    std::error_code error;
    const auto numbered = [&](int i) { return base + '-' + std::to_string(i) + '.' + suffix; };
    fs::path name = base + '.' + suffix;
    for (int i = 2; fs::exists(fs::symlink_status(name, error)); ++i) {
        if (i == kMostNames) return {};
        name = numbered(i);
    }
    return name;
}

Status WriteWhole(const Target& target, std::string_view content, Survives survives) {
    if (const auto done = WriteSpecial(target, content)) return *done;
    const std::string own = target.path.string() + '.' + std::to_string(::getpid());
    return Replace(target, content, FreeName(own, "new"), survives);
}

Status WriteThenRename(const std::string& suffix, const Target& target, std::string_view content) {
    if (const auto done = WriteSpecial(target, content)) return *done;
    const fs::path base = target.path.parent_path() / target.path.stem();
    return Replace(target, content, FreeName(base.string(), suffix), Survives::PowerCut);
}

Status About(const fs::path& path, const Status& status) {
    if (status) return {};
    return Status::Failure("Cannot write \"" + path.string() + "\": " + status.message() + '.');
}

}  // namespace

Status WriteAtomically(const fs::path& path, std::string_view content, Survives survives) {
    return About(path, WriteWhole(Target(path), content, survives));
}

Status WriteByWayOf(const std::string& suffix, const fs::path& path, std::string_view content) {
    return About(path, WriteThenRename(suffix, Target(path), content));
}

}  // namespace kelvro
