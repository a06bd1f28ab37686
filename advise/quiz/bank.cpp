#include "advise/quiz/bank.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/response.h"
#include "core/number_text.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr double kDecibelTolerance = 0.1;

}  // namespace

bool Question::accepts(std::string_view typed) const {
    // People type the unit as they see it, with a space before the prefix: "100 pF". Whether the
    // last m of "3 m" is a unit or milli only the answer can tell: both readings count.
    std::string bare(typed);
    std::erase(bare, ' ');
    if (hasChoices() || ParseNumber(bare).noDigits) return false;
    double allowed = tolerance * std::fabs(answer);
    if (unit == "dB" || unit == "dBm") allowed = std::max(allowed, kDecibelTolerance);
    const auto near = [&](const std::string& number) {
        return std::fabs(ParseValue(number) - answer) <= allowed;
    };
    if (near(bare)) return true;
    if (unit.empty() || !bare.ends_with(unit)) return false;
    bare.resize(bare.size() - unit.size());
    return near(bare);
}

std::string Question::answerText() const {
    if (hasChoices()) return choices[static_cast<std::size_t>(correct)];
    const bool plain = unit.empty() || unit == "dB" || unit == "dBm" || unit == "%";
    if (plain) return FormatFixed(0, 2, answer) + (unit.empty() ? "" : " " + unit);
    return FormatQuantity(2, answer, unit);
}

namespace quiz {

double Numbers::oneOf(std::initializer_list<double> values) {
    return values.begin()[stream_.below(static_cast<int>(values.size()))];
}

WorkedDesign::WorkedDesign(int page) {
    state.QB = kNearlyLossless;
    state.QBC = kNearlyLossless;
    EnterPage(state, page);
}

WorkedDesign& WorkedDesign::calculate() {
    ResponseServices services;
    cycle = Calculate(state, true, services);
    state = cycle.design;
    return *this;
}

double WorkedDesign::output(std::string_view object) const {
    const std::string* text = cycle.text(object);
    return text ? ParseValue(*text) : 0;
}

WorkedDesign Match(int page, double R1, double R2, double fo, double Q) {
    WorkedDesign design(page);
    design.state.R1 = R1;
    design.state.R2 = R2;
    design.state.fo = fo;
    design.state.Q = Q;
    design.calculate();
    return design;
}

std::string Say(double value, std::string_view unit) {
    // Decibels, percents and plain numbers take no prefix.
    const bool plain = unit.empty() || unit == "dB" || unit == "%";
    std::string text = plain ? FormatFixed(0, 3, value) : FormatQuantity(3, value, unit);
    if (plain && !unit.empty()) text += ' ' + std::string(unit);
    const auto point = text.find('.');
    auto end = text.find(' ');
    if (end == std::string::npos) end = text.size();
    if (point == std::string::npos) return text;
    auto last = text.find_last_not_of('0', end - 1);
    if (last == point) --last;
    return text.substr(0, last + 1) + text.substr(end);
}

Question Ask(std::string topic, std::string text, double answer, std::string unit,
             const std::string& explanation) {
    Question question;
    question.topic = std::move(topic);
    question.text = std::move(text);
    question.answer = answer;
    question.unit = std::move(unit);
    question.explanation = explanation + " The answer is " + question.answerText() + ".";
    return question;
}

Question AskDecibels(std::string topic, std::string text, double answer,
                     const std::string& explanation) {
    return Ask(std::move(topic), std::move(text), answer, "dB", explanation);
}

Question Choose(Numbers& numbers, std::string topic, std::string text,
                std::vector<std::string> choices, const std::string& explanation) {
    Question question;
    question.topic = std::move(topic);
    question.text = std::move(text);
    question.explanation = explanation + " The answer is: " + choices.front() + ".";
    const std::string right = choices.front();
    for (int i = static_cast<int>(choices.size()) - 1; i > 0; --i) {
        std::swap(choices[static_cast<std::size_t>(i)],
                  choices[static_cast<std::size_t>(numbers.below(i + 1))]);
    }
    question.correct = static_cast<int>(std::ranges::find(choices, right) - choices.begin());
    question.choices = std::move(choices);
    return question;
}

}  // namespace quiz

}  // namespace kelvro
