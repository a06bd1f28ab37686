// Touchstone files of strangers: read or refused; what is read is written as a file that holds the
// same.

#include "io/touchstone.h"

#include <algorithm>
#include <cmath>

#include "fuzz/require.h"

using namespace kelvro;

namespace {

bool IsNear(std::complex<double> a, std::complex<double> b) {
    return std::abs(a - b) <= 1e-9 * (1 + std::abs(a)) || !(std::abs(a) < 1e150);
}

void CheckWritten(const TouchstoneContent& content, const char* name) {
    const std::string written = TouchstoneText(content.data, content.comments);
    const auto again = ParseTouchstone(written, name);
    Require(again.ok(), "a written file is read", again.message() + '\n' + written);
    const PortData& data = again->data;
    Require(data.ports == content.data.ports && data.f == content.data.f &&
                data.reference == content.data.reference,
            "with its frequencies and references", written);
    for (std::size_t i = 0; i < data.s.size(); ++i) {
        Require(std::ranges::equal(data.s[i], content.data.s[i], IsNear), "and its parameters",
                written);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = TextOf(data, size);
    for (const char* name : {"a.s1p", "a.s2p", "a.txt"}) {
        const auto content = ParseTouchstone(text, name);
        Require(content.ok() || !content.message().empty(), "a refusal says why");
        if (content) CheckWritten(*content, content->data.ports == 2 ? "a.s2p" : "a.s1p");
    }
    return 0;
}
