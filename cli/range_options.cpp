#include "cli/range_options.h"

#include <CLI/CLI.hpp>
#include <cmath>

#include "cli/design_options.h"
#include "core/number_text.h"

namespace kelvro {

void AddRangeOptions(CLI::App& command, RangeOptions& options, bool required) {
    const auto add = [&](const char* name, std::string& text, const char* help) {
        command.add_option(name, text, help)
            ->required(required)
            ->check(NumberProblem)
            ->type_name("NUMBER");
    };
    add("--from", options.from, "First frequency (Hz)");
    add("--to", options.to, "Last frequency (Hz)");
    command.add_flag("--linear", options.linear, "Equal steps instead of equal ratios");
}

Outcome<FrequencyRange> RangeOf(const RangeOptions& options, const FrequencyRange& otherwise) {
    const auto given = [](const std::string& text, double value) {
        return text.empty() ? value : ParseValue(text);
    };
    const FrequencyRange range{given(options.from, otherwise.from),
                               given(options.to, otherwise.to)};
    const auto problem = [](const char* text) { return Problem{ExitCode::Usage, text}; };
    if (!std::isfinite(range.from) || !std::isfinite(range.to)) {
        return problem("--from, --to: too large");
    }
    if (!(range.from < range.to)) return problem("--from has to be below --to");
    if (options.linear && range.from < 0) return problem("--from: frequencies are not negative");
    if (!options.linear && !(range.from > 0)) {
        return problem("--from: a logarithmic range needs a frequency above 0 (or --linear)");
    }
    return range;
}

}  // namespace kelvro
