#include "io/response_table.h"

#include <cmath>

#include "core/exact_text.h"

namespace kelvro {

std::string ResponseCsvHeader() {
    std::string header = "f_Hz,re,im";
    for (const Trace& trace : Traces()) header += ',' + std::string(trace.column);
    return header + '\n';
}

std::string ResponseCsvRow(const TraceSource& source, double f) {
    constexpr std::size_t kUsualLength = 200;
    const auto H = source.response->transfer(f);
    std::string row;
    row.reserve(kUsualLength);
    AppendExact(row, f);
    for (const double part : {H.real(), H.imag()}) AppendExact(row += ',', part);
    for (const Trace& trace : Traces()) {
        row += ',';
        const double value = trace.value(source, f);
        if (!std::isnan(value)) AppendExact(row, value);
    }
    row += '\n';
    return row;
}

}  // namespace kelvro
