#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

namespace kelvro {

/// A folder of this test's own, as tests run side by side; it goes with the object.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kelvro-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(folder_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return folder_ / name; }
    const std::filesystem::path& path() const { return folder_; }

  private:
    std::filesystem::path folder_;
};

}  // namespace kelvro
