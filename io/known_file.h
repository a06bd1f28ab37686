#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// What is known of files between reading and writing them, so that nobody overwrites unseen what
// another program has saved meanwhile.

namespace kelvro {

/// The text of a file; nothing where there is no regular file that can be read.
std::optional<std::string> ContentOf(const std::filesystem::path& path);

/// By which contents are told apart: "sha256:…".
std::string Checksum(std::string_view content);

/// Is there a file, and another one than the one with this checksum?
bool HasChanged(const std::filesystem::path& path, const std::string& checksum);

/// While it lives, other Kelvros that save a file of the same folder wait, 2 s at most. The end of
/// a process ends it, and nothing of it stands in the folder. Where a folder cannot be locked
/// nobody waits.
class SavingIn {
  public:
    explicit SavingIn(const std::filesystem::path& folder);
    ~SavingIn();
    SavingIn(const SavingIn&) = delete;
    SavingIn& operator=(const SavingIn&) = delete;

  private:
    int folder_;
};

}  // namespace kelvro
