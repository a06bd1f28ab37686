#include "analysis/tools/number_list.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/number_text.h"

namespace kelvro {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Bytes of UTF-8 sequences count as letters: they belong to a word or a unit.
bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) > 127;
}

bool IsUnit(std::string_view word) {
    static constexpr std::array<std::string_view, 16> units{
        "Hz",  "H",   "F", "V",      "W", "A",    "m",    "s",
        "Ohm", "ohm", "Ω", "\u2126", "S", "Ohms", "ohms", "VA"};
    return std::find(units.begin(), units.end(), word) != units.end();
}

/// One pass over the text; every position is looked at a bounded number of times.
class Finder {
  public:
    explicit Finder(std::string_view text) : text_(text) {}

    std::vector<FoundNumber> run(std::size_t most) {
        std::vector<FoundNumber> found;
        while (at_ < text_.size() && found.size() < most) {
            const char c = text_[at_];
            if (startsNumber(at_)) {
                found.push_back(take());
            } else if (IsLetter(c) || c == '_') {
                skipName();
            } else {
                ++at_;
            }
        }
        return found;
    }

  private:
    char peek(std::size_t at) const { return at < text_.size() ? text_[at] : '\0'; }

    bool startsNumber(std::size_t at) const {
        if (peek(at) == '+' || peek(at) == '-') ++at;
        if (peek(at) == '.') ++at;
        return IsDigit(peek(at));
    }

    void skipName() {
        while (IsLetter(peek(at_)) || IsDigit(peek(at_)) || peek(at_) == '_') ++at_;
    }

    std::size_t digitsFrom(std::size_t at) const {
        while (IsDigit(peek(at))) ++at;
        return at;
    }

    std::size_t wordFrom(std::size_t at) const {
        while (IsLetter(peek(at))) ++at;
        return at;
    }

    FoundNumber take() {
        const std::size_t start = at_;
        const std::size_t end = numberEnd(start);
        std::string number(text_.substr(start, end - start));
        at_ = end;
        takePrefix(number);
        return {start, at_ - start, ParseValue(number)};
    }

    std::size_t numberEnd(std::size_t at) const {
        if (!IsDigit(text_[at]) && text_[at] != '.') ++at;
        at = digitsFrom(at);
        if (peek(at) == '.' || isDecimalComma(at)) at = digitsFrom(at + 1);
        std::size_t exponent = at + 1;
        if (peek(exponent) == '+' || peek(exponent) == '-') ++exponent;
        const bool powers = (peek(at) == 'e' || peek(at) == 'E') && IsDigit(peek(exponent));
        return powers ? digitsFrom(exponent) : at;
    }

    bool isDecimalComma(std::size_t at) const {
        if (peek(at) != ',' || !IsDigit(peek(at + 1))) return false;
        const bool listBefore = at_ > 0 && text_[at_ - 1] == ',';
        const std::size_t next = digitsFrom(at + 1);
        const bool listBehind = (peek(next) == ',' || peek(next) == '.') && IsDigit(peek(next + 1));
        return !listBefore && !listBehind;
    }

    /// Appends the prefix letter to the number when the word that follows begins with one.
    void takePrefix(std::string& number) {
        const std::size_t word = peek(at_) == ' ' ? at_ + 1 : at_;
        const std::size_t end = wordFrom(word);
        const std::string_view unit = text_.substr(word, end - word);
        if (unit == "mil" || unit == "miles") {
            number += unit;
            at_ = end;
            return;
        }
        for (const std::string_view micro : {"µ", "μ"}) {
            if (!unit.starts_with(micro)) continue;
            if (unit.size() > micro.size() && !IsUnit(unit.substr(micro.size()))) return;
            number += 'u';
            at_ = end;
            return;
        }
        // "5A" is a current here; attached to a number only m is rather the prefix than the unit.
        const bool attached = word == at_ && unit.size() == 1 && (unit == "m" || !IsUnit(unit));
        const bool prefixed = unit.size() > 1 && IsUnit(unit.substr(1)) && !IsUnit(unit);
        if (attached || prefixed) number += unit.front();
        if (attached || prefixed || IsUnit(unit)) at_ = end;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<FoundNumber> NumbersIn(std::string_view text, std::size_t most) {
    return Finder(text).run(most);
}

ListSummary SummaryOf(std::span<const double> values) {
    if (values.empty()) return {};
    ListSummary result{0, 0, values.front(), values.front(), 0};
    double reciprocals = 0;
    for (const double value : values) {
        result.sum += value;
        reciprocals += 1 / value;
        result.least = std::min(result.least, value);
        result.largest = std::max(result.largest, value);
    }
    result.mean = result.sum / static_cast<double>(values.size());
    result.parallel = 1 / reciprocals;
    return result;
}

}  // namespace kelvro
