#pragma once

#include <cstdint>
#include <vector>

#include "optimize/max_min.h"
#include "synthesis/candidates.h"
#include "synthesis/search_task.h"

namespace kelvro {

/// A ladder with what it reaches on the screening grid: the smallest goal row, ln GT in the bands.
struct ScreenedLadder {
    LadderPoint ladder;
    double worst = 0;
};

/// Searches one candidate from many starts. One object per thread.
class CandidateSearch {
  public:
    explicit CandidateSearch(const SearchTask& task) : task_(task) {}

    /// The best solutions of a topology, best first, each other than the ones before; from the
    /// given starts and from random ones. Empty where its values have no room.
    std::vector<ScreenedLadder> screen(const Stages& topology,
                                       const std::vector<std::vector<double>>& starts,
                                       std::uint64_t seed);
    /// The ladder without stages.
    ScreenedLadder straight();
    /// A screened ladder on a fine grid, to which the frequencies between its points are added
    /// where gain is lost there. Nothing where a harmonic stays above its limit.
    std::optional<FoundNetwork> refine(const ScreenedLadder& screened);

  private:
    void advance(std::vector<MaxMinPoint>& points, const Stages& topology, const ParameterBox& box,
                 int steps, double leastGain, std::size_t keep);

    const SearchTask& task_;
    MaxMinSolver solver_;
    LadderModel model_;
};

}  // namespace kelvro
