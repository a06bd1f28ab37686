#pragma once

#include <optional>
#include <vector>

#include "optimize/max_min.h"
#include "optimize/stages.h"
#include "synthesis/search.h"

// The ladders that a search looks at, and where it starts in them.

namespace kelvro {

/// All ladders with exactly so many parts that the options allow. Series and shunt arms alternate:
/// neighbours that would merge into one are left out.
std::vector<Stages> CandidatesOf(const SearchOptions& options, int parts);

/// Limits of a candidate's parameters, relative to a grid's resistance and frequency; nothing where
/// the options leave no room. Values without limits of their own may lie so many nepers around the
/// grid's.
std::optional<ParameterBox> BoxOf(const Stages& topology, const SearchOptions& options, double R0,
                                  double f0, double nepers);

/// A ladder with parameters.
struct LadderPoint {
    Stages topology;
    std::vector<double> x;
};

/// Every ladder that has one part more than this one and nearly its response: the part inserted
/// between two stages, put to a stage to make it a pair, or put into the middle of a stage. Of
/// coils and capacitors only.
std::vector<LadderPoint> OnePartMore(const LadderPoint& ladder);

/// The ladder without its part number `part` (0 to PartsIn - 1) where what is left is a ladder of
/// one part less; nothing where neighbours merge to even fewer parts.
std::optional<Stages> OnePartLess(const Stages& topology, int part);

/// The ladder with values, as elements from source to load.
std::vector<LadderElement> ElementsOf(const LadderPoint& ladder, const SearchLosses& losses,
                                      double R0, double f0);

}  // namespace kelvro
