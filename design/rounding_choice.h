#pragma once

#include <cstdint>

#include "design/part_ref.h"

namespace kelvro {

/// Which value of a standard series takes the place of a component.
enum class Rounding : std::uint8_t { Nearest, Down, Up };

/// Shows a standard value in place of the part: the one nearest to what is shown, as
/// PartRef::round, or the one not above or not below what stood there before rounding. The design
/// keeps its component until that is taken.
void RoundPart(const PartRef& part, Design& design, Series series, Rounding rounding);

/// Shows the component of the design again where a standard value stands in its place.
void UnroundPart(const PartRef& part, Design& design);

}  // namespace kelvro
