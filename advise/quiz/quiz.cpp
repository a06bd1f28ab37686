#include "advise/quiz/quiz.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "advise/quiz/bank.h"

namespace kelvro {

namespace {

const std::vector<quiz::QuestionMaker>& Bank() {
    static const std::vector<quiz::QuestionMaker> bank = [] {
        std::vector<quiz::QuestionMaker> makers;
        for (const auto& topic :
             {quiz::NumberQuestions(), quiz::PartQuestions(), quiz::MatchQuestions(),
              quiz::ResponseQuestions(), quiz::PowerQuestions()}) {
            makers.insert(makers.end(), topic.begin(), topic.end());
        }
        return makers;
    }();
    return bank;
}

}  // namespace

int QuizQuestionCount() {
    return static_cast<int>(Bank().size());
}

Question DrawQuestion(int number, UniformStream& stream) {
    quiz::Numbers numbers(stream);
    return Bank()[static_cast<std::size_t>(number)](numbers);
}

Quiz::Quiz(std::uint64_t seed) : stream_(seed), order_(Bank().size()) {
    std::iota(order_.begin(), order_.end(), 0);
    shuffle();
    question_ = DrawQuestion(order_.front(), stream_);
}

void Quiz::shuffle() {
    for (std::size_t i = order_.size() - 1; i > 0; --i) {
        std::swap(order_[i],
                  order_[static_cast<std::size_t>(stream_.below(static_cast<int>(i) + 1))]);
    }
}

bool Quiz::score(bool right) {
    if (answered_) return lastRight_;
    answered_ = true;
    lastRight_ = right;
    ++asked_;
    if (right) ++right_;
    return right;
}

bool Quiz::answer(std::string_view typed) {
    return score(question_.accepts(typed));
}

bool Quiz::choose(int choice) {
    return score(question_.hasChoices() && choice == question_.correct);
}

void Quiz::next() {
    if (++position_ == order_.size()) {
        const int last = order_.back();
        position_ = 0;
        shuffle();
        // No question twice in a row.
        if (order_.front() == last) std::swap(order_.front(), order_.back());
    }
    question_ = DrawQuestion(order_[position_], stream_);
    answered_ = false;
}

}  // namespace kelvro
