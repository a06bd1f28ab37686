#include "advise/quiz/quiz.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <regex>
#include <set>

#include "core/number_text.h"

namespace kelvro {
namespace {

Question Drawn(int number, std::uint64_t seed) {
    UniformStream stream(seed);
    return DrawQuestion(number, stream);
}

/// The first draw with these numbers of the question that asks for something.
Question DrawnWith(const std::string& asks, const std::string& numbers) {
    for (int number = 0; number < QuizQuestionCount(); ++number) {
        if (Drawn(number, 0).text.find(asks) == std::string::npos) continue;
        for (std::uint64_t seed = 0; seed < 5000; ++seed) {
            Question question = Drawn(number, seed);
            if (question.text.find(numbers) != std::string::npos) return question;
        }
    }
    ADD_FAILURE() << "no question about " << numbers;
    return {};
}

struct Worked {
    const char* name;
    std::string asks;
    std::string numbers;
    double answer;
};

class WorkedAnswerTest : public testing::TestWithParam<Worked> {};

/// Answers worked out by hand from the textbook formulas.
TEST_P(WorkedAnswerTest, IsTheOneOfTheTextbook) {
    const Question question = DrawnWith(GetParam().asks, GetParam().numbers);
    EXPECT_NEAR(question.answer, GetParam().answer, 4e-3 * std::fabs(GetParam().answer))
        << question.text;
}

INSTANTIATE_TEST_SUITE_P(
    Answers, WorkedAnswerTest,
    testing::Values(
        Worked{"Dbm", "How many dBm", "are 5 mW", 6.990},
        // 1/(2π·100e6·10e-12)
        Worked{"CapacitorReactance", "What reactance", "10 pF at 100 MHz", 159.15},
        // 2/(1/100 + 1/300)
        Worked{"ElementQ", "total effective element Q", "Q of 100, the capacitors one of 300", 150},
        // √3·50/(2π·100e6) and √3/(2π·100e6·200)
        Worked{"GammaL", "Which inductance does", "50 Ω to 200 Ω at 100 MHz", 137.83e-9},
        Worked{"GammaC", "Which capacitance does", "50 Ω to 200 Ω at 100 MHz", 13.783e-12},
        // √(50·200)
        Worked{"QuarterWave", "quarter-wave line have", "match 50 Ω to 200 Ω", 100},
        Worked{"LineLength", "How long", "at 100 MHz in a dielectric with εr = 4?", 0.3747},
        // 4·50·200/250²
        Worked{"Unmatched", "without any match", "50 Ω is connected to a load of 200 Ω", -1.938},
        // (9·256 - 14·16 + 9)/(4·16) = 32.64
        Worked{"Harmonic", "By how many dB", "matches 50 Ω to 800 Ω", 15.138},
        // 600·(√10 - 1)/(√10 + 1)
        Worked{"PadT", "two series resistors", "600 Ω line shall attenuate by 10 dB", 311.7},
        // 11.5²/2
        Worked{"Load", "from a linear stage",
               "1 W at a supply of 12 V and a saturation voltage of 500 mV", 66.125},
        Worked{"Points", "by the guide's rule",
               "highly nonlinear. About how many simulations until "
               "10 parameters",
               120}),
    [](const auto& row) { return row.param.name; });

TEST(QuizTest, EveryQuestionIsSoundWhateverNumbersAreDrawn) {
    // Decibels and plain numbers take no prefix.
    static const std::regex prefixed("mdB|[0-9] [kMGmunp][^A-Za-zΩ]");
    ASSERT_GE(QuizQuestionCount(), 30);
    for (int number = 0; number < QuizQuestionCount(); ++number) {
        std::set<std::string> texts;
        for (std::uint64_t seed = 0; seed < 60; ++seed) {
            const Question q = Drawn(number, seed);
            texts.insert(q.text);
            EXPECT_EQ((q.text + q.explanation).find(" nan"), std::string::npos) << q.text;
            EXPECT_FALSE(std::regex_search(q.text, prefixed)) << q.text;
            EXPECT_NE(q.explanation.find(q.answerText()), std::string::npos) << q.text;
            if (q.hasChoices()) {
                const std::set<std::string> different(q.choices.begin(), q.choices.end());
                EXPECT_EQ(different.size(), q.choices.size()) << q.text;
                EXPECT_GE(q.choices.size(), 2U);
                EXPECT_LE(q.choices.size(), 7U);
                continue;
            }
            EXPECT_TRUE(std::isfinite(q.answer) && q.answer != 0) << q.text;
            // What is shown as the answer is one; a tenth more is none.
            EXPECT_TRUE(q.accepts(q.answerText())) << q.text << q.answerText();
            Question shifted = q;
            shifted.answer *= 1.1;
            if (std::fabs(q.answer) > 2) {
                EXPECT_FALSE(q.accepts(shifted.answerText())) << q.text;
            }
            EXPECT_FALSE(q.accepts("")) << q.text;
        }
        EXPECT_GE(texts.size(), 2U) << "always the same: " << *texts.begin();
    }
}

/// The numbers of a text with the prefixes of their units: "5 from 50 Ω at 500 mW" gives 5, 50,
/// 0.5.
std::vector<double> NumbersIn(const std::string& text) {
    static const std::regex number("([0-9.]+)(?: ([kMGmunp]?)(W|V|Hz|Ω|F|H))?");
    std::vector<double> numbers;
    for (std::sregex_iterator at(text.begin(), text.end(), number), end; at != end; ++at) {
        numbers.push_back(ParseValue(at->str(1) + at->str(2)));
    }
    return numbers;
}

/// All draws of the question that asks for something.
std::vector<Question> DrawsOf(const std::string& asks) {
    std::vector<Question> draws;
    for (int number = 0; number < QuizQuestionCount(); ++number) {
        if (Drawn(number, 0).text.find(asks) == std::string::npos) continue;
        for (std::uint64_t seed = 0; seed < 300; ++seed) draws.push_back(Drawn(number, seed));
    }
    EXPECT_FALSE(draws.empty()) << asks;
    return draws;
}

TEST(QuizTest, ExplanationsOfApproximateRulesLeadToTheAnswer) {
    for (const Question& question : DrawsOf("Which voltage must the switch")) {
        const auto n = NumbersIn(question.text);  // Q, Ub, Usat
        const double rule = 3.6 * (n.at(1) - n.at(2)) + n.at(2);
        EXPECT_TRUE(question.accepts(FormatExact(rule))) << question.text << question.explanation;
    }
    for (const Question& question : DrawsOf("Which load resistance needs a class-E")) {
        const auto n = NumbersIn(question.text);  // P, Ub, Usat, Q
        const double swing = n.at(1) - n.at(2);
        const double Q = n.at(3);
        const double rule = 0.585 * (1 - 0.45 / Q - 0.4 / (Q * Q)) * swing * swing / n.at(0);
        EXPECT_TRUE(question.accepts(FormatExact(rule))) << question.text << question.explanation;
    }
    for (const Question& question : DrawsOf("About what does it lose")) {
        const auto n = NumbersIn(question.text);  // Q, R1, R2, element Q
        const double rule = 20 * std::log10(1 + 2 * n.at(0) / n.at(3));
        const auto distance = [rule](const std::string& choice) {
            return std::fabs(std::log(ParseValue(choice.substr(0, choice.find(' '))) / rule));
        };
        const auto nearest = std::ranges::min_element(question.choices, {}, distance);
        EXPECT_EQ(nearest - question.choices.begin(), question.correct)
            << question.text << question.explanation;
    }
}

TEST(QuizTest, ANewRoundDoesNotBeginWithTheQuestionThatEndedTheLast) {
    const auto what = [](const Quiz& quiz) {
        const std::string& text = quiz.question().explanation;
        return text.substr(0, text.find(" The answer is"));
    };
    for (std::uint64_t seed = 0; seed < 400; ++seed) {
        Quiz quiz(seed);
        for (int i = 1; i < QuizQuestionCount(); ++i) quiz.next();
        const std::string last = what(quiz);
        quiz.next();
        EXPECT_NE(what(quiz), last) << seed;
    }
}

TEST(QuizTest, AsksEveryQuestionOnceBeforeItRepeatsOne) {
    Quiz quiz(7);
    const int count = QuizQuestionCount();
    for (int i = 0; i < 2 * count; ++i) {
        const bool right = quiz.question().hasChoices()
                               ? quiz.choose(i % 2 == 0 ? quiz.question().correct : -1)
                               : quiz.answer(i % 2 == 0 ? quiz.question().answerText() : "x");
        EXPECT_EQ(right, i % 2 == 0) << quiz.question().text;
        quiz.choose(quiz.question().correct);  // a second answer does not count
        quiz.next();
    }
    EXPECT_EQ(quiz.asked(), 2 * count);
    EXPECT_EQ(quiz.right(), count);
}

TEST(QuizTest, TheSeedMakesTheRound) {
    Quiz first(3);
    Quiz same(3);
    Quiz other(4);
    int different = 0;
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(first.question().text, same.question().text);
        different += first.question().text != other.question().text;
        first.next();
        same.next();
        other.next();
    }
    EXPECT_GT(different, 15);
}

}  // namespace
}  // namespace kelvro
