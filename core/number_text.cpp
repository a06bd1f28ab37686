#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/number_scan.h"
#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kZeroText = 1e-300;  // magnitudes up to this are written as zero

// ---------------------------------------------------------------- writing

/// Which sign a NaN carries is chance; texts show none.
double WithoutNanSign(double value) {
    return std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

std::string RightAligned(std::string text, int width) {
    const auto size = static_cast<int>(text.size());
    return size < width ? text.insert(0, static_cast<std::size_t>(width - size), ' ') : text;
}

/// A tie at `decimals` decimals is (2n + 1)/(2·10^d). As a dyadic number its denominator is then
/// exactly 2^(d + 1), so x·2^(d + 1) is an odd integer, and only then.
bool IsTie(double value, int decimals) {
    const double scaled = std::ldexp(value, decimals + 1);
    if (!(std::fabs(scaled) < 9007199254740992.0)) return false;
    const auto whole = static_cast<std::int64_t>(scaled);
    return whole % 2 != 0 && static_cast<double>(whole) == scaled;
}

template <std::size_t capacity>
std::string FixedText(double value, int width, int decimals) {
    std::array<char, capacity> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), WithoutNanSign(value),
                                   std::chars_format::fixed, decimals);
    return RightAligned({text.data(), end.ptr}, width);
}

constexpr int kFewDecimals = 3;

/// A double times 10^3 has 53 + 10 bits: extended precision holds it exactly, and so its digits are
/// those of a whole number. |value| < 1e9, at most kFewDecimals decimals, ties away from 0.
std::string ShortFixedText(double value, int width, int decimals) {
    constexpr std::array<std::uint64_t, kFewDecimals + 1> powers{1, 10, 100, 1000};
    const auto places = static_cast<std::size_t>(decimals);
    const long double exact =
        std::fabs(static_cast<long double>(value)) * static_cast<long double>(powers[places]);
    auto whole = static_cast<std::uint64_t>(exact);
    if (exact - static_cast<long double>(whole) >= 0.5L) ++whole;

    std::array<char, 32> text{};
    char* const end = text.data() + text.size();
    char* at = end;
    const auto digit = [&] {
        *--at = static_cast<char>('0' + whole % 10);
        whole /= 10;
    };
    for (int i = 0; i < decimals; ++i) digit();
    if (decimals > 0) *--at = '.';
    do digit();
    while (whole > 0);
    if (std::signbit(value)) *--at = '-';
    const char* const wanted = end - std::clamp(width, 0, static_cast<int>(text.size()));
    while (at > wanted) *--at = ' ';
    return {at, end};
}

/// GuardedDecimalLog of |value| to double precision where that leaves no doubt about the decade, as
/// it does but for values next to powers of ten.
long double DecadeLog(double value) {
    const double quick = std::log10(std::fabs(value));
    const double fromDecade = std::fabs(quick - std::nearbyint(quick));
    return fromDecade > 1e-5 ? quick : GuardedDecimalLog(value);
}

/// The largest multiple of 3 not above n.
int EngineeringExponent(int n) {
    return 3 * (n >= 0 ? n / 3 : (n - 2) / 3);
}

/// value / 10^exponent, divided in extended precision and stored back; the exponent is a multiple
/// of 3 from -27 to 30.
double Scaled(double value, int exponent) {
    constexpr long double powers[] = {1,     1e3L,  1e6L,  1e9L,  1e12L, 1e15L,
                                      1e18L, 1e21L, 1e24L, 1e27L, 1e30L};
    const long double power = powers[std::abs(exponent) / 3];
    return static_cast<double>(exponent >= 0 ? value / power : value * power);
}

char PrefixLetter(int exponent) {
    constexpr std::string_view letters = "afpnum0kMGT";
    constexpr int unitPlace = 6;
    const int place = exponent / 3 + unitPlace;
    return letters[static_cast<std::size_t>(place)];
}

std::string ZeroText(int width, int decimals) {
    const int filler = width - decimals - 3 >= 0 ? width - decimals - 2 : 0;
    return std::string(static_cast<std::size_t>(filler), ' ') + "0." +
           std::string(static_cast<std::size_t>(decimals), '0');
}

std::string ScientificText(int width, double value) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), WithoutNanSign(value),
                                   std::chars_format::scientific, 6);
    return RightAligned(std::string(text.data(), end.ptr), width);
}

