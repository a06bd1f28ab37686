#include "ui/tools/calculator.h"

#include <QListWidget>

#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr int kLongestList = 200;
constexpr int kExpressionRole = Qt::UserRole;

/// Engineering text with as many decimals as a double keeps reliably, less its trailing zeros.
QString AllDigits(double value) {
    std::string text = FormatEngShort(12, value);
    const auto end = text.find_first_not_of("-0123456789.");
    const std::string suffix = end == std::string::npos ? "" : text.substr(end);
    text.resize(text.size() - suffix.size());
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return ToQString(text + suffix);
}

}  // namespace

TFormCalculator::TFormCalculator(QWidget* parent)
    : ToolWindow("TFormCalculator", tr("Calculator"), parent) {
    beginGroup(tr("Expression"));
    expression_ = addInput(
        "ExpressionEingabe",
        {tr("&Expression"), {}, tr("Enter keeps the line, the cursor keys bring it back")}, {});
    widenLast();
    result_ = addOutput("ResultAusgabe", {tr("Result"), {}, {}});
    widenLast();
    digits_ = addOutput("DigitsAusgabe", {tr("All digits"), {}, {}});
    widenLast();
    expression_->setMinimumWidth(expression_->fontMetrics().averageCharWidth() * 50);
    expression_->setAlignment(Qt::AlignLeft);
    lines_ = new QListWidget;
    lines_->setObjectName(QStringLiteral("LinesList"));
    addWide(lines_);
    setSource(tr(
        "Prefixes a f p n u m c d k M G T and mil behind numbers. Operators + - * / ^, functions "
        "sqrt, exp, ln, log (base 10), sin, cos, tan, asin, acos, atan (radian), abs, min, "
        "max, par(a; b) in parallel, dB(v) = 20 log v and its inverse lin(dB). Constants pi, "
        "e, c0, mu0, eps0; ans is the value kept last."));
    connect(expression_, &QLineEdit::returnPressed, this, &TFormCalculator::keepLine);
    connect(expression_, &InputEdit::stepped, this, &TFormCalculator::recall);
    connect(lines_, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { takeBack(lines_->row(item)); });
    finish();
}

void TFormCalculator::recalculate() {
    const Result<double> result = engine_.evaluate(expression_->text().toStdString());
    valid_ = result && !isEmpty(expression_);
    value_ = result ? *result : 0;
    setNote(Shown(result.message()));
    if (valid_) {
        write(result_, value_);
        digits_->setText(AllDigits(value_));
    } else {
        result_->clear();
        digits_->clear();
    }
}

void TFormCalculator::keepLine() {
    if (!valid_) return;
    auto* item = new QListWidgetItem(expression_->text().trimmed() + " = " + digits_->text());
    item->setData(kExpressionRole, expression_->text());
    lines_->addItem(item);
    if (lines_->count() > kLongestList) delete lines_->takeItem(0);
    lines_->setCurrentRow(-1);
    lines_->scrollToBottom();
    engine_.setAnswer(value_);
    expression_->selectAll();
}

/// Up goes to the line above, at first the last one; below the last one stands an empty line.
void TFormCalculator::recall(int direction) {
    const int count = lines_->count();
    if (count == 0) return;
    const int present = lines_->currentRow() < 0 ? count : lines_->currentRow();
    const int line = qBound(0, present - direction, count);
    if (line == count) {
        lines_->setCurrentRow(-1);
        expression_->clear();
        return;
    }
    lines_->setCurrentRow(line);
    takeBack(line);
}

void TFormCalculator::takeBack(int line) {
    expression_->setText(lines_->item(line)->data(kExpressionRole).toString());
    expression_->setFocus();
}

QString TFormCalculator::resultText() const {
    if (valid_) return digits_->text();
    return lines_->count() ? lines_->item(lines_->count() - 1)->text() : QString();
}

void TFormCalculator::showEvent(QShowEvent* event) {
    ToolWindow::showEvent(event);
    expression_->setFocus();
    expression_->selectAll();
}

}  // namespace kelvro
