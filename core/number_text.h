#pragma once

#include <string>
#include <string_view>

// Number texts: what fields, reports, read-outs and settings read and write. All conversions are
// independent of the locale and never fail.

namespace kelvro {

struct ParsedNumber {
    double value = 0;
    bool noDigits = true;  ///< no digit was read, so value is 0 for want of a number
};

/// Reads one number from the start of the text: sign, digits with comma or point, exponent or one
/// prefix letter (a f p n u m c d k M g t). What follows is ignored; unreadable text is 0.
ParsedNumber ParseNumber(std::string_view text);

/// ParseNumber for input fields; also knows the lengths "mil" (25.4 µm) and "miles" (1600 m).
double ParseValue(std::string_view text);

/// Engineering text of an output field: mantissa right-aligned in `width` characters with
/// `decimals` decimals, then one suffix letter; the unit range has the suffix "0" so that texts
/// keep their length (1.50 reads 1.500). FormatEng(7, 2, 12.3456e-9) is "  12.35n".
std::string FormatEng(int width, int decimals, double value);

/// Compact engineering text for read-outs, reports and settings: no filler, no suffix from 0.1 to
/// 999. FormatEngShort(2, 4700) is "4.70k"; 0 is "0.0".
std::string FormatEngShort(int decimals, double value);

/// FormatEng as it reads in a sentence, without filler: "15.92 pF", "50.00 Ω", "infinite".
std::string FormatQuantity(int decimals, double value, std::string_view unit);

/// Fixed-point text right-aligned in `width` characters; exact ties round half away from zero.
std::string FormatFixed(int width, int decimals, double value);

/// "%.17g": reads back as the same double; "inf", "-inf", "nan" where it is none.
std::string FormatExact(double value);

/// The shortest text that reads back as the same double: "1e-10", "47". For files that people read
/// as well; "inf", "-inf", "nan" where it is no number.
std::string FormatShortest(double value);

}  // namespace kelvro
