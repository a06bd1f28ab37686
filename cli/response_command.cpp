#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "cli/commands.h"
#include "cli/design_run.h"
#include "cli/trace_option.h"
#include "core/number_text.h"
#include "io/response_table.h"

namespace kelvro {

namespace {

struct ResponseOptions {
    std::shared_ptr<DesignOptions> design;
    std::string from;
    std::string to;
    int points = 255;
    bool linear = false;
    std::vector<std::string> traces;
};

constexpr int kMostFrequencies = 10'000'000;

/// The i-th of n frequencies; both ends come out exactly.
double Frequency(const ResponseOptions& sweep, double from, double to, int i) {
    if (i == 0) return from;
    if (i == sweep.points - 1) return to;
    const double part = static_cast<double>(i) / (sweep.points - 1);
    return sweep.linear ? from + part * (to - from) : from * std::pow(to / from, part);
}

Json JsonRow(const TraceSource& source, const TraceList& traces, double f) {
    const auto H = source.response->transfer(f);
    Json row{{"f_Hz", JsonNumber(f)}, {"re", JsonNumber(H.real())}, {"im", JsonNumber(H.imag())}};
    for (const Trace* trace : traces) {
        row[std::string(trace->column)] = JsonNumber(trace->value(source, f));
    }
    return row;
}

Status Checked(const ResponseOptions& sweep, double from, double to) {
    for (const auto& [name, f] : {std::pair{"--from", from}, std::pair{"--to", to}}) {
        if (!std::isfinite(f)) return Status::Failure(std::string(name) + ": too large");
        if (!sweep.linear && !(f > 0)) {
            return Status::Failure(std::string(name) +
                                   ": a logarithmic sweep needs a frequency above 0");
        }
    }
    return {};
}

ExitCode ReportResponse(const ResponseOptions& sweep, Session& session) {
    const double from = ParseValue(sweep.from);
    const double to = ParseValue(sweep.to);
    if (const Status range = Checked(sweep, from, to); !range) {
        return session.fail({ExitCode::Usage, range.message()});
    }
    const auto outcome = RunAcceptedDesign(*sweep.design, session);
    if (!outcome) return session.fail(outcome.status());
    const TraceSource source(outcome->state);
    const auto frequency = [&](std::size_t i) {
        return Frequency(sweep, from, to, static_cast<int>(i));
    };
    const auto points = static_cast<std::size_t>(std::max(sweep.points, 0));
    const TraceList traces = sweep.traces.empty() ? AllTraces() : TracesOf(sweep.traces);
    if (!sweep.design->json) {
        WriteResponseCsv(source, traces, points, frequency, session.out);
        return ExitCode::Done;
    }
    Json rows = Json::array();
    for (std::size_t i = 0; i < points; ++i) rows.push_back(JsonRow(source, traces, frequency(i)));
    session.out << JsonText(rows);
    return ExitCode::Done;
}

}  // namespace

void AddResponseCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("response", "Frequency response of a design as CSV");
    auto sweep = std::make_shared<ResponseOptions>();
    sweep->design = AddDesignOptions(*command, session);
    AddJsonOption(*command, *sweep->design);
    command->add_option("--from", sweep->from, "First frequency (Hz)")
        ->required()
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command->add_option("--to", sweep->to, "Last frequency (Hz)")
        ->required()
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command->add_option("--points", sweep->points, "Number of frequencies")
        ->capture_default_str()
        ->check(CLI::Range(2, kMostFrequencies));
    command->add_flag("--linear", sweep->linear, "Equal steps instead of equal ratios");
    AddTraceOption(*command, sweep->traces, "Columns behind f, re and im instead of all");
    command->callback([&session, sweep] { session.status = ReportResponse(*sweep, session); });
}

}  // namespace kelvro
