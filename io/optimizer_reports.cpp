#include "io/optimizer_reports.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "io/atomic_file.h"

namespace kelvro {

namespace {

namespace fs = std::filesystem;

/// A variable of the environment that holds an absolute path; others do not count.
fs::path AbsolutePath(const char* variable) {
    const char* value = std::getenv(variable);
    const fs::path path = value ? value : "";
    return path.is_absolute() ? path : fs::path();
}

/// A run writes its reports anew, so that they need not wait for the disk.
Status Write(const std::string& path, const std::string& text) {
    if (path.empty() || text.empty()) return {};
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);  // a reason shows at writing
    const Status written = WriteAtomically(fs::path(path), text, Survives::Kill);
    std::string reason = written.message();
    if (reason.ends_with('.')) reason.pop_back();  // one remark of several in a line
    return written ? written : Status::Failure(std::move(reason));
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
