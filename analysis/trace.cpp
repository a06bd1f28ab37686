#include "analysis/trace.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

// Of what a page promises, else of the network that stands there.

double VoltageGain(const TraceSource& source, double f) {
    return source.response ? source.magnitudeDb(f)
                           : MagnitudeDb(std::abs(source.network->voltageTransfer(f)));
}
double PowerGain(const TraceSource& source, double f) {
    return source.response ? source.magnitudeDb(f) - source.response->referenceDb()
                           : MagnitudeDb(std::sqrt(source.point(f).GT));
}
double PhaseOf(const TraceSource& source, double f) {
    return source.response ? PhaseDegrees(source.transfer(f))
                           : std::arg(source.point(f).transfer) * kDegreesPerRadian;
}
double GroupDelay(const TraceSource& source, double f) {
    return source.response ? source.response->groupDelay(f) : source.point(f).groupDelay;
}

template <int top>
TraceScale GainScale(const TraceSource&) {
    return {-40, top, 1};
}

TraceScale PhaseScale(const TraceSource&) {
    return {-180, 180, 15, 3};
}

/// Twice the delay at fo, rounded up: a resonance beside fo still has its peak in view.
TraceScale DelayScale(const TraceSource& source) {
    const double delay = 2 * std::fabs(GroupDelay(source, source.fo));
    const double top = RoundUpSig1(delay > 0 && std::isfinite(delay) ? delay : 1 / source.fo);
    return {-top / 5, top, StepUp125(top / 50)};
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

double Reflection(const TraceSource& source, double f) {
    return source.network ? source.reflection(f) : kNaN;
}

double ReturnLoss(const TraceSource& source, double f) {
    return -MagnitudeDb(Reflection(source, f));
}

double LoadReturnLoss(const TraceSource& source, double f) {
    return source.network ? -MagnitudeDb(std::abs(source.point(f).gammaOut)) : kNaN;
}

/// Rounding may leave a lossless network a little short of nothing.
double Dissipated(const TraceSource& source, double f) {
    return source.network ? std::max(source.point(f).dissipated, 0.0) : kNaN;
}

TraceScale PartScale(const TraceSource&) {
    return {0, 1, 0.05, 4};
}

/// No value where everything comes back.
double Vswr(const TraceSource& source, double f) {
    const double reflection = Reflection(source, f);
    return reflection < 1 ? (1 + reflection) / (1 - reflection) : kNaN;
}

double InputResistance(const TraceSource& source, double f) {
    return source.network ? source.point(f).Zin.real() : kNaN;
}

double InputReactance(const TraceSource& source, double f) {
    return source.network ? source.point(f).Zin.imag() : kNaN;
}

/// 40 dB, and more where the match at fo is better.
TraceScale MatchScale(const TraceSource& source) {
    constexpr double kUsual = 40;
    constexpr double kMost = 400;
    const double better =
        1.2 * std::max(ReturnLoss(source, source.fo), LoadReturnLoss(source, source.fo));
    const double top = better > kUsual ? std::min(RoundUpSig1(better), kMost) : kUsual;
    return {0, top, StepUp125(top / 50)};
}

/// From 0, so that a match has its line within the plot.
TraceScale RatioScale(const TraceSource& source) {
    constexpr double kUsual = 10;
    const double worse = 2 * Vswr(source, source.fo);
    const double top = worse > kUsual && std::isfinite(worse) ? RoundUpSig1(worse) : kUsual;
    return {0, top, StepUp125(top / 50)};
}

/// Three times what the source and the network have at fo, to either side.
TraceScale ImpedanceScale(const TraceSource& source) {
    double largest = source.R1;
    for (const double ohm : {std::fabs(InputResistance(source, source.fo)),
                             std::fabs(InputReactance(source, source.fo))}) {
        if (ohm > largest && std::isfinite(ohm)) largest = ohm;
    }
    const double top = RoundUpSig1(3 * largest);
    return {-top, top, StepUp125(top / 25)};
}

double VoltageAtDesign(const Design&, double v) {
    return MagnitudeDb(v);
}

double PowerAtDesign(const Design& design, double v) {
    return MagnitudeDb(v / std::sqrt(design.R2 / design.R1));
}

constexpr std::array kTraces{
    Trace{.key = "v",
          .title = "Voltage Gain V(f)",
          .symbol = "V",
          .unit = "dB",
          .column = "V_dB",
          .axis = TraceAxis::Gain,
          .value = VoltageGain,
          .scale = GainScale<20>,
          .tolerance = 0.1,
          .levels = true,
          .atDesign = VoltageAtDesign,
          .readOut = "Vu"},
    Trace{.key = "gt",
          .title = "Power Gain GT(f)",
          .symbol = "GT",
          .unit = "dB",
          .column = "GT_dB",
          .axis = TraceAxis::Gain,
          .value = PowerGain,
          .scale = GainScale<10>,
          .tolerance = 0.1,
          .levels = true,
          .atDesign = PowerAtDesign},
    Trace{.key = "phi",
          .title = "Phase Response",
          .symbol = "phi",
          .unit = "°",
          .column = "phase_deg",
          .axis = TraceAxis::Phase,
          .value = PhaseOf,
          .scale = PhaseScale,
          .tolerance = 0.5,
          .turn = 360},
    Trace{.key = "delay",
          .title = "Group Delay",
          .symbol = "tau",
          .unit = "s",
          .column = "group_delay_s",
          .axis = TraceAxis::Delay,
          .value = GroupDelay,
          .scale = DelayScale,
          .engineering = true},
    Trace{.key = "rl",
          .title = "Return Loss at the Source",
          .symbol = "RL",
          .unit = "dB",
          .column = "return_loss_dB",
          .axis = TraceAxis::Match,
          .value = ReturnLoss,
          .scale = MatchScale,
          .farthest = 100,
          .tolerance = 0.1},
    Trace{.key = "vswr",
          .title = "VSWR at the Source",
          .symbol = "VSWR",
          .unit = "",
          .column = "VSWR",
          .axis = TraceAxis::Ratio,
          .value = Vswr,
          .scale = RatioScale,
          .farthest = 100},
    Trace{.key = "r",
          .title = "Input Resistance",
          .symbol = "R",
          .unit = "Ω",
          .column = "R_in_ohm",
          .axis = TraceAxis::Impedance,
          .value = InputResistance,
          .scale = ImpedanceScale,
          .engineering = true,
          .farthest = 1e5},
    Trace{.key = "x",
          .title = "Input Reactance",
          .symbol = "X",
          .unit = "Ω",
          .column = "X_in_ohm",
          .axis = TraceAxis::Impedance,
          .value = InputReactance,
          .scale = ImpedanceScale,
          .engineering = true,
          .farthest = 1e5},
    // Behind the others: files keep the columns that programs read by number.
    Trace{.key = "rlout",
          .title = "Return Loss at the Load",
          .symbol = "RLout",
          .unit = "dB",
          .column = "return_loss_out_dB",
          .axis = TraceAxis::Match,
          .value = LoadReturnLoss,
          .scale = MatchScale,
          .farthest = 100,
          .tolerance = 0.1},
    Trace{.key = "loss",
          .title = "Dissipated Part",
          .symbol = "Pd/Pav",
          .unit = "",
          .column = "dissipated_part",
          .axis = TraceAxis::Part,
          .value = Dissipated,
          .scale = PartScale},
};

std::optional<LadderResponse> NetworkResponse(const Design& design) {
    const Page& page = PageOf(design);
    const auto networks = page.plottable ? page.builtNetworks(design) : std::vector<Network>();
    if (networks.empty()) return std::nullopt;
    return LadderResponse(networks.front());
}

}  // namespace

