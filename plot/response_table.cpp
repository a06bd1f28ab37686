#include "plot/response_table.h"

#include <array>
#include <cmath>
#include <string_view>

#include "analysis/trace.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr int kSteps = 512;
constexpr const char* kHeader = "Calculated by Kelvro : f/Hz GT/dB V/dB Phi(Vu)/°\r\n";

struct Column {
    std::string_view trace;
    int decimals;
};
/// The file is read by other programs: its columns stay these.
constexpr std::array kColumns{Column{"gt", 3}, Column{"v", 3}, Column{"phi", 4}};

std::string RowText(const TraceSource& source, double f) {
    std::string line = FormatEng(7, 3, f);
    for (const auto& [trace, decimals] : kColumns) {
        line += ' ' + FormatFixed(7, decimals, TraceOf(trace).value(source, f));
    }
    return line + "\r\n";
}

}  // namespace

std::string ResponseTable(const Design& state, double xmin, double xmax, bool logarithmic) {
    const TraceSource source(state);
    const long double low = xmin;
    const long double high = xmax;
    const long double ratio = std::pow(high / low, 1.0L / kSteps);
    const long double step = (high - low) / kSteps;
    std::string table = kHeader;
    // Extended precision, so that the last frequency reads as the range says.
    long double f = logarithmic ? low : low + step;
    for (int i = 0; i <= kSteps; ++i) {
        table += RowText(source, static_cast<double>(f));
        f = logarithmic ? f * ratio : f + step;
    }
    return table;
}

}  // namespace kelvro
