#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace kelvro {

/// A number that stands somewhere in a text.
struct FoundNumber {
    std::size_t at;      ///< first byte
    std::size_t length;  ///< with sign, exponent, prefix letter and unit
    double value;
};

/// The numbers of a free text in their order, at most `most`. A number starts where no name is
/// running (the 1 of "R1" is none). A prefix letter counts behind the digits, or behind one space
/// when a unit follows it ("100 nF"). A comma is a decimal comma between two digits unless a list
/// is running ("1,2,3"); commas before a space separate.
std::vector<FoundNumber> NumbersIn(std::string_view text, std::size_t most = 10000);

/// What is usually wanted of a list of numbers; zeros for an empty one.
struct ListSummary {
    double sum = 0;
    double mean = 0;
    double least = 0;
    double largest = 0;
    double parallel = 0;  ///< 1/(sum of the reciprocals)
};
ListSummary SummaryOf(std::span<const double> values);

}  // namespace kelvro
