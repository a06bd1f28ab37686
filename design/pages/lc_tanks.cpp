// LC Series Tank and LC Parallel Tank: one inductor and two capacitors, tapped.

#include <cmath>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

std::vector<Slot> TankSlots(const Design&) {
    return {Slot::C1, Slot::C2, Slot::L};
}

// W. L. Everitt, "Output networks for radio-frequency power amplifiers", Proc. IRE 19 (1931),
// 725-737: the L section, of which both tanks are made. A resistance R with the reactance of q·R in
// series is (1 + q²)·R with (q + 1/q)·R across, so that q = sqrt(Rhigh/Rlow - 1) joins two
// resistances.
//
// "Off" here and on the other pages: lossless loss at fo before the optimizer, measured over R1 and
// R2 from 5, 10, 50, 75, 300, 1000 ohm and Q from 0.2, 1, 2, 5, 10, 20.

// ---------------------------------------------------------------- series tank

/// L section of C2 across the load, q = sqrt(R2/R1 - 1); L and C1 in series share the reactance
/// q·R1 that it asks for, and the loaded Q = XL/(2·R1) sets how much of L the capacitor C1 takes
/// away. Exact at fo while 2·Q > q; below, C1 would have to be an inductor. The capacitance of the
/// same size that stands for it is up to 23 dB off.

void DesignSeriesTank(DesignPass& pass) {
    Design& s = pass.state;
    if (!(s.R2 > s.R1)) return pass.refuse(std::string(kNeedsR2Larger));
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    const long double XL = 2 * pass.Qe * R1;
    const long double XC1 = XL - std::sqrt((R2 - R1) * R1);
    const long double XC2 = R2 * std::sqrt(R1 / (R2 - R1));
    if (pass.storeComponents) {
        // XC1 turns negative at low Q; the capacitance stays positive.
        s.components[Slot::C1] = static_cast<double>(std::fabs(1 / (pass.omega * XC1)));
        s.components[Slot::C2] = static_cast<double>(1 / (pass.omega * XC2));
        s.components[Slot::L] = static_cast<double>(XL / pass.omega);
    }
    pass.finish();  // this page leaves the bandwidth at 0
}

/// V(s) of R1 - L - C1 - (C2 || R2). An infinite C1 (the Q at which XC1 vanishes) is a short: of
/// the fraction only the terms with C1 remain, divided by it.
Transfer SeriesTankTransfer(const Design& s) {
    const bool shorted = std::isinf(s.components[Slot::C1]);
    const long double C1 = shorted ? 1 : s.components[Slot::C1];
    const long double withoutC1 = shorted ? 0 : 1;
    const long double C2 = s.components[Slot::C2];
    const long double L = s.components[Slot::L];
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    return Transfer::Polynomial(C1 / R1, 1,
                                {withoutC1 / (R1 * R2), withoutC1 * C2 / R1 + C1 / R2 + C1 / R1,
                                 L * C1 / (R1 * R2) + C2 * C1, L * C1 * C2 / R1, 0});
}

std::vector<Network> SeriesTankNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {SeriesArm(PagePart(Inductor, "L", s, Slot::L)),
                            SeriesArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                            ShuntArm(PagePart(Capacitor, "C2", s, Slot::C2))})};
}

// ---------------------------------------------------------------- parallel tank

/// C2 across the load with the Q of the load at its branch, R2 = Q·XC2; in its series form that is
/// R2/(1 + Q²) with Q·R2/(1 + Q²), which C1 raises until L across the source meets R1. Exact at fo
/// for every Q.

void DesignParallelTank(DesignPass& pass) {
    Design& s = pass.state;
    pass.setBandwidth(s.fo / pass.Qe);  // also when refused
    if (!(s.R1 > s.R2)) return pass.refuse(std::string(kNeedsR1Larger));
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    const long double Qe = pass.Qe;
    const long double A = Qe * Qe + 1;
    const long double XC2 = R2 / Qe;
    const long double XL = R1 / std::sqrt(A * R1 / R2 - 1);
    const long double XC1 = (Qe * R2 / A) * (R1 / (Qe * XL) - 1);
    if (pass.storeComponents) {
        s.components[Slot::C1] = static_cast<double>(1 / (pass.omega * XC1));
        s.components[Slot::C2] = static_cast<double>(1 / (pass.omega * XC2));
        s.components[Slot::L] = static_cast<double>(XL / pass.omega);
    }
    pass.finish();
}

