#pragma once

#include <optional>
#include <string>

#include "core/result.h"
#include "synthesis/search.h"

// Wishes of a search as people write them, on the command line and in the search's window.

namespace kelvro {

/// "40" or "40@100M", the Q of an inductor or a capacitor; an empty text: no loss.
Result<PartLoss> ParsePartQ(PartKind kind, const std::string& text);

/// "2:-20": order of the harmonic and the gain left there in dB.
Result<HarmonicLimit> ParseHarmonic(const std::string& text);

/// "C=2p" or "L=3n"; an empty text: nothing.
Result<std::optional<AbsorbedPart>> ParseAbsorbedPart(const std::string& text);

}  // namespace kelvro
