// Pi Section and T Section: three reactances, matched to any pair of resistances.

#include <cmath>
#include <utility>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

// W. L. Everitt, "Output networks for radio-frequency power amplifiers", Proc. IRE 19 (1931),
// 725-737: pi and T are two L sections that meet in a virtual resistance, R/(1 + Q²) or R·(1 + Q²).

// ---------------------------------------------------------------- Pi

/// The form for high Q, with 1 + Q² ≈ Q² in both halves: R1/Q1² = R2/Q2² is the virtual resistance,
/// Q1 + Q2 = 2·Q; then C = Qi/(ω·Ri) and XL = R1/Q1²·(Q1 + Q2). The better the higher Q: 14 to 26
/// dB off at Q 0.2, 0.2 to 2.2 dB at Q 5, 0.05 to 0.2 dB at Q 20. The optimizer closes the rest.

void DesignPi(DesignPass& pass) {
    Design& s = pass.state;
    if (pass.storeComponents) {
        const long double R1 = s.R1;
        const long double R2 = s.R2;
        const long double Qe = pass.Qe;
        const long double Rm = std::sqrt(R1 * R2);
        s.components[Slot::C1] = static_cast<double>(2 * Qe / ((Rm + R1) * pass.omega));
        s.components[Slot::C2] = static_cast<double>(2 * Qe / ((Rm + R2) * pass.omega));
        s.components[Slot::L] = static_cast<double>((2 * Rm + R1 + R2) / (2 * Qe * pass.omega));
    }
    pass.finish();
    pass.setBandwidth(s.fo / pass.Qe);
}

/// V(s) of R1 - C1 across - L - (C2 || R2).
Transfer PiTransfer(const Design& s) {
    const long double C1 = s.components[Slot::C1];
    const long double C2 = s.components[Slot::C2];
    const long double L = s.components[Slot::L];
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    return Transfer::Polynomial(
        1 / R1, 0,
        {1 / R2 + 1 / R1, L / (R2 * R1) + C1 + C2, L * C2 / R1 + L * C1 / R2, L * C1 * C2, 0});
}

std::vector<Network> PiNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {ShuntArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                            SeriesArm(PagePart(Inductor, "L", s, Slot::L)),
                            ShuntArm(PagePart(Capacitor, "C2", s, Slot::C2))})};
}

// ---------------------------------------------------------------- T

/// A start for the optimizer, no match: both arms get the same Q, though their virtual resistances
/// R·(1 + Q²) then differ, and the capacitor, of reactance (sqrt(R1) + sqrt(R2))², knows nothing of
/// Q. 0.2 to 17 dB off at Q 0.2, 7 to 32 dB at Q 5, up to 45 dB at Q 20.

void DesignT(DesignPass& pass) {
    Design& s = pass.state;
    pass.setBandwidth(s.fo / pass.Qe);  // also when refused
    if (s.R1 == s.R2) return pass.refuse(std::string(kNeedsDifferentR));
    if (pass.storeComponents) {
        const long double R1 = s.R1;
        const long double R2 = s.R2;
        const long double Qe = pass.Qe;
        // The loaded Q cancels in the shunt capacitor: it depends on the resistances alone.
        const long double roots = (std::sqrt(R1) + std::sqrt(R2)) / Qe;
        s.components[Slot::C1] = static_cast<double>(1 / Qe / Qe / pass.omega / (roots * roots));
        // L1 is the larger inductance, whatever side its resistance is on.
        s.components[Slot::L] = static_cast<double>(Qe * std::max(R1, R2) / pass.omega);
        s.components[Slot::L2] = static_cast<double>(Qe * std::min(R1, R2) / pass.omega);
    }
    pass.finish();
}

/// V(s) of R1 - L1 - C across - L2 - R2.
Transfer TTransfer(const Design& s) {
    const long double C = s.components[Slot::C1];
    const long double L1 = s.components[Slot::L];
    const long double L2 = s.components[Slot::L2];
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    return Transfer::Polynomial(1 / R1, 0,
                                {1 / R2 + 1 / R1, L2 / (R2 * R1) + L1 / (R1 * R2) + C,
                                 L2 * C / R2 + L1 * C / R1, L1 * L2 * C / (R1 * R2), 0});
}

