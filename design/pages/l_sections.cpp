// LC Gamma, LCCL Match and Double-L Section: one or two L-sections.

#include <algorithm>
#include <cmath>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

void Store(Design& s, Slot slot, long double value) {
    s.components[slot] = static_cast<double>(value);
}

// W. L. Everitt, "Output networks for radio-frequency power amplifiers", Proc. IRE 19 (1931),
// 725-737: the L section, q = sqrt(Rhigh/Rlow - 1), with q·Rlow in series and Rhigh/q across. Two
// sections meet in the geometric mean, where both have the same and so the lowest possible q. All
// three pages are exact at fo for every pair of resistances that they accept (0.00 to 0.01 dB off);
// the Q field moves nothing but what the optimizer then aims for.

// ---------------------------------------------------------------- gamma

void DesignGamma(DesignPass& pass) {
    Design& s = pass.state;
    if (s.R1 == s.R2) return pass.refuse(std::string(kNeedsDifferentR));
    const long double high = std::max(s.R1, s.R2);
    const long double low = std::min(s.R1, s.R2);
    const long double q = std::sqrt(high / low - 1);
    if (pass.storeComponents) {
        Store(s, Slot::L, q * low / pass.omega);
        Store(s, Slot::C1, q / (pass.omega * high));
    }
    pass.showQ(static_cast<double>(q / 2));
    pass.finish();
    pass.setBandwidth(s.fo / EffectiveQ(s));
}

/// V(s) of R1 - L - (C || R2), or of (R1, C across) - L - R2: C is on the side of the larger R.
Transfer GammaTransfer(const Design& s) {
    const long double C = s.components[Slot::C1];
    const long double L = s.components[Slot::L];
    const long double G1 = 1 / static_cast<long double>(s.R1);
    const long double G2 = 1 / static_cast<long double>(s.R2);
    return Transfer::Polynomial(G1, 0, {G1 + G2, C + L * G1 * G2, L * C * std::max(G1, G2), 0, 0});
}

std::vector<Network> GammaNetworks(const Design& s) {
    using enum PartKind;
    LadderElement L = SeriesArm(PagePart(Inductor, "L", s, Slot::L));
    LadderElement C = ShuntArm(PagePart(Capacitor, "C", s, Slot::C1));
    if (s.R1 > s.R2) std::swap(L, C);
    return {PageNetwork(s, {std::move(L), std::move(C)})};
}

// ---------------------------------------------------------------- LCCL

void DesignLccl(DesignPass& pass) {
    Design& s = pass.state;
    if (!(s.R2 > s.R1)) return pass.refuse(std::string(kNeedsR2Larger));
    if (pass.storeComponents) {
        const long double R1 = s.R1;
        const long double R2 = s.R2;
        const long double Rm = std::sqrt(R1 * R2);
        const long double q = std::sqrt(Rm / R1 - 1);
        Store(s, Slot::L, q * R1 / pass.omega);
        Store(s, Slot::C1, q / (pass.omega * Rm));
        Store(s, Slot::C2, 1 / (pass.omega * q * Rm));
        Store(s, Slot::L2, R2 / (pass.omega * q));
    }
    pass.finish();
    pass.setBandwidth(s.fo / pass.Qe);
}

/// V(s) of R1 - L1 - C1 across - C2 - (L2 || R2).
Transfer LcclTransfer(const Design& s) {
    const long double C1 = s.components[Slot::C1];
    const long double C2 = s.components[Slot::C2];
    const long double L1 = s.components[Slot::L];
    const long double L2 = s.components[Slot::L2];
    const long double R1 = s.R1;
    const long double G1 = 1 / R1;
    const long double G2 = 1 / static_cast<long double>(s.R2);
    return Transfer::Polynomial(
        L2 * C2 * G1, 2,
        {G1, G1 * (L2 * G2 + R1 * (C1 + C2)),
         G1 * (L2 * C2 + L1 * C1 + L1 * C2 + R1 * G2 * L2 * (C1 + C2)),
         G1 * (R1 * C1 * L2 * C2 + L1 * L2 * G2 * (C1 + C2)), G1 * L1 * C1 * L2 * C2});
}

