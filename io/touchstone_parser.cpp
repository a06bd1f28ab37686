// Reading of Touchstone files: lines, options and keywords, rows of numbers, conversion.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <optional>

#include "core/number_text.h"
#include "io/touchstone.h"
#include "io/touchstone_words.h"
#include "network/two_port.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr std::size_t kExaminedBytes = 65536;
constexpr std::size_t kMostComments = 20;

/// Bytes that no text has; texts of two bytes per character are full of them.
bool IsBinary(std::string_view text) {
    return std::ranges::any_of(text.substr(0, kExaminedBytes), [](char c) {
        constexpr std::string_view spacing = "\t\r\n\f\v\x1A";
        return static_cast<unsigned char>(c) < 0x20 && spacing.find(c) == std::string_view::npos;
    });
}

struct FrequencyUnit {
    std::string_view name;
    double hertz;
};

constexpr std::array<FrequencyUnit, 5> kUnits{
    {{"Hz", 1}, {"kHz", 1e3}, {"MHz", 1e6}, {"GHz", 1e9}, {"THz", 1e12}}};

enum class MatrixFormat : unsigned char { Full, Lower, Upper };

/// One frequency with the numbers of its row, before conversion.
struct Row {
    std::size_t line = 0;
    double f = 0;
    std::array<double, 8> numbers{};
};

class TouchstoneParser {
  public:
    explicit TouchstoneParser(std::string_view name) : name_(name) {
        content_.data.name = name_;
        const std::string lower = Lower(name_);
        const auto dot = lower.rfind(".s");
        if (dot == std::string::npos || !lower.ends_with('p')) return;
        const std::string_view digits =
            std::string_view(lower).substr(dot + 2, lower.size() - dot - 3);
        std::from_chars(digits.data(), digits.data() + digits.size(), ports_);
    }

    Result<TouchstoneContent> run(std::string_view text);

  private:
    void readLine(std::string_view line);
    void noteComment(std::string_view comment);

    void readOptions(std::string_view line);
    bool readOption(const std::string& word);
    void readKeyword(std::string_view line);
    void readPorts(const std::vector<std::string_view>& words);
    void readChoice(std::string_view keyword, std::string_view value);
    void readReference(const std::vector<std::string_view>& words);
    void startData();

    void readRow(const std::vector<std::string_view>& words);
    bool isNoise(const std::vector<std::string_view>& words) const;
    void findPorts(std::size_t numbers);
    void finishRow();
    std::size_t numbersPerRow() const;

    void finish();
    void convertRows();
    Cx complex(double first, double second) const;
    std::optional<std::array<Cx, 4>> scattering(const Row& row) const;

    void fail(const std::string& message) { fail(line_, message); }
    void fail(std::size_t line, const std::string& message);
    void expected(const std::string& what, std::string_view found) {
        fail("expected " + what + ", found " + (found.empty() ? "nothing" : QuotedWord(found)));
    }
    void warn(const std::string& message) {
        content_.warnings.push_back("line " + std::to_string(line_) + ": " + message);
    }

    std::string name_;
    TouchstoneContent content_;
    Status failure_;
    std::size_t line_ = 0;

    int ports_ = 0;
    double hertz_ = 1e9;
    double optionReference_ = 50;
    bool options_ = false;
    bool keywords_ = false;     ///< version 2: data stand behind [Network Data]
    bool data_ = false;         ///< data have begun
    bool ended_ = false;        ///< nothing more is read
    bool information_ = false;  ///< between [Begin Information] and [End Information]
    bool order12_ = false;
    bool orderGiven_ = false;
    MatrixFormat matrix_ = MatrixFormat::Full;
    std::size_t promised_ = 0;
    std::size_t missingReferences_ = 0;
    std::vector<double> references_;

    std::vector<Row> rows_;
    Row row_;
    std::size_t filled_ = 0;      ///< numbers of row_, its frequency counted
    std::size_t firstWords_ = 0;  ///< on the line where the first row starts
};

void TouchstoneParser::fail(std::size_t line, const std::string& message) {
    if (failure_.ok()) {
        failure_ = Status::Failure(name_ + ", line " + std::to_string(line) + ": " + message);
    }
    ended_ = true;
}

