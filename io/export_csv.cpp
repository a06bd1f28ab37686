#include <sstream>

#include "io/exports.h"
#include "io/response_table.h"

namespace kelvro {

std::string ResponseCsv(const ExportDesign& design, const ExportRange& range) {
    std::ostringstream text;
    WriteResponseCsv(
        TraceSource(design.state), AllTraces(), static_cast<std::size_t>(range.points),
        [&](std::size_t i) { return range.frequency(static_cast<int>(i)); }, text);
    return std::move(text).str();
}

}  // namespace kelvro