std::vector<Network> LcclNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {SeriesArm(PagePart(Inductor, "L1", s, Slot::L)),
                            ShuntArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                            SeriesArm(PagePart(Capacitor, "C2", s, Slot::C2)),
                            ShuntArm(PagePart(Inductor, "L2", s, Slot::L2))})};
}

// ---------------------------------------------------------------- double L

void DesignDoubleL(DesignPass& pass) {
    Design& s = pass.state;
    if (!(s.R1 > s.R2)) return pass.refuse(std::string(kNeedsR1Larger));
    if (pass.storeComponents) {
        const long double R1 = s.R1;
        const long double R2 = s.R2;
        const long double Rm = std::sqrt(R1 * R2);
        const long double q = std::sqrt(R1 / Rm - 1);
        Store(s, Slot::L, R1 / (pass.omega * q));
        Store(s, Slot::C1, 1 / (pass.omega * q * Rm));
        Store(s, Slot::L2, Rm / (pass.omega * q));
        Store(s, Slot::C2, 1 / (pass.omega * q * R2));
    }
    pass.finish();
    pass.setBandwidth(s.fo / pass.Qe);
}

/// V(s) of R1 - L1 across - C1 - L2 across - C2 - R2.
Transfer DoubleLTransfer(const Design& s) {
    const long double C1 = s.components[Slot::C1];
    const long double C2 = s.components[Slot::C2];
    const long double L1 = s.components[Slot::L];
    const long double L2 = s.components[Slot::L2];
    const long double G1 = 1 / static_cast<long double>(s.R1);
    const long double G2 = 1 / static_cast<long double>(s.R2);
    return Transfer::Polynomial(
        L1 * L2 * C1 * C2 * G1, 4,
        {G2, C2 + L1 * G1 * G2, L1 * C2 * G1 + G2 * (L1 * C1 + L2 * C1 + L2 * C2),
         C1 * C2 * (L1 + L2) + G1 * G2 * L1 * L2 * (C1 + C2), L1 * L2 * C1 * C2 * (G1 + G2)});
}

std::vector<Network> DoubleLNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {ShuntArm(PagePart(Inductor, "L1", s, Slot::L)),
                            SeriesArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                            ShuntArm(PagePart(Inductor, "L2", s, Slot::L2)),
                            SeriesArm(PagePart(Capacitor, "C2", s, Slot::C2))})};
}

PageGoal DoubleLGoal() {
    PageGoal goal = PageGoal::Components([](const Design&) {
        return std::vector{Slot::C1, Slot::C2, Slot::L, Slot::L2};
    });
    goal.band = [](const Design& s) { return FivePointBand(s, kWideBand); };
    return goal;
}

/// Keeps the two halves of the network alike.
double LcclPenalty(const Design& s) {
    const double L = Imbalance(s.components[Slot::L], s.components[Slot::L2]);
    const double C = Imbalance(s.components[Slot::C1], s.components[Slot::C2]);
    return 0.01 * (L * L) + 0.01 * (C * C);
}

PageGoal LcclGoal() {
    PageGoal goal = DoubleLGoal();
    goal.penalty = LcclPenalty;
    return goal;
}

}  // namespace

