// Component values of matching networks.

#include <cmath>

#include "advise/quiz/bank.h"
#include "design/pages.h"

namespace kelvro::quiz {

namespace {

const char* const kMatching = "Matching networks";
const char* const kLines = "Lines and transformers";

struct Task {
    double R1;
    double R2;
    double fo;

    std::string text() const {
        return Say(R1, "Ω") + " to " + Say(R2, "Ω") + " at " + Say(fo, "Hz");
    }
};

Task Rising(Numbers& n) {
    const double R1 = n.resistance();
    return {R1, R1 * n.ratio(), n.frequency()};
}

Task Falling(Numbers& n) {
    const Task task = Rising(n);
    return {task.R2, task.R1, task.fo};
}

Question IdealRatio(Numbers& n) {
    const Task task = Rising(n);
    return Ask(kMatching,
               "What voltage ratio v = V2/V1 has a lossless match from " + Say(task.R1, "Ω") +
                   " to " + Say(task.R2, "Ω") + "?",
               MatchedRatio(Match(6, task.R1, task.R2, task.fo).state), "",
               "Equal power at both ends: v = √(R2/R1).");
}

Question GammaPart(Numbers& n, const std::string& what, Slot slot, const std::string& unit,
                   const std::string& explanation) {
    const Task task = Rising(n);
    return Ask(kMatching,
               "A low-pass L-section matches " + task.text() + ". Which " + what + " does it need?",
               Match(13, task.R1, task.R2, task.fo).state.components[slot], unit, explanation);
}

Question GammaL(Numbers& n) {
    return GammaPart(n, "inductance", Slot::L, "H",
                     "L = q·Rlow/ω with q = √(Rhigh/Rlow - 1), in series on the low side.");
}

Question GammaC(Numbers& n) {
    return GammaPart(n, "capacitance", Slot::C1, "F",
                     "C = q/(ω·Rhigh) with q = √(Rhigh/Rlow - 1), across the high side.");
}

Question GammaQ(Numbers& n) {
    const Task task = Rising(n);
    return Ask(kMatching,
               "What loaded Q has an L-section between " + Say(task.R1, "Ω") + " and " +
                   Say(task.R2, "Ω") + "?",
               Match(13, task.R1, task.R2, task.fo).state.Q, "",
               "Half the reactance over the resistance it stands with: √(Rhigh/Rlow - 1)/2.");
}

Question GammaSide(Numbers& n) {
    const Task task = n.below(2) == 0 ? Rising(n) : Falling(n);
    const WorkedDesign design = Match(13, task.R1, task.R2, task.fo);
    const auto networks = PageOf(13).builtNetworks(design.state);
    const bool source = ListOf(networks.front()).front().place == Place::Shunt;
    std::vector<std::string> choices = {"across the source", "across the load"};
    if (!source) std::swap(choices[0], choices[1]);
    return Choose(n, kMatching,
                  "An L-section matches a source of " + Say(task.R1, "Ω") + " to a load of " +
                      Say(task.R2, "Ω") + ". Where does its shunt part stand?",
                  choices, "The shunt part lies across the higher resistance and lowers it.");
}

Question PiInput(Numbers& n) {
    const Task task = Rising(n);
    const double Q = n.oneOf({6, 8, 10, 12});
    return Ask(kMatching,
               "A pi section with Q = " + Say(Q, "") + " matches " + task.text() +
                   ". How large is C1 across the source?",
               Match(3, task.R1, task.R2, task.fo, Q).state.components[Slot::C1], "F",
               "C1 = 1/(2π·f·XC1) with XC1 = (R1 + √(R1·R2))/(2·Q): the two ends share 2·Q in the "
               "ratio √R1 : √R2.");
}

Question SeriesTankL(Numbers& n) {
    const Task task = Rising(n);
    const double Q = n.oneOf({5, 8, 10, 15});
    return Ask(
        kMatching,
        "A tapped series tank with Q = " + Say(Q, "") + " matches " + task.text() +
            ". How large is its coil?",
        Match(1, task.R1, task.R2, task.fo, Q).state.components[Slot::L], "H",
        "L = 2·Q·R1/(2π·f): the source damps it together with the equally large matched load.");
}

Question NeedsLargerLoad(Numbers& n) {
    const Task task = Falling(n);
    std::vector<std::string> refusing;
    std::vector<std::string> accepting;
    for (const int page : {1, 3, 6, 13, 14, 18}) {
        const bool refused = Match(page, task.R1, task.R2, task.fo).cycle.message.has_value();
        (refused ? refusing : accepting).emplace_back(PageOf(page).caption);
    }
    const std::string right =
        refusing[static_cast<std::size_t>(n.below(static_cast<int>(refusing.size())))];
    std::vector<std::string> choices = {right};
    choices.insert(choices.end(), accepting.begin(), accepting.end());
    return Choose(n, kMatching,
                  "Which of these circuits cannot match from " + Say(task.R1, "Ω") + " down to " +
                      Say(task.R2, "Ω") + " unless R1 and R2 are switched?",
                  choices,
                  "The tapped series tank and LCCL only step up from source to load, so they need "
                  "R2 > R1; pi section, line and gamma go both ways, the double L only down.");
}

Question MiddleResistance(Numbers& n) {
    const Task task = Rising(n);
    return Ask(kMatching,
               "Two L-sections match " + Say(task.R1, "Ω") + " to " + Say(task.R2, "Ω") +
                   " with equal Q. Which resistance lies between them?",
               Match(6, task.R1, task.R2, task.fo).state.components[Slot::ZL], "Ω",
               "Equal steps: Rm = √(R1·R2).");
}

Question QuarterWaveImpedance(Numbers& n) {
    const Task task = Rising(n);
    return Ask(kLines,
               "Which characteristic impedance must a quarter-wave line have to match " +
                   Say(task.R1, "Ω") + " to " + Say(task.R2, "Ω") + "?",
               Match(6, task.R1, task.R2, task.fo).state.components[Slot::ZL], "Ω",
               "ZL = √(R1·R2).");
}

Question QuarterWaveLength(Numbers& n) {
    WorkedDesign design(6);
    design.state.fo = n.frequency();
    design.state.er = n.oneOf({1, 2.1, 2.25, 4, 9.8});
    design.calculate();
    return Ask(kLines,
               "How long is a quarter-wave line at " + Say(design.state.fo, "Hz") +
                   " in a dielectric with εr = " + Say(design.state.er, "") + "?",
               design.state.components[Slot::Length], "m", "l = c/(4·f·√εr).");
}

Question BalunL(Numbers& n) {
    const double R1 = n.oneOf({25, 50, 75});
    const double R2 = n.oneOf({25, 50, 75, 100, 200});
    const double fo = n.frequency();
    return Ask(kLines,
               "A lattice balun feeds two loads of " + Say(R2, "Ω") + " each from " + Say(R1, "Ω") +
                   " at " + Say(fo, "Hz") + ". How large are its coils?",
               Match(9, R1, R2, fo).state.components[Slot::L], "H",
               "All four reactances are X = √(2·R1·R2), so L = X/(2π·f).");
}

Question BandwidthOfQ(Numbers& n) {
    const double fo = n.frequency();
    const double Q = n.oneOf({4, 5, 8, 10, 20, 50});
    return Ask(kMatching,
               "About what bandwidth has a matching network with a loaded Q of " + Say(Q, "") +
                   " at " + Say(fo, "Hz") + "?",
               Match(3, 50, 200, fo, Q).cycle.bandwidth, "Hz", "B = fo/Q.");
}

constexpr QuestionMaker kQuestions[] = {
    IdealRatio,
    GammaL,
    GammaC,
    GammaQ,
    GammaSide,
    PiInput,
    SeriesTankL,
    NeedsLargerLoad,
    BandwidthOfQ,
    MiddleResistance,
    QuarterWaveImpedance,
    QuarterWaveLength,
    BalunL,
};

}  // namespace

std::span<const QuestionMaker> MatchQuestions() {
    return kQuestions;
}

}  // namespace kelvro::quiz
