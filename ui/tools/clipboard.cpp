#include "ui/tools/clipboard.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <algorithm>
#include <cmath>

#include "ui/fields.h"

namespace kelvro {

namespace {

constexpr qsizetype kLongestText = 1000000;
constexpr std::size_t kMostNumbers = 1000;

}  // namespace

TFormClipboard::TFormClipboard(QWidget* parent)
    : ToolWindow("TFormClipboard", tr("Clipboard"), parent) {
    beginGroup(tr("Text"));
    text_ = new QPlainTextEdit;
    text_->setObjectName(QStringLiteral("ClipboardText"));
    text_->setTabChangesFocus(true);
    addWide(text_);
    keep_ = new QCheckBox(tr("&Keep this text"));
    keep_->setObjectName(QStringLiteral("KeepCheck"));
    SetHint(*keep_, tr("Leaves the text as it is when something else is copied"));
    addWide(keep_);
    beginGroup(tr("Numbers in it"), Place::NewColumn);
    numbers_ = new QTableWidget(0, 2);
    numbers_->setObjectName(QStringLiteral("NumbersTable"));
    numbers_->setHorizontalHeaderLabels({tr("As written"), tr("Value")});
    SetHint(*numbers_, tr("What the text in the clipboard is read as"));
    numbers_->verticalHeader()->hide();
    numbers_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    numbers_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    numbers_->setSelectionBehavior(QAbstractItemView::SelectRows);
    addWide(numbers_);
    count_ = addOutput("CountAusgabe", {tr("Number"), {}, {}});
    sum_ = addOutput("SumAusgabe", {tr("Sum"), {}, {}});
    mean_ = addOutput("MeanAusgabe", {tr("Mean"), {}, {}});
    least_ = addOutput("LeastAusgabe", {tr("Smallest"), {}, {}});
    largest_ = addOutput("LargestAusgabe", {tr("Largest"), {}, {}});
    parallel_ =
        addOutput("ParallelAusgabe", {tr("In parallel"), {}, tr("1/sum of the reciprocals")});
    auto* copy = new QPushButton(tr("Copy &numbers"));
    copy->setObjectName(QStringLiteral("ButtonCopyNumbers"));
    copy->setAutoDefault(false);
    SetHint(*copy, tr("Copy the values of the chosen numbers, or of all, one per line"));
    addButton(copy);
    connect(copy, &QPushButton::clicked, this, &TFormClipboard::copyNumbers);
    connect(text_, &QPlainTextEdit::textChanged, this, &TFormClipboard::changed);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this,
            &TFormClipboard::takeClipboard);
    takeClipboard();
    finish();
}

void TFormClipboard::takeClipboard() {
    if (keep_->isChecked()) return;
    text_->setPlainText(QApplication::clipboard()->text().left(kLongestText));
}

void TFormClipboard::recalculate() {
    const QByteArray text = text_->toPlainText().toUtf8();
    const auto found =
        NumbersIn({text.constData(), static_cast<std::size_t>(text.size())}, kMostNumbers);
    std::vector<double> values;
    values.reserve(found.size());
    for (const FoundNumber& number : found) values.push_back(number.value);
    const ListSummary summary = SummaryOf(values);
    const bool any = !values.empty();
    const auto showIf = [any](OutputEdit* edit, double value) {
        write(edit, any ? value : std::nan(""));
    };
    writeFixed(count_, 0, static_cast<double>(values.size()));
    showIf(sum_, summary.sum);
    showIf(mean_, summary.mean);
    showIf(least_, summary.least);
    showIf(largest_, summary.largest);
    showIf(parallel_, summary.parallel);
    showNumbers(found, text);
    setNote(found.size() == kMostNumbers
                ? tr("Only the first %1 numbers are listed.").arg(kMostNumbers)
            : text.isEmpty() ? tr("There is no text on the clipboard.")
                             : QString());
}

void TFormClipboard::showNumbers(const std::vector<FoundNumber>& found, const QByteArray& text) {
    numbers_->setRowCount(static_cast<int>(found.size()));
    for (int row = 0; row < numbers_->rowCount(); ++row) {
        const FoundNumber& number = found[static_cast<std::size_t>(row)];
        const QString written = QString::fromUtf8(
            text.mid(static_cast<qsizetype>(number.at), static_cast<qsizetype>(number.length)));
        numbers_->setItem(row, 0, new QTableWidgetItem(written));
        numbers_->setItem(row, 1, new QTableWidgetItem(EngineeringText(number.value)));
    }
}

void TFormClipboard::copyNumbers() {
    const QModelIndexList chosen = numbers_->selectionModel()->selectedRows();
    QList<int> rows;
    for (const QModelIndex& index : chosen) rows << index.row();
    std::ranges::sort(rows);
    for (int row = 0; chosen.isEmpty() && row < numbers_->rowCount(); ++row) rows << row;
    QStringList values;
    for (const int row : rows) values << numbers_->item(row, 1)->text();
    if (!values.isEmpty()) QApplication::clipboard()->setText(values.join('\n'));
}

}  // namespace kelvro
