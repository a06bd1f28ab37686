// The optimizer on any design with any settings: it ends within its iterations, never worse than it
// began, with components that are numbers.

#include "optimize/page_optimizer.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <string>

#include "advise/keywords.h"
#include "design/cycle.h"
#include "design/pages.h"
#include "fuzz/require.h"

using namespace kelvro;

namespace {

constexpr double Design::*kInputs[] = {&Design::R1,      &Design::R2,      &Design::fo, &Design::Q,
                                       &Design::QB,      &Design::QBC,     &Design::k,  &Design::er,
                                       &Design::bandLow, &Design::bandHigh};
constexpr const char* kKeywords[] = {"dfp",    "hessian", "noclamp", "max",   "noise", "steep",
                                     "single", "ssg",     "dsg",     "trans", "mruns", "thorough"};
/// Far above what the wildest settings have taken.
constexpr int kMostCallsPerIteration = 400;
constexpr int kMostCallsOfStarts = 60000;

// An input that has come to its end gives zeros: they choose what takes no time.

/// Any order of magnitude, and now and then any double at all.
double Number(FuzzedDataProvider& source, double least, double most) {
    if (source.ConsumeIntegralInRange(0, 31) == 31) return source.ConsumeFloatingPoint<double>();
    return std::pow(10, source.ConsumeFloatingPointInRange(least, most));
}

Design Inputs(FuzzedDataProvider& source) {
    Design design;
    EnterPage(design, source.ConsumeIntegralInRange(1, PageCount()));
    for (const auto input : kInputs) {
        if (source.ConsumeBool()) {
            // As fields and files hand it on.
            const double value = Number(source, input == &Design::Q ? -3.0 : -9.0, 12);
            if (value > 0 && std::isfinite(value)) design.*input = value;
        }
    }
    if (design.k > 1) design.k = 1;
    design.LCSwapped = source.ConsumeBool();
    design.QByBandwidth = source.ConsumeBool();
    design.equalInductances = source.ConsumeBool();
    design.smallCapacitance = source.ConsumeBool();
    design.smallInductances = source.ConsumeBool();
    design.eightElements = source.ConsumeBool();
    design.matchBand = source.ConsumeBool();
    return design;
}

OptimizerSettings Settings(FuzzedDataProvider& source) {
    std::string words;
    for (const char* word : kKeywords) {
        if (source.ConsumeIntegralInRange(0, 5) == 5) words += word;
    }
    const std::string arguments[] = {words};
    OptimizerSettings settings = ReadKeywords(arguments).settings;
    LocalOptions& local = settings.local;
    if (source.ConsumeBool()) local.gradientLimit = std::fabs(Number(source, -9, 6));
    local.maxIterations = source.ConsumeIntegralInRange(1, source.ConsumeBool() ? 12 : 199);
    local.lineAccuracy = source.ConsumeFloatingPointInRange(0.0, 1.0);
    local.lineCentre = source.ConsumeFloatingPointInRange(0.0, 1.0);
    settings.differentStartValues = source.ConsumeIntegralInRange(0, 3) == 3;
    settings.writeLog = source.ConsumeIntegralInRange(0, 7) == 7;
    settings.writeTable = source.ConsumeIntegralInRange(0, 7) == 7;
    return settings;
}

void Check(const PageOptimization& done, const OptimizerSettings& settings,
           const std::string& shown) {
    const int iterations = settings.local.maxIterations * static_cast<int>(done.runs.size());
    Require(done.iterations() <= iterations, "within its iterations", shown);
    Require(done.calls.total() <= kMostCallsPerIteration * iterations +
                                      kMostCallsOfStarts * static_cast<int>(done.runs.size()),
            "within its calls", shown + std::to_string(done.calls.total()));
    if (!std::isfinite(done.startGoal)) return;
    Require(done.achievedGoal <= done.startGoal, "never worse", shown);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider source(data, size);
    const Design inputs = Inputs(source);
    const OptimizerSettings settings = Settings(source);
    ResponseServices services;
    const CycleResult calculated = Calculate(inputs, true, services);
    if (calculated.message) return 0;
    const PageOptimization done = OptimizePage(calculated.design, settings);
    if (done.status != PageOptimization::Status::Finished) return 0;
    Check(done, settings, "page " + std::to_string(inputs.page) + ' ');
    Design optimized = calculated.design;
    optimized.components = done.components;
    (void)ShowComponents(optimized, services);
    return 0;
}
