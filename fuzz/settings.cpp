// Settings files of strangers: keys that are known are held to their limits, the others survive,
// and what is read and saved is read as the same.

#include "io/settings.h"

#include <unistd.h>

#include <QFile>
#include <fstream>
#include <functional>

#include "fuzz/require.h"
#include "io/profile_text.h"

using namespace kelvro;

namespace {

/// In memory: there are many.
std::string FileName(const char* ending) {
    return "/dev/shm/kelvro-fuzz-" + std::to_string(::getpid()) + ending;
}

void CheckProfile(std::string_view text) {
    ProfileText profile{std::string(text)};
    const std::string written = profile.bytes();
    Require(ProfileText(written).bytes() == written, "a written profile is read", written);
    profile.set("Kelvro", "key", "value");
    Require(ProfileText(profile.bytes()).value("Kelvro", "key") == "value", "a value is kept",
            profile.bytes());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = TextOf(data, size);
    CheckProfile(text);
    static const std::string strange = FileName(".ini");
    static const QString saved = QString::fromStdString(FileName("-saved.ini"));
    std::ofstream(strange, std::ios::binary) << text;
    const SettingsRead read = ReadSettings(QString::fromStdString(strange), {});
    QFile::remove(QString::fromStdString(strange));
    if (read.status != SettingsRead::Status::Read) return 0;
    // Saving waits for the disk; what is read now is saved often enough.
    if (std::hash<std::string_view>{}(text) % 16 != 0) return 0;
    const SettingsSave save = WriteSettings(saved, read.settings);
    Require(save.status == SettingsSave::Status::Saved, "settings are saved",
            save.message.toStdString());
    const SettingsRead again = ReadSettings(saved, {});
    Require(again.settings == read.settings, "and read as they were", std::string(text));
    QFile::remove(saved);
    return 0;
}
