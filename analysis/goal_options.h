#pragma once

namespace kelvro {

/// Choices about what a good design is; they change the number that the optimizer makes small.
struct GoalOptions {
    /// Broadband designs (Q <= 0.21): the worst point of the band counts, not the mean.
    bool maxNorm = false;
    /// Round the goal to 10 significant digits, to study the optimizer under noise.
    bool noise = false;
    /// Loaded Q from the slope of the phase instead of the drop at the band edges, whatever the
    /// design's own choice is.
    bool phaseSlope = false;
    /// Transformer page: keep both inductances alike whatever the page's own switch says.
    bool transformer = false;
};

}  // namespace kelvro
