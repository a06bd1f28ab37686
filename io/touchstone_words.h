#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Words and numbers of a line in a file of data.

namespace kelvro {

/// Letters of ASCII in small.
std::string Lower(std::string_view text);
/// Without blanks and tabs at its ends.
std::string_view Trimmed(std::string_view text);
std::vector<std::string_view> WordsOf(std::string_view text);

/// A word as a message quotes it: short and printable.
std::string QuotedWord(std::string_view word);

/// The number that a whole word is: with a sign, an exponent of "e" or, as Fortran writes it, "d";
/// "-inf" occurs as decibels of nothing. Nothing for any other word.
std::optional<double> NumberOf(std::string_view word);

}  // namespace kelvro
