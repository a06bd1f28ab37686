// Leff/Ceff and Comb. LC: what a real component or a combined tank is at fo.

#include <cmath>
#include <limits>

#include "core/scalar.h"
#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

constexpr Limits kReactanceLimits{1e-18, 1e6};  // H and F

/// A network that is connected at one end only.
Network OnePort(const Design& s, Impedance arm, std::string caption = {}) {
    return {.source = Impedance::Nothing(),
            .ladder = {ShuntArm(std::move(arm))},
            .load = Impedance::Nothing(),
            .designFrequency = s.fo,
            .caption = std::move(caption)};
}

// ---------------------------------------------------------------- real coil and capacitor

void DesignEffective(DesignPass& pass) {
    const Design& s = pass.state;
    const long double w = pass.omega;
    const long double XL = w * s.L;
    const long double BC = w * s.C;
    const long double R = s.R;
    // Coil: Z = (R + jXL) / d with d = 1 + jBC·(R + jXL); Re Z = R/|d|².
    const long double dRe = 1 - BC * XL;
    const long double dIm = BC * R;
    const long double coil = XL * dRe - R * dIm;  // Im Z·|d|²
    const long double Leff = coil / (dRe * dRe + dIm * dIm) / w;
    const long double X = XL - 1 / BC;  // capacitor: R + jX
    const auto Ceff = static_cast<double>(-1 / (w * X));
    pass.show("f0_11Ausgabe", 1 / (kTwoPi * std::sqrt(s.L * s.C)));
    pass.show("Leff11Ausgabe", static_cast<double>(Leff));
    pass.show("QL11Ausgabe", static_cast<double>(coil / R));
    pass.showOrInfinite("Ceff11Ausgabe", Ceff);
    pass.show("QC11Ausgabe", static_cast<double>(std::fabs(X) / R));
    pass.showText("Note11", Leff < 0 || Ceff < 0 ? "above self-resonance" : "");
}

/// The coil: L and R in series, its own capacitance across them.
std::vector<Network> CoilNetworks(const Design& s) {
    return {
        OnePort(s,
                Impedance::InParallel({Impedance::InSeries({Part::R(s.R, "R"), Part::L(s.L, "L")}),
                                       Part::C(s.C, "C")}),
                "Coil")};
}

/// The capacitor: its leads' inductance and its loss in series.
Network CapacitorNetwork(const Design& s) {
    return OnePort(s,
                   Impedance::InSeries({Part::R(s.R, "R"), Part::L(s.L, "L"), Part::C(s.C, "C")}),
                   "Capacitor");
}

// ---------------------------------------------------------------- combined tank

void DesignCombinedTank(DesignPass& pass) {
    constexpr long double open = 1e-9L;  // of xp: this near to resonance the tank is open
    const Design& s = pass.state;
    const long double xs = pass.omega * s.Ls - 1 / (pass.omega * static_cast<long double>(s.Cs));
    const long double xp = pass.omega * s.Lp;
    const bool infinite = std::fabs(xs + xp) < open * xp;
    const auto X = infinite ? std::numeric_limits<double>::infinity()
                            : static_cast<double>(xs * xp / (xs + xp));
    pass.show("fs12Ausgabe", 1 / (kTwoPi * std::sqrt(s.Ls * s.Cs)));
    pass.show("fp12Ausgabe", 1 / (kTwoPi * std::sqrt((s.Ls + s.Lp) * s.Cs)));
    pass.showOrInfinite("X12Ausgabe", X);
    if (X >= 0) {
        pass.showCaption("Eq12Ausgabe", "Equivalent Inductance", "H");
        pass.showOrInfinite("Eq12Ausgabe", X / pass.omega);
    } else {
        pass.showCaption("Eq12Ausgabe", "Equivalent Capacitance", "F");
        pass.showOrInfinite("Eq12Ausgabe", -1 / (pass.omega * X));
    }
}

/// Cs and Lp that put the short to fs and the open to fp, for the Ls at hand.
std::string FindTank(Design& s) {
    if (s.fs12 <= s.fp12) return "It must be fs>fp!";
    const long double ws = kTwoPi * static_cast<long double>(s.fs12);
    const long double ratio = static_cast<long double>(s.fs12) / s.fp12;
    s.Cs = Clamp(static_cast<double>(1 / (ws * ws * s.Ls)), kReactanceLimits.low,
                 kReactanceLimits.high);
    s.Lp = Clamp(static_cast<double>(s.Ls * (ratio * ratio - 1)), kReactanceLimits.low,
                 kReactanceLimits.high);
    return {};
}

std::vector<Network> CombinedTankNetworks(const Design& s) {
    using enum PartKind;
    return {
        OnePort(s, Impedance::InParallel({Impedance::InSeries({PagePart(Inductor, "Ls", s, s.Ls),
                                                               PagePart(Capacitor, "Cs", s, s.Cs)}),
                                          PagePart(Inductor, "Lp", s, s.Lp)}))};
}

std::vector<InputField> CombinedTankInputs() {
    constexpr Limits frequencies{1, 2e10};
    return {{"Ls12Eingabe", "Inductance Ls", "H", "In series with Cs", "ls", "Ls", &Design::Ls,
             kReactanceLimits},
            {"Cs12Eingabe", "Capacitance Cs", "F", "In series with Ls", "cs", "Cs", &Design::Cs,
             kReactanceLimits},
            {"Lp12Eingabe", "Inductance Lp", "H", "Across the branch of Ls and Cs", "lp", "Lp",
             &Design::Lp, kReactanceLimits},
            {"fp12Eingabe", "Wanted fp (open)", "Hz",
             "Frequency that the tank shall let pass; for the button below", "fp", kKeptExactly,
             &Design::fp12, frequencies},
            {"fs12Eingabe", "Wanted fs (short)", "Hz",
             "Frequency that the tank shall short, above fp; for the button below", "fs",
             kKeptExactly, &Design::fs12, frequencies}};
}

}  // namespace