/// Fallback for values without a prefix: fixed-point mantissa and a power of ten in steps of 3.
/// The field form pads one-digit exponents with a space, the compact form does not.
std::string FormatScientific(int width, int decimals, double value, bool padded) {
    decimals = std::max(decimals, 1);
    const long double decade = GuardedDecimalLog(value);
    if (std::fabs(value) <= kZeroText) return ZeroText(width, decimals);
    if (!(decade >= -27 && decade <= 31)) return ScientificText(6, value);
    const int n = static_cast<int>(std::lrint(decade - 0.4999999999L));
    const int exponent = std::max(EngineeringExponent(n), -27);
    std::string text = FormatFixed(width, decimals, Scaled(value, exponent)) + 'E' +
                       (exponent < 0 ? "-" : "+") + std::to_string(std::abs(exponent));
    if (padded && std::abs(exponent) < 10) text += ' ';
    return text;
}

}  // namespace

ParsedNumber ParseNumber(std::string_view text) {
    const ScannedNumber number = ScanNumber(text);
    return {number.value, number.noDigits};
}

double ParseValue(std::string_view text) {
    constexpr std::string_view mil = "mil";
    constexpr std::string_view miles = "miles";
    if (const auto at = text.find(miles); at != std::string_view::npos) {
        return static_cast<double>(ParseNumber(text.substr(0, at)).value * 1.6L * 1000);
    }
    if (const auto at = text.find(mil); at != std::string_view::npos) {
        return static_cast<double>(ParseNumber(text.substr(0, at)).value * 2.54L * 0.01L * 0.001L);
    }
    return ParseNumber(text).value;
}

std::string FormatFixed(int width, int decimals, double value) {
    if (value == 0) value = 0;  // -0 reads as 0
    decimals = std::clamp(decimals, 0, 255);
    const bool few = std::fabs(value) < 1e9;
    if (few && decimals <= kFewDecimals && width <= 32) {
        return ShortFixedText(value, width, decimals);
    }
    if (IsTie(value, decimals)) {
        value =
            std::nextafter(value, std::copysign(std::numeric_limits<double>::infinity(), value));
    }
    // The largest double has 309 digits before the point.
    return few && decimals < 20 ? FixedText<32>(value, width, decimals)
                                : FixedText<640>(value, width, decimals);
}

std::string FormatEng(int width, int decimals, double value) {
    const long double decade = value > 0 ? DecadeLog(value) : DecimalLog(value);
    if (decade >= -18 && decade <= 13) {
        const int n = static_cast<int>(std::lrint(decade - 0.4999999999L));
        const int exponent = EngineeringExponent(n);
        std::string text = FormatFixed(width, decimals, Scaled(value, exponent));
        text += PrefixLetter(exponent);
        return text;
    }
    if (std::fabs(value) <= kZeroText) return ZeroText(width, decimals) + '0';
    return FormatScientific(width - 1, decimals - 1, value, true) + '0';
}

std::string FormatQuantity(int decimals, double value, std::string_view unit) {
    if (std::isinf(value)) return value > 0 ? "infinite" : "-infinite";
    std::string text = FormatEng(0, decimals, value);
    const char prefix = text.back();
    text.pop_back();
    if (prefix == '0') return unit.empty() ? text : text + ' ' + std::string(unit);
    return text + ' ' + prefix + std::string(unit);
}

std::string FormatEngShort(int decimals, double value) {
    constexpr int width = 3;
    if (std::fabs(value) <= kZeroText) return "0.0";
    const long double decade = DecadeLog(value);
    if (!(decade >= -19 && decade <= 13)) return FormatScientific(width, decimals, value, false);
    const int n = static_cast<int>(std::lrint(decade - 0.49999999L));
    // The unprefixed range reaches down to 0.1, so every decade below 1 counts one higher here.
    const int exponent = n >= 1 ? 3 * (n / 3) : 3 * ((n - 1) / 3);
    std::string text = FormatFixed(width, decimals, Scaled(value, exponent));
    if (exponent != 0) text += PrefixLetter(exponent);
    return text;
}

std::string FormatShortest(double value) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), WithoutNanSign(value));
    return std::string(text.data(), end.ptr);
}

}  // namespace kelvro
