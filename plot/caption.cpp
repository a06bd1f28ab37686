#include "plot/caption.h"

#include <cmath>

#include "design/part_ref.h"

namespace kelvro {

namespace {

/// Names as the page shows them, values as the response has them: what fields have been rounded to
/// and nobody has taken is not in the curve.
std::string PartsLine(const DesignRun& run) {
    std::vector<PartRef> parts = PartsOf(run.state);
    std::erase_if(parts, [](const PartRef& part) { return part.field == nullptr; });
    std::string line;
    std::size_t at = 0;
    for (const ShownComponent& shown : ShownComponents(run)) {
        std::string value = WithUnit(shown.text, shown.unit);
        if (at < parts.size() && std::isfinite(parts[at].built(run.state))) {
            value = WithUnit(parts[at].built(run.state), shown.unit);
        }
        ++at;
        const std::string& name = shown.shownName.empty() ? shown.name : shown.shownName;
        if (!line.empty()) line += ", ";
        line += name;
        line += ' ';
        line += value;
    }
    return line;
}

}  // namespace

std::vector<std::string> CaptionOf(const DesignRun& run, const std::string& day,
                                   std::string_view page) {
    std::vector<std::string> lines{Heading(run.state, page)};
    if (std::string parts = PartsLine(run); !parts.empty()) lines.push_back(std::move(parts));
    lines.push_back("Kelvro, " + day);
    return lines;
}

}  // namespace kelvro
