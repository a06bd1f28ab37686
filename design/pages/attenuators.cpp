// Passive L Section and Passive Pi/T Section: resistive matching pads.

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

constexpr double kFlat = 1e20;  // bandwidth of a network without reactances

// ---------------------------------------------------------------- L

/// A pad always loses something: what it passes at fo is 0 dB in the plots.
bool IsPad(const Design& s) {
    return s.R1 > s.R2;
}

void DesignPassiveL(DesignPass& pass) {
    Design& s = pass.state;
    pass.setBandwidth(kFlat);
    if (!IsPad(s)) {
        pass.refuse(std::string(kNeedsR2Smaller));
        return pass.optimize();
    }
    if (pass.storeComponents) {
        const long double R1 = s.R1;
        const long double R2 = s.R2;
        s.components[Slot::C1] = static_cast<double>(std::sqrt((R1 - R2) * R1));
        s.components[Slot::C2] = static_cast<double>(std::sqrt(R1 / (R1 - R2)) * R2);
    }
    pass.showComponents();
    pass.evaluate();
    pass.optimize();
}

/// Voltage divider R1 + Rs over Rp || R2, without frequency dependence.
Transfer PassiveLTransfer(const Design& s) {
    const long double Rs = s.components[Slot::C1];
    const long double Rp = s.components[Slot::C2];
    return Transfer::Polynomial(1, 0, {1 + (s.R1 + Rs) * (1 / Rp + 1 / s.R2), 0, 0, 0, 0});
}

std::vector<Network> PassiveLNetworks(const Design& s) {
    using enum PartKind;
    return {PageNetwork(s, {SeriesArm(PagePart(Resistor, "R1´", s, Slot::C1)),
                            ShuntArm(PagePart(Resistor, "R2´", s, Slot::C2))})};
}

/// The optimizer's exercise on this page: a quadratic form, 0 at (1, -4).
double TiltedBowl(std::span<const double> x) {
    const auto square = [](double y) { return y * y; };
    return square(x[0] - 1) + square(0.5 * x[1] + x[0] + 1);
}

// ---------------------------------------------------------------- Pi and T

// The T keeps its resistors in the first three slots, which the response reads; the Pi of the same
// behaviour behind them.
constexpr Slot kSourceT = Slot::C1;
constexpr Slot kShuntT = Slot::C2;
constexpr Slot kLoadT = Slot::L;
constexpr Slot kSourcePi = Slot::X5;
constexpr Slot kSeriesPi = Slot::X6;
constexpr Slot kLoadPi = Slot::X7;

/// Power loss ratio of a pad that is matched at both ends and turns V1 into v·V1.
long double LossRatio(long double R1, long double R2, long double v) {
    return R2 / (R1 * v * v);
}

/// Smallest loss ratio of a resistive match: that of the L section.
long double SmallestLossRatio(long double R1, long double R2) {
    const long double a = std::max(R1 / R2, R2 / R1);
    const long double root = std::sqrt(a) + std::sqrt(a - 1);
    return root * root;
}

/// Matched attenuators by their image resistances; ITT, Reference Data for Radio Engineers,
/// "Attenuators". At the smallest loss one arm vanishes, and what rounding leaves of it is no arm.
void StorePads(Design& s, long double N) {
    constexpr long double negligible = 1e-8L;
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    const long double image = (N + 1) / (N - 1);
    const auto store = [&](Slot slot, long double value) {
        s.components[slot] = static_cast<double>(value);
    };
    const long double Rp = 2 * std::sqrt(N * R1 * R2) / (N - 1);
    const auto series = [&](long double R) {
        const long double arm = R * image - Rp;
        return arm > negligible * R ? arm : 0;
    };
    store(kSourceT, series(R1));
    store(kShuntT, Rp);
    store(kLoadT, series(R2));
    const long double Rs = (N - 1) / 2 * std::sqrt(R1 * R2 / N);
    const auto shunt = [&](long double R) {
        const long double G = image / R - 1 / Rs;
        return G * R > negligible ? 1 / G : std::numeric_limits<long double>::infinity();
    };
    store(kSourcePi, shunt(R1));
    store(kSeriesPi, Rs);
    store(kLoadPi, shunt(R2));
}

