#pragma once

#include <cstdint>

#include "network/ladder_program.h"

namespace kelvro {

struct NetworkSweep;

namespace ladder {

/// Which of the processor's registers a sweep uses; the digits are the same with all.
enum class Lanes : std::uint8_t {
    Four,  ///< two at a time that every processor of the family has
    Wide,  ///< one that holds four numbers (AVX2)
};

/// The fastest that processor and compiler have.
Lanes BestLanes();

/// Fills the sweep, whose frequencies and sizes are set.
void Sweep(const LadderProgram& program, NetworkSweep& sweep, Lanes lanes);

}  // namespace ladder
}  // namespace kelvro
