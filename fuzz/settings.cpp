// Settings files of strangers: keys that are known are held to their limits, the others survive,
// and what is read and saved is read as the same.

#include "io/settings.h"

#include <functional>

#include "fuzz/require.h"
#include "io/profile_text.h"

using namespace kelvro;

namespace {

void CheckProfile(const std::string& text) {
    ProfileText profile(text);
    const std::string written = profile.bytes();
    Require(ProfileText(written).bytes() == written, "a written profile is read", written);
    profile.set("Kelvro", "key", "value");
    Require(ProfileText(profile.bytes()).value("Kelvro", "key") == "value", "a value is kept",
            profile.bytes());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(TextOf(data, size));
    const auto oneIn = [hash = std::hash<std::string>{}(text)](std::size_t n) {
        return hash % n == 0;
    };
    // Some times the work of reading.
    if (oneIn(4)) CheckProfile(text);
    const QString name = QStringLiteral("a.ini");
    const SettingsRead read = ParseSettings(text, name, {});
    if (read.status != SettingsRead::Status::Read) {
        Require(!read.message.isEmpty(), "a refusal says why");
        return 0;
    }
    // All keys are saved: twenty times the work.
    if (!oneIn(32)) return 0;
    const std::string saved = SettingsText(read.settings, text);
    const SettingsRead again = ParseSettings(saved, name, {});
    Require(again.settings == read.settings, "what is saved is read as it was", saved);
    Require(again.whole, "and as the whole design", saved);
    Require(SettingsText(again.settings, saved) == saved, "and saved as before", saved);
    return 0;
}
