#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "network/network_text.h"

namespace kelvro {

/// Measured data by the names that texts give them: files, read once each and again when they have
/// changed. Names are paths relative to a folder.
class DataFiles {
  public:
    explicit DataFiles(std::filesystem::path folder = {}) : folder_(std::move(folder)) {}

    Result<std::shared_ptr<const PortData>> load(std::string_view file);
    /// load() as texts take it; valid as long as this object.
    DataLoader loader() {
        return [this](std::string_view file) { return load(file); };
    }

    /// Data that came some other way under this name; no file takes their place.
    void add(const std::shared_ptr<const PortData>& data);
    /// Nothing is known any more.
    void clear() { known_.clear(); }
    /// Would who reads the file of this name get these samples? How they are read between them does
    /// not count: texts say it.
    bool stillInFile(const std::shared_ptr<const PortData>& data) const;

    /// Has a file been asked for that could not be read?
    bool failed() const { return failed_; }
    /// What the reader had to remark: "antenna.s1p, line 3: …".
    const std::vector<std::string>& warnings() const { return warnings_; }

  private:
    /// By which a file that was written anew is told from the old one.
    struct Stamp {
        std::filesystem::file_time_type written;
        std::uintmax_t size;
        bool operator==(const Stamp&) const = default;
    };
    struct Known {
        std::shared_ptr<const PortData> data;
        std::optional<Stamp> file;  ///< nothing where no file stands behind them
    };
    /// Nothing where there is no such file.
    std::optional<Stamp> stampOf(std::string_view file) const;

    std::filesystem::path folder_;
    std::map<std::string, Known, std::less<>> known_;
    std::vector<std::string> warnings_;
    bool failed_ = false;
};

}  // namespace kelvro
