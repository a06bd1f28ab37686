#include "network/text_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "core/exact_number.h"

namespace kelvro {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsWordCharacter(char c) {
    return IsLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '\'';
}

/// Bytes of the character of UTF-8 that starts a text.
std::size_t CharacterLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (text[length] & 0xC0) == 0x80) ++length;
    return length;
}

std::span<const std::string_view> NamesOf(TextUnit unit) {
    static constexpr std::array<std::string_view, 6> ohm{"Ω",   "\xE2\x84\xA6", "ohms",
                                                         "ohm", "Ohm",          "OHM"};
    static constexpr std::array<std::string_view, 1> henry{"H"};
    static constexpr std::array<std::string_view, 1> farad{"F"};
    static constexpr std::array<std::string_view, 3> hertz{"Hz", "hz", "HZ"};
    static constexpr std::array<std::string_view, 1> metre{"m"};
    static constexpr std::array<std::string_view, 1> percent{"%"};
    switch (unit) {
        case TextUnit::Ohm:
            return ohm;
        case TextUnit::Henry:
            return henry;
        case TextUnit::Farad:
            return farad;
        case TextUnit::Hertz:
            return hertz;
        case TextUnit::Metre:
            return metre;
        case TextUnit::Percent:
            return percent;
        default:
            return {};
    }
}

/// Does a number with its suffix end before this text? An imaginary number may go on with its j.
bool EndsNumber(std::string_view text) {
    if (!text.empty() && (text[0] == 'j' || text[0] == 'J')) text.remove_prefix(1);
    return text.empty() || !(IsWordCharacter(text[0]) || text[0] == '.');
}

/// Length of the unit that starts a text and ends a number; 0 where none does.
std::size_t UnitLength(TextUnit unit, std::string_view text) {
    for (const std::string_view name : NamesOf(unit)) {
        if (text.starts_with(name) && EndsNumber(text.substr(name.size()))) return name.size();
    }
    return 0;
}

}  // namespace

void TextReader::fail(std::size_t place, std::string_view message) {
    if (failed()) return;
    const auto column = 1 + std::ranges::count_if(text_.substr(0, place),
                                                  [](char c) { return (c & 0xC0) != 0x80; });
    status_ = Status::Failure("column " + std::to_string(column) + ": " + std::string(message));
}

void TextReader::expected(std::string_view what) {
    skipBlanks();
    std::string message = "expected " + std::string(what);
    if (at_ >= text_.size()) {
        message += ", the text ends";
    } else {
        const std::string_view found = rest().substr(0, CharacterLength(rest()));
        const bool printable = static_cast<unsigned char>(found[0]) >= 0x20;
        message += ", found " + (printable ? '\'' + std::string(found) + '\'' : "no character");
    }
    fail(at_, message);
}

void TextReader::skipBlanks() {
    at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
}

bool TextReader::atEnd() {
    skipBlanks();
    return at_ >= text_.size();
}

bool TextReader::sees(std::string_view mark) {
    skipBlanks();
    return rest().starts_with(mark);
}

bool TextReader::take(std::string_view mark) {
    if (!sees(mark)) return false;
    at_ += mark.size();
    return true;
}

bool TextReader::need(std::string_view mark) {
    if (take(mark)) return true;
    expected('\'' + std::string(mark) + '\'');
    return false;
}

std::string_view TextReader::word() {
    skipBlanks();
    std::size_t length = 0;
    const std::string_view here = rest();
    if (!here.empty() && IsLetter(here[0])) {
        while (length < here.size() && IsWordCharacter(here[length])) ++length;
    }
    at_ += length;
    return here.substr(0, length);
}

std::optional<std::string> TextReader::quoted() {
    skipBlanks();
    const std::size_t start = at_;
    if (!take("\"")) return std::nullopt;
    std::string content;
    while (true) {
        const auto quote = text_.find('"', at_);
        if (quote == std::string_view::npos) {
            fail(start, "this quote is not closed");
            at_ = text_.size();
            return content;
        }
        content += text_.substr(at_, quote - at_);
        at_ = quote + 1;
        if (at_ >= text_.size() || text_[at_] != '"') return content;
        content += '"';
        ++at_;
    }
}

bool TextReader::seesNumber() {
    skipBlanks();
    return ReadExactNumber(rest()).has_value();
}

double TextReader::number(TextUnit unit, bool sign) {
    const bool negative = sign && take("-");
    if (sign && !negative) take("+");
    skipBlanks();
    const std::string_view here = rest();
    const auto plain = ReadExactNumber(here);
    if (!plain) {
        expected("a number");
        return 0;
    }
    const std::size_t gap =
        std::min(here.find_first_not_of(kBlanks, plain->length), here.size()) - plain->length;
    const Suffix behind = suffix(unit, here.substr(plain->length + gap));
    const std::size_t length = plain->length + (behind.length > 0 ? gap + behind.length : 0);
    if (!EndsNumber(here.substr(length))) {
        at_ += length;
        expected("the end of the number");
        return 0;
    }
    const double value = ReadExactNumber(here, behind.exponent)->value;
    if (std::isinf(value) && !here.starts_with("inf")) fail(at_, "this number is too large");
    at_ += length;
    return negative ? -value : value;
}

/// Unit, prefix with unit, or prefix alone. "m" behind a length is the prefix, as for all numbers.
TextReader::Suffix TextReader::suffix(TextUnit unit, std::string_view text) const {
    if (const std::size_t length = UnitLength(unit, text); length > 0 && unit != TextUnit::Metre) {
        return {0, length};
    }
    const auto prefix = ReadPrefix(text);
    if (!prefix) return {};
    const std::string_view behind = text.substr(prefix->length);
    if (const std::size_t length = UnitLength(unit, behind); length > 0) {
        return {prefix->exponent, prefix->length + length};
    }
    if (EndsNumber(behind)) return {prefix->exponent, prefix->length};
    return {};
}

}  // namespace kelvro
