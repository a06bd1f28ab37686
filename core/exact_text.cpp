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
#include <cstring>
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

PowerOfTen MakePower(int power) {
    const std::string text = "1e" + std::to_string(power);
    long double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    PowerOfTen made;
    const long double fraction = std::frexp(value, &made.exponent);
    made.mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, 64));
    made.exponent -= 64;
    return made;
}

/// Made when first asked for: a table needs a dozen of them, and all take 0.3 ms, a tenth of a
/// short run. Each thread has its own, which asks for no lock.
const PowerOfTen& TenTo(int power) {
    thread_local PowerTable table{};
    PowerOfTen& entry = table[static_cast<std::size_t>(power - kLowestPower)];
    if (entry.mantissa == 0) [[unlikely]]
        entry = MakePower(power);
    return entry;
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
    const std::uint64_t mantissa = bits << 11 | 1ULL << 63;  // ·2^(binary - 11)
    // The exponent may be one too low: then there are eighteen digits.
    for (int exponent = DecimalExponent(binary + 52);; ++exponent) {
        const PowerOfTen& power = TenTo(static_cast<int>(kDigits) - 1 - exponent);
        const Wide product = static_cast<Wide>(mantissa) * power.mantissa;
        const auto high = static_cast<std::uint64_t>(product >> 64);
        // The highest bit is the 126th or 127th, that of the whole part the 53rd to 59th.
        const int point = 11 - 64 - (binary + power.exponent);
        const std::uint64_t whole = high >> point;
        if (whole >= 10 * kSmallest) continue;
        // The power is wrong by half a bit of 64, so the product by a 256th of the last digit.
        constexpr std::uint64_t kHalf = 1ULL << 31;
        constexpr std::uint64_t kDoubt = kHalf >> 6;
        const std::uint64_t rest =
            (high << (64 - point) | static_cast<std::uint64_t>(product) >> point) >> 32;
        if (rest > kHalf - kDoubt && rest < kHalf + kDoubt) return {};
        const std::uint64_t rounded = whole + (rest >> 31);
        if (rounded < kSmallest || rounded >= 10 * kSmallest) return {};
        return Decimal{rounded, exponent};
    }
}

/// Eight digits as characters: fours, then pairs, then single ones, of all parts at once.
void PutEight(char* to, std::uint32_t value) {
    const std::uint64_t fours = value / 10'000 | std::uint64_t{value % 10'000} << 32;
    // n·5243/2^19 is n/100 for all n below 10 000, n·103/2^10 is n/10 for all below 100.
    const std::uint64_t hundreds = (fours * 5243 >> 19) & 0x7F'0000'007F;
    const std::uint64_t pairs = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = (pairs * 103 >> 10) & 0x0F'000F'000F'000F;
    std::uint64_t digits = (tens | (pairs - 10 * tens) << 8) + 0x3030'3030'3030'3030;
    if constexpr (std::endian::native == std::endian::big) digits = __builtin_bswap64(digits);
    std::memcpy(to, &digits, sizeof digits);
}

/// The first digit and, at `rest`, the sixteen others.
void PutDigits(char* first, char* rest, std::uint64_t digits) {
    const auto high = static_cast<std::uint32_t>(digits / 100'000'000);
    *first = static_cast<char>('0' + high / 100'000'000);
    PutEight(rest, high % 100'000'000);
    PutEight(rest + 8, static_cast<std::uint32_t>(digits % 100'000'000));
}

std::size_t WithoutZerosAtTheEnd(std::uint64_t digits) {
    std::size_t size = kDigits;
    for (; digits % 10 == 0; digits /= 10) --size;
    return size;
}

/// As "%g" arranges digits: with an exponent below 1e-4 and where digits before the point are
/// lacking, without zeros at the end. The end of what was written; behind it may stand more.
char* WriteGeneral(char* to, const Decimal& decimal) {
    const int exponent = decimal.exponent;
    const std::size_t size = WithoutZerosAtTheEnd(decimal.digits);
    const bool scientific = exponent < -4 || exponent >= static_cast<int>(kDigits);
    if (!scientific && exponent < 0) {
        constexpr std::array leading{'0', '.', '0', '0', '0'};
        std::memcpy(to, leading.data(), leading.size());
        to += 1 - exponent;
        PutDigits(to, to + 1, decimal.digits);
        return to + size;
    }
    const std::size_t whole = scientific ? 1 : static_cast<std::size_t>(exponent) + 1;
    PutDigits(to, to + 2, decimal.digits);
    for (std::size_t i = 1; i < whole; ++i) to[i] = to[i + 1];
    char* end = to + std::max(size, whole);
    if (size > whole) {
        to[whole] = '.';
        ++end;
    }
    if (!scientific) return end;
    *end++ = 'e';
    *end++ = exponent < 0 ? '-' : '+';
    if (std::abs(exponent) < 10) *end++ = '0';
    return std::to_chars(end, end + 4, std::abs(exponent)).ptr;
}

}  // namespace

char* WriteExact(char* to, double value) {
    if (const auto decimal = QuickDecimal(std::fabs(value))) {
        if (value < 0) *to++ = '-';
        return WriteGeneral(to, *decimal);
    }
    if (std::isnan(value)) value = std::fabs(value);
    return std::to_chars(to, to + kLongestExact, value, std::chars_format::general,
                         static_cast<int>(kDigits))
        .ptr;
}

std::string FormatExact(double value) {
    std::array<char, kLongestExact> text;
    return {text.data(), WriteExact(text.data(), value)};
}

}  // namespace kelvro
