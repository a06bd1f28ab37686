// Class-E PA: the output network of a switched stage, from its exact steady state.

#include <cmath>
#include <limits>

#include "core/scalar.h"
#include "design/class_e_page.h"
#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

void StoreStage(const ClassEStage& stage, Slots& components) {
    components[Slot::X5] = stage.R;
    components[Slot::L] = stage.choke;
    components[Slot::C1] = stage.C1;
    components[Slot::C2] = stage.C2;
    components[Slot::L2] = stage.L2;
}

/// What the stage does with the components as they stand; dashes where they make no stage.
void ShowOperation(DesignPass& pass) {
    constexpr double percent = 100;
    auto operation = OperateClassE(ClassEStageOf(pass.state, false));
    const auto lossy = OperateClassE(ClassEStageOf(pass.state, true));
    const auto show = [&](std::string_view object, double value) {
        if (operation && lossy) return pass.show(object, value);
        pass.showText(object, std::string(kNoValueYet));
    };
    const ClassEOperation none;
    const ClassEOperation& ideal = operation ? *operation : none;
    const ClassEOperation& real = lossy ? *lossy : none;
    show("Upk15Ausgabe", ideal.peakVoltage);
    show("Ipk15Ausgabe", ideal.peakCurrent);
    show("Idc15Ausgabe", ideal.supplyCurrent);
    show("Pout15Ausgabe", real.outputPower);
    show("eta15Ausgabe", percent * real.efficiency);
    if (operation) pass.setOperation(std::move(operation).value());
}

void DesignStage(DesignPass& pass) {
    Design& s = pass.state;
    const auto stage = DesignClassEStage(
        {.power = s.P,
         .supply = s.Ub,
         .saturation = s.Usat,
         .fo = s.fo,
         .Q = s.Q,
         .choke = s.infiniteChoke ? std::numeric_limits<double>::infinity() : s.chokeRatio});
    if (!stage) return pass.refuse(stage.message());
    if (pass.storeComponents) StoreStage(*stage, s.components);
    pass.showComponents();
    ShowOperation(pass);
    pass.setBandwidth(s.fo / s.Q);
}

std::vector<Network> StageNetworks(const Design& s) {
    using enum PartKind;
    Network stage{.source = Impedance::Nothing(),
                  .ladder = {{Arm{Place::Shunt, PagePart(Inductor, "Lc", s, Slot::L), true}},
                             {Switch{"S"}},
                             ShuntArm(PagePart(Capacitor, "C1", s, Slot::C1)),
                             SeriesArm(PagePart(Capacitor, "C2", s, Slot::C2)),
                             SeriesArm(PagePart(Inductor, "L2", s, Slot::L2))},
                  .load = PagePart(Resistor, "R", s, Slot::X5),
                  .designFrequency = s.fo};
    stage.sourceNode = "Ub";
    return {stage};
}

std::vector<InputField> StageInputs(Limits typedQ) {
    auto inputs = SupplyInputs("P15Eingabe", "Ub15Eingabe", "Usat15Eingabe");
    inputs[0].hint = "Power in R, harmonics included, where the parts have no loss";
    // The shared Q has its option already.
    inputs.push_back({"Q15Eingabe", "Q-Factor", "",
                      "Loaded Q of L2, C2 and R, above 1.79; 5 to 10 is usual", "", "Q", &Design::Q,
                      typedQ, Fixed(8, 2)});
    inputs.push_back({"Choke15Eingabe",
                      "Choke ωLc/R",
                      "",
                      "Reactance of the supply choke at fo in units of R: 5 to 200",
                      "choke",
                      "Choke",
                      &Design::chokeRatio,
                      {5, 200},
                      Fixed(8, 1),
                      [](const Design& s) { return !s.infiniteChoke; }});
    return inputs;
}

