#include "io/settings_reader.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "io/exact_settings.h"
#include "io/known_file.h"

namespace kelvro {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSection = "Variablen";
constexpr std::uintmax_t kLargestFile = 1 << 20;  // a settings file has about 500 bytes

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

/// A file keeps no blanks at the ends of a value.
std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// Are the rounded texts of the file those of these settings?
bool TextsAgree(const ProfileText& profile, const Settings& settings) {
    return std::ranges::all_of(Lines(), [&](const SettingsLine& line) {
        const auto text = TextIn(profile, line.key);
        return text && *text == Trimmed(TextOf(line, settings));
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

std::string LastReason() {
    return std::make_error_code(static_cast<std::errc>(errno)).message();
}

}  // namespace

FoundSettings FoundIn(const std::string& text) {
    using Kind = FoundSettings::Kind;
    FoundSettings found{Kind::Settings, {}, ProfileText(text), Checksum(text)};
    found.named = found.profile.hasSection(kSection);
    if (!found.profile.complete() && !found.named)
        return {Kind::Foreign, "it is not a settings file"};
    return found;
}

FoundSettings FindSettings(const fs::path& path) {
    using Kind = FoundSettings::Kind;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return {};
    if (fs::is_directory(status)) return {Kind::NoFile, "it is a folder"};
    if (!fs::is_regular_file(status)) return {Kind::NoFile, "it is not a regular file"};
    std::ifstream file(path, std::ios::binary);
    if (!file) return {Kind::Unreadable, LastReason()};
    const auto size = fs::file_size(path, error);
    if (!error && size > kLargestFile) return {Kind::Foreign, "it is too large"};
    // Some files tell no size; room for the largest would be cleared at every start.
    std::string text(std::min<std::size_t>(kLargestFile, error ? 4096 : size + 4096), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.bad()) return {Kind::Unreadable, LastReason()};
    text.resize(static_cast<std::size_t>(file.gcount()));
    return FoundIn(text);
}

SettingsContent ContentOf(const FoundSettings& found, const std::string& name, Settings settings) {
    using How = SettingsStatus;
    SettingsContent read{How::Read, std::move(settings)};
    std::string reason = found.reason;
    if (found.kind == FoundSettings::Kind::Settings && !found.named)
        reason = "it is not a settings file";
    if (!reason.empty()) {
        read.status = How::Unusable;
        read.message = "Cannot read \"" + name + "\": " + reason + '.';
        return read;
    }
    if (found.kind == FoundSettings::Kind::Missing) read.status = How::Missing;
    read.checksum = found.checksum;
    read.whole = ReadAll(found.profile, read.settings);
    read.later = VersionOf(found.profile) > kSettingsVersion;
    if (read.later) {
        read.message = '"' + name +
                       "\" was written by a later version of Kelvro. What this one knows of it is "
                       "taken over; the file itself stays as it is.";
    }
    return read;
}

SettingsContent ReadSettingsFile(const fs::path& path, Settings settings) {
    return ContentOf(FindSettings(path), path.string(), std::move(settings));
}

void PutSettings(const Settings& settings, ProfileText& profile) {
    for (const SettingsLine& line : Lines())
        profile.set(kSection, std::string(line.key).c_str(), TextOf(line, settings));
    WriteExact(settings, profile);
}

std::string SettingsText(const Settings& settings, const std::string& old) {
    ProfileText profile(old);
    PutSettings(settings, profile);
    return profile.bytes();
}

}  // namespace kelvro
