#include "cli/trace_option.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace kelvro {

namespace {

std::string TraceProblem(const std::string& text) {
    return FindTrace(text) ? "" : "'" + text + "' is no trace; " + TraceKeys(", ");
}

}  // namespace

CLI::Option* AddTraceOption(CLI::App& command, std::vector<std::string>& keys,
                            const std::string& what) {
    return command
        .add_option("--trace,--quantity", keys, what + ", several with commas: " + TraceKeys(", "))
        ->delimiter(',')
        ->allow_extra_args(false)  // what follows is an argument of its own
        ->check(TraceProblem)
        ->type_name("TRACE");
}

TraceList TracesOf(const std::vector<std::string>& keys) {
    TraceList traces;
    for (const std::string& key : keys) {
        const Trace* trace = FindTrace(key);
        if (std::ranges::find(traces, trace) == traces.end()) traces.push_back(trace);
    }
    return traces;
}

}  // namespace kelvro