std::vector<Network> TNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {SeriesArm(PagePart(Inductor, "L1", s, Slot::L)),
                            ShuntArm(PagePart(Capacitor, "C", s, Slot::C1)),
                            SeriesArm(PagePart(Inductor, "L2", s, Slot::L2))})};
}

}  // namespace

Page PiSectionPage() {
    Page page{
        .key = "pi",
        .caption = "Pi Section",
        .menuItem = "Pi1",
        .menuText = "&Pi Section",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .swapBox = "CheckBox3",
        .mirrored = true,
        .suggestion =
            {.role = Role::Match,
             .character =
                 "Pi section whose Q can be chosen, absorbs shunt parasitics of both ends"},
        .hint = {.use = "The universal match: any R1 to any R2 with a chosen Q, and a low-pass "
                        "that suppresses harmonics. Both ends start with a capacitor across, so it "
                        "swallows the capacitances of the stages on both sides and cascades well.",
                 .limits = "The intermediate resistance in the middle is lower than R1 and R2; "
                           "with high Q the current in L grows and with it the loss, about 2·Q/QL. "
                           "Direct current passes.",
                 .parasitics = "Transistor and pad capacitances belong to C1 and C2: subtract "
                               "them. The capacitance from one end of the coil to the other gives "
                               "a notch above fo, that to ground adds to both capacitors.",
                 .values = "Keep L above 1 nH and the capacitors well above the strays. Q 2 to 10 "
                           "is comfortable."},
        .goal = PageGoal::Components([](const Design&) {
            return std::vector{Slot::C1, Slot::C2, Slot::L};
        })};
    page.notes = {{"universal, good for cascades"}};
    page.pictureHint = "R measured from the center";
    page.outputs = {Component("C13Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("C23Ausgabe", "C2", "Capacitance C2", "F", Slot::C2),
                    Component("L3Ausgabe", "L", "Inductance L", "H", Slot::L)};
    page.transferText =
        "V(s) = G[1] / (s³LC[1]C[2] + s²L(C[2]G[1] + C[1]G[2]) + s(LG[2]G[1] + C[1] + C[2]) + "
        "G[1] + G[2])";
    page.design = DesignPi;
    page.transfer = PiTransfer;
    page.networks = PiNetworks;
    return page;
}

Page TSectionPage() {
    Page page{
        .key = "t",
        .caption = "T Section",
        .menuItem = "T1",
        .menuText = "&T Section",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .swapBox = "CheckBox4",
        .mirrored = true,
        .suggestion =
            {.role = Role::Match,
             .character =
                 "T section whose Q can be chosen, absorbs series parasitics of both ends"},
        .hint =
            {.use = "Two coils and a capacitor across: suits low impedances, where a Pi section "
                    "would need very large capacitors. Lead inductances at both ends become part "
                    "of the network.",
             .limits = "R1 and R2 must differ. The capacitor does not depend on Q; only the coils "
                       "do. High Q needs large coils, whose self-resonance must lie well above fo.",
             .parasitics = "Bond wires and package leads belong to L1 and L2. The inductance of "
                           "the capacitor's ground path makes a notch above fo; two capacitors in "
                           "parallel halve it.",
             .values =
                 "Good for R of 1 to 50 ohm. Start with Q of 1 to 5 and let the optimizer refine."},
        .goal = PageGoal::Components([](const Design&) {
            return std::vector{Slot::C1, Slot::L, Slot::L2};
        })};
    page.outputs = {Component("L14Ausgabe", "L1", "Inductance L1", "H", Slot::L),
                    Component("L24Ausgabe", "L2", "Inductance L2", "H", Slot::L2),
                    Component("C4Ausgabe", "C", "Capacitance C", "F", Slot::C1)};
    page.transferText =
        "V(s) = G[1] / (s³L[1]L[2]CG[1]G[2] + s²C(L[2]G[2] + L[1]G[1]) + "
        "s(L[2]G[2]G[1] + L[1]G[1]G[2] + C) + G[1] + G[2])";
    page.design = DesignT;
    page.transfer = TTransfer;
    page.networks = TNetworks;
    return page;
}

}  // namespace kelvro
