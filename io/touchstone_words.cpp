#include "io/touchstone_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kelvro {

namespace {

constexpr std::string_view kBlanks = " \t\f\v";

}  // namespace

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 'a' - 'A');
    }
    return lower;
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> WordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!(text = Trimmed(text)).empty()) {
        const auto length = std::min(text.find_first_of(kBlanks), text.size());
        words.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return words;
}

std::string QuotedWord(std::string_view word) {
    constexpr std::size_t kShown = 24;
    std::string text(word.substr(0, kShown));
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
    return '\'' + text + (word.size() > kShown ? "…'" : "'");
}

std::optional<double> NumberOf(std::string_view word) {
    std::array<char, 64> copy{};
    if (word.starts_with('+')) word.remove_prefix(1);
    if (word.empty() || word.size() >= copy.size()) return std::nullopt;
    std::ranges::transform(word, copy.begin(),
                           [](char c) { return c == 'd' || c == 'D' ? 'e' : c; });
    double value = 0;
    const char* end = copy.data() + word.size();
    const auto read = std::from_chars(copy.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end || std::isnan(value)) return std::nullopt;
    return value;
}

}  // namespace kelvro
