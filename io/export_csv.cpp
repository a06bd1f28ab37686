#include "io/exports.h"
#include "io/response_table.h"

namespace kelvro {

std::string ResponseCsv(const ExportDesign& design, const ExportRange& range) {
    const TraceSource source(design.state);
    std::string text = ResponseCsvHeader();
    for (int i = 0; i < range.points; ++i) text += ResponseCsvRow(source, range.frequency(i));
    return text;
}

}  // namespace kelvro