/// V(s) of R1 - L across - C1 - (C2 || R2).
Transfer ParallelTankTransfer(const Design& s) {
    const long double C1 = s.components[Slot::C1];
    const long double C2 = s.components[Slot::C2];
    const long double L = s.components[Slot::L];
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    return Transfer::Polynomial(
        L * C1 / R1, 2,
        {1 / R2, L / (R2 * R1) + C1 + C2, L * C2 / R1 + L * C1 / R2 + L * C1 / R1, L * C1 * C2, 0});
}

std::vector<Network> ParallelTankNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {ShuntArm(PagePart(Inductor, "L", s, Slot::L)),
                            SeriesArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                            ShuntArm(PagePart(Capacitor, "C2", s, Slot::C2))})};
}

}  // namespace

Page LcSeriesTankPage() {
    Page page{
        .key = "lc-series",
        .caption = "LC Series Tank",
        .menuItem = "LCS1",
        .menuText = "&LC Series Tank",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .swapBox = "CheckBox1",
        .mirrored = true,
        .suggestion = {.role = Role::Match,
                       .character = "Tapped series tank whose Q can be chosen"},
        .hint = {.use = "Steps a small source resistance up to a larger load with a free choice of "
                        "the loaded Q. The series coil and C1 form the tank, C2 taps the load into "
                        "it. It blocks direct current and falls off on both sides of fo.",
                 .limits =
                     "R1 must be smaller than R2. Below Q of about sqrt(R2/R1 − 1)/2 the reactance "
                     "of C1 changes its sign; the value shown is then only a magnitude. At high Q "
                     "the whole current runs through L: its loss is about Q/QL.",
                 .parasitics = "The pad capacitance at the load and the input capacitance of the "
                               "next stage belong to C2: subtract them. The self-capacitance of L "
                               "raises its effective value; the Leff/Ceff page tells by how much. "
                               "The lead inductance of C1 simply adds to L.",
                 .values = "Choose Q so that L stays below a third of the inductance that "
                           "resonates with its own capacitance at fo, and C1 stays above a few "
                           "times the stray capacitance (about 0.3 pF)."},
        .goal = PageGoal::Components(TankSlots)};
    page.notes = {{"Suited for R1<R2"}};
    page.outputs = {Component("L1Ausgabe", "L", "Inductance L", "H", Slot::L),
                    Component("C11Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("C21Ausgabe", "C2", "Capacitance C2", "F", Slot::C2)};
    // Take reads C2 from the C1 field of the LC Parallel Tank page; users' habits rest on it.
    page.outputs[2].takenFrom = PartKey{2, Slot::C1};
    page.transferText =
        "V(s) = sC[1]G[1] / (s³LC[1]C[2]G[1] + s²C[1](LG[1]G[2] + C[2]) + "
        "s(C[2]G[1] + C[1]G[2] + C[1]G[1]) + G[1]G[2])";
    page.design = DesignSeriesTank;
    page.transfer = SeriesTankTransfer;
    page.networks = SeriesTankNetworks;
    return page;
}

Page LcParallelTankPage() {
    Page page{
        .key = "lc-parallel",
        .caption = "LC Parallel Tank",
        .menuItem = "LCP1",
        .menuText = "LC &Parallel Tank",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .swapBox = "CheckBox2",
        .mirrored = true,
        .suggestion = {.role = Role::Match,
                       .character = "Tapped parallel tank whose Q can be chosen"},
        .hint =
            {.use = "Steps a large source resistance down to a smaller load. L grounds the source "
                    "side, so a supply can be fed through its cold end; C1 and C2 form a "
                    "capacitive tap.",
             .limits = "R1 must be larger than R2. Large ratios at high Q give a very small C1 and "
                       "a large circulating current in L.",
             .parasitics = "The output capacitance of the driving transistor lies across L: make L "
                           "a little larger or trim C1. Pads at the load add to C2. The ground "
                           "lead of C2 is common to input and output; keep it short.",
             .values =
                 "Typical: Q 3 to 15. For L below about 2 nH think of a line instead of a coil."},
        .goal = PageGoal::Components(TankSlots)};
    page.notes = {{"Suited for R1>R2"}};
    page.outputs = {Component("L2Ausgabe", "L", "Inductance L", "H", Slot::L),
                    Component("C12Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("C22Ausgabe", "C2", "Capacitance C2", "F", Slot::C2)};
    page.transferText =
        "V(s) = s²LC[1]G[1] / (s³LC[1]C[2] + s²L(C[2]G[1] + C[1]G[1] + C[1]G[2]) + "
        "s(LG[2]G[1] + C[1] + C[2]) + G[2])";
    page.design = DesignParallelTank;
    page.transfer = ParallelTankTransfer;
    page.networks = ParallelTankNetworks;
    return page;
}

}  // namespace kelvro
