#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "advise/quiz/question.h"
#include "core/random.h"

namespace kelvro {

/// Number of different questions in the bank.
int QuizQuestionCount();

/// One question of the bank, 0 to QuizQuestionCount() - 1, with its numbers drawn from the stream.
Question DrawQuestion(int number, UniformStream& stream);

/// A round of the quiz: all questions of the bank in random order, then all again in another, each
/// with numbers drawn anew. The same seed gives the same round.
class Quiz {
  public:
    explicit Quiz(std::uint64_t seed);

    const Question& question() const { return question_; }
    /// Answers the present question, once; more answers do not count. Returns whether it is right.
    bool answer(std::string_view typed);
    bool choose(int choice);
    bool answered() const { return answered_; }
    void next();

    int asked() const { return asked_; }  ///< questions answered so far
    int right() const { return right_; }

  private:
    void shuffle();
    bool score(bool right);

    UniformStream stream_;
    std::vector<int> order_;
    std::size_t position_ = 0;
    Question question_;
    bool answered_ = false;
    bool lastRight_ = false;
    int asked_ = 0;
    int right_ = 0;
};

}  // namespace kelvro
