#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/result.h"

// The characters under the grammar of network texts: blanks, names, numbers with units. The first
// failure is kept with its place; what is read after it counts for nothing.

namespace kelvro {

enum class TextUnit : unsigned char { None, Ohm, Henry, Farad, Hertz, Metre, Percent };

class TextReader {
  public:
    explicit TextReader(std::string_view text) : text_(text) {}

    std::size_t place() const { return at_; }
    void moveTo(std::size_t place) { at_ = place; }
    std::string_view rest() const { return text_.substr(at_); }

    /// The first failure as "column 7: …"; done where there was none.
    const Status& status() const { return status_; }
    bool failed() const { return !status_.ok(); }
    /// Notes a failure at a place, unless there is one already.
    void fail(std::size_t place, std::string_view message);
    /// The same at the present place, with what stands there: "expected a number, found 'x'".
    void expected(std::string_view what);

    void skipBlanks();
    bool atEnd();
    /// Does this piece of punctuation stand behind the blanks?
    bool sees(std::string_view mark);
    /// Takes it if it does.
    bool take(std::string_view mark);
    /// Takes it or fails.
    bool need(std::string_view mark);

    /// A letter and the letters, digits, "_" and "'" that follow, behind blanks; may be empty.
    std::string_view word();
    /// A text in quotes, where "" stands for a quote; nothing where no quote stands.
    std::optional<std::string> quoted();
    /// A number with prefix and unit, and with a sign if `sign`; fails where there is none.
    double number(TextUnit unit, bool sign = false);
    /// Could a number without sign start behind the blanks?
    bool seesNumber();

  private:
    struct Suffix {
        int exponent = 0;
        std::size_t length = 0;
    };

    Suffix suffix(TextUnit unit, std::string_view text) const;

    std::string_view text_;
    std::size_t at_ = 0;
    Status status_;
};

}  // namespace kelvro