Page LcGammaPage() {
    Page page{
        .key = "lc-gamma",
        .caption = "LC Gamma",
        .menuItem = "LCGamma1",
        .menuText = "LC &Gamma",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .mirrored = true,
        .suggestion = {.role = Role::Match, .character = "Two parts only, the fewest possible"},
        .hint = {.use = "The L-section: two parts, the least loss of all LC matches, the largest "
                        "bandwidth for its ratio.",
                 .limits = "Q follows from the ratio of the resistances, so bandwidth cannot be "
                           "chosen. R1 and R2 must differ.",
                 .parasitics = "Capacitances at the high-resistance side belong to C, lead "
                               "inductance on the low side to L.",
                 .values = "For ratios above 10 take two sections (LCCL, Double-L, Broadband)."},
        .goal = PageGoal::Components([](const Design&) {
            return std::vector{Slot::C1, Slot::L};
        })};
    page.notes = {kQNotAdjustable};
    page.outputs = {Component("L13Ausgabe", "L", "Inductance L", "H", Slot::L),
                    Component("C13GAusgabe", "C", "Capacitance C", "F", Slot::C1)};
    page.outputs[0].hint = "In series, on the side of the smaller resistance";
    page.outputs[1].hint = "Across the larger resistance";
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignGamma;
    page.transfer = GammaTransfer;
    page.networks = GammaNetworks;
    return page;
}

Page LcclMatchPage() {
    Page page{
        .key = "lccl",
        .caption = "LCCL Match",
        .menuItem = "LCCL1",
        .menuText = "LCCL Match",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .mirrored = true,
        .suggestion = {.role = Role::Match,
                       .character = "Low-pass and high-pass L-section whose phase shifts cancel"},
        .hint = {.use = "Low-pass L followed by high-pass L: steps R1 up to R2 with a band-pass "
                        "character and almost no phase shift; blocks direct current.",
                 .limits = "R2 must be larger than R1. Four parts, so four tolerances.",
                 .parasitics = "Pads at the middle node add to C1, at the load they detune L2.",
                 .values =
                     "Halves of about equal size: the optimizer keeps L1 and L2, C1 and C2 alike."},
        .goal = LcclGoal()};
    page.notes = {{"Suited for R1<R2, almost no phase shift at fo",
                   "The phase shifts of the low-pass and the high-pass half cancel"}};
    page.outputs = {Component("L114Ausgabe", "L1", "Inductance L1", "H", Slot::L),
                    Component("C114Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("C214Ausgabe", "C2", "Capacitance C2", "F", Slot::C2),
                    Component("L214Ausgabe", "L2", "Inductance L2", "H", Slot::L2)};
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignLccl;
    page.transfer = LcclTransfer;
    page.networks = LcclNetworks;
    return page;
}

Page DoubleLPage() {
    Page page{.key = "double-l",
              .caption = "Double-L Section",
              .menuItem = "DoubleLSection1",
              .menuText = "Double-L Section",
              .menuGroup = MenuGroup::Matching,
              .qPanel = true,
              .exportable = true,
              .plottable = true,
              .mirrored = true,
              .unswapsLC = true,
              .suggestion = {.role = Role::Match,
                             .character = "Two high-pass L-sections, wider than a single one"},
              .hint = {.use = "Two high-pass L-sections: steps R1 down to R2 with half the Q of a "
                              "single section, so about twice the bandwidth; blocks direct "
                              "current, and the first coil can feed a collector.",
                       .limits = "R1 must be larger than R2. Harmonics pass.",
                       .parasitics = "The transistor's output capacitance detunes L1: make L1 "
                                     "smaller. Pads at the middle node detune L2 likewise.",
                       .values = "Good for ratios of 4 to 100."},
              .goal = DoubleLGoal()};
    page.notes = {{"Suited for R1>R2, blocks DC and low frequencies",
                   "Two high-pass sections through the geometric mean of R1 and R2"}};
    page.outputs = {Component("L118Ausgabe", "L1", "Inductance L1", "H", Slot::L),
                    Component("C118Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
                    Component("L218Ausgabe", "L2", "Inductance L2", "H", Slot::L2),
                    Component("C218Ausgabe", "C2", "Capacitance C2", "F", Slot::C2)};
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignDoubleL;
    page.transfer = DoubleLTransfer;
    page.networks = DoubleLNetworks;
    return page;
}

}  // namespace kelvro
