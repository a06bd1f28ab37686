#include "ui/form_quiz.h"

#include <QtTest>
#include <QtWidgets>

#include "core/number_text.h"
#include "ui/fields.h"

namespace kelvro {

class FormQuizTest : public QObject {
    Q_OBJECT

  private slots:
    /// Answers a whole round by keyboard and mouse, every third question wrong.
    void aRoundCanBeAnsweredAndIsScored() {
        TFormQuiz form;
        form.start(5);
        form.show();
        int right = 0;
        for (int i = 0; i < QuizQuestionCount(); ++i) {
            const Question question = form.quiz().question();
            QCOMPARE(label(form, "LabelQuestion"), QString::fromStdString(question.text));
            QVERIFY(!button(form, "ButtonAnswer").isEnabled());
            const bool wrong = i % 3 == 2;
            give(form, question, wrong);
            QTest::mouseClick(&button(form, "ButtonAnswer"), Qt::LeftButton);
            right += !wrong;
            QCOMPARE(label(form, "LabelResult") == "Right!", !wrong);
            QCOMPARE(label(form, "LabelExplanation"), QString::fromStdString(question.explanation));
            QCOMPARE(label(form, "LabelScore"), QString("%1 of %2 right").arg(right).arg(i + 1));
            QVERIFY(!button(form, "ButtonAnswer").isEnabled());
            QTest::mouseClick(&button(form, "ButtonNext"), Qt::LeftButton);
            QCOMPARE(label(form, "LabelExplanation"), QString());
        }
    }

    void textWithoutNumberIsNoAnswer() {
        TFormQuiz form;
        std::uint64_t seed = 0;
        do form.start(seed++);
        while (form.quiz().question().hasChoices());
        form.show();
        auto* edit = form.findChild<InputEdit*>("AnswerEingabe");
        QTest::keyClicks(edit, "abc");
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(!form.quiz().answered());
        QVERIFY(label(form, "LabelResult").contains("type a number"));
        edit->clear();
        edit->setText(QString::fromStdString(form.quiz().question().answerText()));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(label(form, "LabelResult"), "Right!");
    }

    void aNewQuizForgetsTheScoreAndEscapeCloses() {
        TFormQuiz form;
        form.start(1);
        form.show();
        give(form, form.quiz().question(), false);
        QTest::mouseClick(&button(form, "ButtonAnswer"), Qt::LeftButton);
        QCOMPARE(label(form, "LabelScore"), "1 of 1 right");
        QTest::mouseClick(&button(form, "ButtonNew"), Qt::LeftButton);
        QCOMPARE(label(form, "LabelScore"), "0 of 0 right");
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    }

  private:
    static QString label(TFormQuiz& form, const char* name) {
        return form.findChild<QLabel*>(QLatin1String(name))->text();
    }
    static QPushButton& button(TFormQuiz& form, const char* name) {
        return *form.findChild<QPushButton*>(QLatin1String(name));
    }
    static void give(TFormQuiz& form, const Question& question, bool wrong) {
        if (!question.hasChoices()) {
            const QString typed = QString::fromStdString(FormatExact(question.answer));
            QTest::keyClicks(form.findChild<InputEdit*>("AnswerEingabe"), wrong ? "1e15" : typed);
            return;
        }
        const int count = static_cast<int>(question.choices.size());
        const int choice = wrong ? (question.correct + 1) % count : question.correct;
        auto* radio =
            form.findChild<QRadioButton*>(QStringLiteral("RadioButtonChoice%1").arg(choice + 1));
        QTest::mouseClick(radio, Qt::LeftButton, {}, {8, 8});
    }
};

}  // namespace kelvro

QTEST_MAIN(kelvro::FormQuizTest)
#include "form_quiz_test.moc"