Result<TouchstoneContent> TouchstoneParser::run(std::string_view text) {
    line_ = 1;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    if (ports_ > 2) fail("expected one or two ports, found " + std::to_string(ports_));
    if (IsBinary(text)) fail("expected text, found binary data");
    for (line_ = 0; !text.empty() && !ended_;) {
        ++line_;
        const auto end = std::min(text.find_first_of("\r\n\x1A"), text.size());
        readLine(text.substr(0, end));
        if (end == text.size() || text[end] == '\x1A') break;
        text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
    if (failure_.ok()) finish();
    if (!failure_.ok()) return failure_;
    return std::move(content_);
}

void TouchstoneParser::readLine(std::string_view line) {
    const auto comment = std::min(line.find('!'), line.size());
    if (comment < line.size()) noteComment(line.substr(comment + 1));
    line = Trimmed(line.substr(0, comment));
    if (line.empty()) return;
    if (line[0] == '[') return readKeyword(line);
    if (information_) return;
    if (line[0] == '#') return readOptions(line.substr(1));
    const auto words = WordsOf(line);
    if (missingReferences_ > 0) return readReference(words);
    readRow(words);
}

void TouchstoneParser::noteComment(std::string_view comment) {
    comment = Trimmed(comment);
    if (!comment.empty() && content_.comments.size() < kMostComments && rows_.empty()) {
        content_.comments.emplace_back(comment);
    }
}

// ---------------------------------------------------------------- options and keywords

/// Unit, parameter, format and "R number" in any order and case.
void TouchstoneParser::readOptions(std::string_view line) {
    if (options_) return warn("a second option line is ignored");
    if (data_) return fail("expected the option line before the data");
    options_ = true;
    const auto words = WordsOf(line);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string word = Lower(words[i]);
        if (readOption(word)) continue;
        if (!word.starts_with('r')) {
            return expected("a unit, S, Y or Z, MA, DB or RI, or R with its resistance", words[i]);
        }
        std::string_view number = words[i].substr(1);
        if (number.empty() && i + 1 < words.size()) number = words[++i];
        const auto R = NumberOf(number);
        if (!R || !(*R > 0) || !std::isfinite(*R)) {
            return expected("a resistance above 0 behind R", number);
        }
        optionReference_ = *R;
    }
}

/// A word of the option line other than R.
bool TouchstoneParser::readOption(const std::string& word) {
    for (const FrequencyUnit& unit : kUnits) {
        if (word != Lower(unit.name)) continue;
        hertz_ = unit.hertz;
        content_.unit = unit.name;
        return true;
    }
    if (word == "ma" || word == "db" || word == "ri") {
        content_.format = word == "ma" ? "MA" : word == "db" ? "DB" : "RI";
        return true;
    }
    if (word == "s" || word == "y" || word == "z") {
        content_.parameter = static_cast<char>(word[0] + 'A' - 'a');
        return true;
    }
    if (word == "h" || word == "g") {
        fail("expected S, Y or Z parameters, found " + std::string(word == "h" ? "H" : "G") +
             ", hybrid parameters, which are not read");
        return true;
    }
    return false;
}

void TouchstoneParser::readKeyword(std::string_view line) {
    const auto close = line.find(']');
    if (close == std::string_view::npos) return expected("']' behind a keyword", line);
    const std::string keyword = Lower(Trimmed(line.substr(1, close - 1)));
    const std::string_view behind = line.substr(close + 1);
    const auto words = WordsOf(behind);
    const std::string_view value = words.empty() ? std::string_view() : words[0];
    if (keyword == "end information") information_ = false;
    if (keyword == "begin information") information_ = true;
    if (information_ || keyword == "end information") return;
    if (missingReferences_ > 0) return expected("the references of all ports", line);
    if (keyword == "reference") {
        missingReferences_ = static_cast<std::size_t>(std::max(ports_, 1));
        return readReference(words);
    }
    if (keyword == "number of ports") return readPorts(words);
    if (keyword == "network data") return startData();
    if (keyword == "noise data" || keyword == "end") {
        content_.noise = content_.noise || keyword == "noise data";
        ended_ = true;
        return;
    }
    if (keyword == "mixed-mode order") {
        return fail("expected single-ended data, found [Mixed-Mode Order]");
    }
    if (keyword == "number of noise frequencies") return;
    if (keyword == "version" || keyword == "two-port data order" || keyword == "matrix format" ||
        keyword == "two-port order" || keyword == "number of frequencies") {
        return readChoice(keyword, value);
    }
    warn('[' + std::string(Trimmed(line.substr(1, close - 1))) + "] is not known and skipped");
}