TraceSource::TraceSource(const Design& state)
    : response(state), network(NetworkResponse(state)), fo(state.fo), R1(state.R1) {}

const NetworkPoint& TraceSource::point(double f) const {
    if (!last_ || last_->f != f) {
        last_ = network->at(f);
        reflection_.reset();
    }
    return *last_;
}

double TraceSource::reflection(double f) const {
    const NetworkPoint& here = point(f);
    if (!reflection_) reflection_ = std::abs(here.gammaIn);
    return *reflection_;
}

TraceSource::Transferred& TraceSource::transferred(double f) const {
    if (!transferred_ || transferred_->f != f) transferred_ = {f, response->transfer(f)};
    return *transferred_;
}

std::complex<double> TraceSource::transfer(double f) const {
    return transferred(f).H;
}

double TraceSource::magnitudeDb(double f) const {
    Transferred& here = transferred(f);
    if (!here.dB) here.dB = MagnitudeDb(Magnitude(here.H));
    return *here.dB;
}

TraceSource::TraceSource(const Network& bare) : network(bare), fo(bare.designFrequency) {}

std::string Trace::legend() const {
    return std::string(symbol) + "(f) :";
}

std::string Trace::axisName() const {
    return std::string(symbol) + (unit.empty() ? "" : " in " + std::string(unit));
}

std::string Trace::text(double y) const {
    const std::string number =
        engineering ? FormatEngShort(decimals, y) : FormatFixed(0, decimals, y);
    return number + std::string(unit);
}

std::span<const Trace> Traces() {
    return kTraces;
}

const Trace* FindTrace(std::string_view key) {
    const auto found = std::ranges::find(kTraces, key, &Trace::key);
    return found == kTraces.end() ? nullptr : &*found;
}

const Trace& TraceOf(std::string_view key) {
    const Trace* trace = FindTrace(key);
    assert(trace != nullptr);
    return *trace;
}

std::string TraceKeys(std::string_view separator) {
    std::string keys;
    for (const Trace& trace : kTraces) {
        if (!keys.empty()) keys += separator;
        keys += trace.key;
    }
    return keys;
}

TraceList AllTraces() {
    TraceList all;
    all.reserve(kTraces.size());
    for (const Trace& trace : kTraces) all.push_back(&trace);
    return all;
}

const Trace* RightTrace(const TraceList& traces) {
    const auto other = [&](const Trace* trace) { return trace->axis != traces.front()->axis; };
    const auto found = std::ranges::find_if(traces, other);
    return found == traces.end() ? nullptr : *found;
}

const Trace* TraceWithoutAxis(const TraceList& traces) {
    const Trace* right = RightTrace(traces);
    if (right == nullptr) return nullptr;
    const auto third = [&](const Trace* trace) {
        return trace->axis != traces.front()->axis && trace->axis != right->axis;
    };
    const auto found = std::ranges::find_if(traces, third);
    return found == traces.end() ? nullptr : *found;
}

TraceList WithTrace(TraceList traces, const Trace& more) {
    const TraceAxis left = traces.front()->axis;
    std::erase_if(traces, [&](const Trace* other) {
        const bool inItsPlace =
            more.axis != left && other->axis != left && other->axis != more.axis;
        return other == &more || inItsPlace;
    });
    traces.push_back(&more);
    return traces;
}

}  // namespace kelvro
