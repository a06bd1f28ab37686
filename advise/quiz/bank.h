#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "advise/quiz/question.h"
#include "core/random.h"
#include "design/cycle.h"

// What the questions of the quiz are made of. Each question is one function that draws its numbers
// and lets the program's own calculation find the answer.

namespace kelvro::quiz {

/// Draws the numbers of a question: values that one meets in practice.
class Numbers {
  public:
    explicit Numbers(UniformStream& stream) : stream_(stream) {}

    double oneOf(std::initializer_list<double> values);
    int below(int n) { return stream_.below(n); }

    double resistance() { return oneOf({10, 12.5, 25, 50, 75, 100, 150, 200}); }
    /// What a resistance is to be multiplied with for one that calls for a match.
    double ratio() { return oneOf({2, 2.5, 3, 4, 5, 6, 8, 10}); }
    double frequency() {
        return oneOf({1e6, 3.6e6, 7.1e6, 10.7e6, 14.2e6, 27e6, 50e6, 100e6, 145e6, 433e6});
    }

  private:
    UniformStream& stream_;
};

using QuestionMaker = Question (*)(Numbers& numbers);

/// Parts with the least losses that the program knows.
inline constexpr double kNearlyLossless = 1e4;

/// A page's design, calculated without optimization. Inputs not set here are the program's
/// defaults with nearly lossless parts.
struct WorkedDesign {
    explicit WorkedDesign(int page);
    /// Calculates; further calls start from the present inputs.
    WorkedDesign& calculate();
    /// Value of an output field.
    double output(std::string_view object) const;

    Design state;
    CycleResult cycle;
};

/// A design that matches R1 to R2 at fo with Q.
WorkedDesign Match(int page, double R1, double R2, double fo, double Q = 5);

/// A value as people write it: "50 Ω", "4.7 nF", "10.7 MHz".
std::string Say(double value, std::string_view unit);

/// A question for a number. The explanation is followed by the answer.
Question Ask(std::string topic, std::string text, double answer, std::string unit,
             const std::string& explanation);
/// The same for decibels, which may come close to zero.
Question AskDecibels(std::string topic, std::string text, double answer,
                     const std::string& explanation);
/// A question with choices, the first of which is right; they are shown in random order.
Question Choose(Numbers& numbers, std::string topic, std::string text,
                std::vector<std::string> choices, const std::string& explanation);

// The bank, by topic.
std::span<const QuestionMaker> NumberQuestions();
std::span<const QuestionMaker> PartQuestions();
std::span<const QuestionMaker> MatchQuestions();
std::span<const QuestionMaker> ResponseQuestions();
std::span<const QuestionMaker> PowerQuestions();

}  // namespace kelvro::quiz
