// RLopt and Class-E PA: what a power amplifier asks of its output network.

#include <cmath>
#include <numbers>

#include "design/cycle.h"
#include "design/pages.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

constexpr std::string_view kNeedsSupply = "It must be Ub>Usat!";

/// Output power and supply, which both pages share; the edits have names of their own.
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

// ---------------------------------------------------------------- RLopt

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

// ---------------------------------------------------------------- class E

// N. O. Sokal, "Class-E RF power amplifiers", QEX Jan/Feb 2001: single-ended stage at 50 % duty,
// fitted for loaded Q from 1.7879 up.
constexpr double kSmallestClassEQ = 1.7879;
constexpr long double kChokeReactances = 30;  // reactance of the choke in reactances of Cs

void StoreClassE(Design& s, long double omega) {
    const long double Q = s.Q;
    const long double swing = static_cast<long double>(s.Ub) - s.Usat;
    const long double R =
        0.576801L * swing * swing / s.P * (1.001245L - 0.451759L / Q - 0.402444L / (Q * Q));
    constexpr long double pi = std::numbers::pi_v<long double>;
    const long double Cs =
        (0.99866L + 0.91424L / Q - 1.03175L / (Q * Q)) / (omega * R * (pi * pi / 4 + 1) * pi / 2);
    const long double choke = kChokeReactances / (omega * omega * Cs);
    const long double C1 = Cs + 0.6L / (omega * omega * choke);
    const long double C2 = (1.00121L + 1.01468L / (Q - 1.7879L)) / (omega * R * (Q - 0.104823L)) -
                           0.2L / (omega * omega * choke);
    s.components[Slot::X5] = static_cast<double>(R);
    s.components[Slot::L] = static_cast<double>(choke);
    s.components[Slot::C1] = static_cast<double>(C1);
    s.components[Slot::C2] = static_cast<double>(C2);
    s.components[Slot::L2] = static_cast<double>(Q * R / omega);
}

void DesignClassE(DesignPass& pass) {
    Design& s = pass.state;
    if (s.Usat >= s.Ub) return pass.refuse(std::string(kNeedsSupply));
    if (s.Q <= kSmallestClassEQ) return pass.refuse("Q must be larger than 1.79!");
    if (pass.storeComponents) StoreClassE(s, pass.omega);
    pass.showComponents();
    pass.show("Upk15Ausgabe", 3.562 * s.Ub - 2.562 * s.Usat);
    pass.show("Idc15Ausgabe", s.P / (s.Ub - s.Usat));
    pass.setBandwidth(s.fo / s.Q);
}

Circuit ClassECircuit(const Design& s) {
    using enum ElementKind;
    return {Topology::ClassE,
            {PagePart(Choke, Place::Series, "Lc", s, Slot::L, "Lc15Ausgabe"),
             {Switch, Place::Shunt, "S", 0, Slot::None, {}},
             PagePart(Capacitor, Place::Shunt, "C1", s, Slot::C1, "C115Ausgabe"),
             PagePart(Capacitor, Place::Series, "C2", s, Slot::C2, "C215Ausgabe"),
             PagePart(Inductor, Place::Series, "L2", s, Slot::L2, "L215Ausgabe"),
             PagePart(Resistor, Place::Shunt, "R", s, Slot::X5, "R15Ausgabe")}};
}

std::vector<OutputField> ClassEOutputs() {
    std::vector<OutputField> outputs = {
        Component("R15Ausgabe", "R", "Load Resistance R", "Ω", Slot::X5),
        Component("Lc15Ausgabe", "Lc", "Choke Lc", "H", Slot::L),
        Component("C115Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
        Component("C215Ausgabe", "C2", "Capacitance C2", "F", Slot::C2),
        Component("L215Ausgabe", "L2", "Inductance L2", "H", Slot::L2),
        {"Upk15Ausgabe", "Upk", "Peak Voltage Upk", "V", "Largest voltage across the switch"},
        {"Idc15Ausgabe", "Idc", "Supply Current Idc", "A", "Mean current from the supply"}};
    outputs[0].hint = "Load that the stage needs; match it to your real load with another page";
    outputs[1].hint = "Supply choke, thirty times the reactance of the switch's capacitance";
    outputs[2].hint = "Across the switch, the transistor's own output capacitance included";
    outputs[3].hint = "Series capacitor between switch and load";
    outputs[4].hint = "Series inductor between switch and load";
    for (OutputField& field : outputs) field.initial = kNoValueYet;
    return outputs;
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

Page ClassEPage() {
    Page page{.number = 15,
              .key = "class-e",
              .caption = "Class-E PA",
              .menuItem = "KlasseEVerstrker1",
              .menuText = "&Class-E Amplifier",
              .menuGroup = MenuGroup::Amplifier,
              .exportable = true,
              .shared = SharedOutputs::BandwidthOnly,
              .typedQ = {1.9, 500}};
    page.notes = {
        {"50 % duty, switch driven at fo", "The switch closes at zero voltage and slope"}};
    page.inputs = SupplyInputs("P15Eingabe", "Ub15Eingabe", "Usat15Eingabe");
    // The shared Q has its option already.
    page.inputs.push_back({"Q15Eingabe", "Q-Factor", "",
                           "Loaded Q of L2, C2 and R, above 1.79; 5 to 10 is usual", "", &Design::Q,
                           page.typedQ, Fixed(8, 2)});
    page.outputs = ClassEOutputs();
    page.design = DesignClassE;
    page.circuit = ClassECircuit;
    return page;
}

}  // namespace kelvro
