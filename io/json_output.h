#pragma once

#include <nlohmann/json.hpp>

namespace kelvro {

/// JSON that keeps the order in which keys are written.
using Json = nlohmann::ordered_json;

/// A number; infinite ones as the texts "infinite" and "-infinite", null for what is no number.
Json JsonNumber(double value);

/// A bandwidth; 1e20 and above is "infinite", as in the window.
Json JsonBandwidth(double bandwidth);

/// The document as text, two spaces per level; bytes that are not UTF-8 are replaced.
std::string JsonText(const Json& document);

}  // namespace kelvro
