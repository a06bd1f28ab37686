// R-Divider: resistor string for reference voltages.

#include <array>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

constexpr std::array kStringSlots = {Slot::C1, Slot::C2, Slot::L,  Slot::L2,
                                     Slot::X5, Slot::X6, Slot::X7, Slot::X8};
constexpr std::size_t kBandGap = kStringSlots.size() - 1;  // RD8 stands beside the string

/// Ground, the six taps and the top of the string.
std::array<long double, 8> Voltages(const Design& s) {
    return {0, s.Vlow1, s.Vlow2, s.Vmid1, s.Vmid2, s.Vhi1, s.Vhi2, s.Vref};
}

void DesignDivider(DesignPass& pass) {
    Design& s = pass.state;
    const auto V = Voltages(s);
    for (std::size_t i = 1; i < V.size(); ++i) {
        if (!(V[i] > V[i - 1])) return pass.refuse("Tap voltages must rise from Vlow1 to Vref!");
    }
    const long double I = static_cast<long double>(s.Vref) / s.Rtot;
    if (pass.storeComponents) {
        for (std::size_t i = 0; i < kBandGap; ++i) {
            s.components[kStringSlots[i]] = static_cast<double>((V[i + 1] - V[i]) / I);
        }
        s.components[kStringSlots[kBandGap]] = s.Vbg / s.Ibg;
    }
    pass.finish();
    pass.show("I19Ausgabe", static_cast<double>(I));
}

double Square(double x) {
    return x * x;
}

/// Relative errors of the string's total, its six taps and the bandgap resistor, squared.
double DividerResidual(const Design& s) {
    const std::array<double, 6> taps = {s.Vlow1, s.Vlow2, s.Vmid1, s.Vmid2, s.Vhi1, s.Vhi2};
    const auto resistor = [&](std::size_t i) { return s.components[kStringSlots[i]]; };
    double total = 0;
    for (std::size_t i = 0; i < kBandGap; ++i) total += resistor(i);
    double sum = Square(total / s.Rtot - 1) + Square(resistor(kBandGap) * s.Ibg / s.Vbg - 1);
    double below = 0;
    for (std::size_t i = 0; i < taps.size(); ++i) {
        below += resistor(i);
        sum += Square(s.Vref * below / total / taps[i] - 1);
    }
    return sum;
}

PageGoal DividerGoal() {
    PageGoal goal = PageGoal::Components(
        [](const Design&) { return std::vector<Slot>(kStringSlots.begin(), kStringSlots.end()); });
    goal.residual = DividerResidual;
    return goal;
}

/// The string from Vref down to ground, and the band-gap resistor that its current feeds.
std::vector<Network> DividerNetworks(const Design& s) {
    using enum PartKind;
    constexpr std::array<const char*, kBandGap> taps = {"",      "Vlow1", "Vlow2", "Vmid1",
                                                        "Vmid2", "Vhi1",  "Vhi2"};
    Network string{.source = 0.0, .ladder = {}, .load = 0.0};
    string.sourceNode = "Vref";
    for (std::size_t i = kBandGap; i-- > 0;) {
        const std::string name = "RD" + std::to_string(i + 1);
        string.ladder.push_back(SeriesArm(PagePart(Resistor, name, s, kStringSlots[i]), taps[i]));
    }
    Network bandGap{.source = Impedance::Nothing(),
                    .ladder = {ShuntArm(PagePart(Resistor, "RD8", s, kStringSlots[kBandGap]))},
                    .load = Impedance::Nothing()};
    bandGap.sourceNode = "Vbg";
    return {string, bandGap};
}

