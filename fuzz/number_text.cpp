// Number texts: any text is read as a number, any number is written so that it reads back.

#include <cmath>
#include <cstring>

#include "core/number_text.h"
#include "fuzz/require.h"

using namespace kelvro;

namespace {

void CheckWritten(double value) {
    const std::string exact = FormatExact(value);
    const std::string shortest = FormatShortest(value);
    FormatEng(7, 2, value);
    FormatFixed(7, 3, value);
    FormatQuantity(2, value, "Hz");
    const std::string brief = FormatEngShort(2, value);
    if (!std::isfinite(value)) return;
    Require(std::strtod(exact.c_str(), nullptr) == value, "seventeen digits read back", exact);
    Require(std::strtod(shortest.c_str(), nullptr) == value, "the shortest text reads back",
            shortest);
    const double size = std::fabs(value);
    if (!(size > 1e-17 && size < 1e12)) return;
    // The shortest mantissa of the compact form is 0.10.
    Require(std::fabs(ParseValue(brief) - value) <= 0.051 * size, "compact text", brief);
    Require(std::fabs(ParseValue(shortest) - value) <= 1e-14 * size, "own reader", shortest);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = TextOf(data, size);
    const double read = ParseValue(text);
    Require(!std::isnan(read), "a text is a number", std::string(text));
    CheckWritten(read);
    if (size >= sizeof(double)) {
        double value = 0;
        std::memcpy(&value, data, sizeof value);
        CheckWritten(value);
    }
    return 0;
}
