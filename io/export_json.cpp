#include "io/design_report.h"
#include "io/exports.h"

namespace kelvro {

std::string DesignJson(const ExportDesign& design, const ExportRange&) {
    return JsonText(JsonDesign({design.state, design.cycle, design.series, {}}));
}

}  // namespace kelvro
