// Attenuators, power amplifiers and the resistor string.

#include <cmath>

#include "advise/quiz/bank.h"
#include "core/scalar.h"

namespace kelvro::quiz {

namespace {

const char* const kPads = "Attenuators";
const char* const kAmplifiers = "Power amplifiers";

/// A question for a resistor of a pad between equal resistances.
Question PadResistor(Numbers& n, const std::string& form, const std::string& which,
                     std::string_view field, const std::string& explanation) {
    const double R = n.oneOf({50, 60, 75, 600});
    const double dB = n.oneOf({3, 6, 10, 20});
    WorkedDesign design(8);
    design.state.R1 = R;
    design.state.R2 = R;
    design.state.v8 = Power(10, -dB / 20);
    design.calculate();
    return Ask(kPads,
               "A " + form + " pad in a " + Say(R, "Ω") + " line shall attenuate by " +
                   Say(dB, "dB") + ". How large are its two " + which + " resistors?",
               design.output(field), "Ω", explanation + " with a = 10^(dB/20).");
}

Question PadT(Numbers& n) {
    return PadResistor(n, "T", "series", "RaT8Ausgabe", "R·(a - 1)/(a + 1)");
}

Question PadPi(Numbers& n) {
    return PadResistor(n, "pi", "shunt", "RaPi8Ausgabe", "R·(a + 1)/(a - 1)");
}

WorkedDesign LPad(Numbers& n) {
    const double R2 = n.oneOf({25, 50, 60, 75});
    return Match(7, R2 * n.oneOf({1.5, 2, 3, 4, 6}), R2, 1e6);
}

Question LPadSeries(Numbers& n) {
    const WorkedDesign pad = LPad(n);
    return Ask(kPads,
               "A resistive L pad matches " + Say(pad.state.R1, "Ω") + " to " +
                   Say(pad.state.R2, "Ω") + ". How large is its series resistor?",
               pad.state.components[Slot::C1], "Ω", "√((R1 - R2)·R1).");
}

Question LPadLoss(Numbers& n) {
    const WorkedDesign pad = LPad(n);
    return AskDecibels(kPads,
                       "A resistive L pad matches " + Say(pad.state.R1, "Ω") + " to " +
                           Say(pad.state.R2, "Ω") + ". How many dB does it lose?",
                       pad.cycle.lossDb,
                       "20·log(√r + √(r - 1)) with r = R1/R2, the least that any pad can lose.");
}

WorkedDesign Amplifier(Numbers& n, int page) {
    WorkedDesign design(page);
    design.state.P = n.oneOf({0.5, 1, 2, 5, 10});
    design.state.Ub = n.oneOf({5, 9, 12, 13.8, 28});
    design.state.Usat = n.oneOf({0.2, 0.5, 1});
    return design;
}

std::string StageText(const Design& s) {
    return Say(s.P, "W") + " at a supply of " + Say(s.Ub, "V") + " and a saturation voltage of " +
           Say(s.Usat, "V");
}

Question OptimumLoad(Numbers& n) {
    WorkedDesign design = Amplifier(n, 10);
    design.calculate();
    return Ask(kAmplifiers,
               "Which load resistance draws " + StageText(design.state) + " from a linear stage?",
               design.output("RL10Ausgabe"), "Ω", "RL = (Ub - Usat)²/(2·P).");
}

Question ClassBEfficiency(Numbers& n) {
    WorkedDesign design = Amplifier(n, 10);
    design.calculate();
    return Ask(kAmplifiers,
               "What efficiency in percent can class B reach at a supply of " +
                   Say(design.state.Ub, "V") + " with a saturation voltage of " +
                   Say(design.state.Usat, "V") + "?",
               design.output("etaB10Ausgabe"), "%", "π/4·(Ub - Usat)/Ub.");
}

Question SupplyCurrent(Numbers& n) {
    WorkedDesign design = Amplifier(n, 10);
    design.calculate();
    return Ask(
        kAmplifiers,
        "What mean supply current does a class-B stage draw for " + StageText(design.state) + "?",
        design.output("IB10Ausgabe"), "A", "2·I1/π with I1 = 2·P/(Ub - Usat).");
}

Question ClassEPeak(Numbers& n) {
    WorkedDesign design = Amplifier(n, 15);
    design.calculate();
    return Ask(kAmplifiers,
               "Which voltage must the switch of a class-E stage with a loaded Q of " +
                   Say(design.state.Q, "") + " stand at a supply of " + Say(design.state.Ub, "V") +
                   " (saturation " + Say(design.state.Usat, "V") + ")?",
               design.output("Upk15Ausgabe"), "V",
               "About 3.6 times the swing above the saturation voltage: 3.6·(Ub - Usat) + Usat.");
}

Question ClassELoad(Numbers& n) {
    WorkedDesign design = Amplifier(n, 15);
    design.state.Q = n.oneOf({3, 5, 7, 10});
    design.calculate();
    return Ask(kAmplifiers,
               "Which load resistance needs a class-E stage for " + StageText(design.state) +
                   " with a loaded Q of " + Say(design.state.Q, "") + "?",
               design.output("R15Ausgabe"), "Ω",
               "With the usual choke 0.585·(1 - 0.45/Q - 0.4/Q²)·(Ub - Usat)²/P.");
}

Question DividerTap(Numbers& n) {
    WorkedDesign design(19);
    design.state.Rtot = n.oneOf({10e3, 50e3, 100e3, 200e3});
    design.calculate();
    const Design& s = design.state;
    return Ask(kPads,
               "A resistor string of " + Say(s.Rtot, "Ω") + " hangs on " + Say(s.Vref, "V") +
                   ". Which resistance stands between ground and the tap of " + Say(s.Vlow1, "V") +
                   "?",
               design.output("RD119Ausgabe"), "Ω", "Rtot·Vtap/Vref.");
}

constexpr QuestionMaker kQuestions[] = {
    PadT,          PadPi,      LPadSeries, LPadLoss,   OptimumLoad, ClassBEfficiency,
    SupplyCurrent, ClassEPeak, ClassELoad, DividerTap,
};

}  // namespace

std::span<const QuestionMaker> PowerQuestions() {
    return kQuestions;
}

}  // namespace kelvro::quiz
