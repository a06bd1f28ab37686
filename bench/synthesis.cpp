// The search over a band, problem by problem and part by part, with the worst gain it reaches
// beside the time; the limit; yield and standard values of a network of five parts.

#include <benchmark/benchmark.h>

#include <cmath>

#include "synthesis/limit.h"
#include "synthesis/search.h"
#include "synthesis/standard_values.h"
#include "synthesis/yield.h"
#include "tests/synthesis/problems.h"

namespace kelvro {
namespace {

Network Problem(int number) {
    switch (number) {
        case 0:
            return TenToOne();
        case 1:
            return FiveToOne();
        case 2:
            return InductiveLoad();
        case 3:
            return CarlinsLoad();
        default:
            return ComplexPair();
    }
}

void Search(benchmark::State& bench) {
    const Network problem = Problem(static_cast<int>(bench.range(0)));
    const SearchOptions options{.mostParts = static_cast<int>(bench.range(1)), .threads = 2};
    double worst = 0;
    for (auto _ : bench) {
        const auto found = SearchNetworks(problem, options);
        worst = found->networks.front().worstGT;
    }
    bench.counters["worst_dB"] = Decibels(worst);
    if (const auto limit = GainLimitOf(problem.source, problem.load, problem.bands)) {
        bench.counters["limit_dB"] = Decibels(limit->GT);
    }
}
BENCHMARK(Search)
    ->ArgNames({"problem", "parts"})
    ->ArgsProduct({{0, 1, 2, 3, 4}, {2, 3, 4, 5, 6}})
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void Limit(benchmark::State& bench) {
    const Network problem = Problem(static_cast<int>(bench.range(0)));
    for (auto _ : bench) {
        benchmark::DoNotOptimize(GainLimitOf(problem.source, problem.load, problem.bands));
    }
}
BENCHMARK(Limit)->ArgName("problem")->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

/// The best of five parts for the load with inductance.
Network FiveParts() {
    Network network = InductiveLoad();
    network.ladder = {ShuntArm(Part::C(5.12e-12)), SeriesArm(Part::L(30.2e-9)),
                      ShuntArm(Impedance::InParallel({Part::L(19.7e-9), Part::C(17.0e-12)})),
                      SeriesArm(Part::C(1.855e-12))};
    return network;
}

void Yield(benchmark::State& bench) {
    const YieldOptions options{.leastGT = 0.8, .builds = 10'000};
    for (auto _ : bench) benchmark::DoNotOptimize(YieldOf(FiveParts(), options));
}
BENCHMARK(Yield)->Unit(benchmark::kMillisecond);

void Centring(benchmark::State& bench) {
    for (auto _ : bench) benchmark::DoNotOptimize(Centred(FiveParts(), {.leastGT = 0.8}));
}
BENCHMARK(Centring)->Unit(benchmark::kMillisecond);

void StandardValues(benchmark::State& bench) {
    for (auto _ : bench) benchmark::DoNotOptimize(WithStandardValues(FiveParts(), {}));
}
BENCHMARK(StandardValues)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvro
