#pragma once

#include <QString>
#include <optional>
#include <string>

#include "io/settings_reader.h"

// The settings file: the design inputs between runs of the program, and designs in files of their
// own. An INI file in Windows-1252 with one section.

namespace kelvro {

struct SettingsRead {
    using Status = SettingsStatus;
    Status status = Status::Read;
    Settings settings;
    QString message;  ///< for the user, empty when there is nothing to say
    /// The file holds the whole design as it was written, its components too.
    bool whole = false;
    /// Written by a later version: what is known of it was read, and it is not written again.
    bool later = false;
    /// Of the file as it was read, empty where there is none.
    std::string checksum = {};
};

/// The settings with the values of a file in place of its own. What a file does not name stays as
/// it is, except the page, which is 1, and QByBandwidth, which is set. Values are clamped like
/// typed ones; unreadable numbers are 0 before that. Files are never read beyond 1 MB.
/// Beside the rounded texts, which other programs read and write too, a file holds exact values.
/// Those count while the rounded texts are still theirs; then the design comes back as it was.
SettingsRead ReadSettings(const QString& file, Settings settings);

/// The same with the text of a file; `name` is for the message.
SettingsRead ParseSettings(const std::string& text, const QString& name, Settings settings);

struct SettingsSave {
    enum class Status {
        Saved,
        Failed,
        Changed,  ///< by another program since it was known; not saved
    };
    Status status = Status::Saved;
    QString message = {};  ///< why it failed, or under which name the old file was kept
    /// Of the file that is there now; only when saved.
    std::string checksum = {};
};

/// Writes the settings into a file, whole or not at all. Other sections, unknown keys
/// and comments of an existing file stay in it; a file that is not understood in full is kept
/// aside as "name.bak". Missing folders are made. A file of a later version is left as it is, which
/// counts as failed.
/// \param known checksum of the file that may be overwritten, empty for none. Without it any file
///              may be.
SettingsSave WriteSettings(const QString& file, const Settings& settings,
                           const std::optional<std::string>& known = {});

/// kelvro/kelvro.ini in the user's configuration folder.
QString DefaultSettingsFile();

}  // namespace kelvro
