// RLopt: the load that a power amplifier wants.

#include <cmath>
#include <numbers>

#include "design/cycle.h"
#include "design/pages.h"
#include "design/pages/catalogue.h"

namespace kelvro {

std::vector<InputField> SupplyInputs(std::string_view P, std::string_view Ub,
                                     std::string_view Usat) {
    return {{P, "Output Power P", "W", "Power to be delivered at fo", "p", &Design::P, {1e-6, 1e6}},
            {Ub, "Supply Voltage Ub", "V", "Supply of the stage", "ub", &Design::Ub, {0.1, 1e5}},
            {Usat,
             "Saturation Voltage Usat",
             "V",
             "Voltage that the switched-on transistor keeps; lower than Ub",
             "usat",
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

}  // namespace

Page RlOptPage() {
    Page page{.number = 10,
              .key = "rlopt",
              .caption = "RLopt",
              .menuItem = "RLoptberechnen1",
              .menuText = "Calculate &RLopt",
              .menuGroup = MenuGroup::Amplifier,
              .shared = SharedOutputs::None};
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
    page.testParameters = 2;
    page.design = DesignOptimumLoad;
    return page;
}

}  // namespace kelvro
