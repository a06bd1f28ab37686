#pragma once

#include "core/random.h"
#include "optimize/box.h"
#include "optimize/search_run.h"

namespace kelvro {

/// Points to start further descents from, the same ones for the same function: drawn at random in
/// the box, each the best of a few that have been moved down along one axis after the other. In
/// narrow valleys a value says little about the minimum near by before that is done.
class FurtherStarts {
  public:
    /// The run's options choose the sequence. A box without end is drawn from around its centre.
    FurtherStarts(SearchRun& run, const Box& box);

    Vector next();

  private:
    Vector drawn();
    void moveDown(Vector& x, double& f) const;
    double value(const Vector& x) const { return run_.objective(x, CallKind::LineSearch); }

    SearchRun& run_;
    const Box& box_;
    const SearchTuning& tuning_;
    UniformStream random_;
};

}  // namespace kelvro
