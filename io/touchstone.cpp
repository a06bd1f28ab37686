#include "io/touchstone.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "core/number_text.h"

namespace kelvro {

namespace {

void AddNumbers(std::string& text, std::complex<double> x) {
    text += ' ' + FormatShortest(x.real()) + ' ' + FormatShortest(x.imag());
}

std::string Head(const PortData& data) {
    const bool unlike = data.ports == 2 && data.reference[0] != data.reference[1];
    std::string options = "# HZ S RI R " + FormatShortest(data.reference[0]) + '\n';
    if (!unlike) return options;
    return "[Version] 2.0\n" + options +
           "[Number of Ports] 2\n[Two-Port Data Order] 21_12\n[Number of Frequencies] " +
           std::to_string(data.f.size()) + "\n[Reference] " + FormatShortest(data.reference[0]) +
           ' ' + FormatShortest(data.reference[1]) + "\n[Network Data]\n";
}

}  // namespace

Result<TouchstoneContent> ReadTouchstone(const std::filesystem::path& path, std::string_view name) {
    const std::string file(name);
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) {
        return Status::Failure("there is no file \"" + file + '"');
    }
    if (!std::filesystem::is_regular_file(status)) {
        return Status::Failure('"' + file + "\" is not a file of data");
    }
    const auto size = std::filesystem::file_size(path, error);
    if (error) return Status::Failure("cannot read \"" + file + "\": " + error.message());
    if (size > kLargestTouchstoneFile) {
        return Status::Failure(file + ": expected at most 32 MB of data, found " +
                               std::to_string(size / 1'000'000) + " MB");
    }
    std::ifstream stream(path, std::ios::binary);
    std::string text(static_cast<std::size_t>(size), '\0');
    stream.read(text.data(), static_cast<std::streamsize>(size));
    if (!stream) return Status::Failure("cannot read \"" + file + '"');
    return ParseTouchstone(text, name);
}

std::string TouchstoneText(const PortData& data, std::span<const std::string> comments) {
    std::string text;
    for (std::string comment : comments) {
        std::ranges::replace_if(
            comment, [](char c) { return c == '\n' || c == '\r'; }, ' ');
        text += "! " + comment + '\n';
    }
    const std::string head = Head(data);
    text += head;
    for (std::size_t i = 0; i < data.f.size(); ++i) {
        text += FormatShortest(data.f[i]);
        AddNumbers(text, data.s[i][0]);
        if (data.ports == 2) {
            AddNumbers(text, data.s[i][2]);
            AddNumbers(text, data.s[i][1]);
            AddNumbers(text, data.s[i][3]);
        }
        text += '\n';
    }
    return head.starts_with('[') ? text + "[End]\n" : text;
}

}  // namespace kelvro
