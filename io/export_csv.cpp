#include "analysis/response.h"
#include "io/exports.h"
#include "io/response_table.h"

namespace kelvro {

std::string ResponseCsv(const ExportDesign& design, const ExportRange& range) {
    const Response response(design.state);
    std::string text(kResponseCsvHeader);
    for (int i = 0; i < range.points; ++i) text += ResponseCsvRow(response, range.frequency(i));
    return text;
}

}  // namespace kelvro
