#pragma once

#include <span>
#include <string>
#include <vector>

#include "optimize/settings.h"

namespace kelvro {

/// What the program's arguments preset.
struct KeywordPreset {
    OptimizerSettings settings;
    std::vector<std::string> messages;  ///< one box each, in this order
};

/// Searches the first argument for keywords ("dfp", "steep", ...; several may be joined) and reads
/// the second and third as line-search accuracy and centre, each held to [0, 1].
KeywordPreset ReadKeywords(std::span<const std::string> arguments,
                           const OptimizerSettings& defaults = {});

/// All keywords, separated by blanks.
std::string KeywordList();

}  // namespace kelvro
