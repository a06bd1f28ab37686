#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "analysis/tolerance.h"
#include "design/design.h"
#include "design/preferences.h"
#include "io/plot_choices.h"
#include "io/profile_text.h"

// What a settings file holds, without Qt: the command line starts from such files too.

namespace kelvro {

/// What a settings file carries.
struct Settings {
    Design design = {};
    Preferences preferences = {};
    double v = 2;  ///< V2/V1 at fo as last calculated
    Tolerances tolerances = {};
    bool standardValues = false;  ///< exports take values of the standard series
    PlotChoicesOfWindows plots = {};

    bool operator==(const Settings&) const = default;
};

/// A file as it stands, before its values count.
struct FoundSettings {
    enum class Kind : std::uint8_t {
        Missing,
        Settings,
        Foreign,     ///< readable, but no settings file
        Unreadable,  ///< its content is not known
        NoFile,      ///< a folder or a device
    };
    Kind kind = Kind::Missing;
    std::string reason = {};  ///< why it cannot be used
    ProfileText profile{};
    std::string checksum = {};
    bool named = false;  ///< has the section of settings
};

FoundSettings FindSettings(const std::filesystem::path& path);
/// The same of a file's text.
FoundSettings FoundIn(const std::string& text);

enum class SettingsStatus : std::uint8_t {
    Read,
    Missing,  ///< no such file; counts as one without keys
    Unusable  ///< a folder, unreadable, too large or no settings file; changes nothing
};

/// As SettingsRead (io/settings.h).
struct SettingsContent {
    SettingsStatus status = SettingsStatus::Read;
    Settings settings = {};
    std::string message = {};
    bool whole = false;
    bool later = false;
    std::string checksum = {};
};

/// What a file brings, as ReadSettings (io/settings.h) tells; `name` is for the message.
SettingsContent ContentOf(const FoundSettings& found, const std::string& name, Settings settings);
/// The same of a path as the system has it.
SettingsContent ReadSettingsFile(const std::filesystem::path& path, Settings settings);

/// Puts all values in place of those that a file has; what else is in it stays.
void PutSettings(const Settings& settings, ProfileText& profile);

/// The text of a settings file: `old` with the settings in it, which keeps what WriteSettings keeps
/// of a file.
std::string SettingsText(const Settings& settings, const std::string& old = {});

}  // namespace kelvro
