#include "io/response_table.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "core/exact_text.h"
#include "core/parallel.h"

namespace kelvro {

namespace {

std::string Header(const TraceList& traces) {
    std::string header = "f_Hz,re,im";
    for (const Trace* trace : traces) header += ',' + std::string(trace->column);
    return header + '\n';
}

/// `row` has room for all numbers of a line, which go to the text in one piece.
void AppendRow(std::string& text, std::vector<char>& row, const TraceSource& source,
               const TraceList& traces, double f) {
    const auto H = source.response->transfer(f);
    char* end = WriteExact(row.data(), f);
    for (const double part : {H.real(), H.imag()}) {
        *end++ = ',';
        end = WriteExact(end, part);
    }
    for (const Trace* trace : traces) {
        *end++ = ',';
        const double value = trace->value(source, f);
        if (!std::isnan(value)) end = WriteExact(end, value);
    }
    *end++ = '\n';
    text.append(row.data(), end);
}

}  // namespace

void WriteResponseCsv(const TraceSource& source, const TraceList& traces, std::size_t rows,
                      const std::function<double(std::size_t)>& frequency, std::ostream& out) {
    // Long enough that a thread's start does not count, short enough that output flows.
    constexpr std::size_t kBlock = 1024;
    const std::size_t blocks = (rows + kBlock - 1) / kBlock;
    const unsigned threads = blocks > 1 ? ThreadsOr(0) : 1;
    const std::vector<TraceSource> sources(threads, source);
    std::vector<std::string> texts(std::min<std::size_t>(blocks, 8 * threads));
    out << Header(traces);
    for (std::size_t first = 0; first < blocks && out; first += texts.size()) {
        const std::size_t count = std::min(texts.size(), blocks - first);
        ForEachInParallel(count, threads, [&](std::size_t i, unsigned worker) {
            const std::size_t begin = (first + i) * kBlock;
            const std::size_t end = std::min(begin + kBlock, rows);
            texts[i].clear();
            std::vector<char> line((3 + traces.size()) * kLongestExact);
            for (std::size_t row = begin; row < end; ++row) {
                AppendRow(texts[i], line, sources[worker], traces, frequency(row));
            }
        });
        for (std::size_t i = 0; i < count; ++i) out << texts[i];
    }
}

}  // namespace kelvro
