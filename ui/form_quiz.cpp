#include "ui/form_quiz.h"

#include <QButtonGroup>
#include <QDateTime>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/form_parts.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr int kMostChoices = 7;
constexpr int kExplanationLines = 4;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* TextLabel(const char* name, double size, bool bold) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

}  // namespace

TFormQuiz::TFormQuiz(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("TFormQuiz"));
    setWindowTitle(tr("Quiz on Matching"));
    topic_ = TextLabel("LabelTopic", 1, false);
    question_ = TextLabel("LabelQuestion", 1.2, true);
    question_->setMinimumHeight(3 * QFontMetrics(question_->font()).lineSpacing());
    result_ = TextLabel("LabelResult", 1.1, true);
    explanation_ = TextLabel("LabelExplanation", 1, false);
    explanation_->setMinimumHeight(kExplanationLines * fontMetrics().lineSpacing());
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(topic_);
    rows->addWidget(question_);
    rows->addWidget(buildAnswer());
    rows->addStretch(1);
    rows->addWidget(line);
    rows->addWidget(result_);
    rows->addWidget(explanation_);
    rows->addWidget(buildButtons());
    resize(620, 460);
    ButtonNewClick();
}

QWidget* TFormQuiz::buildAnswer() {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    numberRow_ = new QWidget;
    auto* row = new QHBoxLayout(numberRow_);
    row->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(tr("Ans&wer"));
    number_ = new InputEdit(QStringLiteral("AnswerEingabe"));
    SetHint(*number_, tr("A number, with engineering prefix: 4.7n, 10.7M; 2 % off is near enough"));
    caption->setBuddy(number_);
    unit_ = new QLabel;
    row->addWidget(caption);
    row->addWidget(number_);
    row->addWidget(unit_);
    row->addStretch();
    column->addWidget(numberRow_);
    choices_ = new QButtonGroup(this);
    for (int i = 0; i < kMostChoices; ++i) {
        auto* choice = new QRadioButton;
        choice->setObjectName(QStringLiteral("RadioButtonChoice%1").arg(i + 1));
        SetHint(*choice, tr("One of these is right"));
        choices_->addButton(choice, i);
        column->addWidget(choice);
    }
    connect(number_, &QLineEdit::textChanged, this, &TFormQuiz::showState);
    connect(choices_, &QButtonGroup::idToggled, this, &TFormQuiz::showState);
    return box;
}

QWidget* TFormQuiz::buildButtons() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    score_ = new QLabel;
    score_->setObjectName(QStringLiteral("LabelScore"));
    row->addWidget(score_);
    row->addStretch();
    answer_ = AddButton<QPushButton>(*row, "ButtonAnswer", tr("&Answer"), tr("Check the answer"));
    next_ = AddButton<QPushButton>(*row, "ButtonNext", tr("&Next"),
                                   tr("Next question; an open one does not count"));
    auto* fresh = AddButton<QPushButton>(*row, "ButtonNew", tr("N&ew quiz"),
                                         tr("Start again with other numbers"));
    auto* close =
        AddButton<QPushButton>(*row, "ButtonClose", tr("C&lose"), tr("Close this window"));
    fresh->setAutoDefault(false);
    close->setAutoDefault(false);
    connect(answer_, &QPushButton::clicked, this, &TFormQuiz::ButtonAnswerClick);
    connect(next_, &QPushButton::clicked, this, &TFormQuiz::ButtonNextClick);
    connect(fresh, &QPushButton::clicked, this, &TFormQuiz::ButtonNewClick);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return bar;
}

void TFormQuiz::start(std::uint64_t seed) {
    quiz_ = std::make_unique<Quiz>(seed);
    showQuestion();
}

void TFormQuiz::ButtonNewClick() {
    start(static_cast<std::uint64_t>(QDateTime::currentMSecsSinceEpoch()));
}

void TFormQuiz::ButtonNextClick() {
    quiz_->next();
    showQuestion();
}

void TFormQuiz::ButtonAnswerClick() {
    if (quiz_->answered()) return;
    const bool chosen = quiz_->question().hasChoices();
    const std::string typed = number_->text().toStdString();
    if (!chosen && ParseNumber(typed).noDigits) {
        result_->setText(tr("Please type a number, such as 4.7n or 10.7M."));
        number_->selectAll();
        return number_->setFocus();
    }
    showOutcome(chosen ? quiz_->choose(choices_->checkedId()) : quiz_->answer(typed));
}

void TFormQuiz::showQuestion() {
    const Question& question = quiz_->question();
    topic_->setText(Shown(question.topic));
    question_->setText(Shown(question.text));
    result_->clear();
    explanation_->clear();
    numberRow_->setVisible(!question.hasChoices());
    number_->clear();
    unit_->setText(Text(question.unit));
    choices_->setExclusive(false);  // else one of them would stay checked
    for (int i = 0; i < kMostChoices; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const bool used = index < question.choices.size();
        QAbstractButton* choice = choices_->button(i);
        choice->setVisible(used);
        choice->setChecked(false);
        if (used) choice->setText(Shown(question.choices[index]));
    }
    choices_->setExclusive(true);
    showState();
    question.hasChoices() ? choices_->button(0)->setFocus() : number_->setFocus();
}

void TFormQuiz::showOutcome(bool right) {
    result_->setText(right ? tr("Right!")
                           : tr("Not right: %1").arg(Shown(quiz_->question().answerText())));
    explanation_->setText(Shown(quiz_->question().explanation));
    showState();
    next_->setFocus();
}

/// What may be pressed now, and what Enter does.
void TFormQuiz::showState() {
    const bool open = !quiz_->answered();
    const bool given = quiz_->question().hasChoices() ? choices_->checkedId() >= 0
                                                      : !number_->text().trimmed().isEmpty();
    answer_->setEnabled(open && given);
    number_->setReadOnly(!open);
    for (QAbstractButton* choice : choices_->buttons()) choice->setEnabled(open);
    answer_->setDefault(open);
    next_->setDefault(!open);
    score_->setText(tr("%1 of %2 right").arg(quiz_->right()).arg(quiz_->asked()));
}

}  // namespace kelvro
