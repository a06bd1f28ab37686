// Speed of the calculation below the window. Aims on a desktop processor: one response evaluation
// under 150 ns, a 255-point sweep with its dB values under 40 µs, a cycle without optimizer under
// 10 µs.

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>

#include "analysis/response.h"
#include "core/number_text.h"
#include "core/series.h"
#include "design/cycle.h"
#include "design/pages.h"

namespace kelvro {
namespace {

/// A design that the page accepts.
Design AcceptedDesign(int page) {
    Design state;
    ResponseServices services;
    EnterPage(state, page);
    CycleResult result = Calculate(state, true, services);
    if (result.message) {
        std::swap(state.R1, state.R2);
        result = Calculate(state, true, services);
    }
    return result.design;
}

void LabelWithPage(benchmark::State& bench, const Design& state) {
    bench.SetLabel(std::string(PageOf(state).key));
}

void OneResponseEvaluation(benchmark::State& bench) {
    const Design state = AcceptedDesign(static_cast<int>(bench.range(0)));
    const Response response(state);
    double f = 0.5 * state.fo;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(response.transfer(f));
        f += 1;
    }
    LabelWithPage(bench, state);
}
BENCHMARK(OneResponseEvaluation)->DenseRange(1, 19);

void SweepOf255Points(benchmark::State& bench) {
    const Design state = AcceptedDesign(static_cast<int>(bench.range(0)));
    std::array<double, 255> frequencies{};
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        frequencies[i] = state.fo * std::pow(10.0, -1 + static_cast<double>(i) / 127);
    }
    std::array<double, 255> values{};
    for (auto _ : bench) {
        const Response response(state);
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = response.relativeDb(frequencies[i]);
        }
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
    LabelWithPage(bench, state);
}
BENCHMARK(SweepOf255Points)->Arg(1)->Arg(3)->Arg(5)->Arg(6)->Arg(17);

void CycleWithoutOptimizer(benchmark::State& bench) {
    Design state = AcceptedDesign(static_cast<int>(bench.range(0)));
    ResponseServices services;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(Calculate(state, true, services));
    }
    LabelWithPage(bench, state);
}
BENCHMARK(CycleWithoutOptimizer)->DenseRange(1, 19);

void ReadNumberText(benchmark::State& bench) {
    constexpr std::string_view texts[] = {"4.7k", "  12.35n", "100", "1.5E-3", "10mil"};
    const std::string text(texts[static_cast<std::size_t>(bench.range(0))]);
    for (auto _ : bench) benchmark::DoNotOptimize(ParseValue(text));
    bench.SetLabel(text);
}
BENCHMARK(ReadNumberText)->DenseRange(0, 4);

void WriteEngineeringText(benchmark::State& bench) {
    double value = 12.3456e-9;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(FormatEng(7, 2, value));
        value *= 1.0000001;
    }
}
BENCHMARK(WriteEngineeringText);

void NearestStandardValue(benchmark::State& bench) {
    for (auto _ : bench) benchmark::DoNotOptimize(SeriesNearest(Series::E96, 12.3456e-9));
}
BENCHMARK(NearestStandardValue);

}  // namespace
}  // namespace kelvro
