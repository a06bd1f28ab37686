// TRL: a quarter-wave line.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "design/cycle.h"
#include "design/pages/catalogue.h"

namespace kelvro {

namespace {

constexpr double kPropagationSpeed = 299795000.0;  // m/s, as line lengths are reckoned here
constexpr double kQuarterWave = 0.25;

/// D. M. Pozar, "Microwave Engineering", 4th ed., section 2.5: the quarter-wave transformer,
/// ZL = sqrt(R1·R2). Exact at fo (and its odd multiples) for every pair of resistances. The Q shown
/// is the one of a single resonance of about its bandwidth.
void DesignLine(DesignPass& pass) {
    Design& s = pass.state;
    const long double R1 = s.R1;
    const long double R2 = s.R2;
    if (pass.storeComponents) {
        s.components[Slot::ZL] = static_cast<double>(std::sqrt(R1 * R2));
        s.components[Slot::NormalizedLength] = kQuarterWave;
        s.components[Slot::Length] = static_cast<double>(kPropagationSpeed * kQuarterWave / s.fo /
                                                         std::sqrt(static_cast<long double>(s.er)));
    }
    pass.evaluate();
    pass.showComponents();
    pass.show("NL6Ausgabe", s.components[Slot::NormalizedLength]);
    pass.showQ(static_cast<double>((std::sqrt(std::max(R2 / R1, R1 / R2)) - 1) / 2));
    pass.setBandwidth(s.fo / std::max(s.Q, 0.0001));
    pass.optimize();
}

std::vector<Network> LineNetworks(const Design& s) {
    return {PageNetwork(s, {{Line{.Z0 = s.components[Slot::ZL],
                                  .length = {.degrees = 90, .atHertz = s.fo, .er = s.er},
                                  .tangent = LossTangent(s),
                                  .name = "ZL"}}})};
}

/// M. J. D. Powell's singular function in other units: 0 at (-1, 5, 2, 1).
double PowellsFunction(std::span<const double> x) {
    const auto square = [](double y) { return y * y; };
    return 16 * square(x[0] + x[3]) + square(x[1] - 2 * x[2] - x[3]) + 0.0625 * square(x[2] - 2) +
           square(x[3] - 1);
}

}  // namespace

Page LinePage() {
    Page page{
        .key = "trl",
        .caption = "TRL",
        .menuItem = "Leitung1",
        .menuText = "&TRL",
        .menuGroup = MenuGroup::Matching,
        .qPanel = true,
        .exportable = true,
        .plottable = true,
        .suggestion = {.role = Role::Match,
                       .character = "Quarter-wave line without any lumped part"},
        .hint = {.use = "A quarter-wave line of ZL = sqrt(R1·R2): simple, no tuning, little loss "
                        "at high frequencies.",
                 .limits = "The Q, and so the bandwidth, follows from the ratio R1/R2. It passes "
                           "direct current and repeats at every odd multiple of fo. Below about "
                           "100 MHz the line is long.",
                 .parasitics = "Pad capacitances make the line look longer; shorten it a little. "
                               "An open end adds about half the substrate's height in length.",
                 .values = "Microstrip can be made from about 20 to 120 ohm. The Tools menu "
                           "calculates its width."},
        .goal = PageGoal::Test(4, PowellsFunction)};
    page.notes = {kQNotAdjustable};
    page.inputs = {{"er6Eingabe",
                    "Dielectric Constant εr",
                    "",
                    "Relative permittivity of the line's dielectric, 1 to 100",
                    "er",
                    "er",
                    &Design::er,
                    {1, 100},
                    Fixed(7, 2)}};
    page.outputs = {
        Component("ZL6Ausgabe", "ZL", "Charact. Impedance ZL", "Ω", Slot::ZL),
        {"NL6Ausgabe", "NL", "Normalized Length l/λ", "", "Length in wavelengths on the line"},
        Component("l6Ausgabe", "l", "Geometrical Length l", "m", Slot::Length)};
    page.outputs.back().hint = "Length to cut, shortened by the dielectric";
    page.outputs[1].format = Fixed(7, 3);
    page.design = DesignLine;
    page.transfer = [](const Design& s) { return Transfer::Line(s.components[Slot::ZL]); };
    page.networks = LineNetworks;
    return page;
}

}  // namespace kelvro