void DesignPads(DesignPass& pass) {
    constexpr long double rounding = 1e-9L;
    Design& s = pass.state;
    pass.setBandwidth(kFlat);
    const long double N = LossRatio(s.R1, s.R2, s.v8);
    const long double smallest = SmallestLossRatio(s.R1, s.R2);
    if (N <= 1 || N < smallest * (1 - rounding)) {
        const long double largest = std::sqrt(s.R2 / (s.R1 * smallest));
        return pass.refuse("v is too large for this resistance ratio! Largest possible v is " +
                           FormatFixed(0, 4, static_cast<double>(largest)));
    }
    if (pass.storeComponents) StorePads(s, N);
    pass.showComponents();
    pass.show("a8Ausgabe", static_cast<double>(10 * DecimalLog(N)));
    pass.evaluate();
}

/// Chain matrix of the T between R1 and R2, without frequency dependence.
Transfer PadTransfer(const Design& s) {
    const long double Ra = s.components[kSourceT];
    const long double Rp = s.components[kShuntT];
    const long double Rb = s.components[kLoadT];
    const long double R1 = Ra + s.R1;
    const long double R2 = Rb + s.R2;
    return Transfer::Polynomial(1, 0, {(R1 + R2 + R1 * R2 / Rp) / s.R2, 0, 0, 0, 0});
}

std::vector<Network> PadT(const Design& s) {
    using enum PartKind;
    Network pad = PageNetwork(s, {SeriesArm(PagePart(Resistor, "Ra", s, kSourceT)),
                                  ShuntArm(PagePart(Resistor, "Rp", s, kShuntT)),
                                  SeriesArm(PagePart(Resistor, "Rb", s, kLoadT))});
    pad.caption = "T";
    return {pad};
}

Network PadPi(const Design& s) {
    using enum PartKind;
    Network pad = PageNetwork(s, {ShuntArm(PagePart(Resistor, "Ra", s, kSourcePi)),
                                  SeriesArm(PagePart(Resistor, "Rs", s, kSeriesPi)),
                                  ShuntArm(PagePart(Resistor, "Rb", s, kLoadPi))});
    pad.caption = "Pi";
    return pad;
}

std::vector<OutputField> PadOutputs() {
    std::vector<OutputField> outputs = {
        Component("RaT8Ausgabe", "RaT", "T: Resistance Ra", "Ω", kSourceT),
        Component("RpT8Ausgabe", "RpT", "T: Resistance Rp", "Ω", kShuntT),
        Component("RbT8Ausgabe", "RbT", "T: Resistance Rb", "Ω", kLoadT),
        Component("RaPi8Ausgabe", "RaPi", "Pi: Resistance Ra", "Ω", kSourcePi),
        Component("RsPi8Ausgabe", "RsPi", "Pi: Resistance Rs", "Ω", kSeriesPi),
        Component("RbPi8Ausgabe", "RbPi", "Pi: Resistance Rb", "Ω", kLoadPi)};
    outputs[0].hint = "T section: in series on the source side";
    outputs[1].hint = "T section: from the middle to ground";
    outputs[2].hint = "T section: in series on the load side";
    outputs[3].hint = "Pi section: across the source; infinite: leave it out";
    outputs[4].hint = "Pi section: in series between the two shunt resistors";
    outputs[5].hint = "Pi section: across the load; infinite: leave it out";
    outputs.push_back({"a8Ausgabe", "a", "Attenuation", "dB", "Power at R1 over power at R2"});
    outputs.back().format = Fixed(7, 2);
    for (OutputField& field : outputs) field.initial = kNoValueYet;
    return outputs;
}

}  // namespace

