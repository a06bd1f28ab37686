#include "io/response_table.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
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

/// Writes a line, for which there is room; its end.
char* WriteRow(char* to, const TraceSource& source, const TraceList& traces, double f) {
    const auto H = source.transfer(f);
    char* end = WriteExact(to, f);
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
    return end;
}

/// Lines that wait to be written.
struct Block {
    explicit Block(std::size_t room) : text(std::make_unique_for_overwrite<char[]>(room)) {}

    std::unique_ptr<char[]> text;
    char* end = nullptr;
};

}  // namespace

void WriteResponseCsv(const TraceSource& source, const TraceList& traces, std::size_t rows,
                      const std::function<double(std::size_t)>& frequency, std::ostream& out) {
    // Long enough that taking turns does not count, short enough to stay in the core's cache.
    constexpr std::size_t kLines = 256;
    const std::size_t count = (rows + kLines - 1) / kLines;
    const unsigned threads = count > 1 ? ThreadsOr(0) : 1;
    const std::vector<TraceSource> sources(threads, source);
    const std::size_t room = kLines * (3 + traces.size()) * kLongestExact;
    std::vector<Block> blocks;
    for (std::size_t i = std::min<std::size_t>(count, 8 * threads); i > 0; --i)
        blocks.emplace_back(room);
    std::atomic<bool> failed = false;
    const auto work = [&](std::size_t i, unsigned worker, std::size_t place) {
        if (failed) return;
        auto& [text, end] = blocks[place];
        end = text.get();
        const std::size_t last = std::min((i + 1) * kLines, rows);
        for (std::size_t row = i * kLines; row < last; ++row)
            end = WriteRow(end, sources[worker], traces, frequency(row));
    };
    const auto deliver = [&](std::size_t, std::size_t place) {
        const auto& [text, end] = blocks[place];
        if (!failed && !out.write(text.get(), end - text.get())) failed = true;
    };
    out << Header(traces);
    ForEachInOrder(count, threads, blocks.size(), work, deliver);
}

}  // namespace kelvro
