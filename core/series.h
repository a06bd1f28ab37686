#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvro {

/// Preferred-number series of IEC 60063; the numbers are those of the series selector.
enum class Series : unsigned char { None = 0, E6 = 1, E12 = 2, E24 = 3, E48 = 4, E96 = 5 };

/// "E6" … "E96" by name, case ignored; nothing for any other text.
std::optional<Series> SeriesByName(std::string_view name);

/// The values of a series from 1 on, below 10; empty for Series::None.
std::span<const double> SeriesMantissas(Series series);

/// Text (FormatEng 6/2) of the series value below x > 0. A value that stands in the series gives
/// the next lower one; SeriesNearest makes up for it. Series::None gives x itself.
std::string SeriesBelow(Series series, double x);

/// Text of the smallest series value not below x > 0; the start of a decade gives the second value.
std::string SeriesAbove(Series series, double x);

/// The nearer of the two, judged by their texts; a tie goes up.
std::string SeriesNearest(Series series, double x);

}  // namespace kelvro
