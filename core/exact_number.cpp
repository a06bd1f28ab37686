#include "core/exact_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/number_text.h"

namespace kelvro {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return end - at;
}

/// "e-9" with its length; none where digits are missing behind the letter.
struct Exponent {
    long value = 0;
    std::size_t length = 0;
};

Exponent ExponentAt(std::string_view text, std::size_t at) {
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return {};
    std::size_t digits = at + 1;
    const bool sign = digits < text.size() && (text[digits] == '-' || text[digits] == '+');
    if (sign) ++digits;
    const std::size_t count = DigitsAt(text, digits);
    if (count == 0) return {};
    constexpr long kBeyondDoubles = 100'000;
    long value = 0;
    if (std::from_chars(text.data() + digits, text.data() + digits + count, value).ec !=
        std::errc()) {
        value = kBeyondDoubles;
    }
    value = std::min(value, kBeyondDoubles);
    return {text[at + 1] == '-' ? -value : value, digits + count - at};
}

/// Power of ten of the first digit that counts, plus 1; tells huge numbers from tiny ones.
long DecimalOrder(std::string_view mantissa) {
    const auto point = std::min(mantissa.find_first_of(".,"), mantissa.size());
    const auto first = std::min(mantissa.find_first_not_of("0.,"), mantissa.size());
    return static_cast<long>(point) - static_cast<long>(first) + (first > point ? 1 : 0);
}

double Converted(std::string_view mantissa, long exponent) {
    std::string number(mantissa);
    for (char& c : number) {
        if (c == ',') c = '.';
    }
    number += 'e' + std::to_string(exponent);
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    return DecimalOrder(mantissa) + exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
}

/// Decimal digits of a finite number without sign, and the power of ten of the first.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal DecimalOf(double magnitude, int digits) {
    std::array<char, 64> text{};
    const auto end = digits > 0 ? std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                                std::chars_format::scientific, digits - 1)
                                : std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                                std::chars_format::scientific);
    const std::string_view all(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
    const auto e = all.find('e');
    Decimal decimal;
    for (const char c : all.substr(0, e)) {
        if (IsDigit(c)) decimal.digits += c;
    }
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
    decimal.exponent = std::atoi(all.data() + e + 1);  // "e-08", closed by the array's zeros
    return decimal;
}

/// The digits with the point behind `whole` of them; whole may be 0 (".5" is written "0.5").
std::string WithPoint(std::string digits, int whole) {
    if (whole <= 0) return "0." + std::string(static_cast<std::size_t>(-whole), '0') + digits;
    const auto count = static_cast<std::size_t>(whole);
    if (digits.size() < count) digits.append(count - digits.size(), '0');
    if (digits.size() > count) digits.insert(count, 1, '.');
    return digits;
}

}  // namespace

std::optional<ExactNumber> ReadExactNumber(std::string_view text, int shift) {
    if (text.starts_with("inf")) return ExactNumber{std::numeric_limits<double>::infinity(), 3};
    std::size_t length = DigitsAt(text, 0);
    std::size_t digits = length;
    if (length < text.size() && (text[length] == '.' || text[length] == ',')) {
        const std::size_t fraction = DigitsAt(text, length + 1);
        // A comma or point without a digit behind it belongs to what follows, as in lists.
        if (fraction > 0 || (digits > 0 && text[length] == '.')) length += 1 + fraction;
        digits += fraction;
    }
    if (digits == 0) return std::nullopt;
    const Exponent exponent = ExponentAt(text, length);
    return ExactNumber{Converted(text.substr(0, length), exponent.value + shift),
                       length + exponent.length};
}

std::optional<PrefixLetter> ReadPrefix(std::string_view text) {
    for (const std::string_view micro : {"\xC2\xB5", "\xCE\xBC"}) {  // the sign and the letter
        if (text.starts_with(micro)) return PrefixLetter{-6, 2};
    }
    if (text.empty()) return std::nullopt;
    constexpr std::string_view letters = "aAfFpPnNuUmcCdDkKMgGtT";
    constexpr int exponents[] = {-18, -18, -15, -15, -12, -12, -9, -9, -6, -6, -3,
                                 -2,  -2,  -1,  -1,  3,   3,   6,  9,  9,  12, 12};
    const auto at = letters.find(text[0]);
    if (at == std::string_view::npos) return std::nullopt;
    return PrefixLetter{exponents[at], 1};
}

std::string FormatPrefixed(double value, int digits) {
    if (!std::isfinite(value) || value == 0) return value == 0 ? "0" : FormatShortest(value);
    const Decimal decimal = DecimalOf(std::fabs(value), digits);
    const std::string sign = value < 0 ? "-" : "";
    if (decimal.exponent >= -1 && decimal.exponent <= 2) {
        return sign + WithPoint(decimal.digits, decimal.exponent + 1);
    }
    constexpr std::string_view letters = "afpnum kMGT";
    const int step = decimal.exponent >= 0 ? decimal.exponent / 3 : (decimal.exponent - 2) / 3;
    if (step < -6 || step > 4) {
        return sign + WithPoint(decimal.digits, 1) + 'e' + std::to_string(decimal.exponent);
    }
    std::string text = sign + WithPoint(decimal.digits, decimal.exponent - 3 * step + 1);
    const int letter = step + 6;
    if (step != 0) text += letters[static_cast<std::size_t>(letter)];
    return text;
}

}  // namespace kelvro
