#include "plot/shown_numbers.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "core/number_text.h"

namespace kelvro {

namespace {

struct Column {
    std::string name;
    std::function<double(std::size_t row)> value;
};

std::vector<double> RowsOf(const std::vector<Samples>& samples, const Envelope& envelope) {
    std::vector<double> f = envelope.f;
    for (const Samples& curve : samples) {
        f.insert(f.end(), curve.validX().begin(), curve.validX().end());
    }
    std::ranges::sort(f);
    f.erase(std::unique(f.begin(), f.end()), f.end());
    return f;
}

/// The trace of a design over the rows, evaluated when asked for.
Column ColumnOf(std::string name, const Design& design, const Trace& trace,
                const std::vector<double>& f) {
    return {std::move(name), [source = TraceSource(design), &trace, &f](std::size_t row) {
                return trace.value(source, f[row]);
            }};
}

void AddEnvelope(std::vector<Column>& columns, const Envelope& envelope, const std::string& unit) {
    const auto add = [&](const char* name, const std::vector<double>& values) {
        columns.push_back({name + unit, [&values](std::size_t row) { return values[row]; }});
    };
    add("runs min ", envelope.min);
    add("runs 5 % ", envelope.percentile5);
    add("runs median ", envelope.median);
    add("runs 95 % ", envelope.percentile95);
    add("runs max ", envelope.max);
}

std::string Quoted(const std::string& name, char separator) {
    if (name.find_first_of(std::string("\"\n\r") + separator) == std::string::npos) return name;
    std::string quoted = "\"";
    for (const char letter : name) quoted += letter == '"' ? "\"\"" : std::string(1, letter);
    return quoted + '"';
}

}  // namespace

std::string ShownNumbers(const Design& state, const ResponsePlot& plot,
                         const std::vector<Samples>& samples, const ShownRuns& runs,
                         char separator) {
    const Trace& leading = *plot.traces.front();
    const std::string unit(leading.column);
    Envelope envelope;
    if (runs.envelope) envelope = EnvelopeOf(state, runs.designs, plot.view, leading);
    const std::vector<double> f = RowsOf(samples, envelope);
    if (runs.envelope) envelope = EnvelopeAt(f, state, runs.designs, leading);

    std::vector<Column> columns;
    columns.push_back({"f_Hz", [&f](std::size_t row) { return f[row]; }});
    for (const Trace* trace : plot.traces) {
        columns.push_back(ColumnOf(std::string(trace->column), state, *trace, f));
    }
    for (const HeldCurve& held : plot.held) {
        columns.push_back(ColumnOf(held.name + ' ' + unit, held.design, leading, f));
    }
    for (std::size_t i = 0; runs.curves && i < runs.designs.size(); ++i) {
        columns.push_back(
            ColumnOf("run " + std::to_string(i + 1) + ' ' + unit, runs.designs[i], leading, f));
    }
    if (!envelope.f.empty()) AddEnvelope(columns, envelope, unit);

    std::string text;
    for (const Column& column : columns) {
        text += (text.empty() ? "" : std::string(1, separator)) + Quoted(column.name, separator);
    }
    text += '\n';
    for (std::size_t row = 0; row < f.size(); ++row) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const double value = columns[i].value(row);
            if (i > 0) text += separator;
            if (!std::isnan(value)) text += FormatExact(value);
        }
        text += '\n';
    }
    return text;
}

}  // namespace kelvro
