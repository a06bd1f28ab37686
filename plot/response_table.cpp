#include "plot/response_table.h"

#include <cmath>

#include "analysis/response.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr int kSteps = 512;
constexpr const char* kHeader = "Calculated by Kelvro : f/Hz GT/dB V/dB Phi(Vu)/°\r\n";

std::string Line(const Response& response, double f) {
    return FormatEng(7, 3, f) + ' ' + FormatFixed(7, 3, response.relativeDb(f)) + ' ' +
           FormatFixed(7, 3, response.magnitudeDb(f)) + ' ' + FormatFixed(7, 4, response.phase(f)) +
           "\r\n";
}

}  // namespace

std::string ResponseTable(const Design& state, double xmin, double xmax, bool logarithmic) {
    const Response response(state);
    const long double low = xmin;
    const long double high = xmax;
    const long double ratio = std::pow(high / low, 1.0L / kSteps);
    const long double step = (high - low) / kSteps;
    std::string table = kHeader;
    // Extended precision, so that the last frequency reads as the range says.
    long double f = logarithmic ? low : low + step;
    for (int i = 0; i <= kSteps; ++i) {
        table += Line(response, static_cast<double>(f));
        f = logarithmic ? f * ratio : f + step;
    }
    return table;
}

}  // namespace kelvro