std::vector<InputField> DividerInputs() {
    constexpr Limits limits{1e-9, 1e9};
    const auto key = [](std::string_view name) {
        return SettingsKey(name, SettingsKey::Form::AsField);
    };
    const auto tap = [&](std::string_view object, std::string_view label, std::string_view option,
                         double Design::*value) {
        return InputField{
            object, label,      "V",   "Tap voltage; the taps rise from Vlow1 to Vref",
            option, key(label), value, limits};
    };
    return {{"Vref19Eingabe", "Reference Vref", "V", "Voltage at the top of the string", "vref",
             key("Vref"), &Design::Vref, limits},
            {"Rtot19Eingabe", "Total Rtot", "Ω", "Resistance of the whole string, RD1 to RD7",
             "rtot", key("Rtot"), &Design::Rtot, limits},
            tap("Vlow119Eingabe", "Vlow1", "vlow1", &Design::Vlow1),
            tap("Vlow219Eingabe", "Vlow2", "vlow2", &Design::Vlow2),
            tap("Vmid119Eingabe", "Vmid1", "vmid1", &Design::Vmid1),
            tap("Vmid219Eingabe", "Vmid2", "vmid2", &Design::Vmid2),
            tap("Vhi119Eingabe", "Vhi1", "vhi1", &Design::Vhi1),
            tap("Vhi219Eingabe", "Vhi2", "vhi2", &Design::Vhi2),
            {"Vbg19Eingabe", "Band-gap Vbg", "V", "Band-gap voltage across RD8", "vbg", key("Vbg"),
             &Design::Vbg, limits},
            {"Ibg19Eingabe", "Bias Current Ibg", "A", "Current that RD8 sets from Vbg", "ibg",
             key("Ibg"), &Design::Ibg, limits}};
}

std::vector<OutputField> DividerOutputs() {
    std::vector<OutputField> outputs = {
        Component("RD119Ausgabe", "RD1", "Resistor RD1", "Ω", kStringSlots[0]),
        Component("RD219Ausgabe", "RD2", "Resistor RD2", "Ω", kStringSlots[1]),
        Component("RD319Ausgabe", "RD3", "Resistor RD3", "Ω", kStringSlots[2]),
        Component("RD419Ausgabe", "RD4", "Resistor RD4", "Ω", kStringSlots[3]),
        Component("RD519Ausgabe", "RD5", "Resistor RD5", "Ω", kStringSlots[4]),
        Component("RD619Ausgabe", "RD6", "Resistor RD6", "Ω", kStringSlots[5]),
        Component("RD719Ausgabe", "RD7", "Resistor RD7", "Ω", kStringSlots[6]),
        Component("RD819Ausgabe", "RD8", "Resistor RD8", "Ω", kStringSlots[7]),
        {"I19Ausgabe", "I", "String Current", "A", "Vref over Rtot"}};
    outputs[0].hint = "From ground to the tap Vlow1";
    outputs[1].hint = "From Vlow1 to Vlow2";
    outputs[2].hint = "From Vlow2 to Vmid1";
    outputs[3].hint = "From Vmid1 to Vmid2";
    outputs[4].hint = "From Vmid2 to Vhi1";
    outputs[5].hint = "From Vhi1 to Vhi2";
    outputs[6].hint = "From Vhi2 to Vref";
    outputs[7].hint = "Turns Vbg into the bias current Ibg; not part of the string";
    for (OutputField& field : outputs) field.initial = kNoValueYet;
    return outputs;
}

}  // namespace

Page RDividerPage() {
    Page page{.key = "r-divider",
              .caption = "R-Divider",
              .menuItem = "",
              .menuText = "",
              .menuGroup = MenuGroup::None,
              .exportable = true,
              .shared = SharedOutputs::None,
              .unswapsLC = true,
              .suggestion = {.role = Role::Other, .character = "Divides a reference voltage"},
              .hint = {.use = "A resistor string that makes six reference voltages from one, and "
                              "the resistor of a bandgap bias. Take rounded values back and let "
                              "the optimizer bring the taps to their place.",
                       .limits = "Taps must not be loaded; their source resistance is up to a "
                                 "quarter of the string.",
                       .parasitics = "On chip, end effects of the resistors shift the taps: build "
                                     "all from equal unit resistors.",
                       .values = "100 kohm to 1 Mohm on chip, 10 to 100 kohm on boards."},
              .goal = DividerGoal()};
    page.notes = {{"String of seven resistors from ground to Vref with six taps",
                   "Round the resistors to standard values, then Take and Optimize"}};
    page.inputs = DividerInputs();
    page.outputs = DividerOutputs();
    page.design = DesignDivider;
    page.networks = DividerNetworks;
    page.atFrequency = false;
    return page;
}

}  // namespace kelvro
