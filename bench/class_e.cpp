// The class-E stage: time of its exact design, which must keep up with keystrokes (aim: below
// 100 µs), and how far ngspice's transient is from what was asked: power in percent, and the
// voltage left at turn-on in percent of the supply, over loaded Q and choke.

#include <benchmark/benchmark.h>

#include "design/class_e.h"
#include "design/cycle.h"
#include "io/class_e_netlist.h"
#include "io/ngspice.h"

namespace kelvro {
namespace {

void ExactDesign(benchmark::State& bench) {
    const double Q = static_cast<double>(bench.range(0)) / 10;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(DesignClassEStage({10, 12, 0, 10e6, Q, 143}));
    }
}
BENCHMARK(ExactDesign)->Arg(19)->Arg(50)->Arg(200)->Arg(5000);

void SteadyState(benchmark::State& bench) {
    const auto stage = DesignClassEStage({10, 12, 0, 10e6, 5, 143});
    for (auto _ : bench) benchmark::DoNotOptimize(OperateClassE(*stage));
}
BENCHMARK(SteadyState);

/// Services of a page without response and optimizer.
class Idle : public CycleServices {
  public:
    double responseMagnitude(const Design&, double) override { return 1; }
    Slots optimize(const Design& design) override { return design.components; }
};

/// Arguments: loaded Q in tenths, choke in units of R, 0 for an infinite one.
void SimulatedStage(benchmark::State& bench) {
    Design design;
    design.page = 15;
    design.P = 10;
    design.Usat = 0;
    design.fo = 10e6;
    design.QB = design.QBC = 1e9;
    design.Q = static_cast<double>(bench.range(0)) / 10;
    design.chokeRatio = static_cast<double>(bench.range(1));
    design.infiniteChoke = bench.range(1) == 0;
    Idle idle;
    ExportDesign exported;
    exported.state = Calculate(design, true, idle).design;
    for (auto _ : bench) {
        const auto measured = RunNgspice(ClassENetlist(exported));
        if (!measured) return bench.SkipWithError(measured.message().c_str());
        bench.counters["power %"] = 100 * (measured->at("pout") / design.P - 1);
        bench.counters["turn-on %"] = 100 * measured->at("vturnon") / design.Ub;
    }
}
BENCHMARK(SimulatedStage)
    ->ArgsProduct({{20, 25, 33, 50, 77, 120, 190, 200}, {2, 5, 20, 50, 143, 200, 0}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvro
