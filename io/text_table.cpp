#include "io/text_table.h"

#include <algorithm>

namespace kelvro {

namespace {

std::size_t Characters(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

std::string AlignedTable(const TextRows& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], Characters(row[i]));
        }
    }
    std::string table;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - Characters(row[i]) + 2, ' ');
        }
        table += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
    }
    return table;
}

}  // namespace kelvro
