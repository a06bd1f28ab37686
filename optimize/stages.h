#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "network/network.h"

// Shapes of ladders: what stands where, without values.

namespace kelvro {

/// What one stage of a ladder is made of. LC is the pair that passes at resonance: in series in a
/// series arm, in parallel in a shunt arm. A trap is the pair that stops: the other way round.
enum class StageKind : std::uint8_t {
    L,
    C,
    LC,
    Trap,
    Line,
    OpenStub,
    ShortedStub,
    Transformer,
};

struct Stage {
    Place place = Place::Series;  ///< lines and transformers: Series, stubs: Shunt
    StageKind kind = StageKind::L;

    bool operator==(const Stage&) const = default;
    auto operator<=>(const Stage&) const = default;  // NOLINT(modernize-use-nullptr): not a zero

    bool has(PartKind part) const;
    /// A pair counts as two.
    int parts() const;
    /// Numbers that a stage has: L before C, characteristic impedance before length.
    std::size_t parameters() const;
};

/// Stages from source to load.
using Stages = std::vector<Stage>;

int PartsIn(const Stages& topology);
std::size_t ParametersOf(const Stages& topology);

}  // namespace kelvro
