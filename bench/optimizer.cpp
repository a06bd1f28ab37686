// Time of a recalculation with the optimizer at work: one keystroke in the window. Aim on a desktop
// processor: two runs with their log under 2 ms.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <utility>

#include "analysis/goal.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "io/optimizer_reports.h"
#include "optimize/page_optimizer.h"

namespace kelvro {
namespace {

Design Inputs(int page, double Q) {
    Design state;
    EnterPage(state, page);
    state.Q = Q;
    ResponseServices services;
    if (Calculate(state, true, services).message) std::swap(state.R1, state.R2);
    state.Q = Q;
    return state;
}

void Recalculate(benchmark::State& bench, bool singleRun, const OptimizerFiles& files) {
    const double Q = static_cast<double>(bench.range(1)) / 10;
    const Design inputs = Inputs(static_cast<int>(bench.range(0)), Q);
    OptimizerSettings settings;
    settings.singleRun = singleRun;
    OptimizerServices services(settings);
    if (!files.log.empty()) {
        services.reports = [&](const PageOptimization& done) { return KeepReports(done, files); };
    }
    for (auto _ : bench) {
        benchmark::DoNotOptimize(Calculate(inputs, true, services));
    }
    bench.SetLabel(std::string(PageOf(inputs).key));
    bench.counters["calls"] = services.last().calls.total();
    bench.counters["iterations"] = services.last().iterations();
}

void SingleRun(benchmark::State& bench) {
    Recalculate(bench, true, {"", ""});
}

void TwoRunsWithLog(benchmark::State& bench) {
    const std::string log = std::string(P_tmpdir) + "/kelvro-bench-opt.txt";
    Recalculate(bench, false, {log, ""});
    std::remove(log.c_str());
}

void DesignsOfAllKinds(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"page", "Q10"})->Unit(benchmark::kMicrosecond);
    for (const int page : {1, 2, 3, 4, 5, 13, 14, 16, 18}) {
        for (const int Q : {2, 50}) bench->Args({page, Q});
    }
}

BENCHMARK(SingleRun)->Apply(DesignsOfAllKinds);
BENCHMARK(TwoRunsWithLog)->Apply(DesignsOfAllKinds);

void OneGoalCall(benchmark::State& bench) {
    Design state = Inputs(static_cast<int>(bench.range(0)), 5);
    ResponseServices services;
    state = Calculate(state, true, services).design;
    Goal goal(state, {});
    const std::vector<double> x(goal.size(), 0.01);
    for (auto _ : bench) benchmark::DoNotOptimize(goal.value(x, CallKind::Evaluation));
    bench.SetLabel(std::string(PageOf(state).key));
}
BENCHMARK(OneGoalCall)->Arg(1)->Arg(3)->Arg(5)->Arg(16)->Arg(18);

}  // namespace
}  // namespace kelvro