void TouchstoneParser::readPorts(const std::vector<std::string_view>& words) {
    const auto number = words.empty() ? std::nullopt : NumberOf(words[0]);
    if (!number || (*number != 1 && *number != 2)) {
        return expected("one or two ports", words.empty() ? std::string_view() : words[0]);
    }
    ports_ = static_cast<int>(*number);
}

/// Keywords with a single word behind them.
void TouchstoneParser::readChoice(std::string_view keyword, std::string_view value) {
    const std::string lower = Lower(value);
    if (keyword == "version") {
        if (!value.starts_with("1.") && !value.starts_with("2.")) {
            return expected("version 1 or 2", value);
        }
        content_.version = value[0] - '0';
        keywords_ = content_.version == 2;
    } else if (keyword == "matrix format") {
        if (lower != "full" && lower != "lower" && lower != "upper") {
            return expected("Full, Lower or Upper", value);
        }
        matrix_ = lower == "full"    ? MatrixFormat::Full
                  : lower == "lower" ? MatrixFormat::Lower
                                     : MatrixFormat::Upper;
    } else if (keyword == "number of frequencies") {
        const auto number = NumberOf(value);
        if (!number || !(*number >= 1) || *number > 1e9) {
            return expected("a number of frequencies", value);
        }
        promised_ = static_cast<std::size_t>(*number);
    } else {
        if (value != "12_21" && value != "21_12") return expected("12_21 or 21_12", value);
        order12_ = value == "12_21";
        orderGiven_ = true;
    }
}

void TouchstoneParser::readReference(const std::vector<std::string_view>& words) {
    for (const std::string_view word : words) {
        const auto R = NumberOf(word);
        if (!R || !(*R > 0) || !std::isfinite(*R) || missingReferences_ == 0) {
            return expected("one resistance above 0 for each port", word);
        }
        references_.push_back(*R);
        --missingReferences_;
    }
}

void TouchstoneParser::startData() {
    keywords_ = true;
    data_ = true;
    if (!options_) return fail("expected an option line (# GHz S MA R 50) before [Network Data]");
    if (ports_ == 0) return fail("expected [Number of Ports] before [Network Data]");
    if (ports_ == 2 && !orderGiven_) warn("[Two-Port Data Order] is missing, 21_12 assumed");
}

// ---------------------------------------------------------------- rows

std::size_t TouchstoneParser::numbersPerRow() const {
    if (ports_ == 1) return 3;
    return matrix_ == MatrixFormat::Full ? 9 : 7;
}

/// Noise data of version 1 start where the frequency falls back, with five numbers in a row.
bool TouchstoneParser::isNoise(const std::vector<std::string_view>& words) const {
    if (keywords_ || ports_ != 2 || rows_.empty() || words.size() != 5 || firstWords_ == 5) {
        return false;
    }
    const auto f = NumberOf(words[0]);
    return f && *f * hertz_ <= rows_.back().f;
}

void TouchstoneParser::findPorts(std::size_t numbers) {
    ports_ = numbers == 3 ? 1 : 2;
    if (numbers != 3 && numbers != 9 && numbers != 5) {
        fail("expected 3 numbers (one port) or 9 (two ports), found " + std::to_string(numbers));
    }
}

void TouchstoneParser::readRow(const std::vector<std::string_view>& words) {
    if (keywords_ && !data_) return expected("[Network Data] before the data", words[0]);
    if (!NumberOf(words[0])) {
        const std::string hint = words[0].find(',') == std::string_view::npos
                                     ? "a number"
                                     : "a number with a decimal point";
        return expected(
            rows_.empty() && !options_ ? "an option line (# GHz S MA R 50) or numbers" : hint,
            words[0]);
    }
    if (!options_ && !data_) warn("no option line, GHz S MA R 50 assumed");
    data_ = true;
    if (filled_ == 0) {
        if (ports_ == 0) findPorts(words.size());
        if (isNoise(words)) {
            content_.noise = ended_ = true;
            return;
        }
        if (rows_.empty()) firstWords_ = words.size();
        row_.line = line_;
    }
    const std::size_t wanted = numbersPerRow();
    if (filled_ + words.size() > wanted) {
        return fail("expected " + std::to_string(wanted) + " numbers for a frequency, found " +
                    std::to_string(filled_ + words.size()));
    }
    for (const std::string_view word : words) {
        const auto number = NumberOf(word);
        if (!number) {
            return expected(word.find(',') == std::string_view::npos
                                ? "a number"
                                : "a number with a decimal point",
                            word);
        }
        if (filled_ == 0) {
            row_.f = *number * hertz_;
        } else {
            row_.numbers[filled_ - 1] = *number;
        }
        ++filled_;
    }
    if (filled_ == wanted) finishRow();
}

void TouchstoneParser::finishRow() {
    filled_ = 0;
    if (!(row_.f >= 0) || !std::isfinite(row_.f)) {
        return fail(row_.line, "expected a frequency, found " + FormatShortest(row_.f) + " Hz");
    }
    if (!rows_.empty() && !(row_.f > rows_.back().f)) {
        return fail(row_.line, "expected a frequency above " + FormatShortest(rows_.back().f) +
                                   " Hz, found " + FormatShortest(row_.f) +
                                   " Hz: frequencies have to rise");
    }
    rows_.push_back(row_);
}

// ---------------------------------------------------------------- conversion

Cx TouchstoneParser::complex(double first, double second) const {
    if (content_.format == "RI") return {first, second};
    const double size = content_.format == "DB" ? std::pow(10.0, first / 20) : first;
    return std::polar(1.0, second * std::numbers::pi / 180) * size;
}

/// Matrix of a row in the order 11 12 21 22, as scattering parameters. Z and Y of version 1 are
/// normalized to R.
std::optional<std::array<Cx, 4>> TouchstoneParser::scattering(const Row& row) const {
    const auto pair = [&](std::size_t i) {
        return complex(row.numbers[2 * i], row.numbers[2 * i + 1]);
    };
    std::array<Cx, 4> m{};
    if (ports_ == 1) {
        m = {pair(0), 0, 0, 0};
    } else if (matrix_ != MatrixFormat::Full) {
        m = {pair(0), pair(1), pair(1), pair(2)};
    } else if (order12_) {
        m = {pair(0), pair(1), pair(2), pair(3)};
    } else {
        m = {pair(0), pair(2), pair(1), pair(3)};
    }
    const auto finite = [](const Matrix2& matrix) -> std::optional<std::array<Cx, 4>> {
        if (!matrix.finite()) return std::nullopt;
        return matrix.m;
    };
    if (content_.parameter == 'S') return finite({m});
    const bool impedance = content_.parameter == 'Z';
    const auto [R1, R2] = content_.data.reference;
    if (content_.version == 1) {
        for (Cx& x : m) x *= impedance ? R1 : 1 / R1;
    }
    if (ports_ == 1) {
        const Cx z = impedance ? m[0] / R1 : m[0] * R1;
        return finite({{impedance ? (z - 1.0) / (z + 1.0) : (1.0 - z) / (1.0 + z), 0, 0, 0}});
    }
    const auto S = ToScattering(impedance ? Parameters::Z : Parameters::Y, {m}, {R1, R2});
    return S ? finite(*S) : std::nullopt;
}

void TouchstoneParser::convertRows() {
    PortData& data = content_.data;
    data.ports = ports_;
    data.reference = {optionReference_, optionReference_};
    for (std::size_t i = 0; i < references_.size() && i < 2; ++i)
        data.reference[i] = references_[i];
    if (ports_ == 1) data.reference[1] = data.reference[0];
    data.f.reserve(rows_.size());
    data.s.reserve(rows_.size());
    for (const Row& row : rows_) {
        const auto S = scattering(row);
        if (!S) return fail(row.line, "expected finite parameters");
        data.f.push_back(row.f);
        data.s.push_back(*S);
    }
}

void TouchstoneParser::finish() {
    if (filled_ > 0) {
        return fail(row_.line, "expected " + std::to_string(numbersPerRow()) + " numbers, found " +
                                   std::to_string(filled_));
    }
    if (rows_.empty()) {
        line_ = std::max<std::size_t>(line_, 1);
        return fail("expected rows of data, the file has none");
    }
    if (promised_ > 0 && promised_ != rows_.size()) {
        warn("[Number of Frequencies] says " + std::to_string(promised_) + ", there are " +
             std::to_string(rows_.size()));
    }
    convertRows();
    if (failure_.ok() && rows_.size() == 1) {
        content_.warnings.push_back("one frequency only: there is nothing between samples");
    }
}

}  // namespace

Result<TouchstoneContent> ParseTouchstone(std::string_view text, std::string_view name) {
    return TouchstoneParser(name).run(text);
}

}  // namespace kelvro
