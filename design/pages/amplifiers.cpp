// RLopt: the load that a power amplifier wants.

#include <cmath>
#include <numbers>

#include "design/cycle.h"
#include "design/pages.h"
#include "design/pages/catalogue.h"

namespace kelvro {

std::vector<InputField> SupplyInputs(std::string_view P, std::string_view Ub,
                                     std::string_view Usat) {
    return {
        {P,
         "Output Power P",
         "W",
         "Power to be delivered at fo",
         "p",
         "P",
         &Design::P,
         {1e-6, 1e6}},
        {Ub, "Supply Voltage Ub", "V", "Supply of the stage", "ub", "Ub", &Design::Ub, {0.1, 1e5}},
        {Usat,
         "Saturation Voltage Usat",
         "V",
         "Voltage that the switched-on transistor keeps; lower than Ub",
         "usat",
         "Usat",
         &Design::Usat,
         {0, 1e5}}};
}

namespace {

/// Load that takes the power with the full swing Ub - Usat as amplitude.
double OptimumLoad(const Design& s) {
    const long double swing = static_cast<long double>(s.Ub) - s.Usat;
    return static_cast<double>(swing * swing / (2 * s.P));
}

void DesignOptimumLoad(DesignPass& pass) {
    constexpr double percent = 100;
    constexpr double classA = 0.5;
    constexpr double classB = std::numbers::pi / 4;
    Design& s = pass.state;
    if (s.Usat >= s.Ub) return pass.refuse(std::string(kNeedsSupply));
    const double RL = OptimumLoad(s);
    const double I1 = (s.Ub - s.Usat) / RL;
    const double used = (s.Ub - s.Usat) / s.Ub;
    pass.optimize();
    pass.show("RL10Ausgabe", RL);
    pass.show("I10Ausgabe", I1);
    pass.show("etaA10Ausgabe", percent * classA * used);
    pass.show("etaB10Ausgabe", percent * classB * used);
    pass.show("IB10Ausgabe", 2 * I1 / std::numbers::pi);
}

std::string UseOptimumLoad(Design& s) {
    if (s.Usat >= s.Ub) return std::string(kNeedsSupply);
    SharedInputs()[0].write(s, OptimumLoad(s));
    return {};
}

/// H. H. Rosenbrock, "An automatic method for finding the greatest or least value of a function",
/// The Computer Journal 3, 1960: a curved valley, 0 at (1, 1).
double RosenbrocksValley(std::span<const double> x) {
    const auto square = [](double y) { return y * y; };
    return square(1 - x[0]) + 100 * square(x[1] - x[0] * x[0]);
}

}  // namespace

Page RlOptPage() {
    Page page{
        .key = "rlopt",
        .caption = "RLopt",
        .menuItem = "RLoptberechnen1",
        .menuText = "Calculate &RLopt",
        .menuGroup = MenuGroup::Amplifier,
        .shared = SharedOutputs::None,
        .suggestion = {.role = Role::Amplifier,
                       .character = "Load resistance that the amplifier wants, to be matched to "
                                    "the real load afterwards"},
        .hint = {.use =
                     "The load resistance that a power amplifier wants to see for a given output "
                     "power and supply: enter it as R1 of a matching page (the button does that).",
                 .limits = "Holds for full voltage swing in class A or B without harmonics; real "
                           "efficiency is lower by the losses of the network.",
                 .parasitics =
                     "The output capacitance of the transistor lies across this resistance; tune "
                     "it out with the feed choke or absorb it in the network.",
                 .values =
                     "Battery devices of 1 W at 3.6 V want about 5 ohm, 12 V stages 60 to 70 ohm."},
        .goal = PageGoal::Test(2, RosenbrocksValley)};
    page.inputs = SupplyInputs("P10Eingabe", "Ub10Eingabe", "Usat10Eingabe");
    page.actions = {{"ButtonTakeRL10", "Use as R1",
                     "Make RL the source resistance R1 of the matching pages", UseOptimumLoad}};
    page.outputs = {
        {"RL10Ausgabe", "RL", "Load Resistance RL", "Ω",
         "Load that draws the power P with full voltage swing"},
        {"I10Ausgabe", "I1", "Peak Current I1", "A", "Amplitude of the fundamental in the load"},
        {"etaA10Ausgabe", "etaA", "Efficiency Class A", "%", "Largest drain efficiency in class A"},
        {"etaB10Ausgabe", "etaB", "Efficiency Class B", "%", "Largest drain efficiency in class B"},
        {"IB10Ausgabe", "IB", "Supply Current Class B", "A", "Mean supply current at full drive"}};
    page.outputs[2].format = page.outputs[3].format = Fixed(7, 2);
    for (OutputField& field : page.outputs) field.initial = kNoValueYet;
    page.design = DesignOptimumLoad;
    return page;
}

}  // namespace kelvro