Page LeffCeffPage() {
    Page page{
        .key = "leff-ceff",
        .caption = "Leff/Ceff",
        .menuItem = "LeffCeff1",
        .menuText = "L&eff/Ceff",
        .menuGroup = MenuGroup::Options,
        .shared = SharedOutputs::None,
        .suggestion = {.role = Role::Other,
                       .character = "Looks at the parasitics of one coil or capacitor"},
        .hint =
            {.use = "What a coil or capacitor really is at fo: near its self-resonance the "
                    "effective value rises, above it a coil is a capacitor and a capacitor a coil.",
             .limits =
                 "One resonance only; long coils have more of them. The loss resistance is taken "
                 "as constant; skin effect makes it rise with the root of the frequency.",
             .parasitics = "Measure L and R at a low frequency, the self-resonance with a network "
                           "analyser, and compute C from it.",
             .values = "Chip coils: 0.1 to 0.2 pF; chip capacitors: 0.5 to 1 nH; wired parts: 1 nH "
                       "per millimetre."},
        .goal = PageGoal::Nothing()};
    page.notes = {{"A real coil or capacitor, as it acts at fo", "Set fo above"},
                  {"", "A coil acts as capacitance there, a capacitor as inductance", "Note11"}};
    page.inputs = {
        {"L11Eingabe", "Inductance L", "H", "Coil: its inductance. Capacitor: that of its leads",
         "l", "L", &Design::L, kReactanceLimits},
        {"C11Eingabe", "Capacitance C", "F",
         "Capacitor: its capacitance. Coil: that of its winding", "c", "C", &Design::C,
         kReactanceLimits},
        {"R11Eingabe",
         "Loss Resistance R",
         "Ω",
         "Series resistance at fo",
         "r",
         "R",
         &Design::R,
         {1e-9, 1e6}}};
    page.outputs = {{"f0_11Ausgabe", "f0", "Self-Resonance f0", "Hz", "Resonance of L and C"},
                    {"Leff11Ausgabe", "Leff", "Coil: Leff", "H",
                     "Inductance of the coil at fo, its capacitance included"},
                    {"QL11Ausgabe", "QL", "Coil: Q", "", "Reactance over resistance at fo"},
                    {"Ceff11Ausgabe", "Ceff", "Capacitor: Ceff", "F",
                     "Capacitance of the capacitor at fo, its inductance included"},
                    {"QC11Ausgabe", "QC", "Capacitor: Q", "", "Reactance over resistance at fo"}};
    page.outputs[2].format = page.outputs[4].format = Fixed(7, 2);
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignEffective;
    page.networks = CoilNetworks;
    page.alternative = CapacitorNetwork;
    page.parts = {{"R", Slot::None, "R11Eingabe"},
                  {"L", Slot::None, "L11Eingabe"},
                  {"C", Slot::None, "C11Eingabe"}};
    return page;
}

Page CombLcPage() {
    Page page{
        .key = "comb-lc",
        .caption = "Comb. LC",
        .menuItem = "KombinierterLCKreis1",
        .menuText = "Comb. LC Tank",
        .menuGroup = MenuGroup::Options,
        .exportable = true,
        .shared = SharedOutputs::None,
        .suggestion = {.role = Role::Other, .character = "Designs a trap for one frequency"},
        .hint =
            {.use = "A tank that is open at one frequency and short at another: passes the carrier "
                    "and traps a harmonic, with three parts.",
             .limits = "The short lies above the open frequency. Sharp traps need coils of high Q; "
                       "their depth is about the loss resistance of Ls and Cs.",
             .parasitics =
                 "Stray capacitance across the whole tank lowers the open frequency; trim Lp.",
             .values =
                 "For a trap at 2·fo: Lp = 3·Ls for any Ls. The button solves the general case."},
        .goal = PageGoal::Nothing()};
    page.notes = {
        {"open at fp, short at fs: a harmonic trap", "Across a line it passes fp and shorts fs"}};
    page.inputs = CombinedTankInputs();
    page.actions = {{"ButtonDesign12", "Find Cs, Lp for Ls",
                     "Make the tank open at fp and short at fs, keeping Ls", FindTank}};
    page.outputs = {{"fs12Ausgabe", "fs", "Series Resonance fs", "Hz", "The tank is a short here"},
                    {"fp12Ausgabe", "fp", "Parallel Resonance fp", "Hz", "The tank is open here"},
                    {"X12Ausgabe", "X", "Reactance at fo", "Ω", "Positive: inductive"},
                    {"Eq12Ausgabe", "Eq", "Equivalent Inductance", "H",
                     "Single element of the same reactance at fo"}};
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignCombinedTank;
    page.networks = CombinedTankNetworks;
    page.parts = {{"Ls", Slot::None, "Ls12Eingabe"},
                  {"Cs", Slot::None, "Cs12Eingabe"},
                  {"Lp", Slot::None, "Lp12Eingabe"}};
    return page;
}

}  // namespace kelvro
