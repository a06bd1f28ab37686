#include "io/class_e_netlist.h"

#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/class_e_page.h"
#include "io/spice_deck.h"

namespace kelvro {

namespace {

constexpr int kPeriods = 120;  // the slowest usual memory, choke with load, takes 20
constexpr int kMeasured = 20;  // of these, at the end
constexpr int kStepsPerPeriod = 400;

// The switch: its losses stay below 0.002 % of the power, and its edges below 0.01 degrees.
constexpr double kClosed = 1e-5;        // resistance in units of R
constexpr double kOpen = 1e6;           // the same
constexpr double kEdge = 1e-5;          // of the drive, in periods
constexpr double kInfiniteChoke = 1e5;  // reactance in units of R that stands for infinity

/// A part with its loss at fo in series and its initial state.
void WriteLossy(SpiceDeck& deck, const std::string& name, const std::string& from,
                const std::string& to, double value, double loss, double initial) {
    const std::string inner = loss > 0 ? "loss" + name : to;
    deck.line(name + ' ' + from + ' ' + inner + ' ' + FormatShortest(value) +
              " IC=" + FormatShortest(initial));
    if (loss > 0) deck.part("R" + name, inner, to, loss);
}

void WriteStage(SpiceDeck& deck, const ClassEStage& stage, double tangent,
                const ClassEOperation& start) {
    const double omega = kTwoPi * stage.fo;
    const bool infinite = std::isinf(stage.choke);
    const double choke = infinite ? kInfiniteChoke * stage.R / omega : stage.choke;
    if (infinite) deck.comment("An infinite choke is one of a hundred thousand times R here");
    deck.line("VDD supply 0 DC " + FormatShortest(stage.supply));
    WriteLossy(deck, "Lc", "supply", "drain", choke, 0, start.chokeCurrent);
    WriteLossy(deck, "C1", "drain", "0", stage.C1, stage.lossC1, start.voltageC1);
    WriteLossy(deck, "C2", "drain", "n1", stage.C2, tangent / (omega * stage.C2), start.voltageC2);
    WriteLossy(deck, "L2", "n1", "out", stage.L2, tangent * omega * stage.L2, start.currentL2);
    deck.part("RLOAD", "out", "0", stage.R);
}

void WriteSwitch(SpiceDeck& deck, const ClassEStage& stage) {
    const double T = 1 / stage.fo;
    const std::string edge = FormatShortest(kEdge * T);
    deck.comment("The switch is closed for the first half of each period");
    deck.line("VGATE gate 0 PULSE(0 1 0 " + edge + ' ' + edge + ' ' +
              FormatShortest(T / 2 - kEdge * T) + ' ' + FormatShortest(T) + ")");
    deck.line("S1 drain sat gate 0 SWITCH");
    deck.line(".model SWITCH SW(RON=" + FormatShortest(kClosed * stage.R) +
              " ROFF=" + FormatShortest(kOpen * stage.R) + " VT=0.5 VH=0)");
    deck.line("VSAT sat 0 DC " + FormatShortest(stage.saturation));
}

void WriteMeasurements(SpiceDeck& deck, const ClassEStage& stage) {
    const double T = 1 / stage.fo;
    const std::string to = FormatShortest(kPeriods * T);
    const std::string from = FormatShortest((kPeriods - kMeasured) * T);
    const std::string window = " FROM=" + from + " TO=" + to;
    deck.line(".tran " + FormatShortest(T / kStepsPerPeriod) + ' ' + to + ' ' + from + ' ' +
              FormatShortest(T / kStepsPerPeriod) + " UIC");
    deck.line(".meas tran vrms RMS v(out)" + window);
    deck.line(".meas tran pout PARAM='vrms*vrms/" + FormatShortest(stage.R) + "'");
    deck.line(".meas tran vpeak MAX v(drain)" + window);
    // Behind the instant of closing, when what is left in C1 is shorted.
    deck.line(".meas tran ipeak MAX i(VSAT) FROM=" + FormatShortest((kPeriods - 0.99) * T) +
              " TO=" + FormatShortest((kPeriods - 0.5) * T));
    deck.line(".meas tran vdrain FIND v(drain) AT=" + FormatShortest((kPeriods - 1) * T));
    deck.line(".meas tran vturnon PARAM='vdrain-" + FormatShortest(stage.saturation) + "'");
    deck.line(".meas tran isupply AVG i(VDD)" + window);
    deck.line(".meas tran efficiency PARAM='-100*pout/(isupply*" + FormatShortest(stage.supply) +
              ")'");
    deck.line(".four " + FormatShortest(stage.fo) + " v(out)");
}

}  // namespace

std::string ClassENetlist(const ExportDesign& design) {
    const ClassEStage stage = ClassEStageOf(design.state, true);
    const double tangent = PageTangent(design.networks.front());
    const auto operation = OperateClassE(stage);
    SpiceDeck deck(design);
    deck.elementQ(tangent);
    deck.comment("Everything starts from the computed steady state");
    WriteStage(deck, stage, tangent, operation ? *operation : ClassEOperation{});
    WriteSwitch(deck, stage);
    WriteMeasurements(deck, stage);
    return deck.text();
}

}  // namespace kelvro
