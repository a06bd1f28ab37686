// Speed of network evaluation. Aim: everything of a ladder of six lossy elements in at most 60 ns a
// frequency in a sweep of 1000.

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "network/ladder_response.h"

namespace kelvro {
namespace {

std::vector<double> Frequencies(std::size_t points) {
    std::vector<double> f;
    for (std::size_t i = 0; i < points; ++i) {
        f.push_back(50e6 + 200e6 * static_cast<double>(i) / static_cast<double>(points));
    }
    return f;
}

/// Low-pass of six parts between 50 and 500 Ω.
Network SixParts(PartLoss coils, PartLoss capacitors) {
    Network network;
    network.source = 50.0;
    network.load = 500.0;
    for (const double scale : {0.7, 1.0, 1.6}) {
        network.ladder.push_back(SeriesArm(Part{PartKind::Inductor, 100e-9 * scale, coils}));
        network.ladder.push_back(ShuntArm(Part{PartKind::Capacitor, 10e-12 / scale, capacitors}));
    }
    return network;
}

void Sweep(benchmark::State& bench, const Network& network) {
    const std::vector<double> f = Frequencies(1000);
    LadderResponse response(network);
    for (auto _ : bench) benchmark::DoNotOptimize(response.sweep(f).GT.data());
    bench.counters["ns/f"] = benchmark::Counter(
        1e-9 * 1000, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void SweepConstantQ(benchmark::State& bench) {
    Sweep(bench, SixParts({PartLoss::Law::ConstantQ, 60}, {PartLoss::Law::ConstantQ, 300}));
}
BENCHMARK(SweepConstantQ);

void SweepRootQAndResistance(benchmark::State& bench) {
    Sweep(bench, SixParts({PartLoss::Law::RootQ, 60, 1e8}, {.ESR = 0.2}));
}
BENCHMARK(SweepRootQAndResistance);

void SweepSelfResonant(benchmark::State& bench) {
    Sweep(bench, SixParts({PartLoss::Law::RootQ, 60, 1e8, 0, 1e9},
                          {PartLoss::Law::ConstantQ, 300, 0, 0.1, 2e9}));
}
BENCHMARK(SweepSelfResonant);

void SweepLosslessResonators(benchmark::State& bench) {
    Network network = SixParts({}, {});
    for (LadderElement& element : network.ladder) {
        Arm& arm = std::get<Arm>(element.is);
        arm.impedance = arm.place == Place::Series
                            ? Impedance::InParallel({arm.impedance, Part::C(5e-12)})
                            : Impedance::InSeries({arm.impedance, Part::L(20e-9)});
    }
    Sweep(bench, network);
}
BENCHMARK(SweepLosslessResonators);

void SweepLossyLines(benchmark::State& bench) {
    Network network;
    network.load = 500.0;
    for (const double Z0 : {40.0, 90.0, 50.0}) {
        network.ladder.push_back({Line{.Z0 = Z0,
                                       .length = {.degrees = 60, .atHertz = 1e8},
                                       .attenuation = 0.1,
                                       .attenuationAtHertz = 1e8}});
        network.ladder.push_back({Line{
            .form = Line::Form::OpenStub, .Z0 = Z0, .length = {.degrees = 30, .atHertz = 1e8}}});
    }
    Sweep(bench, network);
}
BENCHMARK(SweepLossyLines);

void OneGain(benchmark::State& bench) {
    const LadderResponse response(SixParts({PartLoss::Law::ConstantQ, 60}, {}));
    double f = 1e8;
    for (auto _ : bench) benchmark::DoNotOptimize(response.GT(f += 1));
}
BENCHMARK(OneGain);

void OnePointWithEverything(benchmark::State& bench) {
    const LadderResponse response(SixParts({PartLoss::Law::ConstantQ, 60}, {}));
    double f = 1e8;
    for (auto _ : bench) benchmark::DoNotOptimize(response.at(f += 1));
}
BENCHMARK(OnePointWithEverything);

void PrepareANetwork(benchmark::State& bench) {
    const Network network = SixParts({PartLoss::Law::ConstantQ, 60}, {});
    for (auto _ : bench) benchmark::DoNotOptimize(LadderResponse(network));
}
BENCHMARK(PrepareANetwork);

}  // namespace
}  // namespace kelvro
