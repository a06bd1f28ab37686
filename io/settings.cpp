#include "io/settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <filesystem>
#include <optional>
#include <utility>

#include "io/exact_settings.h"
#include "io/known_file.h"
#include "io/qt_files.h"
#include "io/settings_reader.h"

namespace kelvro {

namespace {

constexpr int kMostCopies = 100;

/// Gives the file a second name that stays when the first one is replaced. Returns that name, or
/// nothing when that was not possible.
std::optional<QString> KeepAside(const QString& path) {
    for (int i = 1; i <= kMostCopies; ++i) {
        const QString copy = path + ".bak" + (i > 1 ? QString::number(i) : QString());
        if (QFileInfo::exists(copy)) continue;
        std::error_code error;
        std::filesystem::create_hard_link(NativePath(path), NativePath(copy), error);
        if (!error || QFile::copy(path, copy)) return copy;
        return {};
    }
    return {};
}

SettingsSave Failed(const QString& path, const QString& reason) {
    return {SettingsSave::Status::Failed,
            QStringLiteral("Cannot write \"%1\": %2.").arg(path, reason)};
}

bool MustBeKept(const FoundSettings& existing) {
    switch (existing.kind) {
        case FoundSettings::Kind::Settings:
            return !existing.profile.complete();
        case FoundSettings::Kind::Foreign:
        case FoundSettings::Kind::Unreadable:
            return true;
        default:
            return false;
    }
}

SettingsRead ForWindows(SettingsContent read) {
    return {read.status, std::move(read.settings), QString::fromStdString(read.message), read.whole,
            read.later,  std::move(read.checksum)};
}

}  // namespace

SettingsRead ReadSettings(const QString& file, Settings settings) {
    return ForWindows(ReadSettingsFile(NativePath(file), std::move(settings)));
}

SettingsRead ParseSettings(const std::string& text, const QString& name, Settings settings) {
    return ForWindows(ContentOf(FoundIn(text), name.toStdString(), std::move(settings)));
}

SettingsSave WriteSettings(const QString& file, const Settings& settings,
                           const std::optional<std::string>& known) {
    if (!file.isEmpty()) QDir().mkpath(QFileInfo(file).absolutePath());
    const SavingIn turn(NativePath(QFileInfo(file).absolutePath()));
    if (known && HasChanged(NativePath(file), *known)) return {SettingsSave::Status::Changed};
    FoundSettings existing = FindSettings(NativePath(file));
    if (existing.kind == FoundSettings::Kind::NoFile)
        return Failed(file, QString::fromStdString(existing.reason));
    if (VersionOf(existing.profile) > kSettingsVersion)
        return Failed(file, QStringLiteral("it was written by a later version of Kelvro"));
    PutSettings(settings, existing.profile);
    std::optional<QString> copy;
    if (MustBeKept(existing)) {
        copy = KeepAside(file);
        if (!copy) return Failed(file, QStringLiteral("the old file could not be kept aside"));
    }
    const std::string bytes = existing.profile.bytes();
    if (const auto written = WriteAtomically(NativePath(file), bytes); !written) {
        if (copy) QFile::remove(*copy);
        return {SettingsSave::Status::Failed, QString::fromStdString(written.message())};
    }
    SettingsSave saved{SettingsSave::Status::Saved, {}, Checksum(bytes)};
    if (copy) saved.message = QStringLiteral("The old file is kept as \"%1\".").arg(*copy);
    return saved;
}

QString DefaultSettingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kelvro/kelvro.ini";
}

}  // namespace kelvro
