#include "io/settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <utility>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "io/atomic_file.h"
#include "io/exact_settings.h"
#include "io/profile_text.h"

namespace kelvro {

namespace {

constexpr const char* kSection = "Variablen";
constexpr qint64 kLargestFile = 1 << 20;  // a settings file has about 500 bytes
constexpr int kMostCopies = 100;

// ---------------------------------------------------------------- keys

struct SettingsKey {
    enum class Kind : std::uint8_t {
        Compact,     ///< number, FormatEngShort with 2 decimals
        Field,       ///< number, FormatEng as in output fields
        Resonators,  ///< whole number N(BP)
        PageNumber,
        ByPhase,  ///< written "Yes" or "No", read "Ja"
        Ratio,    ///< V2/V1, as Compact
        Sweep,    ///< sweep factor, as Compact
        ByGain,   ///< the flag of ByPhase, "Yes" or "No", both read as written
        Choke,    ///< of the class-E stage, as Compact, or "infinite"
    };
    const char* name;
    Kind kind = Kind::Compact;
    double Design::*number = nullptr;
    std::optional<Limits> limits = {};  ///< empty: those of the input field
};

/// The spin button of Q reaches further than typed values.
constexpr Limits kAnyQ{0.2, 1000};
constexpr Limits kSweepFactors{1.0001, 10};
constexpr Limits kFinite{0, std::numeric_limits<double>::max()};

/// In the order of the file. "\xFC" is u umlaut.
constexpr SettingsKey kKeys[] = {
    {"Q", SettingsKey::Kind::Compact, &Design::Q, kAnyQ},
    {"QB(C)", SettingsKey::Kind::Compact, &Design::QBC},
    {"QB(L)", SettingsKey::Kind::Compact, &Design::QB},
    {"fo", SettingsKey::Kind::Compact, &Design::fo},
    {"k", SettingsKey::Kind::Compact, &Design::k},
    {"er", SettingsKey::Kind::Compact, &Design::er},
    {"\xFC", SettingsKey::Kind::Ratio, nullptr, kFinite},
    {"R1", SettingsKey::Kind::Compact, &Design::R1},
    {"R2", SettingsKey::Kind::Compact, &Design::R2},
    {"P", SettingsKey::Kind::Compact, &Design::P},
    {"Ub", SettingsKey::Kind::Compact, &Design::Ub},
    {"Usat", SettingsKey::Kind::Compact, &Design::Usat},
    {"L", SettingsKey::Kind::Compact, &Design::L},
    {"C", SettingsKey::Kind::Compact, &Design::C},
    {"R", SettingsKey::Kind::Compact, &Design::R},
    {"Ls", SettingsKey::Kind::Compact, &Design::Ls},
    {"Cs", SettingsKey::Kind::Compact, &Design::Cs},
    {"Lp", SettingsKey::Kind::Compact, &Design::Lp},
    {"L(BP)", SettingsKey::Kind::Compact, &Design::LBP},
    {"N(BP)", SettingsKey::Kind::Resonators},
    {"Ripple(BP)", SettingsKey::Kind::Compact, &Design::rippleBP},
    {"Sweep", SettingsKey::Kind::Sweep, nullptr, kSweepFactors},
    {"Typ", SettingsKey::Kind::PageNumber},
    {"Q by phase", SettingsKey::Kind::ByPhase},
    {"Vbg", SettingsKey::Kind::Field, &Design::Vbg},
    {"Ibg", SettingsKey::Kind::Field, &Design::Ibg},
    {"Rtot", SettingsKey::Kind::Field, &Design::Rtot},
    {"Vref", SettingsKey::Kind::Field, &Design::Vref},
    {"Vlow1", SettingsKey::Kind::Field, &Design::Vlow1},
    {"Vlow2", SettingsKey::Kind::Field, &Design::Vlow2},
    {"Vmid1", SettingsKey::Kind::Field, &Design::Vmid1},
    {"Vmid2", SettingsKey::Kind::Field, &Design::Vmid2},
    {"Vhi1", SettingsKey::Kind::Field, &Design::Vhi1},
    {"Vhi2", SettingsKey::Kind::Field, &Design::Vhi2},
    {"Choke", SettingsKey::Kind::Choke, &Design::chokeRatio},
    {"Q by d", SettingsKey::Kind::ByGain},
};

/// Limits of the input field that is bound to a variable.
template <typename Member>
std::optional<Limits> FieldLimits(Member member) {
    const auto bound = [&](const InputField& field) {
        const auto* own = std::get_if<Member>(&field.value);
        return own && *own == member;
    };
    for (const InputField& field : SharedInputs()) {
        if (bound(field)) return field.limits;
    }
    for (const Page& page : Pages()) {
        for (const InputField& field : page.inputs) {
            if (bound(field)) return field.limits;
        }
    }
    return {};
}

std::string TextOf(const SettingsKey& key, const Settings& settings) {
    const Design& state = settings.design;
    switch (key.kind) {
        case SettingsKey::Kind::Compact:
            return FormatEngShort(2, state.*key.number);
        case SettingsKey::Kind::Field:
            return FormatEng(7, 2, state.*key.number);
        case SettingsKey::Kind::Resonators:
            return std::to_string(state.NBP);
        case SettingsKey::Kind::PageNumber:
            return std::to_string(state.page);
        case SettingsKey::Kind::Ratio:
            return FormatEngShort(2, settings.v);
        case SettingsKey::Kind::Sweep:
            return FormatEngShort(2, settings.preferences.SweepFactor);
        case SettingsKey::Kind::Choke:
            return state.infiniteChoke ? std::string(kInfinite)
                                       : FormatEngShort(2, state.chokeRatio);
        case SettingsKey::Kind::ByPhase:
        case SettingsKey::Kind::ByGain:
            break;
    }
    return state.QByBandwidth ? "Yes" : "No";
}

double ReadNumber(const SettingsKey& key, const std::string& text) {
    const Limits limits = key.limits ? *key.limits : FieldLimits(key.number).value_or(kFinite);
    return Clamp(ParseValue(text), limits.low, limits.high);
}

int ReadResonators(const std::string& text, int present) {
    constexpr Limits any{1, 8};
    int number = present;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return present;
    const Limits limits = FieldLimits(&Design::NBP).value_or(any);
    return ClampInteger(number, static_cast<int>(limits.low), static_cast<int>(limits.high));
}

int ReadPageNumber(const std::string& text) {
    const double number = ParseValue(text);
    return number >= 1 && number < PageCount() + 1 ? static_cast<int>(number) : 1;
}

/// Takes one key; `text` is nothing where the file does not hold it.
void ReadKey(const SettingsKey& key, const std::optional<std::string>& text, Settings& settings) {
    Design& state = settings.design;
    switch (key.kind) {
        case SettingsKey::Kind::Compact:
        case SettingsKey::Kind::Field:
            if (text) state.*key.number = ReadNumber(key, *text);
            break;
        case SettingsKey::Kind::Resonators:
            if (text) state.NBP = ReadResonators(*text, state.NBP);
            break;
        case SettingsKey::Kind::Ratio:
            if (text) settings.v = ReadNumber(key, *text);
            break;
        case SettingsKey::Kind::Sweep:
            if (text) settings.preferences.SweepFactor = ReadNumber(key, *text);
            break;
        case SettingsKey::Kind::Choke:
            if (!text) break;
            state.infiniteChoke = *text == kInfinite;
            if (!state.infiniteChoke) state.chokeRatio = ReadNumber(key, *text);
            break;
        case SettingsKey::Kind::PageNumber:
            state.page = ReadPageNumber(text.value_or("1"));
            break;
        case SettingsKey::Kind::ByPhase:
            // What is written here is never "Ja": files without the flag's own key clear it.
            state.QByBandwidth = text.value_or("Ja") == "Ja";
            break;
        case SettingsKey::Kind::ByGain:
            if (text) state.QByBandwidth = *text == "Yes";
            break;
    }
}

/// Are the rounded texts of the file those of these settings?
bool TextsAgree(const ProfileText& profile, const Settings& settings) {
    return std::ranges::all_of(kKeys, [&](const SettingsKey& key) {
        const auto text = profile.value(kSection, key.name);
        const QByteArray written = QByteArray::fromStdString(TextOf(key, settings)).trimmed();
        return text && *text == written.toStdString();
    });
}

void ReadKeys(const ProfileText& profile, Settings& settings) {
    constexpr int passivePiT = 8;
    Design& state = settings.design;
    for (const SettingsKey& key : kKeys) {
        ReadKey(key, profile.value(kSection, key.name), settings);
    }
    // v at fo is the wanted ratio of this page, so the file keeps it without a key of its own.
    if (state.page == passivePiT && profile.value(kSection, "\xFC")) {
        const Limits limits = FieldLimits(&Design::v8).value_or(kFinite);
        state.v8 = Clamp(settings.v, limits.low, limits.high);
    }
}

/// Does a key of the rounded texts hold this input as well?
bool IsRounded(const InputField& field) {
    const auto* member = std::get_if<double Design::*>(&field.value);
    return member && std::ranges::any_of(
                         kKeys, [&](const SettingsKey& key) { return key.number == *member; });
}

/// All that the file holds; true when it is a whole design.
bool ReadAll(const ProfileText& profile, Settings& settings) {
    const Slots components = settings.design.components;
    const ShownParts shown = settings.design.shown;
    const bool exact = ReadExact(profile, IsRounded, settings);
    settings.design.page = ReadPageNumber(profile.value(kSection, "Typ").value_or("1"));
    if (exact && TextsAgree(profile, settings)) return true;
    // Components belong to inputs; others come with other ones.
    settings.design.components = components;
    settings.design.shown = shown;
    const bool byDrop = settings.design.QByBandwidth;
    ReadKeys(profile, settings);
    if (exact) settings.design.QByBandwidth = byDrop;
    return false;
}

// ---------------------------------------------------------------- files

struct ExistingFile {
    enum class Kind : std::uint8_t {
        Missing,
        Settings,
        Foreign,     ///< readable, but no settings file
        Unreadable,  ///< its content is not known
        NoFile,      ///< a folder or a device
    };
    Kind kind = Kind::Missing;
    QString reason = {};  ///< why it cannot be used
    ProfileText profile{};
};

ExistingFile Examine(const QString& path) {
    using Kind = ExistingFile::Kind;
    const QFileInfo info(path);
    if (!info.exists()) return {};
    if (info.isDir()) return {Kind::NoFile, QStringLiteral("it is a folder")};
    if (!info.isFile()) return {Kind::NoFile, QStringLiteral("it is not a regular file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {Kind::Unreadable, file.errorString()};
    if (file.size() > kLargestFile) return {Kind::Foreign, QStringLiteral("it is too large")};
    const QByteArray bytes = file.read(kLargestFile);
    if (file.error() != QFileDevice::NoError) return {Kind::Unreadable, file.errorString()};
    ExistingFile existing{Kind::Settings, {}, ProfileText(bytes.toStdString())};
    const bool hasSection = existing.profile.hasSection(kSection);
    if (!existing.profile.complete() && !hasSection) {
        return {Kind::Foreign, QStringLiteral("it is not a settings file")};
    }
    return existing;
}

std::filesystem::path NativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

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

bool MustBeKept(const ExistingFile& existing) {
    switch (existing.kind) {
        case ExistingFile::Kind::Settings:
            return !existing.profile.complete();
        case ExistingFile::Kind::Foreign:
        case ExistingFile::Kind::Unreadable:
            return true;
        default:
            return false;
    }
}

}  // namespace

SettingsRead ReadSettings(const QString& file, Settings settings) {
    const ExistingFile existing = Examine(file);
    SettingsRead read{SettingsRead::Status::Read, std::move(settings), {}};
    QString reason = existing.reason;
    if (existing.kind == ExistingFile::Kind::Settings && !existing.profile.hasSection(kSection))
        reason = QStringLiteral("it is not a settings file");
    if (!reason.isEmpty()) {
        read.status = SettingsRead::Status::Unusable;
        read.message = QStringLiteral("Cannot read \"%1\": %2.").arg(file, reason);
        return read;
    }
    if (existing.kind == ExistingFile::Kind::Missing) read.status = SettingsRead::Status::Missing;
    read.whole = ReadAll(existing.profile, read.settings);
    return read;
}

SettingsSave WriteSettings(const QString& file, const Settings& settings) {
    ExistingFile existing = Examine(file);
    if (existing.kind == ExistingFile::Kind::NoFile) return Failed(file, existing.reason);
    for (const SettingsKey& key : kKeys) {
        existing.profile.set(kSection, key.name, TextOf(key, settings));
    }
    WriteExact(settings, existing.profile);
    if (!file.isEmpty()) QDir().mkpath(QFileInfo(file).absolutePath());
    std::optional<QString> copy;
    if (MustBeKept(existing)) {
        copy = KeepAside(file);
        if (!copy) return Failed(file, QStringLiteral("the old file could not be kept aside"));
    }
    const QByteArray bytes = QByteArray::fromStdString(existing.profile.bytes());
    if (const auto written = WriteAtomically(file, bytes); !written) {
        if (copy) QFile::remove(*copy);
        return {SettingsSave::Status::Failed, QString::fromStdString(written.message())};
    }
    if (copy)
        return {SettingsSave::Status::Saved,
                QStringLiteral("The old file is kept as \"%1\".").arg(*copy)};
    return {};
}

QString DefaultSettingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kelvro/kelvro.ini";
}

}  // namespace kelvro
