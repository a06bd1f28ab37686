#include "io/optimizer_reports.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace kelvro {

namespace {

namespace fs = std::filesystem;

/// A variable of the environment that holds an absolute path; others do not count.
fs::path AbsolutePath(const char* variable) {
    const char* value = std::getenv(variable);
    const fs::path path = value ? value : "";
    return path.is_absolute() ? path : fs::path();
}

/// An old report is written over and not emptied first: file systems flush files that are replaced
/// in that way when they are closed, which takes longer than the run.
std::FILE* Open(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    return file ? file : std::fopen(path.c_str(), "wb");
}

/// Does the disk hold so many bytes of the file? Asked before the first byte of an old report goes;
/// where a file system cannot promise room, writing tells.
bool HasRoom(std::FILE* file, std::size_t size) {
    if (::fallocate(::fileno(file), 0, 0, static_cast<off_t>(size)) == 0) {
        return true;
    }
    return errno != ENOSPC && errno != EDQUOT && errno != EFBIG;
}

/// Cuts off what an old, longer report has left behind.
std::error_code CutTo(const std::string& path, std::size_t size) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return {};
    const auto old = fs::file_size(path, error);
    if (!error && old > size) fs::resize_file(path, size, error);
    return error;
}

Status Write(const std::string& path, const std::string& text) {
    if (path.empty() || text.empty()) return {};
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);  // a reason shows at opening
    errno = 0;
    const auto problem = [&](int reason) {
        return Status::Failure(path + ": " + std::strerror(reason));
    };
    const bool isNew = !fs::exists(path, error);
    std::FILE* file = Open(path);
    if (!file) return problem(errno);
    if (!HasRoom(file, text.size())) {
        const int full = errno;
        std::fclose(file);
        if (isNew) fs::remove(path, error);
        return problem(full);
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const int reason = errno;
    if (std::fclose(file) != 0) return problem(errno);
    if (!written) return problem(reason);
    error = CutTo(path, text.size());
    return error ? Status::Failure(path + ": " + error.message()) : Status();
}

}  // namespace

OptimizerFiles UserReports() {
    fs::path folder = AbsolutePath("XDG_STATE_HOME");
    if (folder.empty()) folder = AbsolutePath("HOME") / ".local" / "state";
    folder /= "kelvro";
    return {(folder / "opt.txt").string(), (folder / "opt2.csv").string()};
}

Status KeepReports(const PageOptimization& optimization, const OptimizerFiles& files) {
    const Status log = Write(files.log, optimization.log);
    return log ? Write(files.table, optimization.table) : log;
}

}  // namespace kelvro
