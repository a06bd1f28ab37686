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

constexpr std::array<char, 200> MakePairs() {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}
constexpr std::array<char, 200> kPairs = MakePairs();

/// Eight digits, two by two: the quotients of a group do not wait for those of another.
void PutEight(char* to, std::uint32_t value) {
    const std::array<std::uint32_t, 2> halves{value / 10'000, value % 10'000};
    for (const std::uint32_t half : halves) {
        std::memcpy(to, &kPairs[std::size_t{2} * (half / 100)], 2);
        std::memcpy(to + 2, &kPairs[std::size_t{2} * (half % 100)], 2);
        to += 4;
    }
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
