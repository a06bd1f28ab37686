// Decibels, prefixes, standard values and the advice on optimizers.

#include <cmath>

#include "advise/guide.h"
#include "advise/quiz/bank.h"
#include "core/number_text.h"
#include "core/scalar.h"
#include "core/series.h"

namespace kelvro::quiz {

namespace {

const char* const kDecibels = "Decibels";
const char* const kValues = "Numbers and standard values";
const char* const kOptimizing = "Optimization";

double PowerDb(double ratio) {
    return static_cast<double>(10 * DecimalLog(ratio));
}

Question PowerRatioInDecibels(Numbers& n) {
    const double percent = n.oneOf({1, 5, 10, 20, 25, 40, 50, 80});
    return AskDecibels(kDecibels,
                       "A network passes " + Say(percent, "%") +
                           " of the available power to its load. What is its transducer gain GT?",
                       PowerDb(percent / 100), "GT = 10·log(P2/Pavailable).");
}

Question VoltageFromDecibels(Numbers& n) {
    const double dB = n.oneOf({-20, -10, -6, -3, 3, 6, 9.54, 12, 20});
    return Ask(kDecibels, "20·log(v) of a network is " + Say(dB, "dB") + ". What is v = V2/V1?",
               Power(10, dB / 20), "", "v = 10^(dB/20).");
}

Question PowerInDbm(Numbers& n) {
    const double P = n.oneOf({1e-6, 20e-6, 5e-3, 20e-3, 0.1, 0.5, 2, 10, 100});
    return Ask(kDecibels, "How many dBm are " + Say(P, "W") + "?", PowerDb(P / 1e-3), "dBm",
               "0 dBm is 1 mW, and 10·log(P/1 mW) counts from there.");
}

Question CascadeOfLosses(Numbers& n) {
    const double first = n.oneOf({0.3, 0.5, 1, 1.5});
    const double second = n.oneOf({2, 3, 6, 10});
    return Ask(kDecibels,
               "A match with a loss of " + Say(first, "dB") + " is followed by a pad of " +
                   Say(second, "dB") + ". How many percent of the power are left?",
               100 * Power(10, -(first + second) / 10), "%",
               "Decibels add, factors multiply: 100 %·10^(-sum/10).");
}

Question ReadPrefix(Numbers& n) {
    static constexpr std::pair<const char*, double> kTexts[] = {
        {"0.47n", 1e-12}, {"0.033u", 1e-9}, {"2200p", 1e-9}, {"0.0015u", 1e-12}, {"68000f", 1e-12}};
    const auto& [text, scale] = kTexts[n.below(static_cast<int>(std::size(kTexts)))];
    const std::string in = scale == 1e-12 ? "pF" : "nF";
    Question question =
        Ask(kValues, "A capacitor field reads \"" + std::string(text) + "\". How many " + in + "?",
            ParseValue(text) / scale, "", "f, p, n, u stand for 1e-15, 1e-12, 1e-9 and 1e-6.");
    return question;
}

Question NearestStandardValue(Numbers& n) {
    const auto series = n.below(2) == 0 ? Series::E12 : Series::E24;
    const double value = n.oneOf({13.8, 26.1, 36.5, 41.7, 53.1, 62.8, 79.6, 98}) * 1e-12;
    return Ask(
        kValues,
        "Which value of the series " + std::string(series == Series::E12 ? "E12" : "E24") +
            " is nearest to " + Say(value, "F") + "?",
        ParseValue(SeriesNearest(series, value)), "F",
        "E12: 10, 12, 15, 18, 22, 27, 33, 39, 47, 56, 68, 82; E24 has 11, 13, 16, 20, 24, 30, "
        "36, 43, 51, 62, 75, 91 between them.");
}

Question NextStandardValue(Numbers& n) {
    const double value = n.oneOf({11, 34, 40, 50, 70, 90}) * n.oneOf({1, 10, 100});
    return Ask(kValues,
               "A resistor must be at least " + Say(value, "Ω") +
                   ". Which is the smallest value of E12 that will do?",
               ParseValue(SeriesAbove(Series::E12, value)), "Ω",
               "E12: 10, 12, 15, 18, 22, 27, 33, 39, 47, 56, 68, 82.");
}

Question PointsToOptimize(Numbers& n) {
    GuideSituation situation;
    situation.parameters = n.oneOf({4, 6, 8, 10, 12, 20});
    situation.nonlinear = n.below(2) == 1;
    return Ask(kOptimizing,
               "A good starting point is known and the goal is " +
                   std::string(situation.nonlinear ? "highly nonlinear" : "well behaved") +
                   ". About how many simulations until " + Say(situation.parameters, "") +
                   " parameters have improved markedly, by the guide's rule?",
               static_cast<double>(SimulationPoints(situation)), "",
               "k·n²/2 + 2·n; each difficulty doubles k, which starts at 1.");
}

Question WhichOptimizer(Numbers& n) {
    GuideSituation situation;
    situation.goodStartPoint = n.below(2) == 1;
    const bool local = GuideAdvice(situation).find("local") != std::string::npos;
    std::vector<std::string> choices = {"a local optimizer", "a global optimizer"};
    if (!local) std::swap(choices[0], choices[1]);
    return Choose(
        n, kOptimizing,
        situation.goodStartPoint
            ? "The designer has found a good starting point. Which optimizer first?"
            : "The starting point is probably bad. Which optimizer first?",
        choices,
        "From a good start a local optimizer is faster, as it ends in the optimum next to "
        "it; from a bad one only a global optimizer gets out of local optima.");
}

constexpr QuestionMaker kQuestions[] = {
    PowerRatioInDecibels, VoltageFromDecibels, PowerInDbm,       CascadeOfLosses, ReadPrefix,
    NearestStandardValue, NextStandardValue,   PointsToOptimize, WhichOptimizer,
};

}  // namespace

std::span<const QuestionMaker> NumberQuestions() {
    return kQuestions;
}

}  // namespace kelvro::quiz
