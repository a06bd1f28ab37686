#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvro {

/// One question of the quiz with its numbers drawn: a number to type, or choices to pick from.
struct Question {
    std::string topic;
    std::string text;
    std::string explanation;  ///< why, with the answer in it

    double answer = 0;  ///< SI unit; of questions without choices
    std::string unit;
    double tolerance = 0.02;  ///< relative; of decibels absolute, 0.1 at least

    std::vector<std::string> choices;  ///< empty: a number is asked for
    int correct = 0;

    bool hasChoices() const { return !choices.empty(); }
    /// Does a typed number (engineering prefixes allowed) answer the question?
    bool accepts(std::string_view typed) const;
    /// The right answer as it is shown: "137.83 nH", or the choice.
    std::string answerText() const;
};

}  // namespace kelvro
