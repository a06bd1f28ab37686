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
#include <span>
#include <utility>
#include <variant>
#include <vector>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "io/atomic_file.h"
#include "io/exact_settings.h"
#include "io/known_file.h"
#include "io/profile_text.h"

namespace kelvro {

namespace {

constexpr const char* kSection = "Variablen";
constexpr qint64 kLargestFile = 1 << 20;  // a settings file has about 500 bytes
constexpr int kMostCopies = 100;

// ---------------------------------------------------------------- keys

/// A key that no single input is behind.
enum class OwnKey : std::uint8_t {
    Ratio,  ///< V2/V1, Compact
    Sweep,  ///< sweep factor, Compact
    PageNumber,
    ByPhase,  ///< written "Yes" or "No", read "Ja"
    ByDrop,   ///< the flag of ByPhase, "Yes" or "No", both read as written
    Choke,    ///< of the class-E stage, Compact, or "infinite"
};

struct SettingsLine {
    std::string_view key;
    std::variant<OwnKey, const InputField*> is;
};

/// In the order of the file; inputs that came later follow behind. "\xFC" is u umlaut.
constexpr std::string_view kFileOrder[] = {
    "Q",     "QB(C)", "QB(L)",      "fo",    "k",     "er",         "\xFC", "R1",    "R2",
    "P",     "Ub",    "Usat",       "L",     "C",     "R",          "Ls",   "Cs",    "Lp",
    "L(BP)", "N(BP)", "Ripple(BP)", "Sweep", "Typ",   "Q by phase", "Vbg",  "Ibg",   "Rtot",
    "Vref",  "Vlow1", "Vlow2",      "Vmid1", "Vmid2", "Vhi1",       "Vhi2", "Choke", "Q by d"};

constexpr std::pair<std::string_view, OwnKey> kOwnKeys[] = {
    {"\xFC", OwnKey::Ratio},         {"Sweep", OwnKey::Sweep}, {"Typ", OwnKey::PageNumber},
    {"Q by phase", OwnKey::ByPhase}, {"Choke", OwnKey::Choke}, {"Q by d", OwnKey::ByDrop}};

constexpr Limits kSweepFactors{1.0001, 10};
constexpr Limits kFinite{0, std::numeric_limits<double>::max()};

/// Own keys and those of the inputs, each once: pages share inputs.
std::vector<SettingsLine> FoundLines() {
    std::vector<SettingsLine> lines;
    for (const auto& [key, own] : kOwnKeys) lines.push_back({key, own});
    const auto add = [&lines](std::span<const InputField> inputs) {
        for (const InputField& field : inputs) {
            const std::string_view key = SettingsKey(field.settings).name;
            const bool known = std::ranges::find(lines, key, &SettingsLine::key) != lines.end();
            if (!key.empty() && !known) lines.push_back({key, &field});
        }
    };
    add(SharedInputs());
    for (const Page& page : Pages()) add(page.inputs);
    return lines;
}

std::span<const SettingsLine> Lines() {
    static const std::vector<SettingsLine> lines = [] {
        auto found = FoundLines();
        std::ranges::stable_sort(found, {}, [](const SettingsLine& line) {
            return std::ranges::find(kFileOrder, line.key) - std::begin(kFileOrder);
        });
        return found;
    }();
    return lines;
}

/// The input that is bound to a variable.
const InputField& FieldOf(double Design::*member) {
    const auto bound = [member](const InputField& field) {
        const auto* own = std::get_if<double Design::*>(&field.value);
        return own && *own == member;
    };
    for (const Page& page : Pages())
        if (const auto at = std::ranges::find_if(page.inputs, bound); at != page.inputs.end())
            return *at;
    return *std::ranges::find_if(SharedInputs(), bound);
}

std::string TextOf(const InputField& field, const Design& design) {
    const double value = field.read(design);
    if (std::holds_alternative<int Design::*>(field.value))
        return std::to_string(static_cast<int>(value));
    const bool compact = SettingsKey(field.settings).form == SettingsKey::Form::Compact;
    return compact ? FormatEngShort(2, value) : FormatEng(7, 2, value);
}

std::string TextOf(OwnKey key, const Settings& settings) {
    const Design& design = settings.design;
    switch (key) {
        case OwnKey::Ratio:
            return FormatEngShort(2, settings.v);
        case OwnKey::Sweep:
            return FormatEngShort(2, settings.preferences.SweepFactor);
        case OwnKey::PageNumber:
            return std::to_string(design.page);
        case OwnKey::Choke:
            return design.infiniteChoke ? std::string(kInfinite)
                                        : FormatEngShort(2, design.chokeRatio);
        case OwnKey::ByPhase:
        case OwnKey::ByDrop:
            break;
    }
    return design.QByBandwidth ? "Yes" : "No";
}

std::string TextOf(const SettingsLine& line, const Settings& settings) {
    if (const auto* own = std::get_if<OwnKey>(&line.is)) return TextOf(*own, settings);
    return TextOf(*std::get<const InputField*>(line.is), settings.design);
}

double ReadNumber(const std::string& text, Limits limits) {
    return Clamp(ParseValue(text), limits.low, limits.high);
}

/// A whole number must be one from end to end; any other text reads as a number or as 0.
void ReadInput(const InputField& field, const std::string& text, Design& design) {
    if (std::holds_alternative<double Design::*>(field.value)) {
        const Limits limits = SettingsKey(field.settings).limits.value_or(field.limits);
        return field.store(design, ReadNumber(text, limits));
    }
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size()) field.write(design, number);
}

int ReadPageNumber(const std::string& text) {
    const double number = ParseValue(text);
    return number >= 1 && number < PageCount() + 1 ? static_cast<int>(number) : 1;
}

/// `text` is nothing where the file does not hold the key.
void ReadOwn(OwnKey key, const std::optional<std::string>& text, Settings& settings) {
    Design& design = settings.design;
    switch (key) {
        case OwnKey::Ratio:
            if (text) settings.v = ReadNumber(*text, kFinite);
            break;
        case OwnKey::Sweep:
            if (text) settings.preferences.SweepFactor = ReadNumber(*text, kSweepFactors);
            break;
        case OwnKey::Choke:
            if (!text) break;
            design.infiniteChoke = *text == kInfinite;
            if (!design.infiniteChoke)
                FieldOf(&Design::chokeRatio).write(design, ParseValue(*text));
            break;
        case OwnKey::PageNumber:
            design.page = ReadPageNumber(text.value_or("1"));
            break;
        case OwnKey::ByPhase:
            // What is written here is never "Ja": files without the flag's own key clear it.
            design.QByBandwidth = text.value_or("Ja") == "Ja";
            break;
        case OwnKey::ByDrop:
            if (text) design.QByBandwidth = *text == "Yes";
            break;
    }
}

std::optional<std::string> TextIn(const ProfileText& profile, std::string_view key) {
    return profile.value(kSection, std::string(key).c_str());
}

/// Are the rounded texts of the file those of these settings?
bool TextsAgree(const ProfileText& profile, const Settings& settings) {
    return std::ranges::all_of(Lines(), [&](const SettingsLine& line) {
        const auto text = TextIn(profile, line.key);
        const QByteArray written = QByteArray::fromStdString(TextOf(line, settings)).trimmed();
        return text && *text == written.toStdString();
    });
}

void ReadLines(const ProfileText& profile, Settings& settings) {
    constexpr int passivePiT = 8;
    for (const SettingsLine& line : Lines()) {
        const auto text = TextIn(profile, line.key);
        if (const auto* own = std::get_if<OwnKey>(&line.is)) {
            ReadOwn(*own, text, settings);
        } else if (text) {
            ReadInput(*std::get<const InputField*>(line.is), *text, settings.design);
        }
    }
    // v at fo is the wanted ratio of this page, so the file keeps it without a key of its own.
    if (settings.design.page == passivePiT && TextIn(profile, "\xFC"))
        FieldOf(&Design::v8).write(settings.design, settings.v);
}

/// All that the file holds; true when it is a whole design.
bool ReadAll(const ProfileText& profile, Settings& settings) {
    const Slots components = settings.design.components;
    const ShownParts shown = settings.design.shown;
    const bool exact = ReadExact(profile, settings);
    settings.design.page = ReadPageNumber(TextIn(profile, "Typ").value_or("1"));
    if (exact && TextsAgree(profile, settings)) return true;
    // Components belong to inputs; others come with other ones.
    settings.design.components = components;
    settings.design.shown = shown;
    const bool byDrop = settings.design.QByBandwidth;
    ReadLines(profile, settings);
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
    std::string checksum = {};
};

ExistingFile OfText(const std::string& text) {
    using Kind = ExistingFile::Kind;
    ExistingFile existing{Kind::Settings, {}, ProfileText(text), Checksum(text)};
    const bool hasSection = existing.profile.hasSection(kSection);
    if (!existing.profile.complete() && !hasSection) {
        return {Kind::Foreign, QStringLiteral("it is not a settings file")};
    }
    return existing;
}

ExistingFile Examine(const QString& path) {
    using Kind = ExistingFile::Kind;
    const QFileInfo info(path);
    if (!info.exists()) return {};
    if (info.isDir()) return {Kind::NoFile, QStringLiteral("it is a folder")};
    if (!info.isFile()) return {Kind::NoFile, QStringLiteral("it is not a regular file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {Kind::Unreadable, file.errorString()};
    if (file.size() > kLargestFile) return {Kind::Foreign, QStringLiteral("it is too large")};
    // Some files tell no size; room for the largest would be cleared at every start.
    const QByteArray bytes = file.read(std::min(kLargestFile, file.size() + 4096));
    if (file.error() != QFileDevice::NoError) return {Kind::Unreadable, file.errorString()};
    return OfText(bytes.toStdString());
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

/// `name` of the file is for the message.
SettingsRead ReadExisting(const ExistingFile& existing, const QString& name, Settings settings) {
    SettingsRead read{SettingsRead::Status::Read, std::move(settings), {}};
    QString reason = existing.reason;
    if (existing.kind == ExistingFile::Kind::Settings && !existing.profile.hasSection(kSection))
        reason = QStringLiteral("it is not a settings file");
    if (!reason.isEmpty()) {
        read.status = SettingsRead::Status::Unusable;
        read.message = QStringLiteral("Cannot read \"%1\": %2.").arg(name, reason);
        return read;
    }
    if (existing.kind == ExistingFile::Kind::Missing) read.status = SettingsRead::Status::Missing;
    read.checksum = existing.checksum;
    read.whole = ReadAll(existing.profile, read.settings);
    read.later = VersionOf(existing.profile) > kSettingsVersion;
    if (read.later)
        read.message =
            QStringLiteral(
                "\"%1\" was written by a later version of Kelvro. What this one knows of it "
                "is taken over; the file itself stays as it is.")
                .arg(name);
    return read;
}

void Put(const Settings& settings, ProfileText& profile) {
    for (const SettingsLine& line : Lines())
        profile.set(kSection, std::string(line.key).c_str(), TextOf(line, settings));
    WriteExact(settings, profile);
}

}  // namespace

SettingsRead ReadSettings(const QString& file, Settings settings) {
    return ReadExisting(Examine(file), file, std::move(settings));
}

SettingsRead ParseSettings(const std::string& text, const QString& name, Settings settings) {
    return ReadExisting(OfText(text), name, std::move(settings));
}

std::string SettingsText(const Settings& settings, const std::string& old) {
    ProfileText profile(old);
    Put(settings, profile);
    return profile.bytes();
}

SettingsSave WriteSettings(const QString& file, const Settings& settings,
                           const std::optional<std::string>& known) {
    if (!file.isEmpty()) QDir().mkpath(QFileInfo(file).absolutePath());
    const SavingIn turn(NativePath(QFileInfo(file).absolutePath()));
    if (known && HasChanged(NativePath(file), *known)) return {SettingsSave::Status::Changed};
    ExistingFile existing = Examine(file);
    if (existing.kind == ExistingFile::Kind::NoFile) return Failed(file, existing.reason);
    if (VersionOf(existing.profile) > kSettingsVersion)
        return Failed(file, QStringLiteral("it was written by a later version of Kelvro"));
    Put(settings, existing.profile);
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
    SettingsSave saved{SettingsSave::Status::Saved, {}, Checksum(bytes.toStdString())};
    if (copy) saved.message = QStringLiteral("The old file is kept as \"%1\".").arg(*copy);
    return saved;
}

QString DefaultSettingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kelvro/kelvro.ini";
}

}  // namespace kelvro
