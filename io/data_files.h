#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "network/network_text.h"

namespace kelvro {

/// Measured data by the names that texts give them: files, read once each. Names are paths relative
/// to a folder.
class DataFiles {
  public:
    explicit DataFiles(std::filesystem::path folder = {}) : folder_(std::move(folder)) {}

    Result<std::shared_ptr<const PortData>> load(std::string_view file);
    /// load() as texts take it; valid as long as this object.
    DataLoader loader() {
        return [this](std::string_view file) { return load(file); };
    }

    /// Data that came some other way under this name.
    void add(std::shared_ptr<const PortData> data);

    /// Has a file been asked for that could not be read?
    bool failed() const { return failed_; }
    /// What the reader had to remark: "antenna.s1p, line 3: …".
    const std::vector<std::string>& warnings() const { return warnings_; }

  private:
    std::filesystem::path folder_;
    std::map<std::string, std::shared_ptr<const PortData>, std::less<>> known_;
    std::vector<std::string> warnings_;
    bool failed_ = false;
};

}  // namespace kelvro
