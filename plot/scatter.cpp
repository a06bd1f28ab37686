#include "plot/scatter.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvro {

namespace {

constexpr Rgb kScatterColour{0x80, 0x80, 0x80};
constexpr Rgb kEnvelopeColour{0x30, 0x30, 0x30};
constexpr Rgb kMedianColour{0x60, 0x60, 0xc0};
/// Peaks of runs join the frequencies of an envelope up to here; more runs scatter so densely that
/// they add nothing.
constexpr std::size_t kMostFrequencies = 4000;

/// The points of the nominal curve and the stops of the runs between its samples.
std::vector<double> EnvelopeFrequencies(const Samples& nominal, std::span<const Design> runs,
                                        const View& view, const Trace& trace) {
    std::vector<double> f(nominal.validX().begin(), nominal.validX().end());
    for (const Design& run : runs) {
        if (f.size() > kMostFrequencies) break;
        const Samples samples = Sampled(run, view, trace);
        for (const std::size_t stop : samples.stops) {
            if (stop >= samples.first) f.push_back(samples.x[stop]);
        }
    }
    std::ranges::sort(f);
    f.erase(std::unique(f.begin(), f.end()), f.end());
    return f;
}

Curve LineOf(const std::vector<double>& f, const std::vector<double>& y, Rgb colour,
             LineStyle style) {
    return {.x = f, .y = y, .colour = colour, .style = style, .width = 1};
}

}  // namespace

void Scatter::add(int runs, std::uint64_t seed, const Tolerances& tolerances) {
    if (!batches_.empty() && batches_.back().seed == seed &&
        batches_.back().tolerances == tolerances) {
        batches_.back().runs += runs;
    } else {
        batches_.push_back({seed, runs, tolerances});
    }
}

int Scatter::count() const {
    int runs = 0;
    for (const Batch& batch : batches_) runs += batch.runs;
    return runs;
}

std::vector<Design> Scatter::designs(const Design& nominal, int from) const {
    std::vector<Design> designs;
    int index = 0;
    for (const Batch& batch : batches_) {
        if (index + batch.runs <= from) {
            index += batch.runs;
            continue;
        }
        ToleranceRuns runs(nominal, batch.tolerances, batch.seed);
        for (int run = 0; run < batch.runs; ++run, ++index) {
            const Design& varied = runs.next();
            if (index >= from) designs.push_back(varied);
        }
    }
    return designs;
}

Envelope EnvelopeOf(const Design& nominal, std::span<const Design> runs, const View& view,
                    const Trace& trace) {
    if (runs.empty()) return {};
    const Samples centre = Sampled(nominal, view, trace);
    return EnvelopeAt(EnvelopeFrequencies(centre, runs, view, trace), nominal, runs, trace);
}

Envelope EnvelopeAt(const std::vector<double>& frequencies, const Design& nominal,
                    std::span<const Design> runs, const Trace& trace) {
    Envelope envelope;
    if (runs.empty()) return envelope;
    const TraceSource centre(nominal);
    std::vector<TraceSource> sources;
    sources.reserve(runs.size());
    for (const Design& run : runs) sources.emplace_back(run);
    std::vector<double> values;
    for (const double f : frequencies) {
        values.clear();
        const double middle = trace.value(centre, f);
        for (const TraceSource& source : sources) {
            double value = trace.value(source, f);
            // Values that come round again are taken on the nominal curve's side.
            if (trace.turn > 0) value = middle + std::remainder(value - middle, trace.turn);
            if (std::isfinite(value)) values.push_back(value);
        }
        if (values.empty()) values.push_back(std::numeric_limits<double>::quiet_NaN());
        std::ranges::sort(values);
        envelope.f.push_back(f);
        envelope.min.push_back(values.front());
        envelope.percentile5.push_back(PercentileOf(values, 0.05));
        envelope.median.push_back(PercentileOf(values, 0.5));
        envelope.percentile95.push_back(PercentileOf(values, 0.95));
        envelope.max.push_back(values.back());
    }
    return envelope;
}

void AddScatter(Picture& picture, std::span<const Design> runs, const View& view,
                const Trace& trace) {
    if (runs.empty()) return;
    std::vector<Curve> curves;
    curves.reserve(runs.size());
    for (const Design& run : runs) curves.push_back(ScatterCurve(Sampled(run, view, trace)));
    picture.curves.insert(picture.curves.begin(), curves.begin(), curves.end());
    picture.legend.push_back(ScatterLegend(static_cast<int>(runs.size())));
}

void AddEnvelope(Picture& picture, const Envelope& envelope) {
    if (envelope.f.empty()) return;
    const auto add = [&](const std::vector<double>& y, Rgb colour, LineStyle style) {
        picture.curves.push_back(LineOf(envelope.f, y, colour, style));
    };
    add(envelope.min, kEnvelopeColour, LineStyle::Solid);
    add(envelope.max, kEnvelopeColour, LineStyle::Solid);
    add(envelope.percentile5, kEnvelopeColour, LineStyle::Alternative);
    add(envelope.percentile95, kEnvelopeColour, LineStyle::Alternative);
    add(envelope.median, kMedianColour, LineStyle::Alternative);
    picture.legend.push_back({"all runs :", kEnvelopeColour, LineStyle::Solid});
    picture.legend.push_back({"90 % of them :", kEnvelopeColour, LineStyle::Alternative});
    picture.legend.push_back({"median :", kMedianColour, LineStyle::Alternative});
}

LegendEntry ScatterLegend(int runs) {
    return {"Monte Carlo, " + std::to_string(runs) + (runs == 1 ? " run :" : " runs :"),
            kScatterColour};
}

Curve ScatterCurve(const Samples& samples) {
    return {.x = {samples.validX().begin(), samples.validX().end()},
            .y = {samples.validY().begin(), samples.validY().end()},
            .colour = kScatterColour,
            .dots = samples.prescribed,
            .turn = samples.turn};
}

}  // namespace kelvro
