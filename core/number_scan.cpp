#include "core/number_scan.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace kelvro {

namespace {

/// Factor of a prefix letter; nothing for a character that is none. Case matters for m and M only.
std::optional<long double> PrefixFactor(char c) {
    switch (c) {
        case 'a':
        case 'A':
            return 1e-18L;
        case 'f':
        case 'F':
            return 1e-15L;
        case 'p':
        case 'P':
            return 1e-12L;
        case 'n':
        case 'N':
            return 1e-9L;
        case 'u':
        case 'U':
            return 1e-6L;
        case 'm':
            return 1e-3L;
        case 'c':
        case 'C':
            return 1e-2L;
        case 'd':
        case 'D':
            return 1e-1L;
        case 'k':
        case 'K':
            return 1e3L;
        case 'M':
            return 1e6L;
        case 'g':
        case 'G':
            return 1e9L;
        case 't':
        case 'T':
            return 1e12L;
        default:
            return std::nullopt;
    }
}

/// Letters of "mil" and "miles" that carry no value but do not end the number either.
bool IsSilentLetter(char c) {
    return c == 'I' || c == 'L' || c == 'S' || c == 'i' || c == 'l' || c == 's';
}

/// The scan of one number: which characters are still accepted, and what was read so far.
class NumberScan {
  public:
    ScannedNumber run(std::string_view text) {
        std::size_t at = std::min(text.find_first_not_of(' '), text.size());
        for (; at < text.size(); ++at) {
            const char next = at + 1 < text.size() ? text[at + 1] : '\0';
            if (!take(text[at], next)) break;
        }
        return {result(), noDigits_, prefixed_ ? at + 1 : at};
    }

  private:
    /// Takes one character; false ends the scan.
    bool take(char c, char next) {
        if (c == '+' || c == '-') return takeSign(c);
        if (c == ',' || c == '.') return startFraction();
        if (c >= '0' && c <= '9') return takeDigit(c - '0');
        if (c == 'E' || c == 'e') return startExponent();
        if (exponent_) return false;
        if (IsSilentLetter(c)) return true;
        return takePrefix(c, next);
    }

    bool takeSign(char c) {
        if (!signAllowed_) return false;
        negative_ = c == '-';
        signAllowed_ = false;
        return true;
    }

    bool startFraction() {
        if (!fractionAllowed_) return false;
        fraction_ = true;
        divisor_ = 1;
        signAllowed_ = fractionAllowed_ = false;
        return true;
    }

    bool takeDigit(int digit) {
        if (fraction_) {
            divisor_ *= 10;
            value_ += digit / divisor_;
        } else {
            value_ = 10 * value_ + digit;
        }
        signAllowed_ = noDigits_ = false;
        return true;
    }

    bool startExponent() {
        if (exponent_) return false;
        exponent_ = true;
        mantissa_ = negative_ ? -value_ : value_;
        value_ = 0;
        negative_ = fraction_ = fractionAllowed_ = false;
        signAllowed_ = true;
        return true;
    }

    bool takePrefix(char c, char next) {
        const auto factor = PrefixFactor(c);
        const bool decibel = (c == 'd' || c == 'D') && (next == 'B' || next == 'b');
        prefixed_ = factor && !decibel;
        if (prefixed_) value_ *= *factor;
        return false;
    }

    double result() const {
        const long double number = negative_ && value_ != 0 ? -value_ : value_;
        if (!exponent_) return static_cast<double>(number);
        // 0·10^∞ and ∞·10^-∞ come from absurd texts only; they read as 0, like other garbage.
        const long double scaled = mantissa_ == 0 ? 0 : mantissa_ * std::pow(10.0L, number);
        return std::isnan(scaled) ? 0 : static_cast<double>(scaled);
    }

    long double value_ = 0;
    long double divisor_ = 1;
    long double mantissa_ = 0;
    bool negative_ = false;
    bool fraction_ = false;
    bool exponent_ = false;
    bool signAllowed_ = true;
    bool fractionAllowed_ = true;
    bool noDigits_ = true;
    bool prefixed_ = false;  ///< ended by a prefix letter, which belongs to the number
};

}  // namespace

ScannedNumber ScanNumber(std::string_view text) {
    return NumberScan().run(text);
}

}  // namespace kelvro