std::vector<OutputField> StageOutputs() {
    std::vector<OutputField> outputs = {
        Component("R15Ausgabe", "R", "Load Resistance R", "Ω", Slot::X5),
        Component("Lc15Ausgabe", "Lc", "Choke Lc", "H", Slot::L),
        Component("C115Ausgabe", "C1", "Capacitance C1", "F", Slot::C1),
        Component("C215Ausgabe", "C2", "Capacitance C2", "F", Slot::C2),
        Component("L215Ausgabe", "L2", "Inductance L2", "H", Slot::L2),
        {"Upk15Ausgabe", "Upk", "Peak Voltage Upk", "V", "Largest voltage across the switch"},
        {"Ipk15Ausgabe", "Ipk", "Peak Current Ipk", "A", "Largest current through the switch"},
        {"Idc15Ausgabe", "Idc", "Supply Current Idc", "A", "Mean current from the supply"},
        {"Pout15Ausgabe", "Pout", "Power with Losses", "W",
         "Power in R where all parts but the choke have the element Q"},
        {"eta15Ausgabe", "eta", "Efficiency with Losses", "%",
         "Power in R over power from the supply, the parts with the element Q"}};
    outputs[0].hint = "Load that the stage needs; match it to your real load with another page";
    outputs[1].hint = "Supply choke; the other parts allow for its ripple";
    outputs[2].hint = "Across the switch, the transistor's own output capacitance included";
    outputs[3].hint = "Series capacitor between switch and load";
    outputs[4].hint = "Series inductor between switch and load";
    outputs[9].format = Fixed(7, 2);
    for (OutputField& field : outputs) field.initial = kNoValueYet;
    return outputs;
}

}  // namespace

ClassEStage ClassEStageOf(const Design& design, bool lossy) {
    const Slots& parts = design.components;
    const double omega = kTwoPi * design.fo;
    const double tangent = lossy ? LossTangent(design) : 0;
    const double C1 = parts[Slot::C1];
    const double C2 = parts[Slot::C2];
    const double L2 = parts[Slot::L2];
    return {.fo = design.fo,
            .supply = design.Ub,
            .saturation = design.Usat,
            .R = parts[Slot::X5],
            .C1 = C1,
            .C2 = C2,
            .L2 = L2,
            .choke = parts[Slot::L],
            .lossC1 = tangent / (omega * C1),
            .loss = tangent * (omega * L2 + 1 / (omega * C2))};
}

Page ClassEPage() {
    Page page{
        .key = "class-e",
        .caption = "Class-E PA",
        .menuItem = "KlasseEVerstrker1",
        .menuText = "&Class-E Amplifier",
        .menuGroup = MenuGroup::Amplifier,
        .exportable = true,
        .shared = SharedOutputs::BandwidthOnly,
        .typedQ = {1.9, 500},
        .suggestion = {.role = Role::Amplifier,
                       .character = "Complete output network of a class-E stage"},
        .hint =
            {.use =
                 "A switching power stage with efficiency up to 90 %: the switch closes when its "
                 "voltage is zero. Values after Sokal's equations with corrections for finite Q.",
             .limits = "Load Q must exceed 1.79; below Q of 3 harmonics rise, above 10 the coil "
                       "loses. The switch sees 3.6 times the supply. Switch resistance should be "
                       "below a tenth of R.",
             .parasitics = "The output capacitance of the transistor is part of C1: subtract it. "
                           "When C1 comes out smaller than it, this frequency is too high for this "
                           "transistor at this power.",
             .values =
                 "Q of 5 is a good start. Follow with a matching page from R to the antenna."},
        .goal = PageGoal::Nothing()};
    page.notes = {
        {"50 % duty, switch driven at fo", "The switch closes at zero voltage and slope"},
        {"P is that of parts without loss",
         "What R takes from fo and all harmonics; the fields below tell what real parts leave"}};
    page.inputs = StageInputs(page.typedQ);
    page.switches = {{"CheckBoxChoke15",
                      "Infinite choke",
                      "The choke carries direct current only, whatever is typed above",
                      &Design::infiniteChoke,
                      {},
                      nullptr,
                      "infinite-choke"}};
    page.outputs = StageOutputs();
    page.switched = true;
    page.design = DesignStage;
    page.networks = StageNetworks;
    return page;
}

}  // namespace kelvro