Page PassiveLPage() {
    Page page{
        .key = "passive-l",
        .caption = "Passive L Section",
        .menuItem = "PassivesLGlied1",
        .menuText = "Passive &L Section",
        .menuGroup = MenuGroup::Attenuator,
        .exportable = true,
        .plottable = true,
        .suggestion = {.role = Role::Pad,
                       .character =
                           "Resistive L pad, flat from DC up, with the least loss of all pads"},
        .hint = {.use = "The L-pad with the least loss that matches both ends, from direct current "
                        "to the highest frequencies. Good for measurement set-ups.",
                 .limits = "R1 must be larger than R2. The attenuation follows from the ratio: 50 "
                           "to 75 ohm costs 5.7 dB, 50 to 200 ohm 11.4 dB.",
                 .parasitics = "The stray capacitance across the series resistor bypasses it at "
                               "high frequencies, the lead inductance of the shunt resistor blocks "
                               "it. Small chip resistors reach several GHz.",
                 .values =
                     "Use E96 values with 1 %: parts of 5 % limit the return loss to about 32 dB."},
        .goal = PageGoal::Test(2, TiltedBowl)};
    page.notes = {{"Damping not adjustable, depending on R ratio"}};
    page.outputs = {Component("R17Ausgabe", "R1", "Resistance R1´", "Ω", Slot::C1),
                    Component("R27Ausgabe", "R2", "Resistance R2´", "Ω", Slot::C2)};
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignPassiveL;
    page.transfer = PassiveLTransfer;
    page.refersToItself = IsPad;
    page.networks = PassiveLNetworks;
    page.parts = {{"R1´", Slot::C1, "R17Ausgabe"}, {"R2´", Slot::C2, "R27Ausgabe"}};
    return page;
}

Page PassivePiTPage() {
    Page page{.key = "passive-pi-t",
              .caption = "Passive Pi/T Section",
              .menuItem = "PassivesPiGlied1",
              .menuText = "Passive &Pi/T Section",
              .menuGroup = MenuGroup::Attenuator,
              .exportable = true,
              .plottable = true,
              .suggestion = {.role = Role::Pad,
                             .character = "Resistive pad, flat from DC up, matched at both ends"},
              .hint = {.use = "A pad that matches two resistances with a chosen attenuation. Pi "
                              "and T give the same result; choose the one whose values are easier.",
                       .limits = "The attenuation cannot be smaller than that of the minimum-loss "
                                 "pad of this ratio.",
                       .parasitics = "In Pi form the shunt strays of the pads join the resistors' "
                                     "ends and disturb less; in T form the lead inductances do.",
                       .values = "Resistors between 5 ohm and 1 kohm behave well up to some GHz."},
              .goal = PageGoal::Nothing()};
    page.notes = {{"matched at both ends; build either the T or the Pi",
                   "Both have the same attenuation at every frequency"}};
    page.inputs = {
        {"v8Eingabe",
         "Voltage Ratio v=V2/V1",
         "",
         "Wanted ratio of load to source voltage; unequal resistances set an upper limit",
         "v",
         kKeptExactly,
         &Design::v8,
         {1e-4, 1e3},
         Fixed(8, 4)}};
    page.outputs = PadOutputs();
    page.design = DesignPads;
    page.transfer = PadTransfer;
    page.networks = PadT;
    page.parts = {{"Ra", kSourceT, "RaT8Ausgabe", "T"},    {"Rp", kShuntT, "RpT8Ausgabe", "T"},
                  {"Rb", kLoadT, "RbT8Ausgabe", "T"},      {"Ra", kSourcePi, "RaPi8Ausgabe", "Pi"},
                  {"Rs", kSeriesPi, "RsPi8Ausgabe", "Pi"}, {"Rb", kLoadPi, "RbPi8Ausgabe", "Pi"}};
    page.alternative = PadPi;
    return page;
}

}  // namespace kelvro
