#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "analysis/tolerance.h"
#include "plot/curve_sampling.h"
#include "plot/picture.h"

// Monte Carlo runs of a plot: which ones were drawn, so that they can be drawn again, and what they
// have in common.

namespace kelvro {

/// The runs made so far, as what they were drawn from.
class Scatter {
  public:
    /// Adds runs of one seed. Following runs of the same seed and tolerances go on where the last
    /// ones ended.
    void add(int runs, std::uint64_t seed, const Tolerances& tolerances);
    void clear() { batches_.clear(); }
    int count() const;

    /// The varied designs around a nominal one, from the run with this index on.
    std::vector<Design> designs(const Design& nominal, int from = 0) const;

  private:
    struct Batch {
        std::uint64_t seed;
        int runs;
        Tolerances tolerances;
    };
    std::vector<Batch> batches_;
};

/// Within what many curves lie at each frequency: all of them, and nine tenths of them.
struct Envelope {
    std::vector<double> f;
    std::vector<double> min, percentile5, median, percentile95, max;
};
/// At these frequencies; NaN where no run has a value.
Envelope EnvelopeAt(const std::vector<double>& frequencies, const Design& nominal,
                    std::span<const Design> runs, const Trace& trace);
/// Over the points of the nominal curve and the peaks and notches of every run.
Envelope EnvelopeOf(const Design& nominal, std::span<const Design> runs, const View& view,
                    const Trace& trace);

/// The runs' curves behind those of a picture, and their legend.
void AddScatter(Picture& picture, std::span<const Design> runs, const View& view,
                const Trace& trace);
void AddEnvelope(Picture& picture, const Envelope& envelope);

/// "Monte Carlo, 30 runs :".
LegendEntry ScatterLegend(int runs);

/// The thin grey curve of a Monte Carlo run.
Curve ScatterCurve(const Samples& samples);

}  // namespace kelvro
