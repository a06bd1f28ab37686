// What networks do over frequency.

#include <algorithm>
#include <functional>

#include "advise/proposal.h"
#include "advise/quiz/bank.h"
#include "analysis/passband.h"
#include "core/number_text.h"
#include "design/pages.h"

namespace kelvro::quiz {

namespace {

const char* const kResponse = "Frequency response";
const char* const kLosses = "Losses";

double GainDb(const WorkedDesign& design, double f) {
    return Response(design.state).relativeDb(f);
}

struct Contender {
    int page;
    double value;
};

/// Captions of the pages, the one with the largest value first.
std::vector<std::string> BestFirst(std::vector<Contender> contenders) {
    std::ranges::sort(contenders, std::ranges::greater{}, &Contender::value);
    std::vector<std::string> captions;
    captions.reserve(contenders.size());
    for (const Contender& contender : contenders) {
        captions.emplace_back(PageOf(contender.page).caption);
    }
    return captions;
}

Question DirectConnection(Numbers& n) {
    const double R1 = n.resistance();
    const double R2 = R1 * n.ratio();
    // At 2·fo the quarter-wave line is half a wave long: the load shows as if connected directly.
    const WorkedDesign line = Match(6, R1, R2, 100e6);
    return AskDecibels(kResponse,
                       "A source of " + Say(R1, "Ω") + " is connected to a load of " +
                           Say(R2, "Ω") + " without any match. What is GT?",
                       GainDb(line, 2 * line.state.fo), "GT = 10·log(4·R1·R2/(R1 + R2)²).");
}

Question HarmonicOfLSection(Numbers& n) {
    const double R1 = n.resistance();
    const double R2 = R1 * n.oneOf({4, 6, 9, 12, 16, 25});
    const WorkedDesign design = Match(13, R1, R2, 100e6);
    return AskDecibels(kResponse,
                       "A lossless low-pass L-section matches " + Say(R1, "Ω") + " to " +
                           Say(R2, "Ω") + ". By how many dB is GT at 2·fo below that at fo?",
                       GainDb(design, design.state.fo) - GainDb(design, 2 * design.state.fo),
                       "10·log((9·r² - 14·r + 9)/(4·r)) with r = R2/R1, from the network's |H|².");
}

Question WidestMatch(Numbers& n) {
    const double R1 = n.oneOf({10, 12.5, 25, 50});
    const double R2 = R1 * n.oneOf({10, 16, 20, 25});
    std::vector<Contender> contenders;
    for (const int page : {1, 3, 14}) {
        const WorkedDesign design = Match(page, R1, R2, 100e6, 10);
        contenders.push_back({page, PassbandAround(Response(design.state), 100e6).width()});
    }
    return Choose(
        n, kResponse,
        "Q is set to 10 where it can be chosen. Which match from " + Say(R1, "Ω") + " to " +
            Say(R2, "Ω") + " has the widest band?",
        BestFirst(contenders),
        "The two L-sections of LCCL through √(R1·R2) have the lowest Q that two steps allow, "
        "whatever the Q field says; the others follow the chosen Q.");
}

Question BestHarmonicSuppression(Numbers& n) {
    const double R1 = n.oneOf({25, 50, 75});
    const double R2 = R1 * n.oneOf({3, 4, 5, 6});
    std::vector<Contender> contenders;
    for (const int page : {3, 6, 13}) {
        const WorkedDesign design = Match(page, R1, R2, 100e6, 8);
        contenders.push_back({page, GainDb(design, 100e6) - GainDb(design, 200e6)});
    }
    return Choose(n, kResponse,
                  "Which match from " + Say(R1, "Ω") + " to " + Say(R2, "Ω") +
                      " keeps the second harmonic down best (pi section with Q = 8)?",
                  BestFirst(contenders),
                  "A pi section is a low-pass of third order whose Q can be high; the L-section is "
                  "of second order with a low Q, and the line passes even harmonics.");
}

Question PassesDc(Numbers& n) {
    const double R1 = n.oneOf({10, 25, 50});
    const double R2 = R1 * n.ratio();
    const bool pass = n.below(2) == 0;
    const Wishes::Dc wanted = pass ? Wishes::Dc::Pass : Wishes::Dc::Block;
    std::vector<std::string> fitting;
    std::vector<std::string> others;
    for (const int page : {1, 3, 5, 6, 13, 14, 17}) {
        const WorkedDesign design = Match(page, R1, R2, 100e6, 10);
        const auto networks = PageOf(page).builtNetworks(design.state);
        (DcPathOf(networks.front()) == wanted ? fitting : others)
            .emplace_back(PageOf(page).caption);
    }
    std::vector<std::string> choices = {
        fitting[static_cast<std::size_t>(n.below(static_cast<int>(fitting.size())))]};
    choices.insert(choices.end(), others.begin(), others.end());
    return Choose(
        n, kResponse,
        "A match from " + Say(R1, "Ω") + " to " + Say(R2, "Ω") +
            (pass ? " shall carry the supply current of the stage as well."
                  : " shall keep the supply of the stage away from the load.") +
            " Which circuit does?",
        choices,
        pass ? "The path from source to load of the line, of the low-pass gamma and of the "
               "pi section holds no capacitor, and no coil lies across it."
             : "A series capacitor (series tank, LCCL, band-pass), or coupled coils "
               "(transformer), let no direct current through.");
}

Question LossOfFiniteQ(Numbers& n) {
    const double Q = n.oneOf({5, 8, 10, 15, 20});
    const double elementQ = n.oneOf({50, 100, 150, 200});
    WorkedDesign design(3);
    design.state.R1 = 50;
    design.state.R2 = n.oneOf({100, 150, 200});
    design.state.Q = Q;
    design.state.QB = elementQ;
    design.state.QBC = elementQ;
    design.calculate();
    const double loss = design.cycle.lossDb;
    const auto say = [](double dB) { return FormatFixed(0, 2, dB) + " dB"; };
    return Choose(
        n, kLosses,
        "A pi section with a loaded Q of " + Say(Q, "") + " from 50 Ω to " +
            Say(design.state.R2, "Ω") + " is built of parts with an element Q of " +
            Say(elementQ, "") + ". About what does it lose at fo?",
        {say(loss), say(loss / 4), say(loss * 3), say(loss * 10)},
        "Coil and capacitors take Q(loaded)/Q(element) each of what the resistances damp: about "
        "20·log(1 + 2·Q(loaded)/Q(element)). The exact number is the program's response with lossy "
        "parts.");
}

Question LosesLeast(Numbers& n) {
    const double R2 = n.oneOf({150, 200, 300});
    std::vector<Contender> contenders;
    for (const int page : {1, 3, 13}) {
        WorkedDesign design = Match(page, 50, R2, 100e6, 12);
        design.state.QB = 80;
        design.state.QBC = 80;
        design.calculate();
        contenders.push_back({page, -design.cycle.lossDb});
    }
    return Choose(n, kLosses,
                  "All parts have an element Q of 80. Which match from 50 Ω to " + Say(R2, "Ω") +
                      " loses least (Q = 12 where it can be chosen)?",
                  BestFirst(contenders),
                  "Loss grows with the loaded Q, and the two-part L-section has the lowest.");
}

Question UpperEdge(Numbers& n) {
    const double R1 = n.resistance();
    const double R2 = 4 * R1;
    const double fo = n.frequency();
    const WorkedDesign design = Match(13, R1, R2, fo);
    return Ask(kResponse,
               "A lossless low-pass L-section matches " + Say(R1, "Ω") + " to " + Say(R2, "Ω") +
                   " at " + Say(fo, "Hz") + ". Up to which frequency is GT better than -3 dB?",
               PassbandAround(Response(design.state), fo).high, "Hz",
               "For R2 = 4·R1 it is √(7/3)·fo, from the second-order network's |H|².");
}

constexpr QuestionMaker kQuestions[] = {
    DirectConnection, HarmonicOfLSection, WidestMatch, BestHarmonicSuppression,
    PassesDc,         LossOfFiniteQ,      LosesLeast,  UpperEdge,
};

}  // namespace

std::span<const QuestionMaker> ResponseQuestions() {
    return kQuestions;
}

}  // namespace kelvro::quiz
