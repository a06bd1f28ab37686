#include "synthesis/owned_parts.h"

#include <algorithm>
#include <string>

#include "network/network_text.h"

namespace kelvro {

namespace {

constexpr std::string_view kSeparators = " \t\r,;";

bool IsKind(std::string_view letter) {
    return letter == "L" || letter == "C" || letter == "R";
}

/// "L", "C" or "R" of a word like "22nH"; empty where the word does not say.
std::string_view KindByUnit(std::string_view word) {
    if (word.ends_with('H')) return "L";
    if (word.ends_with('F')) return "C";
    if (word.ends_with("Ω") || word.ends_with("ohm")) return "R";
    return {};
}

/// Words of a list with the kind that headings before them give.
class ListReader {
  public:
    Status line(std::string_view text, int number) {
        text = text.substr(0, text.find('#'));
        while (!text.empty()) {
            const auto begin = text.find_first_not_of(kSeparators);
            if (begin == std::string_view::npos) break;
            text.remove_prefix(begin);
            const auto end = std::min(text.find_first_of(kSeparators), text.size());
            if (!word(text.substr(0, end))) {
                return Status::Failure("line " + std::to_string(number) + ": " +
                                       std::string(text.substr(0, end)) +
                                       " is no value of an inductor, a capacitor or a resistor");
            }
            text.remove_prefix(end);
        }
        return {};
    }

    OwnedParts parts;

  private:
    bool word(std::string_view word) {
        if (word.ends_with(':') && IsKind(word.substr(0, word.size() - 1))) {
            heading_ = word.substr(0, 1);
            return true;
        }
        std::string text(word);
        if (word.find('=') == std::string_view::npos) {
            const std::string_view unit = KindByUnit(word);
            const std::string_view kind = unit.empty() ? std::string_view(heading_) : unit;
            text = std::string(kind) + "=" + text;
        }
        const auto read = ParseImpedance(text);
        const Part* part = read ? std::get_if<Part>(&read->is) : nullptr;
        if (!part || !(part->value > 0)) return false;
        auto& values = part->kind == PartKind::Inductor    ? parts.inductors
                       : part->kind == PartKind::Capacitor ? parts.capacitors
                                                           : parts.resistors;
        values.push_back(part->value);
        return true;
    }

    std::string heading_;
};

}  // namespace

Result<OwnedParts> ParseOwnedParts(std::string_view text) {
    ListReader reader;
    for (int number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        if (Status problem = reader.line(text.substr(0, end), number); !problem) return problem;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (reader.parts == OwnedParts()) return Status::Failure("the list holds no values");
    return reader.parts;
}

}  // namespace kelvro
