#include "synthesis/search_text.h"

#include <cmath>

#include "core/number_text.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

/// A part as its text says: of its value, of its losses.
std::optional<Part> PartOf(const std::string& text) {
    const auto read = ParseImpedance(text);
    if (!read) return {};
    const auto* part = std::get_if<Part>(&read->is);
    return part ? std::optional(*part) : std::nullopt;
}

}  // namespace

Result<PartLoss> ParsePartQ(PartKind kind, const std::string& text) {
    if (text.empty()) return PartLoss{};
    const auto part = PartOf(std::string(1, LetterOf(kind)) + "=1n(Q=" + text + ")");
    if (!part) return Status::Failure("expected a Q like 40 or 40@100M");
    return part->loss;
}

Result<HarmonicLimit> ParseHarmonic(const std::string& text) {
    const Status wrong = Status::Failure("expected order and gain in dB like 2:-20");
    const auto colon = text.find(':');
    if (colon == std::string::npos) return wrong;
    const ParsedNumber order = ParseNumber(text.substr(0, colon));
    const ParsedNumber gain = ParseNumber(text.substr(colon + 1));
    if (order.noDigits || gain.noDigits || order.value != std::floor(order.value)) return wrong;
    return HarmonicLimit{static_cast<int>(order.value), gain.value};
}

Result<std::optional<AbsorbedPart>> ParseAbsorbedPart(const std::string& text) {
    if (text.empty()) return std::optional<AbsorbedPart>();
    const auto part = PartOf(text);
    if (!part || part->kind == PartKind::Resistor) {
        return Status::Failure("expected a part like C=2p or L=3n");
    }
    return std::optional(AbsorbedPart{part->kind, part->value});
}

}  // namespace kelvro
