#include "io/response_table.h"

#include "core/number_text.h"

namespace kelvro {

std::string ResponseCsvRow(const Response& response, double f) {
    const auto H = response.transfer(f);
    std::string row;
    for (const double value :
         {f, H.real(), H.imag(), response.magnitudeDb(f), response.relativeDb(f)}) {
        row += FormatExact(value) + ',';
    }
    return row + FormatExact(response.phase(f)) + '\n';
}

}  // namespace kelvro
