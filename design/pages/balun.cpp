// LC Balun: lattice of two branches, low-pass to the + output and high-pass to the - output.

#include <array>
#include <cmath>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

void DesignBalun(DesignPass& pass) {
    Design& s = pass.state;
    if (pass.storeComponents) {
        const long double X = std::sqrt(2 * static_cast<long double>(s.R1) * s.R2);
        s.components[Slot::C1] = static_cast<double>(1 / (pass.omega * X));
        s.components[Slot::L] = static_cast<double>(X / pass.omega);
    }
    pass.finish();
    pass.setBandwidth(s.fo / pass.Qe);
}

/// V(s) of the + output: series L, then C || R2, with the other branch loading the source.
Transfer BalunTransfer(const Design& s) {
    const long double C = s.components[Slot::C1];
    const long double L = s.components[Slot::L];
    const long double G1 = 1 / static_cast<long double>(s.R1);
    const long double G2 = 1 / static_cast<long double>(s.R2);
    return Transfer::Polynomial(G1, 0, {G1 + G2, L * G1 * G2 + 2 * C, L * C * (G1 + G2), 0, 0});
}

std::vector<Network> BalunNetworks(const Design& s) {
    using enum PartKind;
    const Part L = PagePart(Inductor, "L", s, Slot::L);
    const Part C = PagePart(Capacitor, "C", s, Slot::C1);
    return {
        PageNetwork(s, {{Branch{{SeriesArm(C), ShuntArm(L)}, s.R2}}, SeriesArm(L), ShuntArm(C)})};
}

/// A model fitted to a grid of samples, as an exercise of the optimizer: the third parameter has no
/// influence, and the fifth and sixth only in their sum.
double FitToSamples(std::span<const double> x) {
    constexpr std::array<double, 3> samples = {-0.1, 0, 0.1};
    const auto square = [](double y) { return y * y; };
    double sum = 0;
    for (const double a : samples) {
        for (const double b : samples) {
            for (const double c : samples) {
                sum += square(x[0] - std::fabs(a) - 0.1 * a + 0.01 * (x[1] - 1.1 * b - a)) +
                       square(x[3] - 0.9 * a + 0.01 * (x[3] - b - a / 2)) +
                       square(x[0] + x[3] + x[4] - 0.9 * a - 1.1 * c + x[5] - c);
            }
        }
    }
    return sum;
}

}  // namespace

Page LcBalunPage() {
    Page page{
        .key = "lc-balun",
        .caption = "LC Balun",
        .menuItem = "LCAllpass1",
        .menuText = "LC &All-Pass",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .plottable = true,
        .sourceCount = 2,
        .suggestion = {.role = Role::Balun,
                       .character = "Lattice balun with two outputs of opposite phase"},
        .hint = {.use = "Lattice balun: one unbalanced source, two outputs of opposite phase. Four "
                        "parts, no transformer, accurate at fo.",
                 .limits = "Narrow: phase and amplitude are exact at fo only, usable over about 10 "
                           "to 20 % of fo. Balance falls quickly when the loads differ.",
                 .parasitics = "Pad capacitances at the + output belong to its C; at the − output "
                               "they detune the shunt L, which should then be a little smaller. "
                               "Keep both branches alike in layout.",
                 .values = "L and C of both branches are equal, so buy one value each; match them "
                           "within 1 %."},
        .goal = PageGoal::Test(6, FitToSamples)};
    page.notes = {{"R1 unbalanced, R2 at each of two opposite outputs",
                   "2·R2 from output to output; the outputs lag and lead the source by 90°"}};
    page.outputs = {Component("L9Ausgabe", "L", "Inductance L", "H", Slot::L),
                    Component("C9Ausgabe", "C", "Capacitance C", "F", Slot::C1)};
    page.outputs[0].hint = "The same inductance in both branches";
    page.outputs[1].hint = "The same capacitance in both branches";
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.transferText = "V(s) = G[1] / (s²LC(G[1] + G[2]) + s(LG[1]G[2] + 2C) + G[1] + G[2])";
    page.design = DesignBalun;
    page.transfer = BalunTransfer;
    page.networks = BalunNetworks;
    return page;
}

}  // namespace kelvro
