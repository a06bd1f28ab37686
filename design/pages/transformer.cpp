// Transformer: two coupled coils, each with a capacitor across it.

#include <cmath>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

/// A start for the optimizer: windings in the ratio of an ideal transformer, L2/L1 = R2/R1, the
/// reactance XL1 = R1/(2·Q) of the source's half of the loaded Q, C1 in resonance with L1 and half
/// of it across the load. That is near a match where the load is the small resistance (1000 to 5
/// ohm: 0.1 dB off at every Q above 1) and far from one where it is the large one (50 to 50 ohm:
/// 0.1 dB at Q 0.2, 8 dB at Q 5; 50 to 300 ohm: 23 dB at Q 5; 5 to 1000 ohm: 53 dB). Coupled coils:
/// F. E. Terman, "Radio Engineers' Handbook", 1943, section 3.
void DesignTransformer(DesignPass& pass) {
    Design& s = pass.state;
    if (pass.storeComponents) {
        const long double R1 = s.R1;
        const long double R2 = s.R2;
        const long double XL1 = R1 / pass.Qe / 2;
        const long double L1 = XL1 / pass.omega;
        // "C1 = 0" stands for a value too small to matter.
        const long double C1 = s.smallCapacitance ? 0.0001L / s.fo : 1 / (pass.omega * XL1);
        const long double M = std::sqrt(R2 / R1) * L1;
        s.components[Slot::L] = static_cast<double>(L1);
        s.components[Slot::C1] = static_cast<double>(C1);
        s.components[Slot::C2] = static_cast<double>(C1 / 2);
        s.components[Slot::M] = static_cast<double>(M);
        s.components[Slot::L2] = static_cast<double>(std::sqrt(R2 / R1) * M);
    }
    pass.finish();
    pass.setBandwidth(s.fo / pass.Qe);
}

/// Nodal equations of two coupled coils with common ground, M = k·sqrt(L1·L2).
Transfer TransformerTransfer(const Design& s) {
    const long double C1 = s.components[Slot::C1];
    const long double C2 = s.components[Slot::C2];
    const long double L1 = s.components[Slot::L];
    const long double L2 = s.components[Slot::L2];
    const long double G1 = 1 / static_cast<long double>(s.R1);
    const long double G2 = 1 / static_cast<long double>(s.R2);
    const long double k = s.k;
    const long double M = k * std::sqrt(L1 * L2);
    const long double d = L1 * L2 * (1 - k * k);
    return Transfer::Polynomial(-M * G1, 1,
                                {-1, -(L1 * G1 + L2 * G2), -(d * G1 * G2 + L1 * C1 + L2 * C2),
                                 -d * (C1 * G2 + C2 * G1), -d * C1 * C2});
}

std::vector<Network> TransformerNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {ShuntArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                            {CoupledCoils{PagePart(Inductor, "L1", s, Slot::L),
                                          PagePart(Inductor, "L2", s, Slot::L2), s.k}},
                            ShuntArm(PagePart(Capacitor, "C2", s, Slot::C2))})};
}

double Square(double x) {
    return x * x;
}

/// The user's wishes, in the weights that the scroll bars give them.
double TransformerPenalty(const Design& s) {
    const double L1 = s.components[Slot::L];
    const double L2 = s.components[Slot::L2];
    double penalty = 0;
    if (s.equalInductances) {
        penalty += Square(s.equalInductancesWeight / 10.0 * Imbalance(L1, L2));
    }
    if (s.smallInductances) {
        penalty += Square(s.smallInductancesWeight / 50.0 * Omega(s) * (L1 + L2) / (2 * s.R2));
    }
    if (s.smallCapacitance) {
        penalty += Square(s.smallCapacitanceWeight / 100.0 * s.components[Slot::C1] * s.R1 * 1e9 /
                          s.fo * 1e9);
    }
    return penalty;
}

PageGoal TransformerGoal() {
    PageGoal goal = PageGoal::Components([](const Design&) {
        return std::vector{Slot::C1, Slot::C2, Slot::L, Slot::L2};
    });
    goal.band = [](const Design& s) { return FivePointBand(s, kWideBand); };
    goal.penalty = TransformerPenalty;
    return goal;
}

std::vector<SwitchField> TransformerSwitches() {
    return {{"CheckBoxL1L2", "L1 = L2", "Bandwidth often smaller when forcing equal values",
             &Design::equalInductances, "ScrollBarW", &Design::equalInductancesWeight},
            {"CheckBoxLtot", "Min. L", "Try to keep sum of L small during optimization",
             &Design::smallInductances, "ScrollBarLtot", &Design::smallInductancesWeight},
            {"CheckBoxC1Null", "C1 = 0", "Start from a negligible capacitance C1",
             &Design::smallCapacitance, "ScrollBarWC", &Design::smallCapacitanceWeight}};
}

}  // namespace

Page TransformerPage() {
    Page page{
        .key = "transformer",
        .caption = "Transformer",
        .menuItem = "Uebertrager1",
        .menuText = "&Transformer",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .suggestion = {.role = Role::Match,
                       .character =
                           "Two coupled tanks that isolate source and load from each other",
                       .floats = true},
        .hint = {.use =
                     "Matches with two coupled coils: galvanic isolation, wide choice of ratios, "
                     "and the leakage inductance is part of the design. The optimizer finds coils "
                     "and capacitors for the coupling coefficient that you can really make.",
                 .limits =
                     "The closed form does not know k; without optimization the values are a start "
                     "only. Little coupling (k below 0.3) gives small bandwidth and more loss.",
                 .parasitics =
                     "Winding capacitances belong to C1 and C2. The capacitance between the "
                     "windings is not in the model: keep it small or put the cold ends together.",
                 .values = "k of planar transformers on chip: 0.6 to 0.85; of toroids: 0.9 to "
                           "0.99; of two air coils side by side: 0.1 to 0.4."},
        .goal = TransformerGoal()};
    page.inputs = {{"k5Eingabe",
                    "Coupling Coefficient k",
                    "",
                    "Coupling of the two coils, 0.1 to 1",
                    "k",
                    "k",
                    &Design::k,
                    {0.1, 1},
                    Fixed(7, 3)}};
    page.switches = TransformerSwitches();
    page.outputs = {Component("L15Ausgabe", "L1", "Inductance L1", "H", Slot::L),
                    Component("L25Ausgabe", "L2", "Inductance L2", "H", Slot::L2),
                    Component("C15Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("C25Ausgabe", "C2", "Capacitance C2", "F", Slot::C2)};
    for (OutputField& field : page.outputs) field.editable = true;
    page.design = DesignTransformer;
    page.transfer = TransformerTransfer;
    page.networks = TransformerNetworks;
    return page;
}

}  // namespace kelvro
