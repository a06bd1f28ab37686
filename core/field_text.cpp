#include "core/field_text.h"

#include <array>
#include <optional>

#include "core/number_scan.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr std::string_view kOhm = "\u03A9";
constexpr std::string_view kOhmSign = "\u2126";

std::string_view Trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

/// Both signs of micro, the letter mu and the one of old code pages, as the letter u.
std::string WithPlainMicro(std::string_view text) {
    std::string plain(text);
    for (const std::string_view micro : {"\u00B5", "\u03BC"}) {
        for (auto at = plain.find(micro); at != std::string::npos; at = plain.find(micro))
            plain.replace(at, micro.size(), "u");
    }
    return plain;
}

/// How long a name of the unit ends the text; 0: none does.
std::size_t UnitLength(std::string_view text, std::string_view unit) {
    constexpr std::array<std::string_view, 6> ohms = {kOhm, kOhmSign, "ohms", "Ohms", "ohm", "Ohm"};
    if (!unit.empty() && text.ends_with(unit)) return unit.size();
    if (unit != kOhm && unit != kOhmSign) return 0;
    for (const std::string_view name : ohms)
        if (text.ends_with(name)) return name.size();
    return 0;
}

/// "433.92 MHz" as "433.92M": number, blanks, a prefix letter or none, unit. Nothing for another
/// form.
std::optional<std::string> WithoutUnit(std::string_view text, std::string_view unit) {
    const std::size_t length = UnitLength(text, unit);
    if (length == 0) return {};
    const std::string_view before = text.substr(0, text.size() - length);
    const std::string_view head = Trimmed(before);
    const bool blankBeforeUnit = head.size() < before.size();
    const auto blank = head.find_last_of(' ');
    if (blank == std::string_view::npos) {
        if (!blankBeforeUnit) return {};
        return std::string(head);
    }
    if (blankBeforeUnit || blank + 2 != head.size()) return {};
    return std::string(Trimmed(head.substr(0, blank))) + head.back();
}

/// Was the whole text a number, unless letters of "mil" stand in it without meaning?
bool IsWhole(const ScannedNumber& number, std::string_view text) {
    return !number.noDigits && number.length == text.size() &&
           text.find_first_of("ILSils") == std::string_view::npos;
}

/// "10mil" and "2 miles".
FieldReading ReadLength(std::string_view text, std::size_t at) {
    const std::string_view number = Trimmed(text.substr(0, at));
    std::string_view rest = text.substr(at + 3);
    if (rest.starts_with("es")) rest.remove_prefix(2);
    FieldReading reading{ParseValue(text), std::string(Trimmed(rest))};
    if (!IsWhole(ScanNumber(number), number)) reading.unread = text;
    reading.asMeant = reading.unread.empty();
    return reading;
}

}  // namespace

FieldReading ReadField(std::string_view typed, std::string_view unit) {
    const std::string plain = WithPlainMicro(typed);
    const std::string_view text = Trimmed(plain);
    if (const auto at = text.find("mil"); at != std::string_view::npos) return ReadLength(text, at);
    if (const auto number = WithoutUnit(text, unit)) {
        const ScannedNumber scanned = ScanNumber(*number);
        if (IsWhole(scanned, *number)) return {scanned.value, {}};
    }
    const ScannedNumber number = ScanNumber(text);
    if (number.noDigits) return {number.value, std::string(text), false};
    const std::string_view read = text.substr(0, number.length);
    std::string_view rest = Trimmed(text.substr(number.length));
    if (!rest.empty() && UnitLength(rest, unit) == rest.size()) rest = {};
    // Lengths are written "5m" for five millimetres, which people know; a farad stands for itself.
    const bool unitAsPrefix = rest.empty() && unit != "m" && UnitLength(read, unit) == 1;
    const bool silent = read.find_first_of("ILSils") != std::string_view::npos;
    return {number.value, std::string(rest), rest.empty() && !unitAsPrefix && !silent};
}

}  // namespace kelvro
