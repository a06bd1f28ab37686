// Coils, capacitors and resonances.

#include <cmath>

#include "advise/quiz/bank.h"
#include "network/network.h"

namespace kelvro::quiz {

namespace {

const char* const kParts = "Coils and capacitors";

double Inductance(Numbers& n) {
    return n.oneOf({22e-9, 47e-9, 100e-9, 220e-9, 470e-9, 1e-6, 2.2e-6});
}

double Capacitance(Numbers& n) {
    return n.oneOf({4.7e-12, 10e-12, 22e-12, 47e-12, 100e-12, 220e-12});
}

double OmegaAt(double f) {
    Design state;
    state.fo = f;
    return Omega(state);
}

Question ReactanceOfCapacitor(Numbers& n) {
    const double C = Capacitance(n);
    const double f = n.frequency();
    return Ask(kParts, "What reactance has " + Say(C, "F") + " at " + Say(f, "Hz") + "?",
               1 / (OmegaAt(f) * C), "Ω", "X = 1/(2π·f·C).");
}

Question ReactanceOfCoil(Numbers& n) {
    const double L = Inductance(n);
    const double f = n.frequency();
    return Ask(kParts, "What reactance has " + Say(L, "H") + " at " + Say(f, "Hz") + "?",
               OmegaAt(f) * L, "Ω", "X = 2π·f·L.");
}

Question CapacitorOfReactance(Numbers& n) {
    const double X = n.oneOf({10, 25, 50, 100, 173.2, 300});
    const double f = n.frequency();
    return Ask(kParts,
               "Which capacitor has a reactance of " + Say(X, "Ω") + " at " + Say(f, "Hz") + "?",
               1 / (OmegaAt(f) * X), "F", "C = 1/(2π·f·X).");
}

/// A real coil or capacitor as its page sees it.
WorkedDesign RealPart(double L, double C, double R, double fo) {
    WorkedDesign design(11);
    design.state.L = L;
    design.state.C = C;
    design.state.R = R;
    design.state.fo = fo;
    design.calculate();
    return design;
}

Question SelfResonance(Numbers& n) {
    const double L = Inductance(n);
    const double C = n.oneOf({0.3e-12, 0.5e-12, 1e-12, 1.5e-12});
    return Ask(kParts,
               "A coil of " + Say(L, "H") + " has " + Say(C, "F") +
                   " between its ends. Where is its self-resonance?",
               RealPart(L, C, 1, 1e6).output("f0_11Ausgabe"), "Hz", "f0 = 1/(2π·√(L·C)).");
}

Question EffectiveInductance(Numbers& n) {
    const double L = 100e-9;
    const double C = 1e-12;  // resonance at 503 MHz
    const double fo = n.oneOf({150e6, 200e6, 250e6, 300e6, 350e6});
    return Ask(kParts,
               "A coil of 100 nH with 1 pF between its ends resonates at 503 MHz. What inductance "
               "does it show at " +
                   Say(fo, "Hz") + "?",
               RealPart(L, C, 0.01, fo).output("Leff11Ausgabe"), "H", "Leff = L/(1 - (f/f0)²).");
}

Question EffectiveCapacitance(Numbers& n) {
    const double C = n.oneOf({47e-12, 68e-12, 100e-12});
    const double fo = n.oneOf({200e6, 250e6, 300e6});
    const WorkedDesign real = RealPart(1e-9, C, 0.01, fo);
    return Ask(kParts,
               "A capacitor of " + Say(C, "F") +
                   " has 1 nH in its leads. What capacitance does it show at " + Say(fo, "Hz") +
                   "?",
               real.output("Ceff11Ausgabe"), "F", "Ceff = C/(1 - (2π·f)²·L·C).");
}

Question QOfCoil(Numbers& n) {
    const double L = Inductance(n);
    const double fo = n.oneOf({3.6e6, 7.1e6, 14.2e6, 27e6});
    const double R = n.oneOf({0.1, 0.2, 0.5, 1});
    return Ask(kParts,
               "A coil of " + Say(L, "H") + " has a loss resistance of " + Say(R, "Ω") +
                   ". What is its Q at " + Say(fo, "Hz") + " (far below its resonance)?",
               RealPart(L, 1e-18, R, fo).output("QL11Ausgabe"), "", "Q = 2π·f·L/R.");
}

Question TotalElementQ(Numbers& n) {
    WorkedDesign design(1);
    design.state.QB = n.oneOf({40, 60, 80, 100, 150, 200});
    design.state.QBC = n.oneOf({300, 500, 1000, 2000});
    design.calculate();
    return Ask(kParts,
               "The coils have a Q of " + Say(design.state.QB, "") + ", the capacitors one of " +
                   Say(design.state.QBC, "") + ". What is the total effective element Q?",
               design.cycle.QBges, "", "Losses add, so it is the harmonic mean 2/(1/QL + 1/QC).");
}

/// The tank of the Comb. LC page.
WorkedDesign CombinedTank(Numbers& n) {
    WorkedDesign design(12);
    design.state.Ls = n.oneOf({0.47e-6, 1e-6, 2.2e-6});
    design.state.Cs = n.oneOf({47e-12, 100e-12, 220e-12});
    design.state.Lp = n.oneOf({0.47e-6, 1e-6, 2.2e-6});
    design.calculate();
    return design;
}

std::string TankText(const Design& s) {
    return "Ls = " + Say(s.Ls, "H") + " and Cs = " + Say(s.Cs, "F") +
           " in series lie across Lp = " + Say(s.Lp, "H") + ". ";
}

Question TrapShort(Numbers& n) {
    const WorkedDesign tank = CombinedTank(n);
    return Ask(kParts, TankText(tank.state) + "At which frequency is the combination a short?",
               tank.output("fs12Ausgabe"), "Hz", "The series branch alone: 1/(2π·√(Ls·Cs)).");
}

Question TrapOpen(Numbers& n) {
    const WorkedDesign tank = CombinedTank(n);
    return Ask(kParts, TankText(tank.state) + "At which frequency is the combination open?",
               tank.output("fp12Ausgabe"), "Hz",
               "The loop of all three parts: 1/(2π·√((Ls + Lp)·Cs)).");
}

Question DualValue(Numbers& n) {
    const double C = Capacitance(n);
    const double fo = n.oneOf({10.7e6, 27e6, 50e6, 100e6});
    const auto dual = Dual({ShuntArm(Part::C(C))}, fo);
    return Ask(kParts,
               "A network for " + Say(fo, "Hz") + " has its L and C interchanged. What replaces " +
                   Say(C, "F") + "?",
               PartsOf(dual).front()->value, "H",
               "The coil of the same reactance at fo: L = 1/((2π·fo)²·C).");
}

constexpr QuestionMaker kQuestions[] = {
    ReactanceOfCapacitor,
    ReactanceOfCoil,
    CapacitorOfReactance,
    SelfResonance,
    EffectiveInductance,
    EffectiveCapacitance,
    QOfCoil,
    TotalElementQ,
    TrapShort,
    TrapOpen,
    DualValue,
};

}  // namespace

std::span<const QuestionMaker> PartQuestions() {
    return kQuestions;
}

}  // namespace kelvro::quiz
