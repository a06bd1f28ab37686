#pragma once

#include <QDialog>
#include <memory>

#include "advise/quiz/quiz.h"

class QButtonGroup;
class QLabel;
class QPushButton;
class QRadioButton;
class QWidget;

namespace kelvro {

class InputEdit;

/// "Quiz": questions on matching with numbers drawn anew each time, an explanation after each
/// answer, and a score.
class TFormQuiz : public QDialog {
    Q_OBJECT

  public:
    explicit TFormQuiz(QWidget* parent = nullptr);

    /// A new round; the same seed gives the same questions.
    void start(std::uint64_t seed);
    const Quiz& quiz() const { return *quiz_; }

  public slots:
    void ButtonAnswerClick();
    void ButtonNextClick();
    void ButtonNewClick();

  private:
    QWidget* buildAnswer();
    QWidget* buildButtons();
    void showQuestion();
    void showOutcome(bool right);
    void showState();

    std::unique_ptr<Quiz> quiz_;
    QLabel* topic_;
    QLabel* question_;
    QWidget* numberRow_;
    InputEdit* number_;
    QLabel* unit_;
    QButtonGroup* choices_;
    QLabel* result_;
    QLabel* explanation_;
    QLabel* score_;
    QPushButton* answer_;
    QPushButton* next_;
};

}  // namespace kelvro
