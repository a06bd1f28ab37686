// The text "%.17g" of a number. Tables of many frequencies consist of little else, and
// std::to_chars takes three times as long for it.

#include "core/exact_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>

#include "core/number_text.h"

namespace kelvro {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::size_t kDigits = 17;
constexpr std::uint64_t kSmallest = 10'000'000'000'000'000;  // of seventeen digits

/// digits·10^(exponent - 16), with `digits` of seventeen decimal digits, the first one not zero.
struct Decimal {
    std::uint64_t digits = 0;
    int exponent = 0;
};

/// mantissa·2^exponent, the highest bit of the mantissa set; within half a unit of the last bit.
struct PowerOfTen {
    std::uint64_t mantissa = 0;
    int exponent = 0;
};

constexpr int kLowestPower = -270;
constexpr int kHighestPower = 300;
using PowerTable = std::array<PowerOfTen, kHighestPower - kLowestPower + 1>;

PowerTable MakePowers() {
    PowerTable table;
    int power = kLowestPower;
    for (PowerOfTen& entry : table) {
        const std::string text = "1e" + std::to_string(power++);
        long double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        const long double fraction = std::frexp(value, &entry.exponent);
        entry.mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, 64));
        entry.exponent -= 64;
    }
    return table;
}

const PowerOfTen& TenTo(int power) {
    static const PowerTable table = MakePowers();
    return table[static_cast<std::size_t>(power - kLowestPower)];
}

/// floor(binary·log10(2)) for the exponents of doubles.
int DecimalExponent(int binary) {
    return (binary * 315653) >> 20;
}

/// A positive number in seventeen digits. Nothing where a product of 64 correct bits leaves the
/// last digit in doubt (one number in fifty), and outside the range of the powers.
std::optional<Decimal> QuickDecimal(double value) {
    // Where long double has fewer bits, nothing would ever be beyond doubt.
    if (std::numeric_limits<long double>::digits < 64) return {};
    if (!(value > 1e-280 && value < 1e280)) return {};
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int binary = static_cast<int>(bits >> 52) - 1075;
    const std::uint64_t mantissa = (bits & ((1ULL << 52) - 1)) | 1ULL << 52;  // ·2^binary
    // The exponent may be one too low: then there are eighteen digits.
    for (int exponent = DecimalExponent(binary + 52);; ++exponent) {
        const PowerOfTen& power = TenTo(static_cast<int>(kDigits) - 1 - exponent);
        const Wide product = static_cast<Wide>(mantissa) * power.mantissa;
        const int point = -(binary + power.exponent);
        const auto whole = static_cast<std::uint64_t>(product >> point);
        if (whole >= 10 * kSmallest) continue;
        // The power is wrong by half a bit of 64, so the product by a 256th of the last digit.
        constexpr std::uint64_t kHalf = 1ULL << 31;
        constexpr std::uint64_t kDoubt = kHalf >> 6;
        const auto rest = static_cast<std::uint64_t>(product >> (point - 32)) & 0xffffffff;
        if (rest > kHalf - kDoubt && rest < kHalf + kDoubt) return {};
        const std::uint64_t rounded = whole + (rest >> 31);
        if (rounded < kSmallest || rounded >= 10 * kSmallest) return {};
        return Decimal{rounded, exponent};
    }
}

/// A text under construction in a buffer that is large enough.
struct Writer {
    char* end;

    void put(char c) { *end++ = c; }
    void put(const char* from, std::size_t size) { end = std::copy_n(from, size, end); }
    void zeros(std::size_t count) { end = std::fill_n(end, count, '0'); }
};

/// As "%g" arranges digits: with an exponent below 1e-4 and where digits before the point are
/// lacking, without zeros at the end.
void WriteGeneral(Writer& to, const Decimal& decimal) {
    // In two halves: their digits are found side by side.
    std::array<char, kDigits> digits;
    const auto high = static_cast<std::uint32_t>(decimal.digits / 100'000'000);
    auto low = static_cast<std::uint32_t>(decimal.digits % 100'000'000);
    std::to_chars(digits.data(), digits.data() + 9, high);
    for (std::size_t i = kDigits; i-- > 9; low /= 10) {
        digits[i] = static_cast<char>('0' + low % 10);
    }
    std::size_t size = kDigits;
    while (size > 1 && digits[size - 1] == '0') --size;

    const int exponent = decimal.exponent;
    std::size_t whole = 1;  // digits before the point
    const bool scientific = exponent < -4 || exponent >= static_cast<int>(kDigits);
    if (!scientific && exponent < 0) {
        to.put("0.", 2);
        to.zeros(static_cast<std::size_t>(-exponent - 1));
        return to.put(digits.data(), size);
    }
    if (!scientific) whole += static_cast<std::size_t>(exponent);
    to.put(digits.data(), std::min(size, whole));
    if (size < whole) to.zeros(whole - size);
    if (size > whole) {
        to.put('.');
        to.put(digits.data() + whole, size - whole);
    }
    if (!scientific) return;
    to.put(exponent < 0 ? "e-" : "e+", 2);
    if (std::abs(exponent) < 10) to.put('0');
    to.end = std::to_chars(to.end, to.end + 4, std::abs(exponent)).ptr;
}

}  // namespace

void AppendExact(std::string& to, double value) {
    std::array<char, 40> text;
    Writer writer{text.data()};
    if (const auto decimal = QuickDecimal(std::fabs(value))) {
        if (value < 0) writer.put('-');
        WriteGeneral(writer, *decimal);
    } else {
        if (std::isnan(value)) value = std::fabs(value);
        writer.end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::general, static_cast<int>(kDigits))
                         .ptr;
    }
    to.append(text.data(), static_cast<std::size_t>(writer.end - text.data()));
}

std::string FormatExact(double value) {
    std::string text;
    AppendExact(text, value);
    return text;
}

}  // namespace kelvro
