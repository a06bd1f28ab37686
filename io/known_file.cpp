#include "io/known_file.h"

#include <fcntl.h>
#include <sha2.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <system_error>
#include <thread>

namespace kelvro {

std::optional<std::string> ContentOf(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream) return std::nullopt;
    return text.str();
}

std::string Checksum(std::string_view content) {
    std::array<char, SHA256_DIGEST_STRING_LENGTH> digits{};
    ::SHA256Data(reinterpret_cast<const std::uint8_t*>(content.data()), content.size(),
                 digits.data());
    return std::string("sha256:") + digits.data();
}

bool HasChanged(const std::filesystem::path& path, const std::string& checksum) {
    const auto content = ContentOf(path);
    return content && Checksum(*content) != checksum;
}

SavingIn::SavingIn(const std::filesystem::path& folder)
    : folder_(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 2s;
    while (folder_ >= 0 && ::flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK &&
           std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(2ms);
}

SavingIn::~SavingIn() {
    if (folder_ >= 0) ::close(folder_);
}

}  // namespace kelvro
