#include "io/response_table.h"

#include <cmath>

#include "core/number_text.h"

namespace kelvro {

std::string ResponseCsvHeader() {
    std::string header = "f_Hz,re,im";
    for (const Trace& trace : Traces()) header += ',' + std::string(trace.column);
    return header + '\n';
}

std::string ResponseCsvRow(const TraceSource& source, double f) {
    const auto H = source.response.transfer(f);
    std::string row = FormatExact(f) + ',' + FormatExact(H.real()) + ',' + FormatExact(H.imag());
    for (const Trace& trace : Traces()) {
        const double value = trace.value(source, f);
        row += ',' + (std::isnan(value) ? std::string() : FormatExact(value));
    }
    return row + '\n';
}

}  // namespace kelvro
