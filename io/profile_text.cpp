#include "io/profile_text.h"

#define SI_NO_CONVERSION  // bytes stay as they are
#include <SimpleIni.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace kelvro {

struct ProfileText::Parser : CSimpleIniA {};

namespace {

enum class Line : std::uint8_t { Plain, SectionWithTail, Unknown };

/// The parser takes an indented comment at the top for one of the first section. Byte order marks
/// stand where a line begins wherever files were joined; in front of the first name the next reader
/// would not see them.
std::string_view Trimmed(std::string_view line) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    line = line.substr(0, line.find_last_not_of(" \t") + 1);
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (!line.starts_with(byteOrderMark)) return line;
        line.remove_prefix(byteOrderMark.size());
    }
}

/// What the parser makes of a line, trimmed and not blank; of unknown ones it may make anything.
Line KindOf(std::string_view line) {
    if (line.find('\0') != std::string_view::npos) return Line::Unknown;
    if (line[0] == ';' || line[0] == '#') return Line::Plain;
    if (line[0] != '[') {
        const auto name = line.find('=');
        return name > 0 && name != std::string_view::npos ? Line::Plain : Line::Unknown;
    }
    const auto end = line.find(']');
    // Without a name a section is written without its line.
    if (end == std::string_view::npos || line.find_first_not_of(" \t", 1) == end) {
        return Line::Unknown;
    }
    return end + 1 == line.size() ? Line::Plain : Line::SectionWithTail;
}

struct Cleaned {
    std::string text;       ///< lines that the parser knows, without blank ones
    std::size_t lines = 0;  ///< of the text
    bool whole = true;      ///< nothing was left out or will be
};

Cleaned CleanedLines(std::string_view bytes) {
    Cleaned cleaned;
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        const std::string_view line = Trimmed(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.empty()) continue;
        const Line kind = KindOf(line);
        if (kind != Line::Plain) cleaned.whole = false;
        if (kind == Line::Unknown) continue;
        ++cleaned.lines;
        cleaned.text.append(line) += '\n';
    }
    return cleaned;
}

}  // namespace

ProfileText::ProfileText(const std::string& bytes) : parser_(std::make_unique<Parser>()) {
    parser_->SetSpaces(false);
    const Cleaned cleaned = CleanedLines(bytes);
    const bool parsed = parser_->LoadData(cleaned.text) >= SI_OK;
    // Repeated keys and sections melt into one.
    complete_ = parsed && cleaned.whole && CleanedLines(this->bytes()).lines == cleaned.lines;
}

ProfileText::ProfileText(ProfileText&&) noexcept = default;
ProfileText& ProfileText::operator=(ProfileText&&) noexcept = default;
ProfileText::~ProfileText() = default;

bool ProfileText::hasSection(const char* section) const {
    return parser_->GetSection(section) != nullptr;
}

std::optional<std::string> ProfileText::value(const char* section, const char* key) const {
    const char* text = parser_->GetValue(section, key);
    if (!text) return {};
    const std::string_view value = text;
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return std::string(quoted ? value.substr(1, value.size() - 2) : value);
}

void ProfileText::set(const char* section, const char* key, const std::string& value) {
    parser_->SetValue(section, key, value.c_str());
}

std::string ProfileText::bytes() const {
    std::string text;
    parser_->Save(text);
    return text;
}

}  // namespace kelvro
