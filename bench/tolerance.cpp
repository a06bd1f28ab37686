// A thousand tolerance runs of 255 points each, as the gain window and the command line draw them.

#include <benchmark/benchmark.h>

#include "analysis/response.h"
#include "analysis/tolerance.h"
#include "design/pages.h"
#include "plot/response_picture.h"

namespace kelvro {
namespace {

constexpr int kRuns = 1000;

Design Designed(int page) {
    Design state;
    EnterPage(state, page);
    state.eightElements = true;
    ResponseServices services;
    return Calculate(state, true, services).design;
}

void SampledRuns(benchmark::State& bench) {
    const Design state = Designed(static_cast<int>(bench.range(0)));
    const auto frequencies = SampleFrequencies(DefaultView(TraceOf("gt"), state));
    for (auto _ : bench) {
        ToleranceRuns runs(state, {}, 1);
        double sum = 0;
        for (int i = 0; i < kRuns; ++i) {
            const Response response(runs.next());
            for (const double f : frequencies) sum += response.relativeDb(f);
        }
        benchmark::DoNotOptimize(sum);
    }
}
// Two polynomials, a line, a ladder of eight elements.
BENCHMARK(SampledRuns)
    ->ArgName("page")
    ->Arg(3)
    ->Arg(18)
    ->Arg(6)
    ->Arg(16)
    ->Unit(benchmark::kMillisecond);

void Statistics(benchmark::State& bench) {
    const Design state = Designed(3);
    for (auto _ : bench) benchmark::DoNotOptimize(AnalyseTolerance(state, {}, kRuns, 1, -1));
}
BENCHMARK(Statistics)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvro
